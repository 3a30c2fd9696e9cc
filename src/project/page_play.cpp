#include "objects/group_object.h"
#include "objects/text_object.h"
#include "project/page_manager.h"

namespace orv {

namespace {

bool AnyObject(const std::vector<std::unique_ptr<CQRDObject>>& objects,
               bool (*test)(const CQRDObject&)) {
    for (const auto& o : objects) {
        if (test(*o)) return true;
        if (o->GetType() == OBJ_GROUP &&
            AnyObject(static_cast<const CQRDObjectGroup&>(*o).Members(), test))
            return true;
    }
    return false;
}

}  // namespace

bool CPageManager::HasBlinkObject() const {
    return AnyObject(m_objects, [](const CQRDObject& o) { return o.GetBlink(); });
}

bool CPageManager::HasTypingObject() const {
    return AnyObject(m_objects, [](const CQRDObject& o) { return o.GetTyping(); });
}

namespace {

void CollectTyping(const std::vector<std::unique_ptr<CQRDObject>>& objects,
                   std::vector<CQRDObjectText*>& out) {
    for (const auto& o : objects) {
        if (o->GetType() == OBJ_GROUP)
            CollectTyping(static_cast<const CQRDObjectGroup&>(*o).Members(), out);
        else if (o->GetType() == OBJ_TEXT && o->GetTyping())
            out.push_back(static_cast<CQRDObjectText*>(o.get()));
    }
}

}  // namespace

std::vector<CQRDObjectText*> CPageManager::TypingTexts() const {
    std::vector<CQRDObjectText*> out;
    CollectTyping(m_objects, out);
    return out;
}

// A scroll page moves its animations with its strips; only a Cut page gives
// them a stage of their own on air.
bool CPageManager::HasAnimation() const {
    if (m_nPageType != 0 || m_objects.empty()) return false;
    return AnyObject(m_objects, [](const CQRDObject& o) { return o.GetType() == OBJ_ANIMATION; });
}

}  // namespace orv
