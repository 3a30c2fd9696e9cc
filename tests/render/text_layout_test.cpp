// Measuring and laying out text, against values worked out by hand from the
// layout rules: characters with set metrics where the rules matter, real
// fonts where the font engine does.
#include <gtest/gtest.h>

#include "render/fixed_string.h"
#include "render/text_layout.h"
#include "render/text_measure.h"

namespace orv {
namespace {

// A character with its measurements given, as MeasureChar would leave them.
UstCharAttr Char(uint32_t code, int size, int boxW, int boxH, int originX, int advance,
                 int originY) {
    UstCharAttr c = NewCharAttr();
    c.nChar = code;
    c.font.nSize = size;
    c.nBoxWidth = boxW;
    c.nBoxHeight = boxH;
    c.nOriginX = originX;
    c.nAdvance = advance;
    c.nOriginY = originY;
    return c;
}

UstCharAttr A24() {
    return Char('a', 24, 20, 18, 1, 22, 18);
}
UstCharAttr B72() {
    return Char('B', 72, 60, 52, 2, 64, 52);
}
UstCharAttr LineEnd72(int leading = 0) {
    UstCharAttr c = Char(13, 72, 0, 96, 0, 0, 82);
    c.metric.nLeading = leading;
    return c;
}

constexpr float H72 = 1.3333f * 72;  // 95.9976
constexpr float H24 = 1.3333f * 24;  // 31.9992

UstTextLayout Lay(const std::vector<UstCharAttr>& chars, float x, float y, UstRect& rect,
                  float scale = 1.0f) {
    UstTextLayout out;
    LayoutText(out, x, y, rect, chars.data(), static_cast<int>(chars.size()), scale, scale);
    return out;
}

TEST(AscentTable, KnownRowsStandAndTheRestFollows) {
    const int rows[][3] = {{1, 2, 0},    {10, 11, 2},    {24, 27, 5},    {36, 40, 7},   {48, 54, 9},
                           {72, 82, 14}, {100, 114, 20}, {200, 228, 39}, {400, 458, 79}};
    for (const auto& r : rows) {
        EXPECT_EQ(LineMetricAt(r[0]).ascent, r[1]) << r[0];
        EXPECT_EQ(LineMetricAt(r[0]).descent, r[2]) << r[0];
    }
    for (int s = 1; s <= MAX_TEXT_SIZE; ++s) {
        EXPECT_GE(LineMetricAt(s).ascent, LineMetricAt(s - 1).ascent) << s;
        EXPECT_GE(LineMetricAt(s).descent, LineMetricAt(s - 1).descent) << s;
    }
    EXPECT_NEAR(LineMetricAt(1001).ascent, 1001 * 1.143, 2.0);
    EXPECT_NEAR(LineMetricAt(1001).descent, 1001 * 0.198, 1.0);
    EXPECT_EQ(LineMetricAt(5000).ascent, LineMetricAt(1001).ascent);  // no row beyond the table
}

TEST(TextLayout, SizesMeetOnOneBaselineAndTheLineTakesTheTallest) {
    UstRect rect;
    const UstTextLayout l = Lay({A24(), B72()}, 100, 200, rect);
    ASSERT_EQ(l.pos.size(), 3u);
    EXPECT_FLOAT_EQ(l.pos[0].x, 101);
    EXPECT_FLOAT_EQ(l.pos[0].y, 182);  // baseline 200 - 18
    EXPECT_FLOAT_EQ(l.pos[1].x, 124);  // pen 122 + bearing 2
    EXPECT_FLOAT_EQ(l.pos[1].y, 148);  // baseline 200 - 52
    EXPECT_EQ(l.nLines, 1);
    // One last line of size 72: (H - A) + A = H.
    EXPECT_NEAR(l.lineHeight[0], H72, 1e-3);
    EXPECT_EQ(rect, (UstRect{100, 118, 184, 214}));  // top 200 - 82, bottom 118 + 95.9976
    EXPECT_FLOAT_EQ(l.pos[2].x, 186);                // the end: pen after the last advance
    EXPECT_FLOAT_EQ(l.pos[2].y, 148);
}

TEST(TextLayout, OnlyTheLineEndsLeadingMovesTheNextLine) {
    auto layoutWith = [](int leadingOfA, int leadingOfLineEnd) {
        UstCharAttr a = B72();
        a.metric.nLeading = leadingOfA;
        UstRect rect;
        return Lay({a, LineEnd72(leadingOfLineEnd), A24()}, 0, 100, rect);
    };
    const UstTextLayout plain = layoutWith(0, 0);
    ASSERT_EQ(plain.nLines, 2);
    EXPECT_EQ(plain.lineRange[0], std::make_pair(0, 1));
    EXPECT_EQ(plain.lineRange[1], std::make_pair(2, 2));
    // Running top 100 + H - A + D = 127.9976; the second line's ascent 27.
    EXPECT_NEAR(plain.pos[2].y, 127.9976f + 27 - 18, 1e-3);
    EXPECT_NEAR(plain.lineHeight[0], 127.9976f - 18, 1e-3);  // minus the text's top, 100 - 82
    EXPECT_NEAR(plain.lineHeight[1], H24, 1e-3);
    EXPECT_NEAR(layoutWith(30, 0).pos[2].y, plain.pos[2].y, 1e-4);
    EXPECT_NEAR(layoutWith(0, 10).pos[2].y, plain.pos[2].y + 10, 1e-3);
}

TEST(TextLayout, AMiddleLineKeepsItsDescentAndLeading) {
    UstRect rect;
    const UstTextLayout l = Lay({B72(), LineEnd72(10), B72(), LineEnd72(10), A24()}, 0, 100, rect);
    ASSERT_EQ(l.nLines, 3);
    // Line 0: baseline 100, top 100 - 82 = 18; gap D + L = 14 + 10 = 24;
    // running top 100 + H72 - 82 + 24 = 137.9976.
    EXPECT_FLOAT_EQ(l.pos[0].y, 48);
    EXPECT_FLOAT_EQ(l.pos[1].y, 18);
    EXPECT_NEAR(l.lineHeight[0], 137.9976f - 18, 1e-3);
    // Line 1: baseline 137.9976 + 82; it is not the last, so its height is
    // the gap and H72: 119.9976.
    EXPECT_NEAR(l.pos[2].y, 219.9976f - 52, 1e-3);
    EXPECT_NEAR(l.pos[3].y, 219.9976f - 82, 1e-3);
    EXPECT_NEAR(l.lineHeight[1], 24 + H72, 1e-3);
    // Line 2 starts at 257.9952: baseline + 27, the character 18 above it.
    EXPECT_NEAR(l.pos[4].y, 257.9952f + 27 - 18, 1e-3);
    EXPECT_NEAR(l.lineHeight[2], H24, 1e-3);
    EXPECT_EQ(rect.top, 18);
    EXPECT_EQ(rect.bottom, 290);  // 257.9952 + 31.9992
}

TEST(TextLayout, EmptyAndLineEndCases) {
    UstRect rect{1, 2, 3, 4};
    const UstTextLayout none = Lay({}, 50, 60, rect);
    EXPECT_TRUE(none.pos.empty());
    EXPECT_EQ(none.nLines, 0);
    EXPECT_EQ(rect, (UstRect{1, 2, 3, 4}));

    // Ending in a line end: one position more than characters, on the empty
    // line below at the origin's x.
    const UstTextLayout ended = Lay({B72(), LineEnd72()}, 10, 100, rect);
    ASSERT_EQ(ended.pos.size(), 3u);
    EXPECT_FLOAT_EQ(ended.pos[2].x, 10);
    EXPECT_NEAR(ended.pos[2].y, 100 + H72 - 82 + 14, 1e-3);
}

TEST(TextLayout, SpacingBearingAndScale) {
    UstRect rect;
    // Spacing scales with the width ratio: 10 points at 50 percent add 5.
    UstCharAttr wide = A24();
    wide.metric.nSpacing = 10;
    wide.metric.nWidth = 50;
    EXPECT_FLOAT_EQ(Lay({wide, A24()}, 0, 100, rect).pos[1].x, 27 + 1);

    // A negative spacing draws the next character over this one; the
    // rectangle still holds both.
    UstCharAttr tight = A24();
    tight.metric.nSpacing = -10;
    const UstTextLayout over = Lay({tight, A24()}, 0, 100, rect);
    EXPECT_FLOAT_EQ(over.pos[1].x, 13);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.right, 33);

