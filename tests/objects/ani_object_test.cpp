// The animation object with real files: its still on the canvas at every
// size and zoom, the play record, the play count, the preview played
// through on the canvas, and a file that goes away.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "support/ani_files.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

constexpr uint32_t RED = 0xFFFF0000u, WHITE = 0xFFFFFFFFu, GREEN = 0xFF00FF00u, BLUE = 0xFF0000FFu,
                   GREY = 0xFF202020u;

// Frame 0: red on the left half, white on the right; then green, then blue.
uint32_t Frames(int x, int w, int i) {
    if (i == 0) return x < w / 2 ? RED : WHITE;
    return i == 1 ? GREEN : BLUE;
}

class AniObject : public testing::Test {
protected:
    void SetUp() override {
        page.folder = dir.path() + '/';
        page.width = 96;
        page.height = 64;
        page.MakeCanvas(GREY);
    }
    // A w x h file of three frames, and an object of it whose box is the
    // file's size at (x, y), its still taken.
    CQRDObjectAni& Make(int w, int h, int x = 8, int y = 4) {
        EXPECT_TRUE(test::WriteAnimation(page.folder + "clip.ani32", w, h, 3,
                                         [w](int px, int, int i) { return Frames(px, w, i); }));
        ani = std::make_unique<CQRDObjectAni>(&page, "clip.ani32", UstRect{x, y, x + w, y + h});
        ani->AfterLoad();
        return *ani;
    }
    QTemporaryDir dir;
    test::CFakeContext page;
    std::unique_ptr<CQRDObjectAni> ani;
};

TEST_F(AniObject, StillIsFrameZeroAtTheBoxSizeAndZoom) {
    CQRDObjectAni& a = Make(16, 8);
    ASSERT_TRUE(a.HasStill());
    EXPECT_EQ(a.m_nStillWidth, 16);
    EXPECT_EQ(a.Still()[0], RED);
    a.Draw();
    EXPECT_EQ(page.At(8, 4), RED);
    EXPECT_EQ(page.At(23, 11), WHITE);
    EXPECT_EQ(page.At(24, 11), GREY);
    // A box twice as large on the canvas takes a still scaled to it (the
    // rectangle command keeps the stored size, so the zoom below starts
    // from the file's size again).
    const UstRect wide{8, 4, 40, 20};
    ASSERT_TRUE(a.Execute(&wide, CMD_SET_RECT));
    page.MakeCanvas(GREY);
    a.Draw();
    EXPECT_EQ(page.At(9, 5), RED);
    EXPECT_EQ(page.At(38, 18), WHITE);
    EXPECT_EQ(page.At(40, 18), GREY);
    // At zoom 50 the box and its still are half the size.
    page.fZoom = 50.0f;
    a.OnZoom();
    page.MakeCanvas(GREY);
    a.Draw();
    EXPECT_EQ(a.m_rcView, (UstRect{4, 2, 12, 6}));
    EXPECT_EQ(page.At(4, 2), RED);
    EXPECT_EQ(page.At(11, 5), WHITE);
    EXPECT_EQ(page.At(12, 5), GREY);
}

TEST_F(AniObject, ThumbnailShowsTheStillAndAPlayFrameNothing) {
    CQRDObjectAni& a = Make(16, 8);
    std::vector<uint32_t> frame(96 * 64, 0);
    a.DrawForPlay(frame.data(), 96, 64);
    EXPECT_EQ(frame, std::vector<uint32_t>(96 * 64, 0));
    a.DrawTo(frame.data(), 96, 64);
    EXPECT_EQ(frame[4 * 96 + 8], RED);
    EXPECT_EQ(frame[11 * 96 + 23], WHITE);
    EXPECT_EQ(frame[11 * 96 + 24], 0u);
}

TEST_F(AniObject, AFileNoSourceReadsStaysWithoutAStill) {
    test::WriteFile((page.folder + "notes.ani32").toStdString(), "text, not frames");
    CQRDObjectAni a(&page, "notes.ani32", {8, 4, 24, 12});
    a.AfterLoad();
    EXPECT_TRUE(page.removed.empty());
    EXPECT_FALSE(a.HasStill());
    EXPECT_FALSE(a.PreviewAnimation([](const UstRect&) { FAIL() << "nothing to show"; }));
    a.Draw();  // the placeholder's frame
    EXPECT_NE(page.At(8, 4), GREY);
    EXPECT_EQ(page.At(12, 6), GREY);
}

