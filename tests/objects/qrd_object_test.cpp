#include <gtest/gtest.h>

#include "objects/qrd_object.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CFakeContext;
using test::CRectObject;

struct Placed {
    CFakeContext page;
    CRectObject obj;
    explicit Placed(UstRect r, bool rotates = false, int angle = 0) : obj(r, 0xFFFF0000u, rotates) {
        obj.Attach(&page);
        obj.m_nAngle = angle;
        obj.OnZoom();
    }
};

TEST(ObjectZoom, IdentityAt100AndOneUnitOffAfterAZoomOf75) {
    Placed p({10, 10, 110, 50});
    EXPECT_EQ(p.obj.m_rcView, (UstRect{10, 10, 110, 50}));
    p.page.fZoom = 75.0f;
    p.obj.OnZoom();
    EXPECT_EQ(p.obj.m_rcView, (UstRect{8, 8, 83, 38}));  // 7.5 and 82.5 round away from zero
    p.obj.UpdateStored(false);
    EXPECT_EQ(p.obj.m_rcStored, (UstRect{11, 11, 111, 51}));
    // With the size kept only the position follows the view.
    p.obj.m_rcStored = {10, 10, 110, 50};
    p.obj.UpdateStored(true);
    EXPECT_EQ(p.obj.m_rcStored, (UstRect{11, 11, 111, 51}));
}

TEST(ObjectHandles, CentresAndTheRotationHandleAboveTheTop) {
    Placed p({100, 100, 300, 200});
    const UstPoint expected[9] = {{100, 100}, {200, 100}, {300, 100}, {300, 150}, {300, 200},
                                  {200, 200}, {100, 200}, {100, 150}, {200, 75}};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(p.obj.HandleCentre(i), expected[i]) << i;
    EXPECT_EQ(p.obj.m_rcHandle[8], (UstRect{196, 71, 204, 79}));
    EXPECT_EQ(p.obj.m_rcHandle[0], (UstRect{96, 96, 104, 104}));
    EXPECT_EQ(p.obj.HitTestHandle(203, 78), 8);
    EXPECT_EQ(p.obj.HitTestHandle(204, 78), -1);  // right side is outside
    EXPECT_EQ(p.obj.HitTestHandle(299, 199), 4);
}

TEST(ObjectHandles, TurnWithTheObjectOnlyWhenItRotates) {
    Placed turned({100, 100, 300, 200}, true, 90);
    EXPECT_EQ(turned.obj.HandleCentre(0), (UstPoint{250, 50}));
    EXPECT_EQ(turned.obj.HandleCentre(8), (UstPoint{275, 150}));
    Placed fixed({100, 100, 300, 200}, false, 90);
    EXPECT_EQ(fixed.obj.HandleCentre(0), (UstPoint{100, 100}));
}

TEST(ObjectHitTest, AnglesZero45And360And720) {
    const QPoint cornerOnly(110, 195), tipOnly(260, 210);
    for (int angle : {0, 360, 720}) {
        Placed p({100, 100, 300, 200}, true, angle);
        EXPECT_TRUE(p.obj.HitTest(cornerOnly.x(), cornerOnly.y())) << angle;
        EXPECT_FALSE(p.obj.HitTest(tipOnly.x(), tipOnly.y())) << angle;
        EXPECT_TRUE(p.obj.HitTest(100, 100)) << angle;
        EXPECT_FALSE(p.obj.HitTest(300, 150)) << angle;  // right edge is outside
        EXPECT_FALSE(p.obj.HitTest(200, 200)) << angle;  // bottom edge is outside
    }
    Placed turned({100, 100, 300, 200}, true, 45);
    EXPECT_FALSE(turned.obj.HitTest(cornerOnly.x(), cornerOnly.y()));
    EXPECT_TRUE(turned.obj.HitTest(tipOnly.x(), tipOnly.y()));
    Placed fixed({100, 100, 300, 200}, false, 45);  // an object that cannot turn hits as a box
    EXPECT_TRUE(fixed.obj.HitTest(cornerOnly.x(), cornerOnly.y()));
    Placed scrolled({100, 100, 300, 200});
    scrolled.page.scroll = {0, 60};
    EXPECT_TRUE(scrolled.obj.HitTest(150, 45));
    EXPECT_FALSE(scrolled.obj.HitTest(150, 145));
}

