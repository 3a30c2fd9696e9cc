#include <gtest/gtest.h>

#include <QImage>

#include <vector>

#include "project/canvas_overlays.h"
#include "project/settings_records.h"

namespace orv {
namespace {

constexpr uint32_t BLACK = 0xFF000000u, RED = 0xFFFF0000u, BACK = 0x11223344u;

struct Surface {
    int w, h;
    std::vector<uint32_t> px;
    Surface(int w_, int h_) : w(w_), h(h_), px(static_cast<size_t>(w_) * h_, BACK) {}
    uint32_t operator()(int x, int y) const { return px[static_cast<size_t>(y) * w + x]; }
};

UstEnv GuidesOff() {
    UstEnv e = MakeDefaultEnv(9);
    e.bSafety = 0;
    e.bGrid = 0;
    e.bMarkSD = 0;
    return e;
}

TEST(SafeArea, InsetIsHalfThePercentOfTheFrameWidthOnAllSides) {
    EXPECT_EQ(SafeAreaInset(100, 6, 1920), 58);  // 57.6, not 32 from the height
    EXPECT_EQ(SafeAreaInset(50, 6, 1920), 29);   // 28.8
    EXPECT_EQ(SafeAreaInset(100, 11, 1920), 106);
    EXPECT_EQ(SafeAreaInset(75, 15, 640), 36);
}

TEST(SafeArea, CutPageFramesWithBlackOutsideAndRedInside) {
    UstEnv e = GuidesOff();
    e.bSafety = 1;
    e.nSafeOuter = 10;  // inset 2 on a 40-wide frame
    e.nSafeInner = 20;  // inset 4
    Surface s(40, 20);
    UstOverlayParams p{PAGE_CUT, 100.0f, 40};
    DrawCanvasOverlays(s.px.data(), s.w, s.h, e, p);
    EXPECT_EQ(s(2, 2), BLACK);
    EXPECT_EQ(s(3, 3), RED);
    EXPECT_EQ(s(1, 2), BACK);
    EXPECT_EQ(s(2, 5), BLACK);
    EXPECT_EQ(s(3, 5), RED);
    EXPECT_EQ(s(37, 5), BLACK);
    EXPECT_EQ(s(36, 5), RED);
    EXPECT_EQ(s(8, 17), BLACK);
    EXPECT_EQ(s(8, 16), RED);
    EXPECT_EQ(s(4, 6), BLACK);  // second frame
    EXPECT_EQ(s(5, 6), RED);
    EXPECT_EQ(s(35, 6), BLACK);
    EXPECT_EQ(s(8, 8), BACK);
}

TEST(SafeArea, CrawlDrawsRowsAcrossRollDrawsColumnsDown) {
    UstEnv e = GuidesOff();
    e.bSafety = 1;
    e.nSafeOuter = 10;
    e.nSafeInner = 10;
    Surface crawl(40, 20), roll(40, 20);
    DrawCanvasOverlays(crawl.px.data(), 40, 20, e, {PAGE_CRAWL, 100.0f, 40});
    DrawCanvasOverlays(roll.px.data(), 40, 20, e, {PAGE_ROLL, 100.0f, 40});
    EXPECT_EQ(crawl(0, 2), BLACK);
    EXPECT_EQ(crawl(39, 3), RED);
    EXPECT_EQ(crawl(0, 17), BLACK);
    EXPECT_EQ(crawl(2, 8), BACK);   // no sides
    EXPECT_EQ(crawl(20, 8), BACK);  // and no centre cross off a Cut page
    EXPECT_EQ(roll(2, 0), BLACK);
    EXPECT_EQ(roll(3, 19), RED);
    EXPECT_EQ(roll(37, 0), BLACK);
    EXPECT_EQ(roll(8, 2), BACK);
}

TEST(CentreCross, TwoPixelLinesRedThenBlack) {
    Surface s(40, 20);
    DrawCanvasOverlays(s.px.data(), 40, 20, GuidesOff(), {PAGE_CUT, 100.0f, 40});
    EXPECT_EQ(s(19, 0), RED);
    EXPECT_EQ(s(20, 0), BLACK);
    EXPECT_EQ(s(0, 9), RED);
    EXPECT_EQ(s(0, 10), BLACK);
    EXPECT_EQ(s(18, 0), BACK);
    EXPECT_EQ(s(0, 11), BACK);
}

TEST(SdMark, ScaledFromTheHdFrameOnCutPagesOnly) {
    UstEnv e = GuidesOff();
    e.bMarkSD = 1;
    Surface s(96, 54), sd(96, 54), crawl(96, 54);
    DrawCanvasOverlays(s.px.data(), 96, 54, e, {PAGE_CUT, 5.0f, 1920});  // 30,15 to 66,39
    EXPECT_EQ(s(30, 15), BLACK);
    EXPECT_EQ(s(31, 16), RED);
    EXPECT_EQ(s(65, 38), BLACK);
    EXPECT_EQ(s(64, 37), RED);
    EXPECT_EQ(s(29, 15), BACK);
    DrawCanvasOverlays(sd.px.data(), 96, 54, e, {PAGE_CUT, 5.0f, 640});
    EXPECT_EQ(sd(30, 15), BACK);
    DrawCanvasOverlays(crawl.px.data(), 96, 54, e, {PAGE_CRAWL, 5.0f, 1920});
    EXPECT_EQ(crawl(30, 15), BACK);
}

TEST(Grid, DotsFromOneStepInAndNoneWhenTheStepReachesTheHeight) {
    UstEnv e = GuidesOff();
    e.bGrid = 1;
    e.nGridStep = 10;
    e.clrGrid = 0xFF00FF00u;
    Surface s(40, 20);
    DrawCanvasOverlays(s.px.data(), 40, 20, e, {PAGE_CRAWL, 50.0f, 40});  // step 5
    EXPECT_EQ(s(5, 5), 0xFF00FF00u);
    EXPECT_EQ(s(35, 15), 0xFF00FF00u);
    EXPECT_EQ(s(0, 0), BACK);
    EXPECT_EQ(s(5, 0), BACK);
    EXPECT_EQ(s(6, 5), BACK);
    e.nGridStep = 40;  // step 20 on a 20-high canvas
    Surface none(40, 20);
    DrawCanvasOverlays(none.px.data(), 40, 20, e, {PAGE_CRAWL, 50.0f, 40});
    EXPECT_EQ(none.px, std::vector<uint32_t>(800, BACK));
}

TEST(Backdrop, ColourCheckerAndImageWithFallback) {
    UstEnv e = GuidesOff();
    Surface s(4, 2);
    e.nBackKind = BACK_COLOR;
    e.clrBack = 0xFF123456u;
    DrawCanvasBackdrop(s.px.data(), 4, 2, e, nullptr);
    EXPECT_EQ(s(3, 1), 0xFF123456u);
    e.nBackKind = BACK_IMAGE;  // no usable image: the colour stands
    DrawCanvasBackdrop(s.px.data(), 4, 2, e, nullptr);
    EXPECT_EQ(s(0, 0), 0xFF123456u);
    QImage red(1, 1, QImage::Format_ARGB32_Premultiplied);
    red.fill(0xFFFF0000u);
    DrawCanvasBackdrop(s.px.data(), 4, 2, e, &red);
    EXPECT_EQ(s(2, 1), 0xFFFF0000u);
    e.nBackKind = BACK_CHECKER;
    e.nCheckerSize = 2;
    DrawCanvasBackdrop(s.px.data(), 4, 2, e, nullptr);
    EXPECT_EQ(s(1, 1), 0xFFE0E0E0u);
    EXPECT_EQ(s(2, 0), 0xFFA0A0A0u);
}

}  // namespace
}  // namespace orv