TEST_F(AniObject, PlayRecordScalesTheBoxToTheFrame) {
    CQRDObjectAni& a = Make(16, 8);
    a.m_rcStored = {10, 20, 330, 261};
    UstAniPlay play;
    ASSERT_EQ(a.OpenAnimation(play, 0.5f, 1.0f / 3.0f), 1);
    EXPECT_EQ(play.strFile, page.folder + "clip.ani32");
    // 20 / 3 = 6.67 and 261 / 3 = 87 round to 7 and 87; 10 * 0.5 = 5.
    EXPECT_EQ(play.rcTarget, (UstRect{5, 7, 165, 87}));
    EXPECT_EQ(play.pWords, &a.m_words);
    ASSERT_TRUE(QFile::remove(page.folder + "clip.ani32"));
    EXPECT_EQ(a.OpenAnimation(play, 1, 1), 0);
}

TEST_F(AniObject, PlayCountKeptWithinItsRange) {
    CQRDObjectAni& a = Make(16, 8);
    const int32_t five = 5, same = 5, many = 12000, negative = -3;
    EXPECT_TRUE(a.Execute(&five, CMD_ANIMATION_PROPERTIES));
    EXPECT_FALSE(a.Execute(&same, CMD_ANIMATION_PROPERTIES));
    EXPECT_TRUE(a.Execute(&many, CMD_ANIMATION_PROPERTIES));
    EXPECT_EQ(int32_t{a.m_words.nRepeat}, 9999);
    EXPECT_TRUE(a.Execute(&negative, CMD_ANIMATION_PROPERTIES));
    EXPECT_EQ(int32_t{a.m_words.nRepeat}, 0);
    EXPECT_EQ(int32_t{a.m_words.nFps}, 30);
    EXPECT_FALSE(a.Execute(nullptr, CMD_ANIMATION_PROPERTIES));
}

TEST_F(AniObject, PreviewPlaysEveryFrameWithItsNumberAndLeavesTheCanvas) {
    CQRDObjectAni& a = Make(64, 32, 16, 16);
    page.origin = {100, 50};
    a.Draw();
    const std::vector<uint32_t> before = page.canvas;
    std::vector<uint32_t> corner;  // away from the number
    std::vector<int> darkest;      // where the number stands
    std::vector<UstRect> shown;
    ASSERT_TRUE(a.PreviewAnimation([&](const UstRect& r) {
        shown.push_back(r);
        corner.push_back(page.At(78, 46));
        int dark = 255;
        for (int y = 18; y < 30; ++y)
            for (int x = 20; x < 40; ++x)
                dark = std::min<int>(dark, (page.At(x, y) >> 8) & 255);
        darkest.push_back(dark);
    }));
    EXPECT_EQ(corner, (std::vector<uint32_t>{WHITE, GREEN, BLUE, WHITE}));
    ASSERT_EQ(darkest.size(), 4u);
    EXPECT_LT(darkest[1], 64);  // black figures over the green frame
    EXPECT_EQ(shown.front(), (UstRect{116, 66, 180, 98}));
    EXPECT_EQ(page.canvas, before);
}

TEST_F(AniObject, AFileRemovedLeavesBoxAndArchiveAsTheyWere) {
    CQRDObjectAni& a = Make(16, 8);
    CByteWriter before, after;
    a.Serialize(before);
    ASSERT_TRUE(QFile::remove(page.folder + "clip.ani32"));
    a.Draw();
    EXPECT_FALSE(a.PreviewAnimation([](const UstRect&) {}));
    a.Serialize(after);
    EXPECT_EQ(after.Bytes(), before.Bytes());
    EXPECT_EQ(a.m_rcStored, (UstRect{8, 4, 24, 12}));
}

}  // namespace
}  // namespace orv
