#pragma once
// The table of effects: one row per effect number, with the names and the
// gallery group the operator sees, the family of routines that draws it, and
// the step of each of the ten speeds. The ribbon's gallery, the preview pane
// and the engine all read it from here.

#include <QString>

#include <array>
#include <cstdint>
#include <span>

namespace orv {

inline constexpr int EFFECT_COUNT = 35;
inline constexpr int SPEED_COUNT = 10;
// The gallery's entry i stands for effect i + GALLERY_FIRST_EFFECT; the rows
// before it are reached only through the page type.
inline constexpr int GALLERY_FIRST_EFFECT = 2;
inline constexpr int GALLERY_SIZE = EFFECT_COUNT - GALLERY_FIRST_EFFECT;

inline constexpr int EFFECT_ROLL = 0;
inline constexpr int EFFECT_CRAWL = 1;
inline constexpr int EFFECT_NONE = 2;
inline constexpr int EFFECT_CUT = 3;
inline constexpr int EFFECT_FADE = 4;

enum class EEffectFamily {
    ROLL,
    CRAWL,
    CUT,
    FADE,
    DISSOLVE,
    PUSH,
    BLINDS,
    CHECKERBOARD,
    COMB,
    RANDOM_BARS,
    WIPE,
    BOX,
    PLUS,
    WEDGE,
    WHEEL,
    SPLIT
};

enum class EEffectGroup {
    PAGE_TYPE,  // roll and crawl: not in the gallery
    NO_TRANSITION,
    CUT_DISSOLVE_PUSHES,
    STRIPS_AND_BARS,
    WIPES
};
inline constexpr int GALLERY_GROUP_COUNT = 4;

struct UstEffectRow {
    int32_t nNumber;
    EEffectFamily eFamily;
    EEffectGroup eGroup;
    const char* szName;    // UTF-8, English
    const char* szNameKo;  // UTF-8, Korean
    std::array<int32_t, SPEED_COUNT> steps;
};

// All 35 rows in the order of their numbers.
std::span<const UstEffectRow, EFFECT_COUNT> EffectTable();
// The row of an effect number; null outside 0 to 34.
const UstEffectRow* FindEffectRow(int number);

// The name shown for an effect number in the language (Korean for
// LANG_KOREAN, English otherwise); empty for the rows outside the gallery.
QString EffectName(int number, uint16_t language);
// The name of a gallery group, 0 "No transition" to 3 "Wipes"; empty
// outside that range.
QString EffectGroupName(int group, uint16_t language);
// The gallery group (0 to 3) of an effect number, -1 outside the gallery.
int EffectGalleryGroup(int number);

// The step of a speed, 1 to 10; speeds outside are taken as the nearest.
int EffectStep(const UstEffectRow& row, int speed);
int ClampSpeed(int speed);

}  // namespace orv
