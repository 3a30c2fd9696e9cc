// The drawing primitives on the wrapping canvas, through a board.
#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "board/canvas.h"
#include "board/test_board.h"

namespace orv {
namespace {

using Points = std::set<std::pair<int, int>>;

class CanvasOps : public testing::Test {
protected:
    CanvasOps()
        : m_board(MakeVideoMode(1920, 1080, 400000)), m_pCanvas(m_board.GetChannelCanvas(0)) {}

    uint32_t At(int x, int y) const { return m_pCanvas[static_cast<size_t>(y) * 4096 + x]; }
    // Every pixel that is not zero, as (x, y).
    Points Written() const {
        Points p;
        for (size_t i = 0; i < CANVAS_PIXELS; ++i)
            if (m_pCanvas[i]) p.insert({static_cast<int>(i % 4096), static_cast<int>(i / 4096)});
        return p;
    }

    CTestBoard m_board;
    uint32_t* m_pCanvas;
};

TEST_F(CanvasOps, OriginReducesModuloTheCanvas) {
    m_board.SetOrigin(4097, -1);
    int x = -5, y = -5;
    m_board.GetOrigin(x, y);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 4095);
    m_board.SetOrigin(-1, 8193);
    m_board.GetOrigin(x, y);
    EXPECT_EQ(x, 4095);
    EXPECT_EQ(y, 1);
    EXPECT_EQ(m_board.GetCanvasSize(), (UstSize{4096, 4096}));
}

TEST_F(CanvasOps, RectangleAcrossTheEdgesComesOutWhole) {
    // 4 x 3 source with a stride of 6, taken from (1, 1).
    std::vector<uint32_t> src(6 * 5);
    for (size_t i = 0; i < src.size(); ++i)
        src[i] = 0xFF000000u | static_cast<uint32_t>(i);
    m_board.CopyRect(4094, 4095, m_pCanvas, 6, 1, 1, 4, 3, src.data());
    EXPECT_EQ(At(4094, 4095), src[7]);
    EXPECT_EQ(At(4095, 4095), src[8]);
    EXPECT_EQ(At(0, 4095), src[9]);  // continues at column 0
    EXPECT_EQ(At(1, 4095), src[10]);
    EXPECT_EQ(At(4094, 0), src[13]);  // and at row 0
    EXPECT_EQ(At(1, 1), src[22]);
    EXPECT_EQ(Written().size(), 12u);
    m_board.FillRect(4095, 8196, m_pCanvas, 2, 1, 0x11u);  // row 8196 is row 4
    EXPECT_EQ(At(4095, 4), 0x11u);
    EXPECT_EQ(At(0, 4), 0x11u);
    m_board.FillRect(0, 10, m_pCanvas, 0, 5, 0x22u);
    m_board.CopyRect(0, 10, m_pCanvas, 6, 0, 0, 3, 0, src.data());
    EXPECT_EQ(Written().size(), 14u);
}

TEST_F(CanvasOps, StraightRunsAreAxialAndIncludeTheirEnd) {
    std::vector<uint32_t> src(10 * 10);
    for (size_t i = 0; i < src.size(); ++i)
        src[i] = 0xFF000000u | static_cast<uint32_t>(i);
    m_board.CopyLine(7, 3, 7, 3, m_pCanvas, 10, 2, 2, src.data());
    EXPECT_EQ(Written(), (Points{{7, 3}}));
    EXPECT_EQ(At(7, 3), src[22]);
    m_board.CopyLine(100, 5, 100, 7, m_pCanvas, 10, 4, 1, src.data());  // down the stride
    EXPECT_EQ(At(100, 5), src[14]);
    EXPECT_EQ(At(100, 7), src[34]);
    m_board.CopyLine(4095, 9, 4097, 9, m_pCanvas, 10, 0, 3, src.data());  // along the row, wrapping
    EXPECT_EQ(At(4095, 9), src[30]);
    EXPECT_EQ(At(1, 9), src[32]);
    const size_t before = Written().size();
    m_board.CopyLine(5, 9, 5, 8, m_pCanvas, 10, 0, 0, src.data());    // upward: nothing
    m_board.CopyLine(9, 20, 8, 20, m_pCanvas, 10, 0, 0, src.data());  // leftward: nothing
    m_board.FillLine(0, 50, 5, 52, m_pCanvas, 0x7u);                  // slanted: nothing
    EXPECT_EQ(Written().size(), before);
    m_board.FillLine(3, 60, 5, 60, m_pCanvas, 0x7u);
    EXPECT_EQ(At(3, 60) + At(4, 60) + At(5, 60), 21u);
}

TEST_F(CanvasOps, SlantedRunsFollowTheIntegerLine) {
    // x drives: spans 5 and 2, error 2d - D = -1, pixels worked out by hand.
    m_board.FillSlantLine(0, 0, 5, 2, 0, 0, m_pCanvas, 1);
    EXPECT_EQ(Written(), (Points{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 2}}));
    std::fill_n(m_pCanvas, CANVAS_PIXELS, 0u);
    // Spans 4 and 2: the error starts at 0 and returns to it; only above 0 steps.
    m_board.FillSlantLine(0, 0, 4, 2, 0, 0, m_pCanvas, 1);
    EXPECT_EQ(Written(), (Points{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}}));
    std::fill_n(m_pCanvas, CANVAS_PIXELS, 0u);
    // y drives, given bottom end first: swapped so that y increases.
    m_board.FillSlantLine(2, 5, 0, 0, 10, 20, m_pCanvas, 1);
    EXPECT_EQ(Written(), (Points{{10, 20}, {10, 21}, {11, 22}, {11, 23}, {12, 24}, {12, 25}}));
    std::fill_n(m_pCanvas, CANVAS_PIXELS, 0u);
    // Equal spans: x drives, y falls.
    m_board.FillSlantLine(0, 3, 3, 0, 4094, 0, m_pCanvas, 1);
    EXPECT_EQ(Written(), (Points{{4094, 3}, {4095, 2}, {0, 1}, {1, 0}}));
    std::fill_n(m_pCanvas, CANVAS_PIXELS, 0u);
    // Vertical, given upward: swapped, each pixel from the same place in the source.
    std::vector<uint32_t> src(8 * 8);
    for (size_t i = 0; i < src.size(); ++i)
        src[i] = 0xFF000000u | static_cast<uint32_t>(i);
    m_board.CopySlantLine(3, 6, 3, 4, 100, 200, m_pCanvas, 8, src.data());
    EXPECT_EQ(Written(), (Points{{103, 204}, {103, 205}, {103, 206}}));
    EXPECT_EQ(At(103, 205), src[5 * 8 + 3]);
    m_board.CopySlantLine(1, 1, 4, 2, 0, 0, m_pCanvas, 8, src.data());
    EXPECT_EQ(At(1, 1), src[9]);
    EXPECT_EQ(At(4, 2), src[20]);
}

