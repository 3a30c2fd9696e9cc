// The shape object: its control point through resizes and drags, its
// commands, its file form byte by byte, and what it draws on a canvas,
// including shapes that are damaged or absurd.
#include <gtest/gtest.h>

#include <QPainter>

#include "objects/shape_object.h"
#include "render/shape_path.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::At;
using test::CFakeContext;

constexpr uint32_t RED = 0xFFFF0000u, GREY = 0xFF404040u;

UstAttr RedFace() {
    UstAttr attr{};
    attr.fill[UstAttr::BODY].clrSolid = RED;
    attr.fill[UstAttr::EDGE].clrSolid = 0xFF0000FFu;
    attr.fill[UstAttr::SHADOW].clrSolid = 0xFF000000u;
    return attr;
}

struct ShapeOnCanvas : testing::Test {
    ShapeOnCanvas() {
        page.width = 200, page.height = 120;
        page.MakeCanvas(GREY);
    }
    CQRDObjectShape& Make(int kind, UstRect box, UstEffect effect = {}) {
        shape = std::make_unique<CQRDObjectShape>(&page, kind, box, RedFace(), effect);
        return *shape;
    }
    int Painted() const {
        return static_cast<int>(std::count_if(page.canvas.begin(), page.canvas.end(),
                                              [](uint32_t p) { return p != GREY; }));
    }
    CFakeContext page;
    std::unique_ptr<CQRDObjectShape> shape;
};

TEST(ShapeDrag, NormalisedAndACircleMadeSquare) {
    EXPECT_EQ(ShapeDragRect(0, {50, 40}, {10, 20}), (UstRect{10, 20, 50, 40}));
    EXPECT_EQ(ShapeDragRect(SHAPE_CIRCLE, {10, 20}, {50, 30}), (UstRect{10, 20, 50, 60}));
    EXPECT_EQ(ShapeDragRect(SHAPE_CIRCLE, {50, 90}, {40, 20}), (UstRect{40, 20, 110, 90}));
    EXPECT_EQ(ShapeDragRect(SHAPE_CIRCLE, {5, 5}, {5, 5}), (UstRect{5, 5, 5, 5}));
}

TEST_F(ShapeOnCanvas, NamesHandlesAndTheFreshControlPoint) {
    CQRDObjectShape& star = Make(10, {0, 0, 130, 65});
    EXPECT_EQ(star.GetName(), QString::fromUtf8("별"));
    EXPECT_FALSE(star.HasAdjustPoint());
    CQRDObjectShape& arrow = Make(11, {0, 0, 130, 64});
    EXPECT_TRUE(arrow.HasAdjustPoint());
    EXPECT_EQ(arrow.ControlPoint(), QPointF(65, 16));
    EXPECT_EQ(Make(28, {0, 0, 10, 10}).GetName(), QString::fromUtf8("도형"));
}

TEST_F(ShapeOnCanvas, ResizingCarriesTheControlPoint) {
    // A right triangle's control point keeps 10 from the right edge.
    CQRDObjectShape& s = Make(15, {10, 10, 110, 60});
    EXPECT_EQ(s.ControlPoint(), QPointF(90, 25));
    s.m_rcView = {10, 10, 15, 60};
    s.UpdateStored(false);
    EXPECT_EQ(s.ControlPoint().x(), -5.0);
    s.CommitResize();
    EXPECT_EQ(s.m_fCtrlX, -5.0f);
    // Moving keeps the size and the point.
    const UstPoint right{7, 0};
    EXPECT_TRUE(s.Execute(&right, CMD_NUDGE_RIGHT));
    EXPECT_EQ(s.m_fCtrlX, -5.0f);
    EXPECT_EQ(s.m_rcStored, (UstRect{17, 10, 22, 60}));
    // A change of height alone carries the point too: a left arrow's neck
    // stays at a quarter of the height.
    CQRDObjectShape& arrow = Make(12, {0, 0, 100, 40});
    EXPECT_EQ(arrow.ControlPoint(), QPointF(50, 10));
    arrow.m_rcView = {0, 0, 100, 80};
    arrow.UpdateStored(false);
    EXPECT_EQ(arrow.ControlPoint(), QPointF(50, 20));
}

