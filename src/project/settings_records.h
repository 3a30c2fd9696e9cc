#pragma once
// The two records that the program keeps between runs: program settings and
// the default attributes of new objects. Their bytes are the file format.

#include <cstdint>
#include <string>

#include <QString>

#include "render/attr_records.h"
#include "render/fixed_string.h"
#include "render/font_records.h"
#include "render/text_records.h"

namespace orv {

constexpr uint16_t LANG_ENGLISH = 9;
constexpr uint16_t LANG_KOREAN = 18;

enum EBackKind : uint32_t { BACK_COLOR = 0, BACK_CHECKER = 1, BACK_IMAGE = 2 };

#pragma pack(push, 1)

struct UstEnv {
    uint32_t bPreviewLeft;
    uint32_t bAutoSave;
    uint32_t nAutoSaveMin;  // 1 to 60
    uint16_t nLanguage;     // 9 English, 18 Korean
    uint32_t nBackKind;     // EBackKind
    uint32_t clrBack;       // ARGB
    uint32_t nCheckerSize;  // 10 to 20
    char16_t szBackImage[260];
    uint32_t bGrid;
    uint32_t nGridStep;  // 5 to 50
    uint32_t clrGrid;    // ARGB
    uint32_t bSafety;
    uint32_t nSafeOuter;  // percent, 1 to 15
    uint32_t nSafeInner;  // percent, 16 to 30 on the slider; the default 11 lies below
    uint32_t bMarkSD;
    uint8_t reserved[16];
};
static_assert(sizeof(UstEnv) == 590);

#pragma pack(pop)

UstEnv MakeDefaultEnv(uint16_t language);

// Font block defaults: the character set and pitch and family of the plain
// interface font, its face name and size 72.
UstDefaultAttr MakeDefaultDefaultAttr(const std::u16string& guiFace);

}  // namespace orv