TEST(ObjectTrack, TurnedObjectKeepsTheCornerOppositeTheHandle) {
    const UstRect start{0, 0, 100, 50};
    // Handle 4 of an object turned by 90 stands at (25, 75) on the page, handle 0 at (75, -25).
    const UstRect r = TrackHandleRect(start, 90, 4, QPoint(25, 75), QPoint(15, 95));
    EXPECT_EQ(r, (UstRect{-15, 5, 105, 65}));
    const QPointF corner = RotatePoint(
        QPointF(r.left, r.top), QPointF((r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0), 90);
    EXPECT_NEAR(corner.x(), 75.0, 1e-9);
    EXPECT_NEAR(corner.y(), -25.0, 1e-9);
}

TEST(ObjectTrack, UnturnedHandlesMoveTheirSides) {
    const UstRect start{0, 0, 100, 50};
    EXPECT_EQ(TrackHandleRect(start, 0, 4, {100, 50}, {130, 70}), (UstRect{0, 0, 130, 70}));
    EXPECT_EQ(TrackHandleRect(start, 0, 1, {50, 0}, {90, 10}), (UstRect{0, 10, 100, 50}));
    EXPECT_EQ(TrackHandleRect(start, 0, 7, {0, 25}, {-20, 99}), (UstRect{-20, 0, 100, 50}));
    EXPECT_EQ(TrackHandleRect(start, 360, 3, {100, 25}, {110, 25}), (UstRect{0, 0, 110, 50}));
    // Dragged past the opposite side, the rectangle turns over rather than inside out.
    EXPECT_EQ(TrackHandleRect(start, 0, 0, {0, 0}, {150, 80}), (UstRect{100, 50, 150, 80}));
}

TEST(ObjectRotate, AngleTowardThePoint) {
    const UstRect r{0, 0, 100, 100};
    EXPECT_EQ(AngleToward(r, {50, -100}), 0);
    EXPECT_EQ(AngleToward(r, {200, 50}), 90);
    EXPECT_EQ(AngleToward(r, {50, 200}), 180);
    EXPECT_EQ(AngleToward(r, {-100, 50}), 270);
    EXPECT_EQ(AngleToward(r, {150, -50}), 45);
}

TEST(ObjectExecute, GeometryCodesOnlyAndStoredFollows) {
    Placed p({10, 10, 110, 50});
    const UstRect to{20, 30, 120, 70};
    EXPECT_TRUE(p.obj.Execute(&to, 900));
    EXPECT_EQ(p.obj.m_rcStored, to);
    const UstPoint d{-5, 7};
    EXPECT_TRUE(p.obj.Execute(&d, 902));
    EXPECT_EQ(p.obj.m_rcStored, (UstRect{15, 37, 115, 77}));
    EXPECT_EQ(p.obj.HandleCentre(0), (UstPoint{15, 37}));
    EXPECT_FALSE(p.obj.Execute(&d, 905));
    EXPECT_FALSE(p.obj.Execute(&d, 899));
    EXPECT_FALSE(p.obj.Execute(nullptr, 900));
    EXPECT_EQ(p.obj.m_rcStored, (UstRect{15, 37, 115, 77}));
}

TEST(ObjectPlacement, CentreOnPageAndInvalidRect) {
    Placed p({0, 0, 100, 50});
    p.obj.CenterOnPage();
    EXPECT_EQ(p.obj.m_rcStored, (UstRect{910, 515, 1010, 565}));
    p.obj.CenterOnPage();
    EXPECT_EQ(p.obj.m_rcStored, (UstRect{910, 515, 1010, 565}));
    Placed q({0, 0, 50, 50});
    q.page.origin = {10, 20};
    q.page.width = 200;
    q.page.height = 100;
    EXPECT_EQ(q.obj.GetInvalidRect(), (UstRect{9, 19, 110, 120}));
}

TEST(ObjectState, PackedHeadAndTypeCheck) {
    Placed p({1, 2, 3, 4}, true, 33);
    p.obj.m_bLocked = 1;
    CByteWriter w;
    p.obj.SaveState(w);
    EXPECT_EQ(p.obj.GetStateSize(), 52u);
    CByteReader r(w.Bytes());
    EXPECT_EQ(r.Get<int32_t>(), OBJ_SHAPE);
    EXPECT_EQ(r.Get<int32_t>(), 0);   // word 1
    EXPECT_EQ(r.Get<int32_t>(), 1);   // word 2
    EXPECT_EQ(r.Get<int32_t>(), 1);   // locked
    EXPECT_EQ(r.Get<int32_t>(), 33);  // angle
    EXPECT_EQ(r.Get<UstRect>(), (UstRect{1, 2, 3, 4}));
    Placed back({0, 0, 0, 0});
    CByteReader again(w.Bytes());
    ASSERT_TRUE(back.obj.LoadState(again, 0));
    EXPECT_EQ(back.obj.m_rcView, (UstRect{1, 2, 3, 4}));
    EXPECT_EQ(back.obj.m_nAngle, 33);
    CRectObject other({0, 0, 1, 1}, 0, false, OBJ_PICTURE);
    CByteReader wrongType(w.Bytes());
    EXPECT_FALSE(other.LoadState(wrongType, 0));
    CByteReader shortBuffer(w.Bytes().data(), 10);
    EXPECT_THROW(back.obj.LoadState(shortBuffer, 0), std::out_of_range);
}

TEST(ObjectArchive, HeadBytesAndOldRectFlag) {
    Placed p({0, 0, 1, 1});
    p.obj.m_nWord1 = 7;
    CByteWriter w;
    p.obj.WriteArchiveHead(w);
    const std::vector<uint8_t> expected = {0x66, 0x66, 0xA6, 0x3F, 0, 0, 0, 0, 0, 0, 0, 0,
                                           7,    0,    0,    0,    1, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(w.Bytes(), expected);
    std::vector<uint8_t> old = expected;
    old[8] = 1;
    CByteReader r(old);
    EXPECT_TRUE(p.obj.ReadArchiveHead(r));
}

}  // namespace
}  // namespace orv
