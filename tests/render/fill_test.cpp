#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include "render/attr_records.h"
#include "render/fill_brush.h"
#include "render/gradient.h"

namespace orv {
namespace {

// Paints the brush over a w x h block and reads it back straight.
QImage Paint(const QBrush& brush, int w, int h, const QRect& area) {
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter g(&image);
    g.fillRect(area, brush);
    g.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

UstFill Gradient(uint32_t from, uint32_t to, int angle = 0) {
    UstFill f = MakeBlankAttr().fill[1];
    f.nType = 1;
    f.nAngle = static_cast<int16_t>(angle);
    f.nStops = 2;
    f.fPos[0] = 0.0f;
    f.fPos[1] = 1.0f;
    f.clrStop[0] = from;
    f.clrStop[1] = to;
    return f;
}

TEST(FillBrush, LinearRunsOverTheRectangleOnePixelLarger) {
    UstBrushSlot slot;
    CreateFillBrush(slot, Gradient(0xFF000000u, 0xFFFFFFFFu), {0, 0, 2, 2}, nullptr, 1, 1);
    EXPECT_EQ(slot.nKind, BRUSH_GRADIENT);
    const QImage img = Paint(slot.brush, 2, 1, QRect(0, 0, 2, 1));
    // Over -1 to 3: pixel centres 0.5 and 1.5 sit at 3/8 and 5/8 of the way.
    EXPECT_NEAR(qRed(img.pixel(0, 0)), 96, 3);
    EXPECT_NEAR(qRed(img.pixel(1, 0)), 159, 3);
    // 90 degrees runs top to bottom.
    CreateFillBrush(slot, Gradient(0xFF000000u, 0xFFFFFFFFu, 90), {0, 0, 2, 2}, nullptr, 1, 1);
    const QImage down = Paint(slot.brush, 1, 2, QRect(0, 0, 1, 2));
    EXPECT_LT(qRed(down.pixel(0, 0)), qRed(down.pixel(0, 1)));
}

TEST(FillBrush, StopListsThatCannotBlendPaintNothing) {
    UstBrushSlot slot;
    for (int16_t stops : {0, -3, 1}) {
        UstFill f = Gradient(0xFFFF0000u, 0xFF0000FFu);
        f.nStops = stops;
        CreateFillBrush(slot, f, {0, 0, 4, 4}, nullptr, 1, 1);
        EXPECT_EQ(Paint(slot.brush, 4, 4, QRect(0, 0, 4, 4)).pixel(2, 2), 0u) << stops;
    }
    UstFill outside = Gradient(0xFFFF0000u, 0xFF0000FFu);
    outside.fPos[1] = 1.5f;
    CreateFillBrush(slot, outside, {0, 0, 4, 4}, nullptr, 1, 1);
    EXPECT_EQ(Paint(slot.brush, 4, 4, QRect(0, 0, 4, 4)).pixel(2, 2), 0u);
    UstFill many = Gradient(0xFFFF0000u, 0xFF0000FFu);
    many.nStops = 40;  // more than the record holds: its sixteen are read
    for (int i = 0; i < 16; ++i) {
        many.fPos[i] = i / 15.0f;
        many.clrStop[i] = 0xFF00FF00u;
    }
    CreateFillBrush(slot, many, {0, 0, 4, 4}, nullptr, 1, 1);
    EXPECT_EQ(Paint(slot.brush, 4, 4, QRect(0, 0, 4, 4)).pixel(2, 2), 0xFF00FF00u);
}

TEST(FillBrush, PathGradientFromTheCentreAndLinearWithoutAPath) {
    UstFill f = Gradient(0xFF0000FFu, 0xFFFF0000u);  // outline blue, centre red
    f.nGradientKind = 1;
    UstBrushSlot slot;
    CreateFillBrush(slot, f, {0, 0, 40, 40}, nullptr, 1, 1);
    EXPECT_EQ(slot.brush.style(), Qt::LinearGradientPattern);
    QPainterPath circle;
    circle.addEllipse(QRectF(0, 0, 40, 40));
    CreateFillBrush(slot, f, {0, 0, 40, 40}, &circle, 1, 1);
    EXPECT_EQ(slot.brush.style(), Qt::TexturePattern);
    const QImage img = Paint(slot.brush, 40, 40, QRect(0, 0, 40, 40));
    EXPECT_GT(qRed(img.pixel(20, 20)), 240);
    EXPECT_GT(qBlue(img.pixel(20, 1)), 200);          // at the outline
    EXPECT_EQ(img.pixel(20, 10), img.pixel(10, 20));  // the same distance in any direction
}

TEST(FillBrush, TexturesStretchedTiledOrMissing) {
    QTemporaryDir dir;
    // Four 2 x 2 blocks: red, green above; blue, white below.
    QImage tex(4, 4, QImage::Format_ARGB32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            tex.setPixel(
                x, y,
                y < 2 ? (x < 2 ? 0xFFFF0000u : 0xFF00FF00u) : (x < 2 ? 0xFF0000FFu : 0xFFFFFFFFu));
    const QString file = dir.filePath("t.png");
    ASSERT_TRUE(tex.save(file));
    UstFill f = MakeBlankAttr().fill[0];
    f.nType = 2;
    f.clrSolid = 0xFF123456u;
    const std::u16string name = file.toStdU16String();
    std::copy(name.begin(), name.end(), f.szImage);
    f.nImageFit = 0;
    UstBrushSlot slot;
    CreateFillBrush(slot, f, {10, 10, 14, 14}, nullptr, 0.5f, 0.5f);  // half size, tiled
    EXPECT_EQ(slot.nKind, BRUSH_TEXTURE);
    QImage img = Paint(slot.brush, 16, 16, QRect(10, 10, 4, 4));
    EXPECT_EQ(img.pixel(10, 10), 0xFFFF0000u);
    EXPECT_EQ(img.pixel(11, 10), 0xFF00FF00u);
    EXPECT_EQ(img.pixel(12, 10), 0xFFFF0000u);
    f.nImageFit = 1;  // stretched once over the rectangle
    CreateFillBrush(slot, f, {0, 0, 8, 8}, nullptr, 1, 1);
    img = Paint(slot.brush, 8, 8, QRect(0, 0, 8, 8));
    EXPECT_EQ(img.pixel(1, 1), 0xFFFF0000u);
    EXPECT_EQ(img.pixel(6, 6), 0xFFFFFFFFu);
    f.szImage[0] = u'X';  // gone: the solid colour paints
    CreateFillBrush(slot, f, {0, 0, 8, 8}, nullptr, 1, 1);
    EXPECT_EQ(slot.nKind, BRUSH_SOLID);
    EXPECT_EQ(Paint(slot.brush, 8, 8, QRect(0, 0, 8, 8)).pixel(3, 3), 0xFF123456u);
}

TEST(FillBrush, HatchesAreEightByEightPatterns) {
    const QImage img = Paint(HatchBrush(22, 0xFF808080u, 0xFF0000FFu), 16, 8, QRect(0, 0, 16, 8));
    for (int x = 0; x < 8; ++x)
        EXPECT_EQ(img.pixel(x, 3), img.pixel(x + 8, 3)) << x;
    EXPECT_EQ(img.pixel(0, 0), 0xFF808080u);
    EXPECT_EQ(img.pixel(4, 0), 0xFF0000FFu);
}

TEST(GradientModel, ColourAtPegsBetweenAndOutside) {
    CGradient g;
    g.m_nInterpolation = CGradient::LINEAR;
    EXPECT_EQ(g.GetColourAt(0.25f), 0x3F3F3Fu);  // 255 * 0.25, truncated
    g.m_nInterpolation = CGradient::COSINE;
    EXPECT_EQ(g.GetColourAt(0.5f), 0x7F7F7Fu);
    const int red = g.AddPeg(0x0000FF, 0.5f);
    EXPECT_EQ(red, 0);
    EXPECT_EQ(g.GetColourAt(0.5f), 0x0000FFu);  // on a peg: the peg's colour
    g.m_nInterpolation = CGradient::LINEAR;
    EXPECT_EQ(g.GetColourAt(0.5f), 0x0000FFu);
    EXPECT_EQ(g.GetColourAt(0.75f), 0x7F7FFFu);
    EXPECT_EQ(g.GetColourAt(-0.1f), 0u);
    EXPECT_EQ(g.GetColourAt(1.1f), 0u);
    g.m_bUseBackground = 1;
    g.m_backgroundPeg.colour = 0x123456;
    EXPECT_EQ(g.GetColourAt(0.0f), 0x123456u);
    g.m_nInterpolation = CGradient::FLAT_END;
    EXPECT_EQ(g.GetColourAt(0.3f), 0x0000FFu);
    g.m_nInterpolation = CGradient::REVERSE;
    EXPECT_EQ(g.GetColourAt(0.5f), 0xFFFFFFu);  // on the peg: the next colour, by the rule
}

TEST(GradientModel, BothEndsAreTheEndPegsExactly) {
    CGradient g;  // black at 0, white at 1
    g.m_nInterpolation = CGradient::LINEAR;
    EXPECT_EQ(g.GetColourAt(0.0f), 0x000000u);
    EXPECT_EQ(g.GetColourAt(1.0f), 0xFFFFFFu);
    g.m_nInterpolation = CGradient::REVERSE;  // the weights exchanged: each end the other's
    EXPECT_EQ(g.GetColourAt(0.0f), 0xFFFFFFu);
    EXPECT_EQ(g.GetColourAt(1.0f), 0x000000u);
    g.m_nInterpolation = CGradient::COSINE;
    EXPECT_EQ(g.GetColourAt(0.0f), 0x000000u);
    EXPECT_EQ(g.GetColourAt(1.0f), 0xFFFFFFu);
    g.m_nInterpolation = CGradient::LINEAR;
    g.AddPeg(0x0000FF, 0.5f);  // after the last peg the span runs to the end peg
    EXPECT_EQ(g.GetColourAt(1.0f), 0xFFFFFFu);
    EXPECT_EQ(g.GetColourAt(0.0f), 0x000000u);
}

TEST(GradientModel, PegsAddSortSpecialAndLimit) {
    CGradient g;
    const int a = g.AddPeg(0x111111, 0.7f);
    const uint32_t idA = g.GetPeg(a).id;
    EXPECT_EQ(g.AddPeg(0x222222, 0.2f), 0);
    EXPECT_EQ(g.IndexFromId(idA), 1);        // re-sorted, found again by id
    EXPECT_EQ(g.AddPeg(0x333333, 3.0f), 2);  // clamped to 1.0
    EXPECT_FLOAT_EQ(g.GetPeg(2).position, 1.0f);
    EXPECT_EQ(g.SetPeg(CGradient::PEG_START, 0x0000AA, 0.9f), -1);
    EXPECT_EQ(g.GetPeg(CGradient::PEG_START).colour, 0x0000AAu);
    EXPECT_FLOAT_EQ(g.GetPeg(CGradient::PEG_START).position, 0.0f);
    EXPECT_EQ(g.SetPeg(0, 0x222222, 0.95f), 1);  // moved past 0.7, still before 1.0
    EXPECT_EQ(g.IndexFromPos(0.1f), CGradient::PEG_START);
    while (g.PegCount() < CGradient::MAX_PEGS)
        g.AddPeg(0x444444, 0.5f);
    EXPECT_EQ(g.AddPeg(0x555555, 0.5f), -1);  // a fifteenth changes nothing
    EXPECT_EQ(g.PegCount(), 14);
    g.m_nQuantization = 4;
    CGradient q;
    q.m_nInterpolation = CGradient::LINEAR;
    q.m_nQuantization = 4;
    EXPECT_EQ(q.GetColourAt(0.3f), q.GetColourAt(0.375f));  // the centre of its step
    const std::vector<uint8_t> entries = q.MakeEntries(4);
    ASSERT_EQ(entries.size(), 12u);
    EXPECT_EQ(entries[0], 31);  // 0.125 of the way
}

TEST(GradientModel, HueMethodsGoTheirWayRound) {
    CGradient g;
    g.m_startPeg.colour = 0x0000FF;  // red, hue 0
    g.m_endPeg.colour = 0xFF0000;    // blue, hue 2/3
    g.m_nInterpolation = CGradient::HUE_FORWARD;
    EXPECT_EQ(g.GetColourAt(0.5f), 0x00FF00u);  // through green
    g.m_nInterpolation = CGradient::HUE_SHORTEST;
    EXPECT_EQ(g.GetColourAt(0.5f), 0xFF00FFu);  // the short way: through magenta
    g.m_nInterpolation = CGradient::HUE_BACKWARD;
    EXPECT_EQ(g.GetColourAt(0.5f), 0xFF00FFu);
    g.m_nInterpolation = CGradient::HUE_LONGEST;
    EXPECT_EQ(g.GetColourAt(0.5f), 0x00FF00u);
}

}  // namespace
}  // namespace orv
