// The ray fan against the rays drawn one by one with the slanted run: for
// every group of consecutive border pixels the wedge and the wheels can ask
// for, in both directions round the border, the runs cover exactly the
// pixels of the rays. (Where the rays change edge or driving axis, two
// groups may both write a pixel near the centre: the same pixel twice.)
#include <gtest/gtest.h>

#include <vector>

#include "board/canvas.h"
#include "playout/ray_fan.h"

namespace orv {
namespace {

struct UstFrame {
    int w, h, cx, cy;
};

// The frame's border clockwise from (cx, 0), corners twice: the list the
// engine builds.
std::vector<std::pair<int, int>> Border(const UstFrame& f) {
    std::vector<std::pair<int, int>> b;
    for (int x = f.cx; x < f.w; ++x)
        b.push_back({x, 0});
    for (int y = 0; y < f.h; ++y)
        b.push_back({f.w - 1, y});
    for (int x = f.w - 1; x >= 0; --x)
        b.push_back({x, f.h - 1});
    for (int y = f.h - 1; y >= 0; --y)
        b.push_back({0, y});
    for (int x = 0; x < f.cx; ++x)
        b.push_back({x, 0});
    return b;
}

// Pixels that the rays drawn one by one take and the fan's runs miss, and
// pixels the runs write that no ray takes.
void Compare(const UstFrame& f, const std::vector<std::pair<int, int>>& ends, CRayFan& fan,
             const char* what) {
    std::vector<int> expected(static_cast<size_t>(f.w) * f.h), written(expected.size());
    for (const auto& [x, y] : ends) {
        ForSlantRun(f.cx, f.cy, x, y,
                    [&](int px, int py) { expected[static_cast<size_t>(py) * f.w + px] = 1; });
        fan.AddRay(f.cx, f.cy, x, y);
    }
    fan.Flush([&](int x1, int x2, int y) {
        for (int x = x1; x <= x2; ++x)
            ++written[static_cast<size_t>(y) * f.w + x];
    });
    int missing = 0, extra = 0;
    for (size_t i = 0; i < expected.size(); ++i) {
        missing += expected[i] && !written[i];
        extra += !expected[i] && written[i];
    }
    EXPECT_EQ(missing, 0) << what;
    EXPECT_EQ(extra, 0) << what;
}

TEST(RayFan, RunsTakeExactlyTheRaysPixels) {
    // Even and odd sides, a square, a frame taller than wide, and the centre
    // of eight spokes beside that of the others.
    const UstFrame frames[] = {{64, 36, 31, 17}, {64, 36, 32, 18}, {37, 23, 17, 10},
                               {20, 20, 9, 9},   {15, 40, 6, 19},  {61, 5, 29, 1}};
    for (const UstFrame& f : frames) {
        const std::vector<std::pair<int, int>> border = Border(f);
        const int n = static_cast<int>(border.size());
        CRayFan fan(f.h);
        for (int count : {1, 2, 3, 5, 16, 45}) {
            for (int start = 0; start < n; ++start) {
                std::vector<std::pair<int, int>> forward, backward;
                for (int i = 0; i < count; ++i) {
                    forward.push_back(border[static_cast<size_t>((start + i) % n)]);
                    backward.push_back(border[static_cast<size_t>((start - i + n) % n)]);
                }
                SCOPED_TRACE(testing::Message()
                             << f.w << "x" << f.h << " from " << start << ", " << count << " rays");
                Compare(f, forward, fan, "clockwise");
                Compare(f, backward, fan, "anticlockwise");
            }
        }
    }
}

// Rays that do not follow one another or leave a border pixel out between
// them, a ray given twice, and after a
// flush a fan round another centre: each starts a group of its own.
TEST(RayFan, UnrelatedRaysInOneFlush) {
    const UstFrame f{48, 30, 23, 14};
    CRayFan fan(f.h);
    Compare(f, {{0, 0}, {47, 29}, {5, 0}, {6, 0}, {47, 3}, {47, 3}, {47, 4}, {0, 12}}, fan,
            "scattered");
    Compare(f, {{10, 0}, {12, 0}, {14, 0}, {16, 0}}, fan, "every other border pixel");
    const UstFrame g{48, 30, 24, 15};
    Compare(g, {{0, 0}, {1, 0}}, fan, "the other centre after a flush");
}

}  // namespace
}  // namespace orv
