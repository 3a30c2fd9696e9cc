// The page's side of timers and clocks: a new one from the dialog's record,
// and new settings for the one selected.
#include "objects/tc_object.h"
#include "project/page_manager.h"
#include "project/settings_records.h"
#include "render/font_service.h"

namespace orv {

CQRDObjectTC* CPageManager::InsertTimer(const UstTCSetting& setting) {
    const CTextEditHost* host = EditHost();
    const UstDefaultAttr look =
        host ? host->DefaultAttr() : MakeDefaultDefaultAttr(DefaultGuiFaceName());
    // Placed a little in from the corner, where a clock usually stands; the
    // origin is the baseline, so it goes one size down.
    const float x = 100.0f, y = 100.0f + static_cast<float>(int32_t{look.font.nSize});
    auto timer = std::make_unique<CQRDObjectTC>(this, look, setting, x, y);
    return static_cast<CQRDObjectTC*>(InsertNew(std::move(timer)));
}

int CPageManager::TimerProperties(const void* setting) {
    if (!setting || !OneSelectedOfKind(OBJ_TIMER)) return 0;
    auto* timer = static_cast<CQRDObjectTC*>(m_selection.front());
    const UstRect before = timer->GetInvalidRect();
    timer->SetSetting(*static_cast<const UstTCSetting*>(setting));
    Redraw(before);
    return Tail();
}

}  // namespace orv
