#include <gtest/gtest.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstring>

#include "render/glyph_font.h"
#include "render/glyph_outline.h"

namespace orv {
namespace {

constexpr FIXED ONE = 0x10000;

UstPointFx Px(double x, double y) {
    return {FixedFromDouble(x), FixedFromDouble(y)};
}

UstGlyphPolygon Polygon(UstPointFx start, std::vector<UstGlyphRecord> records) {
    UstGlyphPolygon p;
    p.pfxStart = start;
    p.records = std::move(records);
    return p;
}

QPointF Element(const QPainterPath& path, int i) {
    const QPainterPath::Element e = path.elementAt(i);
    return {e.x, e.y};
}

TEST(GlyphWalk, TwoPointSplineIsOneCubicEndingAtTheSecondPoint) {
    QPainterPath path;
    const auto polys = {Polygon(Px(0, 0), {{PRIM_QSPLINE, {Px(3, 3), Px(6, 0)}}})};
    EXPECT_EQ(WalkGlyphPolygons(polys, 0, 0, path), 0);
    ASSERT_EQ(path.elementCount(), 5);  // move, two controls, end, the closing line
    EXPECT_EQ(path.elementAt(1).type, QPainterPath::CurveToElement);
    EXPECT_FLOAT_EQ(Element(path, 1).x(), 2.0f);  // A + (B - A) * 2/3
    EXPECT_FLOAT_EQ(Element(path, 2).x(), 4.0f);  // B + (C - B) / 3
    EXPECT_FLOAT_EQ(Element(path, 2).y(), 2.0f);
    EXPECT_EQ(Element(path, 3), QPointF(6, 0));
}

TEST(GlyphWalk, ThreePointSplineBendsThroughTheMidpoint) {
    QPainterPath path;
    const auto polys = {Polygon(Px(0, 0), {{PRIM_QSPLINE, {Px(2, 4), Px(6, 4), Px(8, 0)}}})};
    WalkGlyphPolygons(polys, 0, 0, path);
    ASSERT_EQ(path.elementCount(), 8);
    EXPECT_EQ(Element(path, 3), QPointF(4, 4));
    EXPECT_EQ(Element(path, 6), QPointF(8, 0));
}

TEST(GlyphWalk, LineAfterSplineContinuesFromItsEndAndOffsetsComeLast) {
    QPainterPath path;
    const auto polys = {Polygon(
        Px(1, 1), {{PRIM_QSPLINE, {Px(3, 3), Px(6, 1)}}, {PRIM_LINE, {Px(6, 6), Px(1, 6)}}})};
    WalkGlyphPolygons(polys, 10, 20, path);
    EXPECT_EQ(Element(path, 0), QPointF(11, 21));
    EXPECT_EQ(Element(path, 3), QPointF(16, 21));
    EXPECT_EQ(path.elementAt(4).type, QPainterPath::LineToElement);
    EXPECT_EQ(Element(path, 4), QPointF(16, 26));
    EXPECT_EQ(Element(path, 5), QPointF(11, 26));
}

TEST(GlyphWalk, EmptyPolygonAddsNothingAndABadOneStops) {
    QPainterPath path;
    EXPECT_EQ(WalkGlyphPolygons({Polygon(Px(5, 5), {})}, 0, 0, path), 0);
    EXPECT_EQ(path.elementCount(), 0);
    UstGlyphPolygon bad = Polygon(Px(0, 0), {{PRIM_LINE, {Px(1, 1)}}});
    bad.dwType = 25;
    EXPECT_EQ(WalkGlyphPolygons({bad}, 0, 0, path), 6);
    UstGlyphPolygon cubic = Polygon(Px(0, 0), {{PRIM_CSPLINE, {Px(1, 2), Px(3, 4), Px(5, 6)}}});
    QPainterPath c;
    WalkGlyphPolygons({cubic}, 0, 0, c);
    ASSERT_EQ(c.elementCount(), 5);
    EXPECT_EQ(Element(c, 1), QPointF(1, 2));  // cubic outlines go in as they are
}

TEST(GlyphRecords, FromEngineContours) {
    // On (0,0), conic (1,1), on (2,0), on (2,-1), conic (1,-2), in 26.6.
    FT_Vector points[] = {{0, 0}, {64, 64}, {128, 0}, {128, -64}, {64, -128}};
    char tags[] = {FT_CURVE_TAG_ON, FT_CURVE_TAG_CONIC, FT_CURVE_TAG_ON, FT_CURVE_TAG_ON,
                   FT_CURVE_TAG_CONIC};
    short contours[] = {4};
    FT_Outline outline{};
    outline.n_contours = 1;
    outline.n_points = 5;
    outline.points = points;
    outline.tags = tags;
    outline.contours = contours;
    const auto polys = PolygonsFromOutline(outline);
    ASSERT_EQ(polys.size(), 1u);
    const UstGlyphPolygon& p = polys[0];
    EXPECT_EQ(p.pfxStart.x, 0);
    ASSERT_EQ(p.records.size(), 3u);
    EXPECT_EQ(p.records[0].wType, PRIM_QSPLINE);
    EXPECT_EQ(p.records[0].points.size(), 2u);
    EXPECT_EQ(p.records[0].points[1].x, 2 * ONE);
    EXPECT_EQ(p.records[1].wType, PRIM_LINE);
    EXPECT_EQ(p.records[1].points[0].y, -ONE);
    EXPECT_EQ(p.records[2].wType, PRIM_QSPLINE);
    EXPECT_EQ(p.records[2].points[1].x, 0);  // back to the start

    // All off-curve: the contour starts between the last and the first point.
    char offs[] = {FT_CURVE_TAG_CONIC, FT_CURVE_TAG_CONIC, FT_CURVE_TAG_CONIC, FT_CURVE_TAG_CONIC,
                   FT_CURVE_TAG_CONIC};
    outline.tags = offs;
    const auto round = PolygonsFromOutline(outline);
    EXPECT_EQ(round[0].pfxStart.x, ONE / 2);
    EXPECT_EQ(round[0].pfxStart.y, -ONE);
}

TEST(GlyphMatrices, SlantKeepsTheResidueOfItsAngle) {
    const UstMat2 plain = OutlineMatrix(UstMat2{}, 0);
    EXPECT_EQ(plain.eM22, -0x10000);
    EXPECT_EQ(plain.eM21, 0);
    EXPECT_EQ(plain.eM11, 0x10000);
    const UstMat2 leaning = OutlineMatrix(UstMat2{}, 5);
    EXPECT_EQ(leaning.eM21, 32768);  // -(trunc(-0.5 * 65536 - 0.006)) with the tops leaning right
    EXPECT_EQ(leaning.eM22, -0x10000);
    EXPECT_EQ(leaning.eM12, 0);
    // For measuring: (0.5 - sin(6.2831854)) * 65536 = 32767.99..., truncated.
    EXPECT_EQ(SlantMatrix(5).eM21, 32767);
    EXPECT_EQ(SlantMatrix(0).eM21, -0);
}

UstFontBlock Face(const char16_t* name, int size = 72, uint8_t charSet = 1) {
    UstFontBlock f{};
    f.nCharSet = charSet;
    f.nSize = size;
    std::memcpy(f.szFace, name, std::char_traits<char16_t>::length(name) * 2);
    return f;
}

TEST(Fonts, FoundByFamilyOrFallingBackVisibly) {
    const UstFaceMatch dejavu = MatchFace("DejaVu Sans");
    EXPECT_FALSE(dejavu.bFallback);
    EXPECT_FALSE(dejavu.file.empty());
    const UstFaceMatch missing = MatchFace("No Such Face 4711");
    EXPECT_TRUE(missing.bFallback);
    EXPECT_FALSE(missing.file.empty());
    EXPECT_NE(ReplacementFace("No Such Face 4711", 129), "No Such Face 4711");
    const QStringList families = InstalledFontFamilies();
    EXPECT_TRUE(families.contains("DejaVu Sans"));
    EXPECT_EQ(families.count("DejaVu Sans"), 1);
}

TEST(Fonts, GlyphBoxLandsWhereAskedAndBlankAddsNothing) {
    GlyphFont font;
    ASSERT_TRUE(font.SetFont(BaseLogFont(Face(u"DejaVu Sans"), 1.0f)));  // 96 pixels
    QPainterPath path;
    EXPECT_EQ(font.AddGlyph(path, U'H', 10.0f, 20.0f, 0), 1);
    const QRectF box = path.boundingRect();
    EXPECT_NEAR(box.left(), 10.0, 1.0);
    EXPECT_NEAR(box.top(), 20.0, 1.0);
    EXPECT_GT(box.height(), 60.0);  // a capital of a 96-pixel em
    EXPECT_EQ(path.fillRule(), Qt::WindingFill);
    QPainterPath blank;
    font.AddGlyph(blank, U' ', 0, 0, 0);
    EXPECT_TRUE(blank.isEmpty());
    QPainterPath lacking;  // a code the face lacks gives what the face gives
    font.AddGlyph(lacking, U'\U000E0001', 0, 0, 0);
    QPainterPath slanted;
    font.AddGlyph(slanted, U'H', 10.0f, 20.0f, 3);
    EXPECT_GT(slanted.boundingRect().width(), box.width() + 10.0);
}

TEST(Fonts, WidthFollowsTheScalesInItsSumForm) {
    UstGlyphRequest request;
    request.code = U'H';
    request.font = Face(u"DejaVu Sans", 72);
    const auto base = CFontHandle::Create(BaseLogFont(request.font, 1.0f));
    const auto half = CFontHandle::Create(BaseLogFont(request.font, 0.5f));
    ASSERT_TRUE(base && half);
    const int baseWidth = base->TextMetrics().tmAveCharWidth;
    const int halfWidth = half->TextMetrics().tmAveCharWidth;
    UstLogFont lf{};
    int w = 0, h = 0;
    ASSERT_TRUE(MakeGlyphFont(request, 1.0f, 1.0f, &w, &h, &lf));
    EXPECT_EQ(lf.lfHeight, -96);  // 72 points at 1.3333
    EXPECT_EQ(lf.lfWidth, baseWidth);
    const int fullBox = w;
    ASSERT_TRUE(MakeGlyphFont(request, 0.9f, 1.0f, &w, &h, &lf));
    EXPECT_EQ(lf.lfWidth, static_cast<int>(0.9 * baseWidth));
    EXPECT_NEAR(w, fullBox * 0.9, 2.0);
    ASSERT_TRUE(MakeGlyphFont(request, 1.0f, 0.5f, &w, &h, &lf));
    EXPECT_EQ(lf.lfHeight, -48);
    EXPECT_EQ(lf.lfWidth, static_cast<int>(1.5 * halfWidth));
}

TEST(Fonts, HangulFromAnInstalledKoreanFace) {
    GlyphFont font;
    ASSERT_TRUE(font.SetFont(BaseLogFont(Face(u"UnBatang", 40, 129), 1.0f)));
    EXPECT_FALSE(font.Font()->Face().bFallback);
    QPainterPath path;
    font.AddGlyph(path, U'한', 0, 0, 0);
    EXPECT_GT(path.elementCount(), 20);
}

}  // namespace
}  // namespace orv
