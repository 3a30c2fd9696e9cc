#include <gtest/gtest.h>

#include <climits>

#include "objects/tc_object.h"
#include "render/fixed_string.h"
#include "support/looks.h"
#include "support/rect_object.h"

namespace orv {
namespace {

UstTCSetting Clock(int format, int h24) {
    return {1, 0, format, 0, 0, h24};
}

UstTCSetting Counter(int format, int start, int end = 0) {
    return {0, format, 0, start, end, 0};
}

// 2025-11-15 was a Saturday.
std::tm At(int hour, int minute, int second = 0) {
    std::tm t{};
    t.tm_year = 125;
    t.tm_mon = 10;
    t.tm_mday = 15;
    t.tm_wday = 6;
    t.tm_hour = hour;
    t.tm_min = minute;
    t.tm_sec = second;
    return t;
}

QString K(const char* utf8) {
    return QString::fromUtf8(utf8);
}

UstClockNames English() {
    return {
        {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}, "AM", "PM"};
}

UstClockNames Korean() {
    return {
        {K("일요일"), K("월요일"), K("화요일"), K("수요일"), K("목요일"), K("금요일"), K("토요일")},
        K("오전"),
        K("오후")};
}

TEST(TimerClock, TwelveHourFormsTrimTheirZeroAndTheTwentyFourHourFormsKeepIt) {
    EXPECT_EQ(FormatClock(Clock(0, 0), At(9, 5), English()), "9:05");
    EXPECT_EQ(FormatClock(Clock(0, 1), At(9, 5), English()), "09:05");
    // Rows 2 and 4 are the "hh" forms: nothing trimmed.
    EXPECT_EQ(FormatClock(Clock(2, 0), At(9, 5), English()), "09:05 AM");
    EXPECT_EQ(FormatClock(Clock(3, 0), At(21, 5, 7), English()), "9:05:07 PM");
    EXPECT_EQ(FormatClock(Clock(4, 0), At(21, 5, 7), English()), "09:05:07 PM");
    EXPECT_EQ(FormatClock(Clock(5, 1), At(0, 0, 9), English()), "00:00:09");
    // Midnight and noon read 12 on the 12-hour dial.
    EXPECT_EQ(FormatClock(Clock(5, 0), At(0, 30, 0), English()), "12:30:00");
    EXPECT_EQ(FormatClock(Clock(1, 0), At(12, 0), Korean()), K("12:00 오후"));
    // The 24-hour form keeps %p, as its table says.
    EXPECT_EQ(FormatClock(Clock(1, 1), At(13, 7), English()), "13:07 PM");
}

TEST(TimerClock, DateShortensAKoreanWeekdayOnlyAndFormatsOutsideTheTableAreEmpty) {
    EXPECT_EQ(FormatClock(Clock(6, 0), At(9, 5), Korean()), K("11.15(토)"));
    EXPECT_EQ(FormatClock(Clock(6, 1), At(9, 5), Korean()), K("11.15(토)"));
    EXPECT_EQ(FormatClock(Clock(6, 0), At(9, 5), English()), "11.15(Saturday)");
    for (const int bad : {-1, 7, INT_MAX, INT_MIN})
        EXPECT_EQ(FormatClock(Clock(bad, 0), At(9, 5), English()), "") << bad;
    std::tm broken = At(9, 5);
    broken.tm_wday = 9;
    EXPECT_EQ(FormatClock(Clock(6, 0), broken, English()), "11.15()");
    // Without a translation installed the interface's names are English.
    EXPECT_EQ(InterfaceClockNames().weekday[6], "Saturday");
    EXPECT_EQ(InterfaceClockNames().pm, "PM");
}

TEST(TimerCounter, ValuesSplitAndSignedAtTheLimitsOfThirtyTwoBits) {
    EXPECT_EQ(CounterString(Counter(6, 0), 3661), "1:01:01");
    EXPECT_EQ(CounterString(Counter(0, 0), 90), "30");
    EXPECT_EQ(CounterString(Counter(1, 0), 5), "05");
    EXPECT_EQ(CounterString(Counter(2, 0), -90), "-1:30");
    EXPECT_EQ(CounterString(Counter(5, 0), 3599), "00:59");
    // 2147483647 s = 596523 h 14 min 7 s; the most negative has one more.
    EXPECT_EQ(CounterString(Counter(7, 0), INT_MAX), "596523:14:07");
    EXPECT_EQ(CounterString(Counter(7, 0), INT_MIN), "-596523:14:08");
    EXPECT_EQ(CounterString(Counter(8, 0), 5), "");
    EXPECT_EQ(CounterString(Counter(-1, 0), -5), "");
}

// Red face, blue edge of 3, nothing else.
UstDefaultAttr RedOnBlue(const char* face) {
    UstDefaultAttr look = test::MakeLook(QString::fromLatin1(face), 40);
    look.effect = UstEffect{};
    look.effect.nEdge = 3;
    look.attr.fill[UstAttr::BODY].clrSolid = 0xFFFF0000u;
    look.attr.fill[UstAttr::EDGE].nType = 0;
    look.attr.fill[UstAttr::EDGE].clrSolid = 0xFF0000FFu;
    return look;
}

TEST(TimerDrawing, ValueDrawsWithFaceAndEdgeInsideItsRectangleOnAirAndOnTheCanvas) {
    for (const char* face : {"DejaVu Sans", "No Such Face Anywhere"}) {
        test::CFakeContext page;
        page.width = 400;
        page.height = 200;
        CQRDObjectTC timer(&page, RedOnBlue(face), Counter(7, 3661), 50, 120);
        std::vector<uint32_t> frame(400u * 200u, 0u);
        timer.DrawTo(frame.data(), 400, 200);
        const UstRect r = timer.m_rcStored;
        int red = 0, blue = 0, outside = 0;
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 400; ++x) {
                const uint32_t p = frame[static_cast<size_t>(y) * 400 + x];
                red += p == 0xFFFF0000u;
                blue += p == 0xFF0000FFu;
                const bool near =
                    x >= r.left - 4 && x < r.right + 4 && y >= r.top - 4 && y < r.bottom + 4;
                outside += p != 0 && !near;
            }
        EXPECT_GT(red, 200) << face;
        EXPECT_GT(blue, 200) << face;
        EXPECT_EQ(outside, 0) << face;

        // The canvas at full zoom shows the same pixels.
        page.MakeCanvas();
        timer.Draw();
        EXPECT_EQ(page.canvas, frame) << face;
    }
}

TEST(TimerObject, LookCommandsChangeEveryCharacterAndSizingScalesTheFont) {
    test::CFakeContext page;
    CQRDObjectTC timer(&page, RedOnBlue("DejaVu Sans"), Counter(7, 0), 100, 200);
    const int width = timer.m_rcView.Width();
    const int32_t size = 80;
    ASSERT_TRUE(timer.Execute(&size, 203));
    EXPECT_EQ(int32_t{timer.m_attr.font.nSize}, 80);
    for (const UstCharAttr& c : timer.Chars())
        EXPECT_EQ(int32_t{c.font.nSize}, 80);
    EXPECT_GT(timer.m_rcView.Width(), width * 3 / 2);
    UstFill green{};
    green.clrSolid = 0xFF00FF00u;
    ASSERT_TRUE(timer.Execute(&green, CMD_BODY_PAINT));
    EXPECT_EQ(uint32_t{timer.Chars().front().clrFill}, 0xFF00FF00u);
    UstEffect shadow{};
    shadow.nShadowX = 5;
    ASSERT_TRUE(timer.Execute(&shadow, 234));
    EXPECT_EQ(int32_t{timer.m_attr.effect.nShadowX}, 5);
    EXPECT_FALSE(timer.Execute(&size, 999));

    // A handle drag to half the height halves the size; the corner follows.
    UstRect half = timer.m_rcView;
    half.left += 10;
    half.bottom = half.top + half.Height() / 2;
    ASSERT_TRUE(timer.Execute(&half, CMD_SET_RECT));
    EXPECT_EQ(int32_t{timer.m_attr.font.nSize}, 40);
    EXPECT_EQ(timer.m_rcView.left, half.left);
    EXPECT_EQ(timer.m_rcView.top, half.top);
}

TEST(TimerObject, NewSettingsRebuildTheValue) {
    test::CFakeContext page;
    CQRDObjectTC timer(&page, RedOnBlue("DejaVu Sans"), Counter(0, 90), 100, 200);
    EXPECT_EQ(timer.GetName(), "30");
    timer.SetSetting(Counter(6, 3661));
    EXPECT_EQ(timer.GetName(), "1:01:01");
    EXPECT_EQ(timer.Chars().size(), 7u);
}

}  // namespace
}  // namespace orv