    // A first character reaching left of the origin moves the rectangle's
    // left, truncated.
    UstCharAttr hang = A24();
    hang.nOriginX = -5;
    Lay({hang}, 100, 100, rect);
    EXPECT_EQ(rect.left, 95);
    Lay({hang}, 100, 100, rect, 0.5f);
    EXPECT_EQ(rect.left, 97);  // 97.5 truncated
}

UstCharAttr Real(uint32_t code, int size, const char16_t* face = u"DejaVu Sans") {
    UstCharAttr c = NewCharAttr();
    c.nChar = code;
    c.font.nSize = size;
    c.font.nCharSet = 1;
    QStringToFixed(QString::fromUtf16(face), &c.font.szFace);
    MeasureChar(c, true);
    return c;
}

TEST(MeasureChar, BlanksLineEndsAndThePointScale) {
    EXPECT_EQ(PixelHeight(72, 1.0f), 96);
    EXPECT_EQ(PixelHeight(72, 0.5f), 48);
    const UstCharAttr space = Real(' ', 72);
    EXPECT_EQ(+space.nBoxHeight, 96);
    EXPECT_EQ(+space.nOriginY, 82);
    EXPECT_EQ(+space.nOriginX, 0);
    EXPECT_GT(+space.nAdvance, 0);
    EXPECT_EQ(+space.nBoxWidth, +space.nAdvance);
    const UstCharAttr end = Real(13, 72);
    EXPECT_EQ(+end.nBoxWidth, 0);
    EXPECT_EQ(+end.nAdvance, 0);
    EXPECT_EQ(+end.nBoxHeight, 96);
    EXPECT_EQ(+end.nOriginY, 82);
}

TEST(MeasureChar, WidthShearAndLimits) {
    const UstCharAttr plain = Real('H', 72);
    ASSERT_GT(+plain.nBoxWidth, 0);
    EXPECT_GT(+plain.nBoxHeight, 40);
    EXPECT_GT(+plain.nOriginY, 40);
    UstCharAttr doubled = plain;
    doubled.metric.nWidth = 200;
    MeasureChar(doubled, true);
    EXPECT_NEAR(+doubled.nAdvance, 2 * +plain.nAdvance, 3);
    MeasureChar(doubled, false);  // without metrics the width counts as 100
    EXPECT_EQ(+doubled.nAdvance, +plain.nAdvance);
    UstCharAttr slanted = plain;
    slanted.metric.nShear = 5;
    MeasureChar(slanted, true);
    EXPECT_GT(+slanted.nBoxWidth, +plain.nBoxWidth + 10);
    // The extremes of the size range and a character no face has.
    EXPECT_GT(+Real('H', 1).nBoxHeight, 0);
    EXPECT_GT(+Real('H', 1001).nBoxHeight, 900);  // a cap height of 1,335 em pixels
    const UstCharAttr missing = Real(0xE123, 72);
    EXPECT_GE(+missing.nAdvance, 0);
    const UstCharAttr noFace = Real('H', 72, u"No Such Face At All");
    EXPECT_GT(+noFace.nBoxWidth, 0);  // the engine's nearest face stands in
}

TEST(MeasureChar, CharBoxGrowsByTheEffect) {
    const UstCharAttr c = Real('H', 72);
    UstEffect none{};
    const UstRect bare = GetCharBox(10.4f, 20.6f, c, none, 1.0f, 1.0f);
    EXPECT_EQ(bare.left, 10);
    EXPECT_EQ(bare.top, 21);
    EXPECT_EQ(bare.Width(), +c.nBoxWidth);
    UstEffect edged{};
    edged.nEdge = 3;  // a band of 4
    const UstRect grown = GetCharBox(10.4f, 20.6f, c, edged, 1.0f, 1.0f);
    EXPECT_EQ(grown.left, 6);
    EXPECT_EQ(grown.Width(), +c.nBoxWidth + 8);
}

}  // namespace
}  // namespace orv
