#include "project/settings_records.h"

#include <algorithm>
#include <cstring>

namespace orv {

namespace {
// "Whatever the face offers", and a proportional sans-serif face.
constexpr uint8_t GUI_FONT_CHARSET = 1;
constexpr uint8_t GUI_FONT_PITCH_FAMILY = 0x22;
constexpr int32_t DEFAULT_FONT_SIZE = 72;
}  // namespace

UstEnv MakeDefaultEnv(uint16_t language) {
    UstEnv e;
    std::memset(&e, 0, sizeof e);
    e.bPreviewLeft = 0;
    e.bAutoSave = 1;
    e.nAutoSaveMin = 5;
    e.nLanguage = language;
    e.nBackKind = BACK_CHECKER;
    e.clrBack = 0xFFFFFFFFu;
    e.nCheckerSize = 15;
    e.bGrid = 0;
    e.nGridStep = 10;
    e.clrGrid = 0xFF000000u;
    e.bSafety = 1;
    e.nSafeOuter = 6;
    e.nSafeInner = 11;
    e.bMarkSD = 0;
    return e;
}

UstDefaultAttr MakeDefaultDefaultAttr(const std::u16string& guiFace) {
    UstDefaultAttr d;
    std::memset(&d, 0, sizeof d);
    d.attr = MakeDefaultAttr();
    d.effect = MakeDefaultEffect();
    d.font.nCharSet = GUI_FONT_CHARSET;
    d.font.nPitchFamily = GUI_FONT_PITCH_FAMILY;
    d.font.nSize = DEFAULT_FONT_SIZE;
    QStringToFixed(QString::fromStdU16String(guiFace), &d.font.szFace);
    d.metric.nWidth = 100;
    return d;
}

}  // namespace orv
