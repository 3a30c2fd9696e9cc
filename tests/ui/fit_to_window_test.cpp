#include <gtest/gtest.h>

#include "ui/fit_to_window.h"

namespace orv {
namespace {

TEST(FitToWindow, HdPageStepsDownByFivePercent) {
    struct {
        int cw, ch, w, h, zoom;
    } cases[] = {
        {1930, 1090, 1920, 1080, 100},  // exactly room for the margins
        {1929, 1090, 1824, 1026, 95},
        {1700, 900, 1536, 864, 80},  // 85 % is 918 high: too high for 890
        {700, 400, 672, 378, 35},
        {100, 100, 480, 270, 25},  // nothing fits: the last step stands
    };
    for (const auto& c : cases) {
        const UstFit f = FitToWindow(c.cw, c.ch, 1920, 1080, 0, 17);
        EXPECT_EQ(f.nWidth, c.w) << c.cw << "x" << c.ch;
        EXPECT_EQ(f.nHeight, c.h) << c.cw << "x" << c.ch;
        EXPECT_EQ(f.nZoom, c.zoom) << c.cw << "x" << c.ch;
    }
}

TEST(FitToWindow, SdPageStartsAtOneAndAHalfInStepsOf32) {
    UstFit f = FitToWindow(1000, 800, 640, 480, 0, 17);
    EXPECT_EQ(f.nWidth, 960);
    EXPECT_EQ(f.nHeight, 720);
    EXPECT_EQ(f.nZoom, 150);
    f = FitToWindow(900, 800, 640, 480, 0, 17);
    EXPECT_EQ(f.nWidth, 864);
    EXPECT_EQ(f.nHeight, 648);
    f = FitToWindow(490, 390, 640, 480, 0, 17);  // room 480 x 380: the last step, 75 %
    EXPECT_EQ(f.nWidth, 480);
    EXPECT_EQ(f.nHeight, 360);
    f = FitToWindow(10, 10, 640, 480, 0, 17);
    EXPECT_EQ(f.nWidth, 480);
    EXPECT_EQ(f.nZoom, 75);
}

TEST(FitToWindow, ScrollBarTakesItsSideAndTheOtherSideHasNoMargin) {
    // Roll: the bar's width plus 10 across, nothing down.
    EXPECT_EQ(FitToWindow(1947, 1080, 1920, 1080, 1, 17).nZoom, 100);
    EXPECT_EQ(FitToWindow(1946, 1080, 1920, 1080, 1, 17).nZoom, 95);
    // Crawl: the other way round.
    EXPECT_EQ(FitToWindow(1920, 1107, 1920, 1080, 2, 17).nZoom, 100);
    EXPECT_EQ(FitToWindow(1920, 1106, 1920, 1080, 2, 17).nZoom, 95);
}

TEST(FitToWindow, ImageIsCentred) {
    const UstFit f{960, 540, 50};
    EXPECT_EQ(PlaceFitted(f, 1000, 600, 0, 17), QRect(20, 30, 960, 540));
    EXPECT_EQ(PlaceFitted(f, 1000, 600, 1, 17), QRect(11, 30, 960, 540));
    EXPECT_EQ(PlaceFitted(f, 1000, 600, 2, 17), QRect(20, 21, 960, 540));
}

}  // namespace
}  // namespace orv
