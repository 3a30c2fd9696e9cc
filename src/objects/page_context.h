#pragma once
// What an object needs to know of the page it stands on. The page implements
// this, so that objects never reach above their own library.

#include <QString>

#include <cstdint>

#include "render/geometry.h"

namespace orv {

class CQRDObject;
class CQRDObjectText;
class CTextEditHost;

class CPageContext {
public:
    virtual ~CPageContext() = default;
    virtual float GetZoom() const = 0;             // the frame's zoom, percent
    virtual UstPoint GetScrollOrigin() const = 0;  // Roll and Crawl pages
    virtual UstPoint GetCanvasOrigin() const = 0;  // the canvas's corner in the window
    virtual int GetCanvasWidth() const = 0;        // view units
    virtual int GetCanvasHeight() const = 0;
    virtual uint32_t* GetCanvasBits() = 0;  // premultiplied; null without a view
    // An object that cannot stay asks its page to let it go. The page takes
    // it out once the walk over its objects has ended, and deletes it.
    virtual void ObjectRemovedItself(CQRDObject* object) = 0;
    // Scrolls a long page so that the rectangle (page pixels at the zoom)
    // can be seen.
    virtual void ScrollToShow(const UstRect&) {}
    // The folder that holds the media the page's objects name: pictures,
    // backgrounds, animations. Empty when there is none.
    virtual QString ObjectFolder() const { return {}; }
    // The editor around a text under edit on this page, and that text: one
    // at a time per page, so that each window edits on its own.
    virtual CTextEditHost* EditHost() const { return nullptr; }
    virtual CQRDObjectText* EditingText() const { return nullptr; }
    virtual void SetEditingText(CQRDObjectText*) {}
};

}  // namespace orv
