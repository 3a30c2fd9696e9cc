#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include <cstring>

#include "render/layers.h"
#include "render/pixels.h"

namespace orv {
namespace {

UstEffect Effect(int edge, int outline = 0, int edgeSoft = 0, int shadowX = 0, int shadowY = 0,
                 int shadowSoft = 0, int shadowType = SHADOW_DROP) {
    UstEffect e{};
    e.nEdge = edge;
    e.nOutline = outline;
    e.nEdgeSoft = edgeSoft;
    e.nShadowX = shadowX;
    e.nShadowY = shadowY;
    e.nShadowSoft = shadowSoft;
    e.nShadowType = shadowType;
    return e;
}

LayerRects Rects(const UstEffect& e, float xs = 1.0f, float ys = 1.0f) {
    LayerRects r;
    ComputeLayerRects(10, 20, 30, 40, e, xs, ys, true, r);
    return r;
}

TEST(LayerRectsTest, BandsAndSoftness) {
    EXPECT_EQ(Rects(Effect(0)).edge, 0);
    EXPECT_EQ(Rects(Effect(1)).edge, 2);         // the size set is one less than the band
    EXPECT_EQ(Rects(Effect(1), 0.25f).edge, 1);  // RoundToInt(2 * 0.25) is below 2
    const LayerRects soft = Rects(Effect(1, 0, 5));
    EXPECT_EQ(soft.edgeSoft, 15);
    EXPECT_EQ(soft.strokeSoft, 15);
    const LayerRects both = Rects(Effect(1, 2, 5));
    EXPECT_EQ(both.outline, 3);
    EXPECT_EQ(both.edgeSoft, 0);  // with an outline the softness is the outline's
    EXPECT_EQ(both.strokeSoft, 15);
    EXPECT_EQ(Rects(Effect(0, 0, 5)).strokeSoft, 0);
}

TEST(LayerRectsTest, ShadowOffsetsAndTheDragRule) {
    EXPECT_EQ(Rects(Effect(0, 0, 0, 1, 0), 0.25f).shadowDx, 1);  // a small offset never vanishes
    EXPECT_EQ(Rects(Effect(0, 0, 0, 8, -8), 0.25f, 0.5f).shadowDy, -4);
    const LayerRects dragDown = Rects(Effect(1, 0, 2, 0, 20, 3, SHADOW_DRAG));
    EXPECT_EQ(dragDown.shadowSoft, 9);  // no horizontal offset: softness stays
    EXPECT_EQ(dragDown.edgeSoft, 6);
    const LayerRects dragAcross = Rects(Effect(1, 0, 2, 5, 20, 3, SHADOW_DRAG));
    EXPECT_EQ(dragAcross.shadowSoft, 0);
    EXPECT_EQ(dragAcross.edgeSoft, 0);
    EXPECT_EQ(dragAcross.strokeSoft, 0);
    EXPECT_EQ(Rects(Effect(0, 0, 0, 0, 0, 3)).shadowSoft, 0);  // no offset, no shadow softness
}

TEST(LayerRectsTest, BoxesAbsoluteAndShifted) {
    LayerRects r;
    ComputeLayerRects(10, 20, 30, 40, Effect(1, 0, 0, 2, 2), 1.0f, 1.0f, false, r);
    EXPECT_EQ(r.rcShadow, (UstRect{10, 20, 44, 64}));
    EXPECT_EQ(r.rcStroke, (UstRect{8, 18, 42, 62}));
    EXPECT_EQ(r.rcUnion, (UstRect{8, 18, 44, 64}));
    EXPECT_EQ(r.canvasWidth, 36);
    EXPECT_EQ(r.canvasHeight, 46);
    EXPECT_EQ(r.originX, 8);
    const LayerRects s = Rects(Effect(1, 0, 0, 2, 2));
    EXPECT_EQ(s.rcFace, (UstRect{2, 2, 32, 42}));
    EXPECT_EQ(s.rcShadow, (UstRect{2, 2, 36, 46}));
    EXPECT_EQ(s.rcStroke, (UstRect{0, 0, 34, 44}));
    EXPECT_EQ(s.rcAbsStroke, (UstRect{8, 18, 42, 62}));
    const LayerRects o = Rects(Effect(1, 2));
    EXPECT_EQ(o.rcInner, (UstRect{3, 3, 37, 47}));  // stroke box less the outline
}

// A damaged record cannot ask for a huge canvas: each size is held to the
// range of its control, and the ends of the ranges themselves pass.
TEST(LayerRectsTest, SizesAreHeldToTheControlsRanges) {
    EXPECT_EQ(Rects(Effect(30)).edge, 31);
    EXPECT_EQ(Rects(Effect(31)).edge, 31);
    EXPECT_EQ(Rects(Effect(0, 31)).outline, 31);
    EXPECT_EQ(Rects(Effect(1, 0, 20)).edgeSoft, 60);
    EXPECT_EQ(Rects(Effect(1, 0, 21)).edgeSoft, 60);
    EXPECT_EQ(Rects(Effect(0, 0, 0, 50, 0)).shadowDx, 50);
    EXPECT_EQ(Rects(Effect(0, 0, 0, -51, 0)).shadowDx, -50);
    EXPECT_EQ(Rects(Effect(0, 0, 0, 0, -50)).shadowDy, -50);
    EXPECT_EQ(Rects(Effect(0, 0, 0, 0, 51)).shadowDy, 50);
    EXPECT_EQ(Rects(Effect(0, 0, 0, 2, 0, 21)).shadowSoft, 60);
    const LayerRects down = Rects(Effect(0, 0, 0, 0, 100000));
    EXPECT_EQ(down.shadowDy, 50);
    EXPECT_EQ(down.canvasHeight, 90);  // 40 high, moved down 50
    // Bands of 31 and 31 and a softness of 60: S = 122, T = 62. The shadow
    // box spans 30 + 244 from 10 + 50 - 122; the stroke box lies inside it.
    const LayerRects absurd = Rects(Effect(100000, 100000, 0, 100000, -100000, 100000));
    EXPECT_EQ(absurd.canvasWidth, 274);
    EXPECT_EQ(absurd.canvasHeight, 284);
}

TEST(PixelLine, OneStartEitherWayRound) {
    EXPECT_EQ(TracePixelLine(10, 10, 10, 10).size(), 1u);
    const auto forward = TracePixelLine(0, 0, 5, 2), backward = TracePixelLine(5, 2, 0, 0);
    ASSERT_EQ(forward.size(), 6u);
    // a = 2, b = 5: the error runs -1, 3, -3, 1, -5, and y steps after the
    // points whose error is at least 1.
    const int ys[] = {0, 0, 1, 1, 2, 2};
    for (size_t i = 0; i < forward.size(); ++i) {
        EXPECT_EQ(forward[i], backward[i]) << i;
        EXPECT_EQ(forward[i], (UstPoint{static_cast<int>(i), ys[i]})) << i;
    }
    const auto up = TracePixelLine(3, 9, 3, 4);
    EXPECT_EQ(up.front(), (UstPoint{3, 4}));
    const auto steep = TracePixelLine(0, 0, -2, 6);
    EXPECT_EQ(steep.size(), 7u);
    EXPECT_EQ(steep.front(), (UstPoint{0, 0}));
    EXPECT_EQ(steep.back(), (UstPoint{-2, 6}));
}

TEST(Regions, RunsOfNonZeroPixels) {
    const std::vector<uint32_t> none(12, 0);
    EXPECT_TRUE(RegionFromMask(none.data(), 4, 3).empty());
    const std::vector<uint32_t> mask = {0, 1, 1, 0, 5, 0, 0, 0, 7, 7};
    const UstRegion r = RegionFromMask(mask.data(), 5, 2);
    ASSERT_EQ(r.size(), 3u);
    EXPECT_EQ(r[0], (UstRect{1, 0, 3, 1}));
    EXPECT_EQ(r[1], (UstRect{4, 0, 5, 1}));
    EXPECT_EQ(r[2], (UstRect{3, 1, 5, 2}));
    std::vector<uint32_t> block(10, 9);
    ClearRegion(block.data(), 5, 2, r);
    EXPECT_EQ(block, (std::vector<uint32_t>{9, 0, 0, 9, 0, 9, 9, 9, 0, 0}));
}

// Renders the layers of a 40 x 40 square path and keeps them for a person
// to look at in the test's folder.
class SquareLayers : public testing::Test {
protected:
    void Render(const UstEffect& effect, const char* name) {
        ComputeLayerRects(0, 0, 40, 40, effect, 1.0f, 1.0f, true, rects);
        w = rects.canvasWidth;
        h = rects.canvasHeight;
        path = QPainterPath();
        path.addRect(QRectF(rects.rcFace.left, rects.rcFace.top, 40, 40));
        scratch.Prepare(w, h);
        UstFill fill{};
        fill.clrSolid = 0xFFFF0000u;
        CreateFillBrush(scratch.edge, fill, rects.rcFace, &path, 1, 1);
        fill.clrSolid = 0xFF00FF00u;
        CreateFillBrush(scratch.outline, fill, rects.rcFace, &path, 1, 1);
        fill.clrSolid = 0xFF000000u;
        CreateFillBrush(scratch.shadow, fill, rects.rcFace, &path, 1, 1);
        for (auto* layer : {&edge, &outline, &shadow})
            layer->assign(static_cast<size_t>(w) * h, 0);
        Draw(edge, [&](UstLayerTarget t) { RenderEdge(rects, scratch, path, t); });
        Draw(outline, [&](UstLayerTarget t) { RenderOutline(rects, scratch, path, t); });
        Draw(shadow,
             [&](UstLayerTarget t) { RenderShadow(rects, scratch, path, t, effect.nShadowType); });
        QDir().mkpath("layers");
        for (auto [layer, part] :
             {std::pair{&edge, "edge"}, {&outline, "outline"}, {&shadow, "shadow"}})
            Image(*layer).save(QString("layers/%1_%2.png").arg(name, part));
    }
    template <typename F>
    void Draw(std::vector<uint32_t>& layer, F pass) {
        QImage image = Image(layer);
        QPainter g(&image);
        g.setRenderHint(QPainter::Antialiasing);
        pass(UstLayerTarget{layer.data(), g});
    }
    QImage Image(std::vector<uint32_t>& layer) const {
        return QImage(reinterpret_cast<uchar*>(layer.data()), w, h, w * 4,
                      QImage::Format_ARGB32_Premultiplied);
    }
    uint32_t At(const std::vector<uint32_t>& layer, int x, int y) const {
        return layer[static_cast<size_t>(y) * w + x];
    }
    LayerRects rects;
    UstScratchSet scratch;
    QPainterPath path;
    std::vector<uint32_t> edge, outline, shadow;
    int w = 0, h = 0;
};

TEST_F(SquareLayers, EdgeBandAlongAScanLine) {
    Render(Effect(3), "edge3");  // a band of 4
    const int y = rects.rcFace.top + 20, left = rects.rcFace.left;
    int band = 0;
    for (int x = 0; x < left; ++x)
        band += (At(edge, x, y) >> 24) >= 128;
    EXPECT_GE(band, 3);
    EXPECT_LE(band, 5);
    for (int x = left + 2; x < rects.rcFace.right - 2; ++x)
        EXPECT_EQ(At(edge, x, y), 0u) << x;
    EXPECT_EQ(At(edge, 0, 0) >> 24, 0u);  // the corner lies beyond the round band
}

TEST_F(SquareLayers, OutlineLiesBeyondTheEdge) {
    Render(Effect(3, 3), "outline");
    const int y = rects.rcFace.top + 20, left = rects.rcFace.left;
    EXPECT_GT(At(outline, left - 6, y) >> 24, 128u);  // in the outline band
    EXPECT_EQ(At(outline, left - 1, y), 0u);          // the edge's place is cleared
    EXPECT_EQ(At(outline, left + 5, y), 0u);
}

TEST_F(SquareLayers, ShadowNeverInsideThePathAndSoftRingStaysClear) {
    Render(Effect(0, 0, 0, 6, 6, 3), "shadow");
    for (int y = rects.rcFace.top; y < rects.rcFace.bottom; ++y)
        for (int x = rects.rcFace.left; x < rects.rcFace.right; ++x)
            ASSERT_EQ(At(shadow, x, y), 0u) << x << "," << y;
    EXPECT_GT(At(shadow, rects.rcFace.right + 2, rects.rcFace.bottom + 2) >> 24, 100u);
    const UstRect& box = rects.rcShadow;  // the blur stays one radius inside its box
    for (int x = box.left; x < box.right; ++x)
        EXPECT_EQ(At(shadow, x, box.bottom - 1), 0u) << x;
}

TEST_F(SquareLayers, DragShadowExtrudesWithHardSides) {
    Render(Effect(0, 0, 0, 8, 8, 0, SHADOW_DRAG), "drag");
    // Between the object and its far end the extrusion is filled solid.
    EXPECT_EQ(At(shadow, rects.rcFace.right + 3, rects.rcFace.top + 20), 0xFF000000u);
    EXPECT_EQ(At(shadow, rects.rcFace.left + 20, rects.rcFace.top + 20), 0u);
}

}  // namespace
}  // namespace orv
