#pragma once
// Rectangles and points as the whole system passes them: left, top, right,
// bottom as signed 32-bit integers, right and bottom exclusive.

#include <QRect>

#include <cstdint>

namespace orv {

struct UstRect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const UstRect&) const = default;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    QRect ToQRect() const { return QRect(left, top, right - left, bottom - top); }
    static UstRect FromQRect(const QRect& r) {
        return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()};
    }
};
static_assert(sizeof(UstRect) == 16);

struct UstPoint {
    int32_t x = 0, y = 0;
    bool operator==(const UstPoint&) const = default;
};

}  // namespace orv
