#include <gtest/gtest.h>

#include "board/video_modes.h"
#include "test_util.h"

namespace orv {
namespace {

CfgVideo Mode(int w, int h, int64_t duration, uint32_t flags = 0) {
    return MakeVideoMode(w, h, duration, flags);
}

TEST(VideoRows, TextsOfTheStandardList) {
    const char* const expected[] = {"NTSC 8-bit RGB",           "PAL 8-bit RGB",
                                    "HD 720p 50 8-bit RGB",     "HD 720p 59.94 8-bit RGB",
                                    "HD 720p 60 8-bit RGB",     "HD 1080i 50 8-bit RGB",
                                    "HD 1080i 59.94 8-bit RGB", "HD 1080p 23.98 8-bit RGB",
                                    "HD 1080p 24 8-bit RGB",    "HD 1080p 25 8-bit RGB",
                                    "HD 1080p 29.97 8-bit RGB", "HD 1080p 30 8-bit RGB",
                                    "HD 1080p 50 8-bit RGB",    "HD 1080p 59.94 8-bit RGB",
                                    "HD 1080p 60 8-bit RGB"};
    const std::vector<CfgVideo> modes = StandardVideoModes();
    ASSERT_EQ(modes.size(), std::size(expected));
    for (size_t i = 0; i < modes.size(); ++i)
        EXPECT_EQ(VideoRowText(modes[i]), expected[i]) << i;
}

TEST(VideoRows, RulesAtTheirEdges) {
    EXPECT_EQ(VideoRowText(Mode(720, 486, 417083)), "NTSC 8-bit RGB (3:2 pulldown removal)");
    EXPECT_EQ(VideoRowText(Mode(1920, 1080, 333667)), "HD 1080i 59.94 8-bit RGB");  // 2 x 29.97
    EXPECT_EQ(VideoRowText(Mode(1920, 1080, 400000)), "HD 1080i 50 8-bit RGB");
    EXPECT_EQ(VideoRowText(Mode(1920, 1080, 416666)), "HD 1080p 24 8-bit RGB");
    EXPECT_EQ(VideoRowText(Mode(1920, 1080, 200000)), "HD 1080p 50 8-bit RGB");
    EXPECT_EQ(VideoRowText(Mode(1280, 720, 400000)), "HD 720p 25 8-bit RGB (Overcranked 60p)");
    // 59.99988 frames: the fraction is above a hundredth, so two decimals.
    EXPECT_EQ(VideoRowText(Mode(1280, 720, 166667)), "HD 720p 60.00 8-bit RGB");
    EXPECT_EQ(VideoRowText(Mode(1920, 600, 400000)), "");
    EXPECT_EQ(AudioRowText({2, 16, 48000, 0}), "2 channels, 48.0kHz, 16-bit");
    EXPECT_EQ(AudioRowText({1, 24, 44100, 0}), "1 channel, 44.1kHz, 24-bit");
}

TEST(VideoRows, RecordWordsAndMatching) {
    UstBoardRecord rec = DefaultBoardRecord();
    CfgVideo p2997 = Mode(1920, 1080, 333667, VIDEO_PROGRESSIVE);
    p2997.nHandle = 0xAABBCCDD;
    ApplyVideoMode(rec, p2997);
    EXPECT_EQ(test::At<int64_t>(rec, 8), 333667);
    EXPECT_EQ(test::At<uint32_t>(rec, 16), 0xAABBCCDDu);
    EXPECT_EQ(test::At<uint32_t>(rec, 20), VIDEO_PROGRESSIVE);
    const std::vector<CfgVideo> modes = StandardVideoModes();
    EXPECT_EQ(VideoRowText(modes[FindVideoMode(modes, rec)]), "HD 1080p 29.97 8-bit RGB");
    rec.nVideoFlags = 0;
    EXPECT_EQ(VideoRowText(modes[FindVideoMode(modes, rec)]), "HD 1080i 59.94 8-bit RGB");
    rec.nFrameDuration = 333668;
    EXPECT_EQ(FindVideoMode(modes, rec), -1);
    const std::vector<CfgAudio> audio = StandardAudioModes();
    EXPECT_EQ(FindAudioMode(audio, rec), 0);
    rec.nAudioBits = 24;
    EXPECT_EQ(FindAudioMode(audio, rec), -1);
}

TEST(VideoModes, RatesNamesAndAspects) {
    EXPECT_EQ(FramesPerSecond(333667), 29);
    EXPECT_EQ(FramesPerSecond(400000), 25);
    EXPECT_EQ(FramesPerSecond(417083), 23);
    EXPECT_EQ(FramesPerSecond(0), 0);
    EXPECT_EQ(FrameRateOf(333667), (UstFraction{30000, 1001}));
    EXPECT_EQ(FrameRateOf(417083), (UstFraction{24000, 1001}));
    EXPECT_EQ(FrameRateOf(166833), (UstFraction{60000, 1001}));
    EXPECT_EQ(FrameRateOf(416666), (UstFraction{24, 1}));
    EXPECT_EQ(FrameRateOf(400000), (UstFraction{25, 1}));
    EXPECT_EQ(FrameRateOf(123457), (UstFraction{81, 1}));
    EXPECT_EQ(FrameRateOf(300001), (UstFraction{10000000, 300001}));
    EXPECT_EQ(ModeNameFor(720, 486), "NTSC 720 x 486");
    EXPECT_EQ(ModeNameFor(720, 576), "PAL 720 x 576");
    EXPECT_EQ(ModeNameFor(1280, 720), "HD 1280 x 720");
    EXPECT_EQ(ModeNameFor(1920, 1080), "HD 1920 x 1080");
    EXPECT_EQ(ModeNameFor(640, 480), "");
    float x = 0, y = 0;
    PixelAspectFor(720, x, y);
    EXPECT_FLOAT_EQ(x, 0.66667f);
    EXPECT_FLOAT_EQ(y, 0.66667f);
    PixelAspectFor(576, x, y);
    EXPECT_FLOAT_EQ(x, 1.125f);
    EXPECT_FLOAT_EQ(y, 1.2f);
    PixelAspectFor(486, x, y);
    EXPECT_FLOAT_EQ(y, 1.0f);
    PixelAspectFor(1000, x, y);
    EXPECT_FLOAT_EQ(x, 1.0f);
}

TEST(VideoModes, ShortNamesForTheCommandLineAndTheCard) {
    for (const CfgVideo& m : StandardVideoModes()) {
        CfgVideo back;
        ASSERT_TRUE(ModeByShortName(ModeShortName(m), back)) << ModeShortName(m);
        EXPECT_TRUE(SameVideoMode(back, m));
    }
    CfgVideo m;
    ASSERT_TRUE(ModeByShortName("1080p25", m));
    EXPECT_EQ(m.nFlags, VIDEO_PROGRESSIVE);
    EXPECT_FALSE(ModeSendsFields(m));
    ASSERT_TRUE(ModeByShortName("1080i50", m));
    EXPECT_TRUE(ModeSendsFields(m));
    EXPECT_EQ(m.Duration(), 400000);
    EXPECT_FALSE(ModeByShortName("1080i25", m));
    EXPECT_EQ(ModeShortName(Mode(1000, 1000, 400000)), "");
    EXPECT_TRUE(ModeSendsFields(Mode(720, 576, 400000)));
    EXPECT_FALSE(ModeSendsFields(Mode(1920, 1080, 200000)));
}

}  // namespace
}  // namespace orv
