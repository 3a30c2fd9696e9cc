// Groups: moving as one however deep, the empty group, the packed state and
// the file form with their members in order.
#include <gtest/gtest.h>

#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CFakeContext;
using test::CRectObject;

struct GroupTest : testing::Test {
    std::unique_ptr<CQRDObjectShape> Shape(UstRect r, int kind = 0) {
        auto s = std::make_unique<CQRDObjectShape>(&page, kind, r, UstAttr{}, UstEffect{});
        return s;
    }
    std::unique_ptr<CQRDObjectGroup> GroupOf(std::vector<std::unique_ptr<CQRDObject>> members) {
        auto g = std::make_unique<CQRDObjectGroup>(&page);
        for (auto& m : members)
            g->AddMember(std::move(m));
        g->RebuildRect();
        return g;
    }
    CFakeContext page;
};

TEST_F(GroupTest, AGroupInsideAGroupMovesAsOneOnANudge) {
    std::vector<std::unique_ptr<CQRDObject>> inner;
    inner.push_back(Shape({10, 10, 20, 20}));
    inner.push_back(Shape({30, 5, 40, 15}, 3));
    std::vector<std::unique_ptr<CQRDObject>> outer;
    outer.push_back(GroupOf(std::move(inner)));
    outer.push_back(Shape({50, 50, 60, 70}));
    auto group = GroupOf(std::move(outer));
    EXPECT_EQ(group->m_rcView, (UstRect{10, 5, 60, 70}));

    const UstPoint down{0, 10};
    ASSERT_TRUE(group->Execute(&down, CMD_NUDGE_DOWN));
    const auto& inside = static_cast<CQRDObjectGroup&>(*group->Members()[0]);
    EXPECT_EQ(inside.Members()[0]->m_rcStored, (UstRect{10, 20, 20, 30}));
    EXPECT_EQ(inside.Members()[1]->m_rcStored, (UstRect{30, 15, 40, 25}));
    EXPECT_EQ(inside.m_rcView, (UstRect{10, 15, 40, 30}));
    EXPECT_EQ(group->Members()[1]->m_rcStored, (UstRect{50, 60, 60, 80}));
    EXPECT_EQ(group->m_rcView, (UstRect{10, 15, 60, 80}));

    // A new rectangle moves by the difference of the top-left corners; its
    // size does not resize anything.
    const UstRect to{0, 0, 5, 5};
    ASSERT_TRUE(group->Execute(&to, CMD_SET_RECT));
    EXPECT_EQ(group->m_rcView, (UstRect{0, 0, 50, 65}));
    EXPECT_EQ(group->Members()[1]->m_rcStored, (UstRect{40, 45, 50, 65}));
    EXPECT_FALSE(group->Execute(&to, CMD_ROTATION));
}

TEST_F(GroupTest, AnEmptyGroupHasNoRectangleAndCannotBeHit) {
    CQRDObjectGroup group(&page);
    group.RebuildRect();
    EXPECT_EQ(group.m_rcView, UstRect{});
    EXPECT_EQ(group.GetInvalidRect(), UstRect{});
    EXPECT_FALSE(group.HitTest(0, 0));
    EXPECT_EQ(group.GetLiveExtent(), (UstPoint{0, 0}));
    EXPECT_FALSE(group.EndEdit());
}

TEST_F(GroupTest, HitsInsideItsRectangleOnlyAndShowsSquareHandles) {
    std::vector<std::unique_ptr<CQRDObject>> m;
    m.push_back(Shape({10, 10, 20, 20}));
    m.push_back(Shape({40, 40, 50, 50}));
    auto group = GroupOf(std::move(m));
    EXPECT_TRUE(group->HitTest(30, 30));  // between the members, inside the union
    EXPECT_FALSE(group->HitTest(51, 30));
    EXPECT_FALSE(group->HasSizeHandles());
    EXPECT_FALSE(group->CanRotate());
    EXPECT_EQ(group->GetAngle(), 0);
    EXPECT_EQ(group->GetName(), "Group");
    EXPECT_EQ(group->GetLiveExtent(), (UstPoint{50, 50}));
}

TEST_F(GroupTest, RemovingAMemberUnlinksItFromBothListsWithoutDeletingIt) {
    std::vector<std::unique_ptr<CQRDObject>> m;
    m.push_back(Shape({10, 10, 20, 20}));
    m.push_back(Shape({40, 40, 50, 50}));
    auto group = GroupOf(std::move(m));
    CQRDObject* second = group->Members()[1].get();
    group->m_listOrder = {second, group->Members()[0].get()};
    std::unique_ptr<CQRDObject> out = group->RemoveMember(second);
    ASSERT_EQ(out.get(), second);
    EXPECT_EQ(group->Members().size(), 1u);
    EXPECT_EQ(group->m_listOrder.size(), 1u);
    EXPECT_EQ(group->RemoveMember(second), nullptr);
}

