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

inline UstRect Offset(const UstRect& r, int dx, int dy) {
    return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}

inline bool Contains(const UstRect& r, int x, int y) {
    return x >= r.left && x < r.right && y >= r.top && y < r.bottom;
}

// The smallest rectangle holding both; an empty one adds nothing.
inline UstRect UnionRect(const UstRect& a, const UstRect& b) {
    if (a.Width() <= 0 || a.Height() <= 0) return b;
    if (b.Width() <= 0 || b.Height() <= 0) return a;
    return {a.left < b.left ? a.left : b.left, a.top < b.top ? a.top : b.top,
            a.right > b.right ? a.right : b.right, a.bottom > b.bottom ? a.bottom : b.bottom};
}

// Whether the two rectangles share any pixel.
inline bool Meets(const UstRect& a, const UstRect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

}  // namespace orv