TEST_F(ShapeOnCanvas, TheHandleIsHitOnlyWhileEditingAndDragsWithinTheBox) {
    CQRDObjectShape& s = Make(11, {20, 20, 120, 60});  // handle at (70, 30)
    EXPECT_FALSE(s.HitTestAdjust(70, 30));
    s.SetEditing(true);
    EXPECT_TRUE(s.HitTestAdjust(74, 26));
    EXPECT_TRUE(s.HitTestAdjust(75, 25));  // five each way still hits
    EXPECT_TRUE(s.HitTestAdjust(65, 35));
    EXPECT_FALSE(s.HitTestAdjust(76, 30));
    s.DragControlTo(300, -40);
    EXPECT_EQ(s.ControlPoint(), QPointF(100, 0));
    // Turned a quarter, the handle's place on the canvas turns with it and
    // dragging there gives back the same point.
    s.DragControlTo(90, 30);
    const int quarter = 90;
    s.Execute(&quarter, CMD_ROTATION);
    const QPointF c = s.ControlHandleCentre();
    EXPECT_NEAR(c.x(), 80, 1e-6);  // centre (70, 40): (90, 30) turns to (80, 60)
    EXPECT_NEAR(c.y(), 60, 1e-6);
    s.DragControlTo(80, 60);
    EXPECT_NEAR(s.ControlPoint().x(), 70, 1e-4);
    EXPECT_NEAR(s.ControlPoint().y(), 10, 1e-4);
    EXPECT_FALSE(s.Execute(&quarter, CMD_ROTATION));
}

TEST_F(ShapeOnCanvas, ArchiveFormByteByByte) {
    UstEffect effect{};
    effect.nEdge = 4;
    CQRDObjectShape& s = Make(22, {10, 20, 110, 70}, effect);
    s.m_nAngle = 30;
    s.m_bLocked = 1;
    CByteWriter out;
    s.Serialize(out);
    const std::vector<uint8_t>& bytes = out.Bytes();
    ASSERT_EQ(bytes.size(), 12u + 4 + 16 + 4 + 16 + 8 + 68 + 4008);
    EXPECT_EQ(At<float>(bytes[0], 0), 1.3f);
    EXPECT_EQ(At<uint32_t>(bytes[0], 12), 22u);
    EXPECT_EQ(At<int32_t>(bytes[0], 24), 1);   // locked
    EXPECT_EQ(At<int32_t>(bytes[0], 28), 30);  // rotation
    EXPECT_EQ(At<int32_t>(bytes[0], 36), 10);  // box left
    EXPECT_EQ(At<int32_t>(bytes[0], 48), 70);  // box bottom
    EXPECT_EQ(At<float>(bytes[0], 52), 50.0f);
    EXPECT_EQ(At<float>(bytes[0], 56), 40.0f);  // h - 10
    EXPECT_EQ(At<int32_t>(bytes[0], 60 + 12), 4);
    EXPECT_EQ(At<uint32_t>(bytes[0], 128 + 4), RED);

    CQRDObjectShape back;
    CByteReader in(bytes);
    ASSERT_TRUE(back.Deserialize(in));
    EXPECT_EQ(back.m_nKind, 22);
    EXPECT_EQ(back.m_rcStored, s.m_rcStored);
    EXPECT_EQ(back.m_nAngle, 30);
    EXPECT_EQ(back.ControlPoint(), QPointF(50, 40));
    EXPECT_EQ(back.m_effect.nEdge, 4);
    EXPECT_EQ(back.m_attr.fill[0].clrSolid, RED);
}

// Old files carry a rectangle after the shape's own fields; the record after
// such a shape must still be read from its own first byte.
TEST_F(ShapeOnCanvas, AnOldRectangleIsReadAndTheNextRecordFollows) {
    auto record = [](CByteWriter& out, int32_t hasOldRect, uint32_t kind, UstRect box) {
        out.Put(1.3f);
        out.Put(0.0f);
        out.Put(hasOldRect);
        out.Put(kind);
        for (int32_t word : {0, 0, 0, 0, 0})  // two words, locked, rotation, edit
            out.Put(word);
        out.Put(box);
        out.Put(12.0f);
        out.Put(3.0f);
        out.Put(UstEffect{});
        out.Put(RedFace());
    };
    CByteWriter out;
    record(out, 1, 1, {10, 20, 90, 60});
    out.Put(UstRect{1, 2, 3, 4});
    record(out, 0, 2, {5, 6, 45, 26});
    CByteReader in(out.Bytes());
    CQRDObjectShape first, second;
    ASSERT_TRUE(first.Deserialize(in));
    EXPECT_EQ(first.m_rcOld, (UstRect{1, 2, 3, 4}));
    ASSERT_TRUE(second.Deserialize(in));
    EXPECT_EQ(second.m_nKind, 2);
    EXPECT_EQ(second.m_rcStored, (UstRect{5, 6, 45, 26}));
    EXPECT_EQ(second.ControlPoint(), QPointF(12, 3));
    EXPECT_EQ(second.m_attr.fill[UstAttr::BODY].clrSolid, RED);
    EXPECT_EQ(in.Remaining(), 0u);
}

TEST_F(ShapeOnCanvas, StateRoundTripKeepsTheLook) {
    CQRDObjectShape& s = Make(1, {0, 0, 80, 40});
    s.DragControlTo(12, 3);
    CByteWriter out;
    s.SaveState(out);
    CQRDObjectShape back;
    back.m_pPage = &page;
    CByteReader in(out.Bytes());
    ASSERT_TRUE(back.LoadState(in, 0));
    EXPECT_EQ(back.m_nKind, 1);
    EXPECT_EQ(back.ControlPoint(), QPointF(12, 3));
    EXPECT_EQ(back.m_rcView, (UstRect{0, 0, 80, 40}));
}

