// Assembling text into one image: sharing between equal characters, the
// stacking of layers across characters, and turning, checked with real
// glyphs and against corners and pixels worked out by hand.
#include <gtest/gtest.h>

#include <QPainter>

#include <cstring>
#include <memory>

#include "render/fixed_string.h"
#include "render/text_image.h"
#include "render/text_measure.h"

namespace orv {
namespace {

constexpr uint32_t WHITE = 0xFFFFFFFFu, BLACK = 0xFF000000u;

UstCharAttr Glyph(uint32_t code, uint32_t colour = WHITE) {
    UstCharAttr c = NewCharAttr();
    c.nChar = code;
    c.font.nSize = 72;
    QStringToFixed("DejaVu Sans", &c.font.szFace);
    c.clrFill = colour;
    MeasureChar(c, true);
    return c;
}

UstAttr SolidAttr() {
    UstAttr attr{};
    for (UstFill& f : attr.fill)
        f.clrSolid = BLACK;
    return attr;
}

uint32_t PixelAt(const ObjectImage& image, int pageX, int pageY) {
    const int x = pageX - image.x, y = pageY - image.y;
    if (x < 0 || y < 0 || x >= image.width || y >= image.height) return 0;
    return image.pBlock[static_cast<size_t>(y) * image.width + x];
}

struct Text {
    std::vector<UstCharAttr> chars;
    std::vector<UstCharPos> pos;
    std::vector<UstFES> fes;
    UstEffect effect{};
    UstAttr attr = SolidAttr();
    void Add(UstCharAttr c, float x) {
        chars.push_back(c);
        pos.push_back({x, 0});
    }
    int Render(ObjectImage* out, int rotation = 0) {
        return RenderTextImage(chars.data(), static_cast<int>(chars.size()), fes, pos.data(),
                               effect, attr, 1.0f, 1.0f, rotation, out);
    }
};

TEST(TextImage, SpacesOnlyGiveAnEmptyCanvas) {
    Text t;
    t.Add(Glyph(' '), 0);
    t.Add(Glyph(' '), 30);
    t.Add(Glyph(13), 60);
    ObjectImage out;
    EXPECT_EQ(t.Render(&out), 0);
    EXPECT_TRUE(out.Made());
    EXPECT_EQ(out.width, 0);
    EXPECT_EQ(out.height, 0);
    EXPECT_FALSE(t.fes[0].Rendered());
}

TEST(TextImage, EqualCharactersShareTheirBlocksAtTheirOwnPlaces) {
    Text t;
    t.effect.nEdge = 2;
    t.Add(Glyph('A'), 0);
    t.Add(Glyph('A'), 100);
    t.Add(Glyph('A', 0xFFFF0000u), 200);  // another colour: its own blocks
    EXPECT_EQ(t.Render(nullptr), 2);
    ASSERT_TRUE(t.fes[0].Rendered());
    EXPECT_EQ(t.fes[1].pLayer[UstFES::FACE], t.fes[0].pLayer[UstFES::FACE]);
    EXPECT_EQ(t.fes[1].pLayer[UstFES::EDGE], t.fes[0].pLayer[UstFES::EDGE]);
    EXPECT_EQ(t.fes[1].x, t.fes[0].x + 100);
    EXPECT_EQ(t.fes[1].y, t.fes[0].y);
    EXPECT_NE(t.fes[2].pLayer[UstFES::FACE], t.fes[0].pLayer[UstFES::FACE]);

    // The shared block goes once, when its last holder lets go.
    const std::weak_ptr<uint32_t[]> face = t.fes[0].pLayer[UstFES::FACE];
    std::vector<UstFES> copy = t.fes;
    FreeFESArray(t.fes);
    EXPECT_FALSE(face.expired());
    FreeFESArray(copy);
    EXPECT_TRUE(face.expired());
    EXPECT_FALSE(copy[1].pLayer[UstFES::FACE]);
}

TEST(TextImage, AGradientFaceSharesNothing) {
    Text t;
    UstFill& face = t.attr.fill[UstAttr::BODY];
    face.nType = 1;
    face.nStops = 2;
    face.fPos[1] = 1.0f;
    face.clrStop[0] = 0xFFFF0000u;
    face.clrStop[1] = 0xFF0000FFu;
    t.Add(Glyph('A'), 0);
    t.Add(Glyph('A'), 100);
    EXPECT_EQ(t.Render(nullptr), 2);
    EXPECT_NE(t.fes[1].pLayer[UstFES::FACE], t.fes[0].pLayer[UstFES::FACE]);
}

TEST(TextImage, SharingTableNamesTheLatestEarlierEqual) {
    std::vector<UstCharAttr> chars = {Glyph('A'), Glyph('B'), Glyph('A'),
                                      Glyph(' '), Glyph('A'), Glyph('A', 0xFF00FF00u)};
    // What follows a face name's end is not part of the name.
    chars[4].font.szFace[20] = u'x';
    const UstAttr attr = SolidAttr();
    EXPECT_EQ(BuildSharingTable(chars.data(), 6, attr), (std::vector<int>{0, 0, 1, 0, 3, 0}));
    UstAttr shadowImage = attr;
    shadowImage.fill[UstAttr::SHADOW].nType = 2;
    EXPECT_EQ(BuildSharingTable(chars.data(), 6, shadowImage), std::vector<int>(6, 0));
}

TEST(TextImage, EveryShadowLiesUnderEveryFace) {
    // The second I's shadow falls exactly on the first I's face.
    Text t;
    t.effect.nShadowX = -40;
    t.Add(Glyph('I'), 0);
    t.Add(Glyph('I'), 40);
    ObjectImage out;
    t.Render(&out);
    const UstCharAttr& i = t.chars[0];
    const int cx = i.nBoxWidth / 2, cy = i.nBoxHeight / 2;
    const UstFES& second = t.fes[1];
    ASSERT_TRUE(second.pLayer[UstFES::SHADOW]);
    EXPECT_EQ(second.pLayer[UstFES::SHADOW]
                           [static_cast<size_t>(cy - second.y) * second.w + (cx - second.x)],
              BLACK);
    EXPECT_EQ(PixelAt(out, cx, cy), WHITE);
    // Beside the face, where no face covers it, the shadow shows.
    EXPECT_EQ(PixelAt(out, cx - 40, cy), BLACK);
}

TEST(TextImage, KeptLayersMoveAndOnlyMissingOnesAreRendered) {
    Text t;
    t.Add(Glyph('A'), 0);
    t.Add(Glyph('B'), 100);
    ASSERT_EQ(t.Render(nullptr), 2);
    const auto kept = t.fes[0].pLayer[UstFES::FACE];
    const int x0 = t.fes[0].x;
    t.fes[1] = UstFES{};
    t.pos[0].x = 10.6f;  // rounds to 11
    EXPECT_EQ(t.Render(nullptr), 1);
    EXPECT_EQ(t.fes[0].pLayer[UstFES::FACE], kept);
    EXPECT_EQ(t.fes[0].x, x0 + 11);
    EXPECT_EQ(t.fes[0].faceX, 11);
}

TEST(TextImage, FullTurnsAreNoTurn) {
    Text t;
    t.effect.nOutline = 2;
    t.Add(Glyph('R'), 5);
    t.Add(Glyph('g'), 80);
    ObjectImage upright, full, back, quarter;
    t.Render(&upright);
    t.Render(&full, 360);
    t.Render(&back, -360);
    t.Render(&quarter, 90);
    for (const ObjectImage* o : {&full, &back}) {
        ASSERT_EQ(o->width, upright.width);
        ASSERT_EQ(o->height, upright.height);
        EXPECT_EQ(o->x, upright.x);
        EXPECT_EQ(o->y, upright.y);
        EXPECT_EQ(std::memcmp(o->pBlock.get(), upright.pBlock.get(),
                              static_cast<size_t>(o->width) * o->height * 4),
                  0);
    }
    // A quarter turn swaps the sides, about the middle of the strokes.
    EXPECT_NEAR(quarter.width, upright.height, 1);
    EXPECT_NEAR(quarter.height, upright.width, 1);
}

// A 10 x 4 block with its top left pixel red, turned a quarter clockwise
// about (5, 2): the corners go to (7, -3), (7, 7), (3, 7) and (3, -3), so
// the bound is 4 x 10 at (3, -3), and the red pixel's centre (0.5, 0.5)
// lands on (6.5, -2.5): the top right pixel of the bound.
TEST(RotateImage, QuarterTurnBoundAndPlacement) {
    std::unique_ptr<uint32_t[]> block(new uint32_t[40]);
    std::fill_n(block.get(), 40, 0xFF0000FFu);
    block[0] = 0xFFFF0000u;
    ObjectImage out;
    RotateImage(std::move(block), 10, 4, 5, 2, 90, out);
    EXPECT_EQ(out.x, 3);
    EXPECT_EQ(out.y, -3);
    ASSERT_EQ(out.width, 4);
    ASSERT_EQ(out.height, 10);
    const uint32_t red = out.pBlock[3];
    EXPECT_GT((red >> 16) & 0xFF, 0xF0u);
    EXPECT_LT(red & 0xFF, 0x10u);
    EXPECT_EQ(out.pBlock[static_cast<size_t>(5) * 4 + 1], 0xFF0000FFu);
}

// Turned by 45 degrees about its centre, a 10 x 10 block's corners reach
// 5 +- 7.071, which round to -2 and 12: a 14 x 14 bound at (-2, -2).
TEST(RotateImage, EighthTurnBoundRoundsEachCorner) {
    std::unique_ptr<uint32_t[]> block(new uint32_t[100]());
    ObjectImage out;
    RotateImage(std::move(block), 10, 10, 5, 5, 45, out);
    EXPECT_EQ(out.x, -2);
    EXPECT_EQ(out.y, -2);
    EXPECT_EQ(out.width, 14);
    EXPECT_EQ(out.height, 14);
}

TEST(SingleGlyph, AllLayersOnOneCanvasAroundTheBox) {
    UstEffect effect{};
    effect.nEdge = 3;
    effect.nShadowX = 5;
    effect.nShadowY = 5;
    UstAttr attr = SolidAttr();
    attr.fill[UstAttr::EDGE].clrSolid = 0xFF0000FFu;
    const UstCharAttr c = Glyph('O', WHITE);
    ObjectImage out;
    RenderSingleGlyph(out, c, effect, attr, 20, 30, 1.0f, 1.0f, nullptr);
    ASSERT_TRUE(out.Made());
    LayerRects rc;
    ComputeLayerRects(20, 30, c.nBoxWidth, c.nBoxHeight, effect, 1, 1, false, rc);
    EXPECT_EQ(out.x, rc.canvasX);
    EXPECT_EQ(out.y, rc.canvasY);
    EXPECT_EQ(out.width, rc.canvasWidth);
    // The ring of the O: white face, a blue edge just outside its left side.
    const int midY = 30 + c.nBoxHeight / 2;
    EXPECT_EQ(PixelAt(out, 20 + 6, midY), WHITE);
    EXPECT_EQ(PixelAt(out, 20 - 2, midY), 0xFF0000FFu);
    ObjectImage none;
    RenderSingleGlyph(none, Glyph(' '), effect, attr, 0, 0, 1, 1, nullptr);
    EXPECT_FALSE(none.Made());
}

}  // namespace
}  // namespace orv
