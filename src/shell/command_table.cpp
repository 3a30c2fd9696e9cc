#include "shell/command_table.h"

#include <algorithm>
#include <limits>

namespace orv {

namespace {

using K = ECommandKind;
using R = ECommandRule;

constexpr UstCommandTab TABS[] = {
    {5000, "Home", "홈", true},         {5001, "Text", "텍스트", true},
    {5002, "Shape", "도형", true},      {5003, "Picture", "그림", true},
    {5004, "Background", "배경", true}, {5007, "Color", "색상", true},
    {5005, "Run", "실행", false},
};

constexpr UstCommandGroup GROUPS[] = {
    {4000, 5000, "Tool", "도구"},
    {4004, 5000, "Draw", "그리기"},
    {4001, 5000, "Edit", "편집"},
    {4003, 5000, "Fill", "채우기"},
    {4032, 5000, "RGB", "RGB"},
    {4005, 5000, "Palette", "팔레트"},
    {4007, 5000, "Edge", "테두리"},
    {4008, 5000, "Shadow", "그림자"},
    {4029, 5000, "Play", "재생"},
    {4038, 5000, "Hardware", "하드웨어"},
    {4018, 5001, "Text Style", "텍스트 스타일"},
    {4039, 5001, "Symbol", "기호"},
    {4016, 5001, "Attributes", "속성"},
    {4020, 5002, "Shape Style", "도형 스타일"},
    {4013, 5003, "Picture Style", "그림 스타일"},
    {4015, 5003, "Attributes", "속성"},
    {4014, 5004, "Background Style", "배경 스타일"},
    {4021, 5007, "Color Style", "색상 스타일"},
    {4023, 5005, "In Effect", "시작 효과"},
    {4024, 5005, "Out Effect", "끝 효과"},
    {4034, 5005, "Effect", "효과"},
    {4030, 5005, "Scroll", "스크롤"},
    {4026, 5005, "Run", "실행"},
};

// In each group the order of the ribbon, left to right.
constexpr UstCommand COMMANDS[] = {
    // Home: Tool
    {202, 4000, K::COMBO, R::EDIT, "Font face of the text\nFont Face", "글꼴", ""},
    {2002, 4000, K::GALLERY, R::EDIT, "Fonts\nFonts", "글꼴 목록", "", 0, 0, 202},
    {203, 4000, K::EDIT, R::EDIT, "Font size of the text\nFont Size\nSize", "글꼴 크기", "", 1,
     1001},
    {2003, 4000, K::GALLERY, R::EDIT, "Font sizes\nSizes", "크기 목록", "", 0, 0, 203},
    {204, 4000, K::STEP, R::EDIT, "Grow font\nGrow Font", "글꼴 크게", "", 0, 0, 203, 1, "Ctrl+]"},
    {205, 4000, K::STEP, R::EDIT, "Shrink font\nShrink Font", "글꼴 작게", "", 0, 0, 203, -1,
     "Ctrl+["},
    {736, 4000, K::COMBO, R::EFFECT, "Type of the page\nPage Type", "페이지 종류", ""},
    {57635, 4000, K::BUTTON, R::EDIT, "Cut the selection\nCut", "잘라내기", "edit-cut", 0, 0, 0, 0,
     "Ctrl+X"},
    {57634, 4000, K::BUTTON, R::EDIT, "Copy the selection\nCopy", "복사", "edit-copy", 0, 0, 0, 0,
     "Ctrl+C"},
    {57637, 4000, K::BUTTON, R::EDIT, "Paste\nPaste", "붙여넣기", "edit-paste", 0, 0, 0, 0,
     "Ctrl+V"},
    // Home: Draw
    {207, 4004, K::TOGGLE, R::EDIT, "Edit Text.\nText", "텍스트 편집", "insert-text"},
    {247, 4004, K::BUTTON, R::SELECTION, "Order of the objects\nOrder", "순서",
     "object-order-front"},
    {1500, 4004, K::ITEM, R::SELECTION, "Bring objects to front\nBring to Front", "맨 앞으로", "",
     0, 0, 247},
    {1501, 4004, K::ITEM, R::SELECTION, "Send objects to back\nSend to Back", "맨 뒤로", "", 0, 0,
     247},
    {1502, 4004, K::ITEM, R::SELECTION, "Bring objects forward\nBring Forward", "앞으로", "", 0, 0,
     247},
    {1503, 4004, K::ITEM, R::SELECTION, "Send objects backward\nSend Backward", "뒤로", "", 0, 0,
     247},
    {248, 4004, K::BUTTON, R::SELECTION, "Align the objects\nAlign", "맞춤",
     "format-justify-center"},
    {504, 4004, K::ITEM, R::SELECTION, "Align objects to center\nAlign to center", "가운데로", "",
     0, 0, 248},
    {507, 4004, K::ITEM, R::SELECTION, "Align to left\nAlign to left", "왼쪽으로", "", 0, 0, 248},
    {508, 4004, K::ITEM, R::SELECTION, "Align to right\nAlign to right", "오른쪽으로", "", 0, 0,
     248},
    {509, 4004, K::ITEM, R::SELECTION, "Align to top\nAlign to top", "위쪽으로", "", 0, 0, 248},
    {510, 4004, K::ITEM, R::SELECTION, "Align to bottom\nAlign to bottom", "아래쪽으로", "", 0, 0,
     248},
    {505, 4004, K::ITEM, R::SELECTION,
     "Align objects to horizontal center\nAlign objects to horizontal center", "가로 가운데 맞춤",
     "", 0, 0, 248},
    {506, 4004, K::ITEM, R::SELECTION,
     "Align objects to vertical center\nAlign objects to vertical center", "세로 가운데 맞춤", "",
     0, 0, 248},
    {501, 4004, K::ITEM, R::SELECTION, "Align objects to left\nAlign objects to left", "왼쪽 맞춤",
     "", 0, 0, 248},
    {500, 4004, K::ITEM, R::SELECTION, "Align objects to right\nAlign objects to right",
     "오른쪽 맞춤", "", 0, 0, 248},
    {502, 4004, K::ITEM, R::SELECTION, "Align objects to top\nAlign objects to top", "위쪽 맞춤",
     "", 0, 0, 248},
    {503, 4004, K::ITEM, R::SELECTION, "Align objects to bottom\nAlign objects to bottom",
     "아래쪽 맞춤", "", 0, 0, 248},
    // Home: Edit
    {244, 4001, K::BUTTON, R::EDIT, "Insert an object\nInsert", "삽입", "insert-image"},
    {243, 4001, K::ITEM, R::EDIT, "Insert a picture\nPicture", "그림", "", 0, 0, 244},
    {240, 4001, K::ITEM, R::EDIT, "Insert a background\nBackground", "배경", "", 0, 0, 244},
    {245, 4001, K::ITEM, R::EDIT, "Insert an animation\nAnimation", "애니메이션", "", 0, 0, 244},
    {57636, 4001, K::BUTTON, R::EDIT, "Find text\nFind", "찾기", "edit-find", 0, 0, 0, 0, "Ctrl+F"},
    {208, 4001, K::TOGGLE, R::EDIT, "Select an Object.\nSelect", "선택", "edit-select"},
    {57642, 4001, K::BUTTON, R::EDIT, "Select all objects\nSelect All", "모두 선택",
     "edit-select-all"},
    // Home: Fill
    {260, 4003, K::TOGGLE, R::EDIT, "Colour of the fill\nFill", "채우기", ""},
    {261, 4003, K::TOGGLE, R::EDIT, "Colour of the edge\nEdge", "테두리", ""},
    {262, 4003, K::TOGGLE, R::EDIT, "Colour of the outline\nOutline", "외곽선", ""},
    {263, 4003, K::TOGGLE, R::EDIT, "Colour of the shadow\nShadow", "그림자", ""},
    {219, 4003, K::BUTTON, R::EDIT, "Choose a colour\nColor", "색", "color-picker"},
    {737, 4003, K::COMBO, R::EDIT, "Kind of fill\nFill type", "채우기 종류", ""},
    {738, 4003, K::COMBO, R::EDIT, "Kind of shadow\nShadow type", "그림자 종류", ""},
    // Home: RGB
    {218, 4032, K::EDIT, R::EDIT, "Alpha of the colour\nAlpha\nA", "알파", "", 0, 255},
    {802, 4032, K::EDIT, R::EDIT, "Red of the colour\nRed\nR", "빨강", "", 0, 255},
    {803, 4032, K::EDIT, R::EDIT, "Green of the colour\nGreen\nG", "초록", "", 0, 255},
    {804, 4032, K::EDIT, R::EDIT, "Blue of the colour\nBlue\nB", "파랑", "", 0, 255},
    // Home: Palette
    {2103, 4005, K::GALLERY, R::EDIT, "Colours\nPalette", "팔레트", ""},
    // Home: Edge
    {225, 4007, K::EDIT, R::EDIT, "Size of the edge\nEdge", "테두리", "", 0, 30},
    {228, 4007, K::STEP, R::EDIT, "Thicker edge\n+", "테두리 +", "", 0, 0, 225, 1},
    {229, 4007, K::STEP, R::EDIT, "Thinner edge\n-", "테두리 -", "", 0, 0, 225, -1},
    {227, 4007, K::EDIT, R::EDIT, "Size of the outline\nOutline", "외곽선", "", 0, 30},
    {230, 4007, K::STEP, R::EDIT, "Thicker outline\n+", "외곽선 +", "", 0, 0, 227, 1},
    {231, 4007, K::STEP, R::EDIT, "Thinner outline\n-", "외곽선 -", "", 0, 0, 227, -1},
    {226, 4007, K::EDIT, R::EDIT, "Softness of the edge\nSoft", "부드럽게", "", 0, 20},
    // Home: Shadow
    {232, 4008, K::EDIT, R::EDIT, "Horizontal shadow offset\nX", "X", "", -50, 50},
    {235, 4008, K::STEP, R::EDIT, "Increment horizontal shadow offset\n+", "X +", "", 0, 0, 232, 1},
    {236, 4008, K::STEP, R::EDIT, "Decrement horizontal shadow offset\n-", "X -", "", 0, 0, 232,
     -1},
    // The screen's Y axis is meant: "decrement" raises the stored value.
    {233, 4008, K::EDIT, R::EDIT, "Vertical shadow offset\nY", "Y", "", -50, 50},
    {238, 4008, K::STEP, R::EDIT, "Increment vertical shadow offset\n+", "Y +", "", 0, 0, 233, -1},
    {237, 4008, K::STEP, R::EDIT, "Decrement vertical shadow offset\n-", "Y -", "", 0, 0, 233, 1},
    {234, 4008, K::EDIT, R::EDIT, "Softness of the shadow\nSoft", "부드럽게", "", 0, 20},
    // Home: Play
    {780, 4029, K::TOGGLE, R::PROJECT, "Open or close the play window\nPlay Window", "재생 창",
     "video-display"},
    {781, 4029, K::BUTTON, R::PROJECT, "Erase the output\nErase Output", "출력 지우기",
     "edit-clear"},
    // Home: Hardware
    {757, 4038, K::BUTTON, R::BOARD, "Hardware Configuration\nConfigure", "설정",
     "preferences-system"},
    {758, 4038, K::BUTTON, R::BOARD, "Reset the graphic board\nReset", "초기화", "view-refresh"},
    // Text
    {40044, 4018, K::GALLERY, R::EDIT, "Text styles\nText Style", "텍스트 스타일", ""},
    {40046, 4018, K::BUTTON, R::EDIT, "Add the selected text's style\nAdd", "추가", "list-add"},
    {40045, 4018, K::BUTTON, R::EDIT, "Delete the style\nDelete", "삭제", "list-remove"},
    {2004, 4039, K::GALLERY, R::EDIT, "Symbols\nSymbol", "기호", ""},
    {723, 4016, K::EDIT, R::EDIT, "Width of the text\nWidth", "장평", "", 20, 400},
    {741, 4016, K::STEP, R::EDIT, "Wider\n+", "장평 +", "", 0, 0, 723, 1},
    {742, 4016, K::STEP, R::EDIT, "Narrower\n-", "장평 -", "", 0, 0, 723, -1},
    {724, 4016, K::EDIT, R::EDIT, "Spacing of the characters\nSpacing", "자간", "", -100, 100},
    {743, 4016, K::STEP, R::EDIT, "More spacing\n+", "자간 +", "", 0, 0, 724, 1},
    {744, 4016, K::STEP, R::EDIT, "Less spacing\n-", "자간 -", "", 0, 0, 724, -1},
    {725, 4016, K::EDIT, R::EDIT, "Leading of the lines\nLeading", "행간", "", -100, 100},
    {727, 4016, K::STEP, R::EDIT, "More leading\n+", "행간 +", "", 0, 0, 725, 1},
    {728, 4016, K::STEP, R::EDIT, "Less leading\n-", "행간 -", "", 0, 0, 725, -1},
    {726, 4016, K::EDIT, R::EDIT, "Shear of the text\nShear", "기울기", "", -10, 10},
    // Shape
    {40042, 4020, K::GALLERY, R::EDIT, "Shape styles\nShape Style", "도형 스타일", ""},
    {40047, 4020, K::BUTTON, R::EDIT, "Add the selected shape's style\nAdd", "추가", "list-add"},
    {40043, 4020, K::BUTTON, R::EDIT, "Delete the style\nDelete", "삭제", "list-remove"},
    // Picture
    {40039, 4013, K::GALLERY, R::EDIT, "Pictures\nPicture Style", "그림 스타일", ""},
    {40051, 4013, K::BUTTON, R::EDIT, "Insert a picture from a file\nInsert", "삽입",
     "insert-image"},
    {40040, 4013, K::BUTTON, R::EDIT, "Add a picture\nAdd", "추가", "list-add"},
    {40041, 4013, K::BUTTON, R::EDIT, "Delete the picture\nDelete", "삭제", "list-remove"},
    {720, 4015, K::BUTTON, R::PICTURE, "Start keying\nKeying", "키잉", "color-picker"},
    {740, 4015, K::BUTTON, R::PICTURE, "Reset key value\nReset key", "키 초기화", "edit-undo"},
    {722, 4015, K::EDIT, R::PICTURE, "Alpha value for selected picture\nAlpha", "알파", "", 0, 255},
    // Background
    {40034, 4014, K::GALLERY, R::EDIT, "Backgrounds\nBackground Style", "배경 스타일", ""},
    {40050, 4014, K::BUTTON, R::EDIT, "Insert a background from a file\nInsert", "삽입",
     "insert-image"},
    {40035, 4014, K::BUTTON, R::EDIT, "Add a background\nAdd", "추가", "list-add"},
    {40036, 4014, K::BUTTON, R::EDIT, "Delete the background\nDelete", "삭제", "list-remove"},
    // Color
    {40037, 4021, K::GALLERY, R::EDIT, "Colour styles\nColor Style", "색상 스타일", ""},
    {40052, 4021, K::BUTTON, R::EDIT, "Add the colour\nAdd", "추가", "list-add"},
    {40038, 4021, K::BUTTON, R::EDIT, "Delete the colour\nDelete", "삭제", "list-remove"},
    // Run
    {760, 4023, K::EDIT, R::EFFECT, "Speed of the in effect\nSpeed", "속도", "", 1, 10},
    {768, 4023, K::SLIDER, R::EFFECT, "Speed of the in effect\nSpeed", "속도", "", 0, 0, 760},
    {764, 4023, K::TOGGLE, R::EFFECT, "Fade in\nFade In", "페이드 인", ""},
    {762, 4023, K::EDIT, R::EFFECT, "Delay after the in effect, seconds\nDelay", "지연", "", 0,
     600},
    {770, 4023, K::SLIDER, R::EFFECT, "Delay after the in effect\nDelay", "지연", "", 0, 0, 762},
    {761, 4024, K::EDIT, R::EFFECT, "Speed of the out effect\nSpeed", "속도", "", 1, 10},
    {769, 4024, K::SLIDER, R::EFFECT, "Speed of the out effect\nSpeed", "속도", "", 0, 0, 761},
    {765, 4024, K::TOGGLE, R::EFFECT, "Fade out\nFade Out", "페이드 아웃", ""},
    {763, 4024, K::EDIT, R::EFFECT, "Delay after the out effect, seconds\nDelay", "지연", "", 0,
     600},
    {771, 4024, K::SLIDER, R::EFFECT, "Delay after the out effect\nDelay", "지연", "", 0, 0, 763},
    {800, 4024, K::TOGGLE, R::EFFECT, "Discard the page after play\nDiscard", "버리기", ""},
    {8107, 4034, K::GALLERY, R::EFFECT, "Transition effects\nEffect", "효과", ""},
    {782, 4030, K::EDIT, R::SCROLL, "Repeat count of the scroll\nRepeat", "반복", "", 0, 9000},
    {783, 4030, K::EDIT, R::SCROLL, "Delay of the scroll\nDelay", "지연", "", 0, 9000},
    {777, 4026, K::TOGGLE, R::PROJECT, "Play Mode\nPlay Mode", "재생 모드", "media-playback-start",
     0, 0, 0, 0, "F5"},
    {1312, 4026, K::BUTTON, R::PROJECT, "Switch to a recent project\nSwitch Project",
     "프로젝트 전환", "document-open-recent"},
    // The frame's own, without a control on a group: tab switches and master
    // attribute mode.
    {5000, 0, K::BUTTON, R::EDIT, "Home\nHome", "홈", ""},
    {5001, 0, K::BUTTON, R::EDIT, "Text\nText", "텍스트", ""},
    {5002, 0, K::BUTTON, R::EDIT, "Shape\nShape", "도형", ""},
    {5003, 0, K::BUTTON, R::EDIT, "Picture\nPicture", "그림", ""},
    {5004, 0, K::BUTTON, R::EDIT, "Background\nBackground", "배경", ""},
    {5005, 0, K::BUTTON, R::PROJECT, "Run\nRun", "실행", ""},
    {5007, 0, K::BUTTON, R::EDIT, "Color\nColor", "색상", ""},
    {5008, 0, K::TOGGLE, R::EDIT, "Master attribute mode\nMaster Attribute", "일괄 속성", ""},
};

}  // namespace

std::span<const UstCommandTab> CommandTabs() {
    return TABS;
}
std::span<const UstCommandGroup> CommandGroups() {
    return GROUPS;
}
std::span<const UstCommand> Commands() {
    return COMMANDS;
}

const UstCommandTab* FindCommandTab(uint32_t id) {
    const auto it = std::find_if(std::begin(TABS), std::end(TABS),
                                 [id](const UstCommandTab& t) { return t.nId == id; });
    return it == std::end(TABS) ? nullptr : &*it;
}

const UstCommandGroup* FindCommandGroup(uint32_t id) {
    const auto it = std::find_if(std::begin(GROUPS), std::end(GROUPS),
                                 [id](const UstCommandGroup& g) { return g.nId == id; });
    return it == std::end(GROUPS) ? nullptr : &*it;
}

const UstCommand* FindCommand(uint32_t id) {
    const auto it = std::find_if(std::begin(COMMANDS), std::end(COMMANDS),
                                 [id](const UstCommand& c) { return c.nId == id; });
    return it == std::end(COMMANDS) ? nullptr : &*it;
}

uint32_t CommandTab(uint32_t id) {
    const UstCommand* c = FindCommand(id);
    if (!c) return 0;
    if (c->nGroup == 0) return FindCommandTab(id) ? id : 0;
    const UstCommandGroup* g = FindCommandGroup(c->nGroup);
    return g ? g->nTab : 0;
}

bool CommandRange(uint32_t id, int32_t* min, int32_t* max) {
    const UstCommand* c = FindCommand(id);
    if (c && (c->eKind == K::STEP || c->eKind == K::SLIDER)) c = FindCommand(c->nPartner);
    if (!c || c->eKind != K::EDIT) return false;
    *min = c->nMin;
    *max = c->nMax;
    return true;
}

int32_t ClampToCommand(uint32_t id, int64_t value) {
    int32_t lo = 0, hi = 0;
    if (!CommandRange(id, &lo, &hi)) return static_cast<int32_t>(value);
    return static_cast<int32_t>(std::clamp<int64_t>(value, lo, hi));
}

int64_t ParseFieldNumber(const char16_t* text, int length) {
    int i = 0;
    while (i < length && (text[i] == u' ' || text[i] == u'\t'))
        ++i;
    bool negative = false;
    if (i < length && (text[i] == u'-' || text[i] == u'+')) negative = text[i++] == u'-';
    constexpr int64_t LIMIT = int64_t{std::numeric_limits<int32_t>::max()} + 1;
    int64_t value = 0;
    for (; i < length && text[i] >= u'0' && text[i] <= u'9'; ++i)
        value = std::min(value * 10 + (text[i] - u'0'), LIMIT);
    return negative ? -value : std::min(value, LIMIT - 1);
}

}  // namespace orv
