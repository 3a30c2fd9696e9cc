// The copy of the view into a frame and the assembly of the two fields.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "board/canvas.h"
#include "board/test_board.h"

namespace orv {
namespace {

constexpr uint32_t UNTOUCHED = 0xDEADBEEFu;

// A canvas whose pixel at (x, y) holds y * 65536 + x: every copied pixel
// says where it came from.
std::vector<uint32_t> NumberedCanvas() {
    std::vector<uint32_t> c(CANVAS_PIXELS);
    for (size_t i = 0; i < c.size(); ++i)
        c[i] = static_cast<uint32_t>((i / 4096) << 16 | (i % 4096));
    return c;
}
uint32_t Where(int x, int y) {
    return static_cast<uint32_t>(y << 16 | x);
}

TEST(ViewCopy, FrameWrapsInBothDirections) {
    const std::vector<uint32_t> canvas = NumberedCanvas();
    std::vector<uint32_t> frame(4 * 3, UNTOUCHED);
    CopyFrame(frame.data(), {canvas.data(), 4094, 4095, 4, 3});
    const uint32_t expected[] = {Where(4094, 4095), Where(4095, 4095), Where(0, 4095),
                                 Where(1, 4095),    Where(4094, 0),    Where(4095, 0),
                                 Where(0, 0),       Where(1, 0),       Where(4094, 1),
                                 Where(4095, 1),    Where(0, 1),       Where(1, 1)};
    EXPECT_EQ(frame, std::vector<uint32_t>(std::begin(expected), std::end(expected)));
}

// Rows long enough to be copied a cache line at a time, in bands of four and
// a partial band, into frames at every offset within a cache line.
TEST(ViewCopy, LongRowsAtAnyAlignmentComeOutExact) {
    const std::vector<uint32_t> canvas = NumberedCanvas();
    for (int width : {64, 100, 1920}) {
        for (int shift : {0, 1, 5, 12}) {
            const int height = 7;
            std::vector<uint32_t> store(static_cast<size_t>(width) * height + 16, UNTOUCHED);
            uint32_t* frame = store.data() + shift;
            CopyFrame(frame, {canvas.data(), 4050, 4093, width, height});
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    ASSERT_EQ(frame[y * width + x], Where((4050 + x) & 4095, (4093 + y) & 4095))
                        << width << " " << shift << " " << x << "," << y;
            EXPECT_EQ(store[static_cast<size_t>(width) * height + shift], UNTOUCHED);
            EXPECT_EQ(shift ? store[shift - 1] : UNTOUCHED, UNTOUCHED);
        }
    }
}

TEST(ViewCopy, FieldParityStartsAgainAfterTheRowWrap) {
    const std::vector<uint32_t> canvas = NumberedCanvas();
    // Six rows from row 4093: counts 0, 1, 2 before the wrap and 0, 1, 2 after.
    std::vector<uint32_t> frame(2 * 6, UNTOUCHED);
    CopyField(frame.data(), {canvas.data(), 7, 4093, 2, 6}, 0);
    const uint32_t expected[] = {UNTOUCHED,   UNTOUCHED,   Where(7, 4094), Where(8, 4094),
                                 UNTOUCHED,   UNTOUCHED,   UNTOUCHED,      UNTOUCHED,
                                 Where(7, 1), Where(8, 1), UNTOUCHED,      UNTOUCHED};
    EXPECT_EQ(frame, std::vector<uint32_t>(std::begin(expected), std::end(expected)));
    std::fill(frame.begin(), frame.end(), UNTOUCHED);
    CopyField(frame.data(), {canvas.data(), 7, 4093, 2, 6}, 1);
    for (int row : {0, 2, 3, 5})
        EXPECT_NE(frame[row * 2], UNTOUCHED) << row;
    EXPECT_EQ(frame[3 * 2], Where(7, 0));
    EXPECT_EQ(frame[1 * 2], UNTOUCHED);
}

// A field taken a few rows at a time, as a writer hands over the rows it has
// finished: each piece takes its own rows of the field and no other, and the
// parity still starts again where the view crosses the canvas's last row.
TEST(ViewCopy, AFieldTakenInPiecesKeepsItsParityAcrossTheWrap) {
    const std::vector<uint32_t> canvas = NumberedCanvas();
    // Seven rows from row 4093: frame rows 0 to 2 are canvas rows 4093 to
    // 4095 (counts 0, 1, 2), rows 3 to 6 canvas rows 0 to 3 (counts 0 to 3).
    const UstView view{canvas.data(), 7, 4093, 1, 7};
    const uint32_t U = UNTOUCHED;
    struct UstPiece {
        int first, last;
        std::vector<uint32_t> rows;
    };
    const UstPiece pieces[] = {
        {0, 2, {Where(7, 4093), U, U, U, U, U, U}},
        {1, 3, {U, U, Where(7, 4095), U, U, U, U}},
        {3, 6, {U, U, U, Where(7, 0), U, Where(7, 2), U}},
        {2, 4, {U, U, Where(7, 4095), Where(7, 0), U, U, U}},
        {6, 7, {U, U, U, U, U, U, U}},
        {5, 5, {U, U, U, U, U, U, U}},
        {-3, 1, {Where(7, 4093), U, U, U, U, U, U}},
        {4, 99, {U, U, U, U, U, Where(7, 2), U}},
    };
    for (const UstPiece& piece : pieces) {
        std::vector<uint32_t> frame(7, UNTOUCHED);
        CopyFieldRows(frame.data(), view, 1, piece.first, piece.last);
        EXPECT_EQ(frame, piece.rows) << piece.first << " to " << piece.last;
    }
}

TEST(ViewCopy, HeldRowsCountFromTheBottom) {
    std::vector<uint32_t> held(5), frame(5, UNTOUCHED);
    for (int i = 0; i < 5; ++i)
        held[i] = static_cast<uint32_t>(i + 1);
    CopyHeld(frame.data(), held.data(), 1, 5, 1);  // rows 4-1 = 3 and 4-3 = 1 are odd
    EXPECT_EQ(frame, (std::vector<uint32_t>{UNTOUCHED, 2, UNTOUCHED, 4, UNTOUCHED}));
    CopyHeld(frame.data(), held.data(), 1, 5, 0);
    EXPECT_EQ(frame, (std::vector<uint32_t>{1, 2, 3, 4, 5}));
}

TEST(ViewCopy, KeyGainScalesEveryByteRounded) {
    std::vector<uint32_t> frame = {0xFF804001u, 0x00000000u, 0xFFFFFFFFu};
    ScaleFrameByLevel(frame.data(), frame.size(), 128);
    // 255 -> 128, 128 -> 64 (64.25), 64 -> 32 (32.1), 1 -> 1 (0.502 rounds up).
    EXPECT_EQ(frame, (std::vector<uint32_t>{0x80402001u, 0u, 0x80808080u}));
    ScaleFrameByLevel(frame.data(), frame.size(), 255);
    EXPECT_EQ(frame[0], 0x80402001u);
    ScaleFrameByLevel(frame.data(), frame.size(), -4);
    EXPECT_EQ(frame[2], 0u);
}

// Five rows make a band of four and a row alone. Rows of 48 pixels that
// start one pixel past a cache line have a head of 15, two whole lines and
// a tail of 1.
TEST(ViewCopy, AWholeFrameArrivesWhereverItsRowsStart) {
    constexpr int W = 48, H = 5;
    std::vector<uint32_t> src(W * H);
    for (int i = 0; i < W * H; ++i)
        src[i] = 0x01000000u * static_cast<uint32_t>(i % 256) + static_cast<uint32_t>(i);
    alignas(64) uint32_t store[W * H + 2];
    std::fill(std::begin(store), std::end(store), UNTOUCHED);
    CopyWholeFrame(store + 1, src.data(), W, H);
    EXPECT_TRUE(std::equal(src.begin(), src.end(), store + 1));
    EXPECT_EQ(store[0], UNTOUCHED);
    EXPECT_EQ(store[W * H + 1], UNTOUCHED);
}

// Every byte at every level, starting off a 16-byte boundary and ending
// in a part of one, so that the head, the body and the tail each meet bytes
// of all values.
TEST(ViewCopy, KeyGainIsExactForEveryByteAndLevel) {
    std::vector<uint32_t> store(70);
    for (int level = 0; level < 255; ++level) {
        uint32_t* frame = store.data() + 1;
        auto* bytes = reinterpret_cast<uint8_t*>(frame);
        for (int i = 0; i < 260; ++i)
            bytes[i] = static_cast<uint8_t>(i);
        ScaleFrameByLevel(frame, 65, level);
        for (int i = 0; i < 260; ++i) {
            const int b = i & 255;
            // b x level / 255 rounded half up; a half never occurs, as 255 is odd.
            const int want = (2 * b * level + 255) / 510;
            ASSERT_EQ(bytes[i], want) << "byte " << b << " level " << level;
        }
    }
}

// Two moments of one frame: the canvas as it was at the capture goes into
// one field, the canvas as it is at the tick into the other.
class Fields : public testing::Test {
protected:
    std::vector<uint32_t> Assemble(CTestBoard& board) {
        const UstSize size = board.GetFrameSize(0);
        uint32_t* canvas = board.GetChannelCanvas(0);
        board.SetOrigin(0, 4000);  // the view crosses the last row at an even count
        board.FillRect(0, 0, canvas, 4096, 4096, FIRST);
        board.GetPipeline()->CaptureField();
        board.FillRect(0, 0, canvas, 4096, 4096, SECOND);
        board.Tick();
        EXPECT_EQ(board.LastFrame().size(), static_cast<size_t>(size.cx) * size.cy);
        return board.LastFrame();
    }
    // The value of each row of the frame, checking that rows are uniform.
    std::vector<uint32_t> Rows(const std::vector<uint32_t>& frame, int width) {
        std::vector<uint32_t> rows;
        for (size_t r = 0; r * width < frame.size(); ++r) {
            rows.push_back(frame[r * width]);
            EXPECT_EQ(frame[r * width + width - 1], rows.back()) << r;
        }
        return rows;
    }
    static constexpr uint32_t FIRST = 0xFF0000FFu, SECOND = 0x80800000u;
};

TEST_F(Fields, HighDefinitionShowsTheFirstMomentInEvenLines) {
    CTestBoard board(MakeVideoMode(1920, 1080, 333667));
    const std::vector<uint32_t> rows = Rows(Assemble(board), 1920);
    ASSERT_EQ(rows.size(), 1080u);
    for (int r = 0; r < 1080; ++r)
        ASSERT_EQ(rows[r], r % 2 == 0 ? FIRST : SECOND) << r;
    // A progressive 1920 mode is assembled the same way.
    CTestBoard p50(MakeVideoMode(1920, 1080, 200000));
    EXPECT_EQ(Rows(Assemble(p50), 1920)[2], FIRST);
}

TEST_F(Fields, NtscShowsTheFirstMomentInOddLinesAndPalInEven) {
    CTestBoard ntsc(MakeVideoMode(720, 486, 333667));
    const std::vector<uint32_t> rows = Rows(Assemble(ntsc), 720);
    for (int r = 0; r < 486; ++r)
        ASSERT_EQ(rows[r], r % 2 == 1 ? FIRST : SECOND) << r;
    CTestBoard pal(MakeVideoMode(720, 576, 400000));
    const std::vector<uint32_t> palRows = Rows(Assemble(pal), 720);
    for (int r = 0; r < 576; ++r)
        ASSERT_EQ(palRows[r], r % 2 == 0 ? FIRST : SECOND) << r;
}

TEST_F(Fields, WholeFramesAndModesWithoutARule) {
    CTestBoard p720(MakeVideoMode(1280, 720, 166833));
    EXPECT_EQ(p720.GetPipeline()->IsInterlaced(), 0);
    for (uint32_t v : Rows(Assemble(p720), 1280))
        ASSERT_EQ(v, SECOND);
    CTestBoard live(MakeVideoMode(1920, 1080, 400000));
    EXPECT_EQ(live.GetPipeline()->IsInterlaced(), 1);
    live.GetPipeline()->m_bFullFrame = 1;
    for (uint32_t v : Rows(Assemble(live), 1920))
        ASSERT_EQ(v, SECOND);
    // 720 wide at 23 frames: kept in the list, but its frames go out unfilled.
    CTestBoard pulldown(MakeVideoMode(720, 486, 417083));
    for (uint32_t v : Rows(Assemble(pulldown), 720))
        ASSERT_EQ(v, 0u);
}

TEST_F(Fields, ClearEmptiesTheViewAndTheHeldField) {
    CTestBoard board(MakeVideoMode(1920, 1080, 400000), EPlayoutClock::FREE);
    uint32_t* canvas = board.GetChannelCanvas(0);
    board.FillRect(0, 0, canvas, 4096, 4096, FIRST);
    board.GetPipeline()->CaptureField();
    board.SetOrigin(100, 4000);
    const int64_t waits = board.WaitCount();
    board.Clear();
    EXPECT_EQ(board.WaitCount() - waits, 5);  // one before, four after
    for (uint32_t v : board.LastFrame())
        ASSERT_EQ(v, 0u);
    EXPECT_EQ(canvas[4000 * 4096 + 99], FIRST);  // outside the view
    EXPECT_EQ(canvas[(1080 - 4096 + 4000 - 1) * 4096 + 100], 0u);
    EXPECT_EQ(canvas[(1080 - 4096 + 4000) * 4096 + 100], FIRST);
}

}  // namespace
}  // namespace orv
