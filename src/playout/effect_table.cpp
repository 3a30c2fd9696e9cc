#include "playout/effect_table.h"

#include <algorithm>

#include "project/settings_records.h"

namespace orv {

namespace {

using F = EEffectFamily;
using G = EEffectGroup;

// The irregular entries (204 and 102 of the wheels, 46 of "Wipe Right", the
// speed-7 entry of "Wipe Left", the slow start of the blinds) are data that
// operators' timings rest on: they stay as they are.
constexpr UstEffectRow ROWS[EFFECT_COUNT] = {
    {0, F::ROLL, G::PAGE_TYPE, "", "", {2, 4, 6, 8, 10, 12, 14, 16, 18, 20}},
    {1, F::CRAWL, G::PAGE_TYPE, "", "", {2, 4, 8, 10, 12, 14, 16, 18, 22, 24}},
    {2, F::CUT, G::NO_TRANSITION, "No transition", "효과없음", {}},
    {3, F::CUT, G::CUT_DISSOLVE_PUSHES, "Cut", "잘라내기", {}},
    {4, F::FADE, G::CUT_DISSOLVE_PUSHES, "Fade", "페이드", {}},
    {5,
     F::DISSOLVE,
     G::CUT_DISSOLVE_PUSHES,
     "Dissolve",
     "디졸브",
     {20, 30, 40, 50, 60, 70, 80, 90, 100, 120}},
    {6,
     F::PUSH,
     G::CUT_DISSOLVE_PUSHES,
     "Push down",
     "아래로 밀어내기",
     {8, 10, 12, 14, 16, 18, 20, 30, 40, 50}},
    {7,
     F::PUSH,
     G::CUT_DISSOLVE_PUSHES,
     "Push left",
     "왼쪽으로 밀어내기",
     {8, 10, 12, 14, 16, 18, 20, 30, 40, 50}},
    {8,
     F::PUSH,
     G::CUT_DISSOLVE_PUSHES,
     "Push right",
     "오른쪽으로 밀어내기",
     {8, 10, 12, 14, 16, 18, 20, 30, 40, 50}},
    {9,
     F::PUSH,
     G::CUT_DISSOLVE_PUSHES,
     "Push up",
     "위로 밀어내기",
     {8, 10, 12, 14, 16, 18, 20, 30, 40, 50}},
    {10,
     F::BLINDS,
     G::STRIPS_AND_BARS,
     "Blinds Horizontal",
     "가로 블라인드",
     {1, 2, 4, 8, 12, 16, 18, 20, 24, 26}},
    {11,
     F::BLINDS,
     G::STRIPS_AND_BARS,
     "Blinds Vertical",
     "세로 블라인드",
     {2, 4, 8, 12, 16, 20, 24, 28, 32, 36}},
    {12,
     F::CHECKERBOARD,
     G::STRIPS_AND_BARS,
     "Checkerboard Across",
     "가로 바둑판 무늬",
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
    {13,
     F::CHECKERBOARD,
     G::STRIPS_AND_BARS,
     "Checkerboard Down",
     "세로 바둑판 무늬",
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
    {14,
     F::COMB,
     G::STRIPS_AND_BARS,
     "Comb Horizontal",
     "가로 빗살",
     {4, 8, 16, 20, 24, 28, 32, 36, 40, 50}},
    {15,
     F::COMB,
     G::STRIPS_AND_BARS,
     "Comb Vertical",
     "세로 빗살",
     {4, 8, 16, 20, 24, 28, 32, 36, 40, 50}},
    {16,
     F::RANDOM_BARS,
     G::STRIPS_AND_BARS,
     "Random Bars Horizontal",
     "가로 임의 막대",
     {10, 20, 30, 40, 50, 60, 70, 80, 90, 100}},
    {17,
     F::RANDOM_BARS,
     G::STRIPS_AND_BARS,
     "Random Bars Vertical",
     "세로 임의 막대",
     {10, 20, 30, 40, 50, 60, 70, 80, 90, 100}},
    {18, F::WIPE, G::WIPES, "Wipe Down", "아래로 닦아내기", {4, 6, 10, 15, 20, 25, 30, 35, 40, 50}},
    {19,
     F::WIPE,
     G::WIPES,
     "Wipe Left",
     "왼쪽으로 닦아내기",
     {6, 12, 18, 24, 30, 36, 40, 50, 60, 70}},
    {20,
     F::WIPE,
     G::WIPES,
     "Wipe Right",
     "오른쪽으로 닦아내기",
     {6, 12, 18, 24, 30, 36, 46, 50, 60, 70}},
    {21, F::WIPE, G::WIPES, "Wipe Up", "위로 닦아내기", {4, 6, 10, 15, 20, 25, 30, 35, 40, 50}},
    {22, F::BOX, G::WIPES, "Box In", "상자 안쪽으로", {2, 4, 6, 9, 12, 15, 20, 26, 30, 36}},
    {23, F::BOX, G::WIPES, "Box Out", "상자 바깥쪽으로", {2, 4, 6, 9, 12, 15, 20, 26, 30, 36}},
    {24, F::PLUS, G::WIPES, "Shape Plus", "더하기 모양", {2, 4, 6, 9, 12, 15, 20, 26, 30, 36}},
    {25, F::WEDGE, G::WIPES, "wedge", "쐐기형", {8, 12, 16, 24, 32, 40, 48, 56, 64, 72}},
    {26,
     F::WHEEL,
     G::WIPES,
     "Wheel Clockwise, 1 Spoke",
     "시계 방향 바퀴, 살 1개",
     {32, 48, 64, 96, 128, 160, 192, 204, 256, 288}},
    {27,
     F::WHEEL,
     G::WIPES,
     "Wheel Clockwise, 2 Spoke",
     "시계 방향 바퀴, 살 2개",
     {16, 24, 32, 48, 64, 80, 96, 102, 128, 144}},
    {28,
     F::WHEEL,
     G::WIPES,
     "Wheel Clockwise, 3 Spoke",
     "시계 방향 바퀴, 살 3개",
     {12, 18, 24, 36, 48, 60, 72, 84, 96, 108}},
    {29,
     F::WHEEL,
     G::WIPES,
     "Wheel Clockwise, 4 Spoke",
     "시계 방향 바퀴, 살 4개",
     {8, 12, 16, 24, 32, 40, 48, 56, 64, 72}},
    {30,
     F::WHEEL,
     G::WIPES,
     "Wheel Clockwise, 8 Spoke",
     "시계 방향 바퀴, 살 8개",
     {4, 6, 8, 12, 16, 20, 24, 28, 32, 36}},
    {31,
     F::SPLIT,
     G::WIPES,
     "Split Horizontal In",
     "가로 안쪽으로 나누기",
     {2, 4, 6, 8, 10, 12, 14, 16, 20, 24}},
    {32,
     F::SPLIT,
     G::WIPES,
     "Split Horizontal Out",
     "가로 바깥쪽으로 나누기",
     {2, 4, 6, 8, 10, 12, 14, 16, 20, 24}},
    {33,
     F::SPLIT,
     G::WIPES,
     "Split Vertical In",
     "세로 안쪽으로 나누기",
     {2, 4, 8, 12, 16, 20, 24, 28, 32, 36}},
    {34,
     F::SPLIT,
     G::WIPES,
     "Split Vertical Out",
     "세로 바깥쪽으로 나누기",
     {2, 4, 8, 12, 16, 20, 24, 28, 32, 36}},
};

struct UstGroupName {
    const char* szName;
    const char* szNameKo;
};

constexpr UstGroupName GROUPS[GALLERY_GROUP_COUNT] = {
    {"No transition", "효과없음"},
    {"Cut, Dissolve, and Pushes", "나타내기 및 밀어내기"},
    {"Strips and Bars", "줄무늬 및 실선무늬"},
    {"Wipes", "닦아내기"},
};

}  // namespace

std::span<const UstEffectRow, EFFECT_COUNT> EffectTable() {
    return std::span<const UstEffectRow, EFFECT_COUNT>(ROWS);
}

const UstEffectRow* FindEffectRow(int number) {
    return number >= 0 && number < EFFECT_COUNT ? &ROWS[number] : nullptr;
}

QString EffectName(int number, uint16_t language) {
    const UstEffectRow* row = FindEffectRow(number);
    if (!row) return {};
    return QString::fromUtf8(language == LANG_KOREAN ? row->szNameKo : row->szName);
}

QString EffectGroupName(int group, uint16_t language) {
    if (group < 0 || group >= GALLERY_GROUP_COUNT) return {};
    const UstGroupName& g = GROUPS[group];
    return QString::fromUtf8(language == LANG_KOREAN ? g.szNameKo : g.szName);
}

int EffectGalleryGroup(int number) {
    const UstEffectRow* row = FindEffectRow(number);
    if (!row || row->eGroup == EEffectGroup::PAGE_TYPE) return -1;
    return static_cast<int>(row->eGroup) - static_cast<int>(EEffectGroup::NO_TRANSITION);
}

int ClampSpeed(int speed) {
    return std::clamp(speed, 1, SPEED_COUNT);
}

int EffectStep(const UstEffectRow& row, int speed) {
    return row.steps[static_cast<size_t>(ClampSpeed(speed) - 1)];
}

}  // namespace orv
