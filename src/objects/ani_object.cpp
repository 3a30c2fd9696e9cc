// The animation object's state, commands, file forms and play record; its
// still and preview are drawn in ani_draw.cpp.
#include "objects/ani_object.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

#include "media/media_factory.h"
#include "objects/archive_fields.h"
#include "render/pixels.h"

namespace orv {

CQRDObjectAni::CQRDObjectAni(CPageContext* page, const QString& file, const UstRect& stored)
    : CQRDObject(page), m_strFile(file) {
    m_rcStored = stored;
    UpdateView();
    RecalcHandles();
}

CQRDObjectAni::~CQRDObjectAni() = default;

QString CQRDObjectAni::FilePath() const {
    const QString folder = m_pPage ? m_pPage->ObjectFolder() : QString();
    return folder.isEmpty() ? m_strFile : QDir(folder).filePath(m_strFile);
}

void CQRDObjectAni::AfterLoad() {
    CQRDObject::AfterLoad();
    if (!m_pPage) return;
    if (m_strFile.isEmpty() || !QFileInfo(FilePath()).isFile()) {
        m_pPage->ObjectRemovedItself(this);
        return;
    }
    // A file of a kind no source reads stays on the page without a still.
    if (!m_pStill)
        if (auto player = CreateMediaPlayer(FilePath())) TakeStillFrame(*player);
}

void CQRDObjectAni::FreeStill() {
    m_pStill.reset();
    m_nStillWidth = m_nStillHeight = 0;
    m_pScaled.reset();
}

void CQRDObjectAni::Attach(CPageContext* page) {
    m_pPage = page;
    m_rcView = {};
    m_rcHandle = {};
    m_pScaled.reset();
}

void CQRDObjectAni::ReleaseCache() {
    FreeStill();
}

void CQRDObjectAni::OnZoom() {
    CQRDObject::OnZoom();
    m_pScaled.reset();
}

bool CQRDObjectAni::Execute(const void* args, uint32_t code) {
    if (code != CMD_ANIMATION_PROPERTIES) return CQRDObject::Execute(args, code);
    if (!args) return false;
    const int32_t repeat = std::clamp(*static_cast<const int32_t*>(args), 0, MAX_ANIMATION_REPEAT);
    if (repeat == m_words.nRepeat) return false;
    m_words.nRepeat = repeat;
    return true;
}

int CQRDObjectAni::OpenAnimation(UstAniPlay& out, float scaleX, float scaleY) const {
    const QString path = FilePath();
    if (m_strFile.isEmpty() || !QFileInfo(path).isFile()) return 0;
    out.strFile = path;
    out.rcTarget = {RoundToInt(static_cast<float>(m_rcStored.left) * scaleX),
                    RoundToInt(static_cast<float>(m_rcStored.top) * scaleY),
                    RoundToInt(static_cast<float>(m_rcStored.right) * scaleX),
                    RoundToInt(static_cast<float>(m_rcStored.bottom) * scaleY)};
    out.pWords = &m_words;
    out.pObject = this;
    return 1;
}

void CQRDObjectAni::Serialize(CByteWriter& out) const {
    WriteArchiveHead(out);
    out.Put(m_rcStored);
    WriteArchiveString(out, m_strFile);
    out.Put(m_words);
}

bool CQRDObjectAni::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_rcStored = in.Get<UstRect>();
    m_strFile = ReadArchiveString(in);
    m_words = in.Get<UstAniWords>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedRect(m_rcStored, "an animation");
    FreeStill();
    UpdateView();
    RecalcHandles();
    return true;
}

void CQRDObjectAni::SaveStateBody(CByteWriter& out) const {
    out.Put(m_words);
    WriteArchiveString(out, m_strFile);
}

bool CQRDObjectAni::LoadStateBody(CByteReader& in, int) {
    m_words = in.Get<UstAniWords>();
    const QString file = ReadArchiveString(in);
    if (file != m_strFile) {
        m_strFile = file;
        FreeStill();
    }
    m_pScaled.reset();
    return true;
}

void CQRDObjectAni::RelinkMedia(const MediaRename& rename) {
    const QString file = rename(m_strFile);
    if (file == m_strFile) return;
    m_strFile = file;
    FreeStill();
}

}  // namespace orv