TEST_F(ShapeOnCanvas, ARectangleFillsItsBoxAndAnEllipseSparesTheCorners) {
    Make(0, {20, 10, 60, 30}).Draw();
    EXPECT_EQ(page.At(20, 10), RED);
    EXPECT_EQ(page.At(59, 29), RED);
    EXPECT_EQ(page.At(60, 20), GREY);
    EXPECT_EQ(Painted(), 40 * 20);
    page.MakeCanvas(GREY);
    Make(2, {20, 10, 60, 30}).Draw();
    EXPECT_EQ(page.At(40, 20), RED);
    EXPECT_EQ(page.At(21, 11), GREY);
}

TEST_F(ShapeOnCanvas, AQuarterTurnStandsTheBarUp) {
    CQRDObjectShape& s = Make(0, {60, 50, 100, 60});  // centre (80, 55)
    s.m_nAngle = 90;
    s.Draw();
    EXPECT_EQ(page.At(80, 55 + 15), RED);
    EXPECT_EQ(page.At(80 + 15, 55), GREY);
    // The kept image follows the angle when it changes under it.
    page.MakeCanvas(GREY);
    s.m_nAngle = 0;
    s.Draw();
    EXPECT_EQ(page.At(80 + 15, 55), RED);
}

TEST_F(ShapeOnCanvas, ChangesOfLookDropTheKeptImage) {
    CQRDObjectShape& s = Make(0, {0, 0, 30, 30});
    s.Draw();
    ASSERT_TRUE(s.CachedImage().Made());
    UstFill blue{};
    blue.clrSolid = 0xFF0000FFu;
    EXPECT_TRUE(s.Execute(&blue, CMD_BODY_PAINT));
    EXPECT_FALSE(s.CachedImage().Made());
    s.Draw();
    EXPECT_EQ(page.At(15, 15), 0xFF0000FFu);
    UstEffect e{};
    e.nEdge = 5;
    EXPECT_TRUE(s.Execute(&e, 226));
    EXPECT_FALSE(s.CachedImage().Made());
}

// The sideways squeeze belongs to frames on air; an edit canvas that
// happens to be 486 pixels high (a 1920 page at 45 %) shows true shapes.
TEST_F(ShapeOnCanvas, ACanvasOf486LinesIsNotSqueezed) {
    page.fZoom = 45.0f;
    page.height = 486;
    page.MakeCanvas(GREY);
    CQRDObjectShape& s = Make(0, {0, 0, 45, 45});  // stored 100 x 100
    s.Draw();
    EXPECT_EQ(s.CachedImage().width, 45);
    EXPECT_EQ(s.CachedImage().height, 45);
    EXPECT_EQ(page.At(44, 44), RED);
    EXPECT_EQ(page.At(44, 46), GREY);
}

TEST_F(ShapeOnCanvas, BadShapesDrawNothingAndNeverEscapeTheCanvas) {
    Make(28, {10, 10, 100, 100}).Draw();
    Make(-3, {10, 10, 100, 100}).Draw();
    Make(0, {50, 50, 50, 50}).Draw();
    EXPECT_EQ(Painted(), 0);
    UstEffect soft{};
    soft.nShadowX = 50;
    soft.nShadowSoft = 20;
    for (int kind = 0; kind < SHAPE_KIND_COUNT; ++kind) {
        CQRDObjectShape& s = Make(kind, {-30, -30, 260, 160}, soft);
        s.m_fCtrlX = 1e6f, s.m_fCtrlY = -1e6f;
        s.m_nAngle = 1000000007;
        s.Draw();
        CQRDObjectShape& huge = Make(kind, {-200000, -200000, 200000, 200000});
        huge.Draw();
        EXPECT_FALSE(huge.CachedImage().Made()) << kind;
    }
    EXPECT_EQ(page.canvas.size(), static_cast<size_t>(200 * 120));
}

TEST_F(ShapeOnCanvas, TheEditHatchAndTheYellowHandle) {
    CQRDObjectShape& s = Make(1, {20, 20, 120, 80});
    s.SetEditing(true);
    s.RecalcHandles();
    QImage canvas(reinterpret_cast<uchar*>(page.canvas.data()), 200, 120, 200 * 4,
                  QImage::Format_ARGB32_Premultiplied);
    {
        QPainter painter(&canvas);
        s.DrawHandles(painter);
    }
    const QPointF c = s.ControlHandleCentre();  // (50, 30)
    EXPECT_EQ(page.At(static_cast<int>(c.x()), static_cast<int>(c.y())), 0xFFFCFC3Cu);
    int hatched = 0;
    for (int x = 60; x < 110; ++x)
        hatched += page.At(x, 60) == 0xFF808080u;
    EXPECT_GT(hatched, 3);
    EXPECT_LT(hatched, 40);
}

}  // namespace
}  // namespace orv
