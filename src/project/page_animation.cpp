// The page's side of animations: inserting them from files, their play
// count, and the list that live playout takes.
#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "project/object_folder.h"
#include "project/page_manager.h"

namespace orv {

namespace {

void Collect(const std::vector<std::unique_ptr<CQRDObject>>& objects, float sx, float sy,
             std::vector<UstAniPlay>& out) {
    for (const auto& o : objects) {
        if (o->GetType() == OBJ_GROUP) {
            Collect(static_cast<const CQRDObjectGroup&>(*o).Members(), sx, sy, out);
            continue;
        }
        UstAniPlay entry;
        if (o->GetType() == OBJ_ANIMATION &&
            static_cast<const CQRDObjectAni&>(*o).OpenAnimation(entry, sx, sy))
            out.push_back(entry);
    }
}

}  // namespace

CQRDObjectAni* CPageManager::InsertAnimation(const QString& source) {
    auto animation = MakeAnimation(source);
    return animation ? static_cast<CQRDObjectAni*>(InsertNew(std::move(animation))) : nullptr;
}

std::unique_ptr<CQRDObjectAni> CPageManager::MakeAnimation(const QString& source) {
    if (!m_pDoc || !m_pDoc->FileLinks() || source.isEmpty()) return nullptr;
    // Opened before anything is copied: a file no source reads leaves no trace.
    const std::unique_ptr<MediaPlayer> player = CreateMediaPlayer(source);
    if (!player) return nullptr;
    QString name;
    if (!CopyToObjectFolder(source, name, ObjectFolder(), *m_pDoc->FileLinks())) return nullptr;
    const UstMediaInfo* info = player->GetInfo();
    auto animation =
        std::make_unique<CQRDObjectAni>(this, name, UstRect{0, 0, info->nWidth, info->nHeight});
    animation->TakeStillFrame(*player);
    return animation;
}

int CPageManager::AnimationProperties(const void* repeat) {
    if (!repeat || !OneSelectedOfKind(OBJ_ANIMATION)) return 0;
    if (!m_selection.front()->Execute(repeat, CMD_ANIMATION_PROPERTIES)) return 0;
    return Tail();
}

void CPageManager::CollectAnimations(std::vector<UstAniPlay>& out, int w, int h) const {
    const float sx =
        m_pDoc ? static_cast<float>(w) / static_cast<float>(m_pDoc->FrameWidth()) : 1.0f;
    const float sy =
        m_pDoc ? static_cast<float>(h) / static_cast<float>(m_pDoc->FrameHeight()) : 1.0f;
    Collect(m_objects, sx, sy, out);
}

}  // namespace orv
