#pragma once
// What an object needs to know of the page it stands on. The page implements
// this, so that objects never reach above their own library.

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

class CPageContext {
public:
    virtual ~CPageContext() = default;
    virtual float GetZoom() const = 0;             // the frame's zoom, percent
    virtual UstPoint GetScrollOrigin() const = 0;  // Roll and Crawl pages
    virtual UstPoint GetCanvasOrigin() const = 0;  // the canvas's corner in the window
    virtual int GetCanvasWidth() const = 0;        // view units
    virtual int GetCanvasHeight() const = 0;
    virtual uint32_t* GetCanvasBits() = 0;   // premultiplied; null without a view
    virtual void ObjectRemovedItself() = 0;  // an object that cannot stay
};

}  // namespace orv