TEST_F(CanvasOps, ChannelOneHasNoCanvasAndItsTwinsDoNothing) {
    EXPECT_EQ(m_board.GetChannelCanvas(1), nullptr);
    CBoardChannel one(1, &m_board);
    EXPECT_EQ(one.m_pCanvas, nullptr);
    one.FillRect(0, 0, 10, 10, 5);
    one.FillSlantLine(0, 0, 9, 3, 0, 0, 5);
    one.SetOrigin(30, 40);
    one.SetKeyLevel(3);
    one.Clear();  // the twin: no wait, nothing erased
    CBoardChannel zero(0, &m_board);
    zero.FillRect(4095, 0, 2, 1, 9);
    int x = 0, y = 0;
    zero.GetOrigin(x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(m_board.KeyLevels().size(), 0u);
    EXPECT_EQ(Written(), (Points{{4095, 0}, {0, 0}}));
}

// Short pieces of scattered columns in one call: each piece is `rows`
// pixels down its column, from its own place in the block, wrapping on both
// edges; the next block is only fetched, never written.
TEST_F(CanvasOps, ColumnPiecesComeFromTheirPlaceInTheBlockAndWrap) {
    std::vector<uint32_t> block(6 * 3), next(6 * 3, 0xEEEEEEEEu);
    for (int c = 0; c < 6; ++c)
        for (int r = 0; r < 3; ++r)
            block[c * 3 + r] = 0xA0000000u | static_cast<uint32_t>(c << 8 | r);
    const int columns[] = {0, 2, 5};
    CBoardChannel zero(0, &m_board);
    zero.CopyColumns(4094, 4095, 3, columns, 3, block.data(), next.data());
    EXPECT_EQ(Written(), (Points{{4094, 4095},
                                 {4094, 0},
                                 {4094, 1},
                                 {0, 4095},
                                 {0, 0},
                                 {0, 1},
                                 {3, 4095},
                                 {3, 0},
                                 {3, 1}}));
    EXPECT_EQ(At(4094, 4095), 0xA0000000u);
    EXPECT_EQ(At(0, 0), 0xA0000201u);
    EXPECT_EQ(At(3, 1), 0xA0000502u);
    zero.FillColumns(4094, 0, 1, columns, 2, 0);  // the first two columns' row 0
    EXPECT_EQ(At(4094, 0), 0u);
    EXPECT_EQ(At(0, 0), 0u);
    EXPECT_EQ(At(3, 0), 0xA0000501u);
    EXPECT_EQ(At(0, 1), 0xA0000202u);
    CBoardChannel one(1, &m_board);  // no canvas: nothing at all
    one.FillColumns(0, 0, 3, columns, 3, 0);
    EXPECT_EQ(At(3, 0), 0xA0000501u);
}

// A board without a canvas of its own is given the same pieces one vertical
// line at a time, through its own operations.
TEST(ColumnPieces, OtherBoardsGetOneLineEach) {
    struct UstLine {
        int x1, y1, x2, y2, srcY;
        const uint32_t* src;
        bool operator==(const UstLine&) const = default;
    };
    class CLineBoard : public CGBoard {
    public:
        void CopyLine(int x1, int y1, int x2, int y2, uint32_t*, int srcStride, int srcX, int srcY,
                      const uint32_t* src) override {
            EXPECT_EQ(srcStride, 1);
            EXPECT_EQ(srcX, 0);
            lines.push_back({x1, y1, x2, y2, srcY, src});
        }
        void FillLine(int x1, int y1, int x2, int y2, uint32_t*, uint32_t value) override {
            lines.push_back({x1, y1, x2, y2, static_cast<int>(value), nullptr});
        }
        std::vector<UstLine> lines;
    };
    CLineBoard board;
    CBoardChannel channel(0, &board);
    const uint32_t block[18] = {};
    const int columns[] = {0, 2, 5};
    channel.CopyColumns(4094, 4095, 3, columns, 3, block, nullptr);
    channel.FillColumns(7, 1, 2, columns + 1, 1, 9);
    const std::vector<UstLine> expected = {{4094, 4095, 4094, 4097, 0, block},
                                           {4096, 4095, 4096, 4097, 6, block},
                                           {4099, 4095, 4099, 4097, 15, block},
                                           {9, 1, 9, 2, 9, nullptr}};
    EXPECT_EQ(board.lines, expected);
}

}  // namespace
}  // namespace orv
