#include <gtest/gtest.h>

#include <QSet>
#include <QTest>

#include "render/attr_records.h"
#include "ui/gradient_ctrl.h"
#include "ui/gradient_dialog.h"
#include "ui/radio_fill_color.h"

namespace orv {
namespace {

UstFill ThreeStops() {
    UstFill f = MakeBlankAttr().fill[0];
    f.nType = 1;
    f.nAngle = 45;
    f.nGradientKind = 1;
    f.nStops = 3;
    f.fPos[0] = 0.0f;
    f.fPos[1] = 0.4f;
    f.fPos[2] = 1.0f;
    f.clrStop[0] = 0xFFFF0000u;
    f.clrStop[1] = 0x8000FF00u;
    f.clrStop[2] = 0xC80000FFu;
    return f;
}

TEST(GradientDialog, StopsGoInAndComeBackWithTheirAlpha) {
    CDlgGradient dlg(ThreeStops());
    EXPECT_EQ(dlg.windowTitle(), "Gradient");
    EXPECT_EQ(dlg.Bar()->Gradient().PegCount(), 1);
    const UstFill back = dlg.Result();
    EXPECT_EQ(back.nStops, 3);
    EXPECT_FLOAT_EQ(back.fPos[1], 0.4f);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(back.clrStop[i], ThreeStops().clrStop[i]) << i;
    EXPECT_EQ(back.nAngle, 45);
    EXPECT_EQ(back.nGradientKind, 1u);
}

TEST(GradientDialog, DoubleClickAddsTheCurrentColourWithThePreviousAlpha) {
    CDlgGradient dlg(ThreeStops());
    CGradientCtrl* bar = dlg.Bar();
    bar->resize(211, 40);
    bar->SetCurrentColour(0x00FFFF);  // yellow, in the gradient's order
    QTest::mouseDClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(bar->XAt(0.7f), 10));
    const UstFill back = dlg.Result();
    ASSERT_EQ(back.nStops, 4);
    EXPECT_NEAR(back.fPos[2], 0.7f, 0.01f);
    EXPECT_EQ(back.clrStop[2], 0x80FFFF00u);  // yellow, alpha of the green stop before it
}

TEST(GradientDialog, FourteenPegsAreTheMost) {
    UstFill f = ThreeStops();
    f.nStops = 16;
    for (int i = 0; i < 16; ++i) {
        f.fPos[i] = i / 15.0f;
        f.clrStop[i] = 0xFF000000u | static_cast<uint32_t>(i);
    }
    CDlgGradient dlg(f);
    CGradientCtrl* bar = dlg.Bar();
    bar->resize(211, 40);
    EXPECT_EQ(bar->Gradient().PegCount(), 14);
    QTest::mouseDClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(bar->XAt(0.5f), 10));
    EXPECT_EQ(dlg.Result().nStops, 16);
}

TEST(FillButton, CaptionStandsOutOrGoesBlack) {
    UstFill f = MakeBlankAttr().fill[0];
    f.clrSolid = 0xFFFF0000u;
    EXPECT_EQ(CRadioFillColor::CaptionColour(f), 0xFF00FFFFu);
    f.clrSolid = 0xFF808080u;  // its inverse is too close
    EXPECT_EQ(CRadioFillColor::CaptionColour(f), 0xFF000000u);
    f.nType = 1;
    f.clrStop[0] = 0x000000FFu;  // the first stop decides
    EXPECT_EQ(CRadioFillColor::CaptionColour(f), 0xFFFFFF00u);
    f.nType = 2;
    EXPECT_EQ(CRadioFillColor::CaptionColour(f), 0xFF000000u);
}

TEST(FillButton, SwatchesOfEachKind) {
    UstFill f = MakeBlankAttr().fill[0];
    f.clrSolid = 0x40123456u;  // shown opaque
    QImage s = CRadioFillColor::Swatch(f);
    EXPECT_EQ(s.size(), QSize(50, 20));
    EXPECT_EQ(s.pixel(25, 10), 0xFF123456u);
    f.nType = 2;
    f.szImage[0] = u'x';  // no such picture: the dotted hatch
    s = CRadioFillColor::Swatch(f);
    QSet<QRgb> colours;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            colours.insert(s.pixel(x, y));
    EXPECT_TRUE(colours.contains(0xFF2C99FFu));
    EXPECT_TRUE(colours.contains(0xFFFFFFFFu));
}

}  // namespace
}  // namespace orv
