#include <gtest/gtest.h>

#include <QPainterPath>

#include <cmath>
#include <utility>
#include <vector>

#include "render/shape_path.h"

namespace orv {
namespace {

QPainterPath Build(int kind, int left, int top, int right, int bottom, float cx = 0, float cy = 0) {
    QPainterPath path;
    BuildShapePath(left, top, right, bottom, path, kind, cx, cy);
    return path;
}

bool Near(const QPointF& a, const QPointF& b) {
    return std::abs(a.x() - b.x()) < 1e-3 && std::abs(a.y() - b.y()) < 1e-3;
}

// The path's points in order, without the line that closes it.
std::vector<QPointF> Points(const QPainterPath& path) {
    std::vector<QPointF> points;
    for (int i = 0; i < path.elementCount(); ++i)
        points.emplace_back(path.elementAt(i));
    if (points.size() > 1 && Near(points.front(), points.back())) points.pop_back();
    return points;
}

void ExpectPoints(const QPainterPath& path, const std::vector<QPointF>& expected) {
    const std::vector<QPointF> points = Points(path);
    ASSERT_EQ(points.size(), expected.size());
    for (size_t i = 0; i < points.size(); ++i) {
        EXPECT_TRUE(Near(points[i], expected[i]))
            << i << ": " << points[i].x() << "," << points[i].y();
    }
}

bool HasPoint(const QPainterPath& path, QPointF p) {
    for (const QPointF& q : Points(path)) {
        if (Near(p, q)) return true;
    }
    return false;
}

TEST(ShapePath, PolygonsFollowTheirFormulas) {
    ExpectPoints(Build(0, 10, 20, 110, 80), {{10, 20}, {110, 20}, {110, 80}, {10, 80}});
    ExpectPoints(Build(4, 0, 0, 100, 20, 30), {{0, 0}, {70, 0}, {100, 20}, {30, 20}});
    ExpectPoints(Build(6, 0, 0, 40, 20), {{0, 10}, {20, 20}, {40, 10}, {20, 0}});
    // t = (100 + 4) / 5 sets the foot in from each side.
    ExpectPoints(Build(7, 10, 20, 110, 80, 0, 30),
                 {{10, 50}, {60, 20}, {110, 50}, {89.2, 80}, {30.8, 80}});
    ExpectPoints(Build(9, 0, 0, 90, 30, 20),
                 {{0, 20}, {0, 10}, {20, 0}, {70, 0}, {90, 10}, {90, 20}, {70, 30}, {20, 30}});
    ExpectPoints(Build(15, 0, 0, 100, 50, 77, 25), {{0, 0}, {100, 25}, {0, 50}});
    ExpectPoints(Build(27, 0, 0, 100, 20, 30), {{70, 0}, {30, 0}, {0, 20}, {100, 20}});
    EXPECT_EQ(Build(2, 10, 20, 110, 80).boundingRect(), QRectF(10, 20, 100, 60));
}

TEST(ShapePath, StarSitsOnAGridOfThirteenthsAndIgnoresTheHandle) {
    // a = 1, b = 2: the feet at 10.5a and 2.5a round away from zero to 11 and 3.
    const QPainterPath star = Build(10, 100, 50, 113, 76, 4, 4);
    ExpectPoints(star, {{107, 50},
                        {108, 60},
                        {113, 60},
                        {109, 66},
                        {111, 76},
                        {107, 70},
                        {103, 76},
                        {104, 66},
                        {100, 60},
                        {105, 60}});
    EXPECT_EQ(Points(star), Points(Build(10, 100, 50, 113, 76, -300, 900)));
}

TEST(ShapePath, ArrowsRoundTheHandleAndStayInTheirBox) {
    ExpectPoints(Build(11, 0, 0, 100, 40, 60, 10),
                 {{0, 10}, {60, 10}, {60, 0}, {100, 20}, {60, 40}, {60, 30}, {0, 30}});
    ExpectPoints(Build(12, 0, 0, 100, 40, 20.5f, 10),
                 {{0, 20}, {21, 0}, {21, 10}, {100, 10}, {100, 30}, {21, 30}, {21, 40}});
    ExpectPoints(Build(14, 0, 0, 40, 100, 10, 60),
                 {{0, 60}, {10, 60}, {10, 0}, {30, 0}, {30, 60}, {40, 60}, {20, 100}});
    // A handle far below and outside flattens the up arrow to a triangle.
    ExpectPoints(Build(13, 0, 0, 40, 100, -10, 200), {{0, 100}, {20, 0}, {40, 100}});
    const QRectF box(10, 20, 100, 40);
    const QPointF handles[] = {{1000, -1000}, {-500, 700}, {5000, 5000}, {-1e6, -1e6}};
    for (int kind = 11; kind <= 14; ++kind) {
        for (const QPointF& h : handles) {
            for (const QPointF& p : Points(Build(kind, 10, 20, 110, 60, h.x(), h.y()))) {
                EXPECT_TRUE(p.x() >= box.left() && p.x() <= box.right() && p.y() >= box.top() &&
                            p.y() <= box.bottom())
                    << kind << ": " << p.x() << "," << p.y();
            }
        }
    }
}

TEST(ShapePath, RoundedCornersAndBarEndsAreQuarterEllipses) {
    // 9.5 rounds to a radius of 10: the top edge starts 10 in from the right.
    const QPainterPath rounded = Build(1, 0, 0, 100, 60, 9.5f);
    EXPECT_TRUE(Near(rounded.elementAt(0), {90, 0}));
    EXPECT_TRUE(Near(rounded.boundingRect().bottomRight(), {100, 60}));
    EXPECT_FALSE(rounded.contains(QPointF(1.5, 1.5)));
    EXPECT_TRUE(rounded.contains(QPointF(4, 4)));
    // No radius: the arcs shrink to the corners.
    ExpectPoints(Build(1, 0, 0, 100, 60, 0.4f), {{100, 0}, {100, 60}, {0, 60}, {0, 0}});

    struct Bar {
        int kind;
        float cx;
        QPointF start, corner, inside, outside;
    };
    // Each arc is a quarter of a circle of radius 40 in a 100 x 40 box.
    const Bar bars[] = {{19, 60, {100, 40}, {60, 0}, {86, 14}, {91, 9}},
                        {20, 40, {0, 40}, {40, 0}, {14, 14}, {9, 9}},
                        {21, 60, {100, 0}, {60, 40}, {86, 26}, {91, 31}},
                        {22, 40, {0, 0}, {40, 40}, {14, 26}, {9, 31}}};
    for (const Bar& bar : bars) {
        const QPainterPath path = Build(bar.kind, 0, 0, 100, 40, bar.cx);
        EXPECT_TRUE(Near(path.elementAt(0), bar.start)) << bar.kind;
        EXPECT_TRUE(HasPoint(path, bar.corner)) << bar.kind;
        EXPECT_TRUE(path.contains(bar.inside)) << bar.kind;
        EXPECT_FALSE(path.contains(bar.outside)) << bar.kind;
        const QRectF bound = path.boundingRect();
        EXPECT_TRUE(Near(bound.topLeft(), {0, 0}) && Near(bound.bottomRight(), {100, 40}))
            << bar.kind;
    }
}

TEST(ShapePath, EveryKindIsOneClosedFigureAndOthersAreEmpty) {
    for (int kind = 0; kind < SHAPE_KIND_COUNT; ++kind) {
        QPainterPath path;
        DefaultControlPoint(10, 20, 210, 120, path, kind);
        ASSERT_GT(path.elementCount(), 2) << kind;
        int moves = 0;
        for (int i = 0; i < path.elementCount(); ++i)
            moves += path.elementAt(i).isMoveTo();
        EXPECT_EQ(moves, 1) << kind;
        EXPECT_TRUE(Near(path.elementAt(0), path.elementAt(path.elementCount() - 1))) << kind;
        EXPECT_EQ(path.fillRule(), Qt::OddEvenFill);
    }
    EXPECT_EQ(Build(28, 0, 0, 50, 50).elementCount(), 0);
    EXPECT_EQ(Build(-1, 0, 0, 50, 50).elementCount(), 0);
}

TEST(ShapePath, DegenerateBoxesAndHandlesDoNotBreak) {
    const int boxes[][4] = {{5, 5, 5, 5}, {0, 0, 0, 50}, {50, 50, 0, 0}, {0, 0, 1000000, 1000000}};
    for (int kind = 0; kind < SHAPE_KIND_COUNT; ++kind) {
        for (const auto& b : boxes) {
            QPainterPath path;
            const QPointF cp = DefaultControlPoint(b[0], b[1], b[2], b[3], path, kind);
            const QRectF bound = Build(kind, b[0], b[1], b[2], b[3], 1e7f, -1e7f).boundingRect();
            EXPECT_TRUE(std::isfinite(bound.width()) && std::isfinite(bound.height())) << kind;
            const QPointF r = RescaleControlPoint(kind, cp, 0, 0, 40, 30);
            EXPECT_TRUE(std::isfinite(r.x()) && std::isfinite(r.y())) << kind;
        }
    }
}

TEST(ShapeKinds, NamesAndHandles) {
    const std::pair<int, const char*> names[] = {
        {0, "사각형"},  {1, "둥근 사각형"}, {3, "원"},         {5, "타이틀 바"}, {10, "별"},
        {14, "화살표"}, {18, "삼각형"},     {27, "타이틀 바"}, {28, "도형"},     {-1, "도형"}};
    for (const auto& [kind, name] : names) {
        EXPECT_EQ(ShapeKindName(kind), QString::fromUtf8(name)) << kind;
    }
    for (int kind : {1, 4, 5, 7, 9, 11, 27}) {
        EXPECT_TRUE(ShapeHasControlHandle(kind)) << kind;
    }
    for (int kind : {-1, 0, 2, 3, 6, 10, 28}) {
        EXPECT_FALSE(ShapeHasControlHandle(kind)) << kind;
    }
}

QPointF Default(int kind, int w, int h) {
    QPainterPath path;
    return DefaultControlPoint(0, 0, w, h, path, kind);
}

TEST(ShapeControlPoint, FreshShapes) {
    EXPECT_EQ(Default(1, 100, 60), QPointF(30, 10));
    EXPECT_EQ(Default(4, 61, 30), QPointF(30, 30));  // half of 61 in whole pixels
    EXPECT_EQ(Default(4, 200, 30), QPointF(40, 30));
    EXPECT_EQ(Default(5, 200, 30), QPointF(40, 0));
    EXPECT_EQ(Default(23, 200, 30), QPointF(160, 10));  // 40 in from the right
    EXPECT_EQ(Default(23, 61, 30), QPointF(30, 10));    // narrow: the middle instead
    EXPECT_EQ(Default(25, 61, 30), QPointF(30, 20));
    EXPECT_EQ(Default(15, 100, 50), QPointF(90, 25));
    EXPECT_EQ(Default(10, 100, 50), QPointF(0, 0));
    QPainterPath path;
    DefaultControlPoint(0, 0, 100, 50, path, 15);
    ExpectPoints(path, {{0, 0}, {100, 25}, {0, 50}});
}

TEST(ShapeControlPoint, Resizing) {
    EXPECT_EQ(RescaleControlPoint(15, {90, 25}, 100, 50, 5, 100), QPointF(-5, 50));
    EXPECT_EQ(RescaleControlPoint(1, {12, 3}, 100, 60, 200, 40), QPointF(8, 10));
    EXPECT_EQ(RescaleControlPoint(1, {50, 10}, 100, 60, 200, 40), QPointF(20, 10));  // limited
    EXPECT_EQ(RescaleControlPoint(11, {60, 10}, 100, 40, 150, 60), QPointF(90, 15));
    EXPECT_EQ(RescaleControlPoint(14, {10, 60}, 40, 100, 80, 50), QPointF(20, 30));
    EXPECT_EQ(RescaleControlPoint(4, {30, 30}, 100, 30, 20, 50), QPointF(20, 50));
    EXPECT_EQ(RescaleControlPoint(4, {30, 30}, 100, 30, 200, 50), QPointF(30, 50));
    EXPECT_EQ(RescaleControlPoint(5, {30, 30}, 100, 30, 200, 50), QPointF(30, 0));
    EXPECT_EQ(RescaleControlPoint(7, {10, 30}, 100, 60, 100, 90), QPointF(10, 45));
    EXPECT_EQ(RescaleControlPoint(22, {50, 30}, 100, 40, 50, 80), QPointF(25, 70));
    EXPECT_EQ(RescaleControlPoint(10, {3, 4}, 100, 40, 50, 80), QPointF(3, 4));
    // The ratio is taken first, in single precision.
    const float third = static_cast<float>(RescaleControlPoint(12, {10, 10}, 3, 3, 1, 1).x());
    EXPECT_EQ(third, 10.0f * (1.0f / 3.0f));
    EXPECT_NE(third, 10.0f / 3.0f);
    // No old size to scale from: the old coordinate stays.
    EXPECT_EQ(RescaleControlPoint(12, {7, 9}, 0, 0, 50, 60), QPointF(7, 9));
    EXPECT_EQ(RescaleControlPoint(1, {7, 3}, 0, 50, 40, 60), QPointF(7, 10));
}

}  // namespace
}  // namespace orv