// Type 6, count, words, angle, both rectangles: 56 bytes before the members.
TEST_F(GroupTest, ThePackedStateHoldsItsMembersInOrder) {
    std::vector<std::unique_ptr<CQRDObject>> inner;
    inner.push_back(Shape({1, 2, 3, 4}, 5));
    std::vector<std::unique_ptr<CQRDObject>> m;
    m.push_back(Shape({10, 10, 20, 20}, 7));
    m.push_back(GroupOf(std::move(inner)));
    m.push_back(Shape({40, 40, 50, 50}, 9));
    auto group = GroupOf(std::move(m));
    group->m_nWord1 = 42;
    uint32_t members = 0;
    for (const auto& x : group->Members())
        members += x->GetStateSize();
    EXPECT_EQ(group->GetStateSize(), 56 + members);
    CByteWriter out;
    group->SaveState(out);
    EXPECT_EQ(test::At<int32_t>(out.Bytes()[0], 0), 6);
    EXPECT_EQ(test::At<uint32_t>(out.Bytes()[0], 4), 3u);
    EXPECT_EQ(test::At<int32_t>(out.Bytes()[0], 8), 42);

    CQRDObjectGroup back(&page);
    CByteReader in(out.Bytes());
    ASSERT_TRUE(back.LoadState(in, 0));
    EXPECT_EQ(in.Remaining(), 0u);
    ASSERT_EQ(back.Members().size(), 3u);
    EXPECT_EQ(static_cast<CQRDObjectShape&>(*back.Members()[0]).m_nKind, 7);
    EXPECT_EQ(back.Members()[1]->GetType(), OBJ_GROUP);
    EXPECT_EQ(static_cast<CQRDObjectShape&>(
                  *static_cast<CQRDObjectGroup&>(*back.Members()[1]).Members()[0])
                  .m_nKind,
              5);
    EXPECT_EQ(back.Members()[2]->m_rcStored, (UstRect{40, 40, 50, 50}));
    EXPECT_TRUE(back.m_listOrder.empty());
    EXPECT_EQ(back.m_nWord1, 42);

    CByteWriter deep;
    group->SaveStateDeep(deep);
    CQRDObjectGroup deepBack(&page);
    CByteReader din(deep.Bytes());
    ASSERT_TRUE(deepBack.LoadStateDeep(din));
    EXPECT_EQ(deepBack.Members().size(), 3u);
}

TEST_F(GroupTest, DamagedStatesAreRefused) {
    std::vector<std::unique_ptr<CQRDObject>> m;
    m.push_back(Shape({10, 10, 20, 20}));
    auto group = GroupOf(std::move(m));
    CByteWriter out;
    group->SaveState(out);
    std::vector<uint8_t> bytes = out.Bytes();
    // A member of a kind that does not exist.
    std::vector<uint8_t> unknown = bytes;
    const int32_t kind = 99;
    std::memcpy(&unknown[56], &kind, 4);
    CQRDObjectGroup a(&page);
    CByteReader ua(unknown);
    EXPECT_FALSE(a.LoadState(ua, 0));
    // A member count no buffer could hold.
    std::vector<uint8_t> huge = bytes;
    const uint32_t count = 0x7FFFFFFF;
    std::memcpy(&huge[4], &count, 4);
    CQRDObjectGroup b(&page);
    CByteReader hb(huge);
    EXPECT_FALSE(b.LoadState(hb, 0));
    // Cut short inside the member.
    bytes.erase(bytes.end() - 10, bytes.end());
    CQRDObjectGroup c(&page);
    CByteReader cc(bytes);
    EXPECT_THROW(c.LoadState(cc, 0), std::out_of_range);
}

TEST_F(GroupTest, TheFileFormWritesTheHeadThenTheMembersThroughTheArchive) {
    std::vector<std::unique_ptr<CQRDObject>> m;
    m.push_back(Shape({10, 10, 20, 20}, 4));
    m.push_back(Shape({40, 40, 50, 50}, 6));
    auto group = GroupOf(std::move(m));
    CByteWriter out;
    std::vector<int> written;
    group->Serialize(out, [&](CByteWriter& w, const CQRDObject& o) {
        const auto& s = static_cast<const CQRDObjectShape&>(o);
        written.push_back(s.m_nKind);
        w.Put<int32_t>(s.m_nKind);
    });
    EXPECT_EQ(written, (std::vector<int>{4, 6}));
    const std::vector<uint8_t>& b = out.Bytes();
    ASSERT_EQ(b.size(), 24u + 16 + 2 + 8);
    EXPECT_EQ(test::At<UstRect>(b[0], 24), (UstRect{10, 10, 50, 50}));
    EXPECT_EQ(test::At<uint16_t>(b[0], 40), 2);

    // Read back with an old rectangle after the box, before the list.
    std::vector<uint8_t> old = b;
    const int32_t flag = 1;
    std::memcpy(&old[8], &flag, 4);
    const UstRect r{7, 7, 8, 8};
    old.insert(old.begin() + 40, reinterpret_cast<const uint8_t*>(&r),
               reinterpret_cast<const uint8_t*>(&r) + 16);
    CQRDObjectGroup back(&page);
    CByteReader in(old);
    ASSERT_TRUE(back.Deserialize(in, [&](CByteReader& rd) -> std::unique_ptr<CQRDObject> {
        return Shape({0, 0, 1, 1}, rd.Get<int32_t>());
    }));
    EXPECT_EQ(back.m_rcOld, r);
    ASSERT_EQ(back.Members().size(), 2u);
    EXPECT_EQ(static_cast<CQRDObjectShape&>(*back.Members()[1]).m_nKind, 6);
    EXPECT_TRUE(back.m_listOrder.empty());
}

}  // namespace
}  // namespace orv
