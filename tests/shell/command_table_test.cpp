// The command table against the ribbon's layout and ranges as the operators
// know them, written out here by hand, and the reading of typed numbers.
#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>

#include "shell/command_table.h"

namespace orv {
namespace {

std::vector<uint32_t> GroupsOf(uint32_t tab) {
    std::vector<uint32_t> ids;
    for (const UstCommandGroup& g : CommandGroups())
        if (g.nTab == tab) ids.push_back(g.nId);
    return ids;
}

TEST(CommandTable, TabsAndGroupsStandInTheirOrder) {
    std::vector<uint32_t> tabs;
    for (const UstCommandTab& t : CommandTabs())
        tabs.push_back(t.nId);
    EXPECT_EQ(tabs, (std::vector<uint32_t>{5000, 5001, 5002, 5003, 5004, 5007, 5005}));
    EXPECT_FALSE(FindCommandTab(5005)->bEditTab);
    EXPECT_TRUE(FindCommandTab(5007)->bEditTab);
    EXPECT_EQ(GroupsOf(5000),
              (std::vector<uint32_t>{4000, 4004, 4001, 4003, 4032, 4005, 4007, 4008, 4029, 4038}));
    EXPECT_EQ(GroupsOf(5001), (std::vector<uint32_t>{4018, 4039, 4016}));
    EXPECT_EQ(GroupsOf(5003), (std::vector<uint32_t>{4013, 4015}));
    EXPECT_EQ(GroupsOf(5005), (std::vector<uint32_t>{4023, 4024, 4034, 4030, 4026}));
    EXPECT_EQ(CommandTab(237), 5000u);
    EXPECT_EQ(CommandTab(8107), 5005u);
    EXPECT_EQ(CommandTab(5005), 5005u);
    EXPECT_EQ(CommandTab(12345), 0u);
}

TEST(CommandTable, EveryIdOnceAndEveryPartnerInItsGroup) {
    std::set<uint32_t> seen;
    for (const UstCommand& c : Commands()) {
        EXPECT_TRUE(seen.insert(c.nId).second) << c.nId;
        EXPECT_TRUE(c.nGroup == 0 || FindCommandGroup(c.nGroup)) << c.nId;
        EXPECT_NE(std::string(c.szText).find('\n'), std::string::npos) << c.nId;
        EXPECT_GT(std::string(c.szKorean).size(), 0u) << c.nId;
        if (c.eKind == ECommandKind::STEP || c.eKind == ECommandKind::SLIDER ||
            c.eKind == ECommandKind::ITEM) {
            const UstCommand* partner = FindCommand(c.nPartner);
            ASSERT_NE(partner, nullptr) << c.nId;
            EXPECT_EQ(partner->nGroup, c.nGroup) << c.nId;
        }
    }
}

TEST(CommandTable, FieldRangesAndTheirSteps) {
    struct UstRange {
        uint32_t id;
        int32_t lo, hi;
    };
    const UstRange ranges[] = {
        {218, 0, 255},  {802, 0, 255},    {803, 0, 255},    {804, 0, 255},  {225, 0, 30},
        {227, 0, 30},   {226, 0, 20},     {234, 0, 20},     {232, -50, 50}, {233, -50, 50},
        {723, 20, 400}, {724, -100, 100}, {725, -100, 100}, {726, -10, 10}, {722, 0, 255},
        {760, 1, 10},   {761, 1, 10},     {762, 0, 600},    {763, 0, 600},  {782, 0, 9000},
        {783, 0, 9000},
    };
    for (const UstRange& r : ranges) {
        int32_t lo = 1, hi = -1;
        ASSERT_TRUE(CommandRange(r.id, &lo, &hi)) << r.id;
        EXPECT_EQ(lo, r.lo) << r.id;
        EXPECT_EQ(hi, r.hi) << r.id;
    }
    struct UstStep {
        uint32_t id, field;
        int32_t delta;
    };
    // 237 "decrement vertical shadow offset" raises the stored value.
    const UstStep steps[] = {{228, 225, 1}, {229, 225, -1}, {230, 227, 1},  {231, 227, -1},
                             {235, 232, 1}, {236, 232, -1}, {238, 233, -1}, {237, 233, 1},
                             {741, 723, 1}, {742, 723, -1}, {743, 724, 1},  {744, 724, -1},
                             {727, 725, 1}, {728, 725, -1}, {204, 203, 1},  {205, 203, -1}};
    for (const UstStep& s : steps) {
        const UstCommand* c = FindCommand(s.id);
        ASSERT_NE(c, nullptr) << s.id;
        EXPECT_EQ(c->eKind, ECommandKind::STEP);
        EXPECT_EQ(c->nPartner, s.field) << s.id;
        EXPECT_EQ(c->nDelta, s.delta) << s.id;
    }
    // A step and a slider share the range of their field.
    int32_t lo = 0, hi = 0;
    ASSERT_TRUE(CommandRange(770, &lo, &hi));
    EXPECT_EQ(hi, 600);
    EXPECT_FALSE(CommandRange(207, &lo, &hi));
}

TEST(CommandTable, TypedTextIsReadLikeTheClassicCallAndClamped) {
    const auto parse = [](const std::u16string& s) {
        return ParseFieldNumber(s.data(), static_cast<int>(s.size()));
    };
    EXPECT_EQ(parse(u"999"), 999);
    EXPECT_EQ(parse(u"  -12abc"), -12);
    EXPECT_EQ(parse(u"+7"), 7);
    EXPECT_EQ(parse(u"abc"), 0);
    EXPECT_EQ(parse(u""), 0);
    EXPECT_EQ(parse(u"-"), 0);
    EXPECT_EQ(parse(u"1 2"), 1);
    // Beyond 32 bits the value saturates instead of wrapping round.
    EXPECT_EQ(parse(u"-999999999999"), int64_t{INT_MIN});
    EXPECT_EQ(parse(u"99999999999999999999999"), int64_t{INT_MAX});
    EXPECT_EQ(ClampToCommand(225, 999), 30);
    EXPECT_EQ(ClampToCommand(233, parse(u"-999999999999")), -50);
    EXPECT_EQ(ClampToCommand(723, 0), 20);
    EXPECT_EQ(ClampToCommand(237, 99), 50);  // through its field
    EXPECT_EQ(ClampToCommand(207, 99), 99);  // no range
}

}  // namespace
}  // namespace orv
