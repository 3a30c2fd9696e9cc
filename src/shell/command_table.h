#pragma once
// The editor's whole command surface as data: tabs, groups and every control
// with its number, labels, kind, range and the rule that enables it. The
// ribbon, the menus, the keys and the tests all read this one table, so that
// no number or range is written twice.

#include <cstdint>
#include <span>

namespace orv {

enum class ECommandKind : uint8_t {
    BUTTON,   // runs once per press
    TOGGLE,   // shows a checked state
    EDIT,     // a number typed into a field, with a range
    STEP,     // adds or subtracts one within its field's range
    COMBO,    // a list of named items
    GALLERY,  // tiles, with a drop-down for the rest
    SLIDER,   // drags the value of its field
    ITEM      // an entry of a drop-down button
};

// When a control may be used.
enum class ECommandRule : uint8_t {
    ALWAYS,
    PROJECT,    // a project is open, any state
    EDIT,       // state 0
    SELECTION,  // state 0 and an object selected
    TEXT,       // state 0 and a text among the selected
    PICTURE,    // state 0 and exactly one picture selected
    EFFECT,     // the page's play settings: not in automatic play out
    SCROLL,     // as EFFECT, on a Roll or Crawl page
    BOARD       // an output board is present
};

struct UstCommandTab {
    uint32_t nId;
    const char* szText;  // UTF-8
    const char* szKorean;
    bool bEditTab;  // usable only in state 0
};

struct UstCommandGroup {
    uint32_t nId;
    uint32_t nTab;
    const char* szText;
    const char* szKorean;
};

struct UstCommand {
    uint32_t nId;
    uint32_t nGroup;
    ECommandKind eKind;
    ECommandRule eRule;
    // English forms split on "\n": the tooltip, then the short label, then
    // the field's label where it has one. The Korean text is one label.
    const char* szText;
    const char* szKorean;
    const char* szIcon;  // a theme icon name, or empty
    int32_t nMin = 0;    // the range of an EDIT or SLIDER
    int32_t nMax = 0;
    // A STEP's field and what it adds; a SLIDER's field; an ITEM's button.
    uint32_t nPartner = 0;
    int32_t nDelta = 0;
    // The key, in the portable text of a key sequence ("Ctrl+X"), or empty.
    const char* szKeys = "";
};

std::span<const UstCommandTab> CommandTabs();
std::span<const UstCommandGroup> CommandGroups();
std::span<const UstCommand> Commands();

const UstCommandTab* FindCommandTab(uint32_t id);
const UstCommandGroup* FindCommandGroup(uint32_t id);
// The control of an id; null when the table has none.
const UstCommand* FindCommand(uint32_t id);
// The tab a control stands on, 0 when the id is not in the table.
uint32_t CommandTab(uint32_t id);

// The range of a field: its own, or that of the field a STEP or SLIDER
// belongs to. False when the id has no range.
bool CommandRange(uint32_t id, int32_t* min, int32_t* max);
int32_t ClampToCommand(uint32_t id, int64_t value);

// Text as a field takes it: leading blanks, a sign, then digits up to the
// first other character; nothing readable gives 0, and a value beyond 32
// bits saturates, so that a long run of digits is clamped, not wrapped.
int64_t ParseFieldNumber(const char16_t* text, int length);

constexpr uint32_t CMD_MASTER_MODE = 5008;
constexpr uint32_t CMD_TAB_FIRST = 5000;
constexpr uint32_t CMD_TAB_LAST = 5007;
constexpr uint32_t CMD_EFFECT_GALLERY = 8107;
constexpr uint32_t CMD_FONT_GALLERY = 2002;
constexpr uint32_t CMD_SIZE_GALLERY = 2003;
constexpr uint32_t CMD_SYMBOL_GALLERY = 2004;
constexpr uint32_t CMD_PALETTE = 2103;

}  // namespace orv
