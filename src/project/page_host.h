#pragma once
// What a page asks of the edit view that shows it and of the project that
// holds it. The interface implements both; tests use plain stand-ins.

#include <QImage>

#include <cstdint>

#include "objects/page_context.h"
#include "project/settings_records.h"

namespace orv {

class CFileLinkTable;
class CTextEditHost;
class CPageManager;
class CQRDObject;

// The view's canvas as the page copies it at activation.
struct UstViewFrame {
    UstRect rcFrame;  // the canvas inside the view's window
    int nWidth = 0;   // canvas size in view pixels
    int nHeight = 0;
    int nOriginX = 0;  // canvas corner inside the window
    int nOriginY = 0;
    uint32_t* pCanvas = nullptr;  // premultiplied, nWidth x nHeight
};

class CPageView {
public:
    virtual ~CPageView() = default;
    virtual UstViewFrame GetViewFrame() = 0;
    virtual const UstEnv& Env() const = 0;
    virtual float Zoom() const = 0;
    virtual const QImage* BackdropImage() = 0;
    // Lays the view out for a page type: scroll bars, fit, a new canvas.
    virtual void SetPageType(uint32_t pageType, bool repaint) = 0;
    // Sets the page type's scroll bar to origin within total; answers the
    // position the bar settled on.
    virtual int SetScrollBar(uint32_t pageType, int origin, int total) = 0;
    virtual void InvalidateRect(const UstRect& windowRect) = 0;
    // The editor of texts typed on this view's pages.
    virtual CTextEditHost* EditHost() { return nullptr; }
    virtual void Repaint() = 0;
};

class CPageDoc {
public:
    virtual ~CPageDoc() = default;
    virtual int FrameWidth() const = 0;  // at zoom 100
    virtual int FrameHeight() const = 0;
    virtual int ThumbWidth() const = 0;
    virtual int ThumbHeight() const = 0;
    virtual void SetProjectModified() = 0;
    virtual void PushUndo(CPageManager& page, int kind) = 0;
    virtual void RefreshPreviewList() = 0;
    virtual void RefreshTextList() = 0;
    // An object the ribbon shows is gone: forget it and refresh the controls.
    virtual void ObjectRemoved(CQRDObject* object) = 0;
    // The project's folders of thumbnails and of media copies, each ending
    // in a separator; empty while the project has no folder on disk.
    virtual QString DataFolder() const { return {}; }
    virtual QString ObjectFolder() const { return {}; }
    // What this run of the program copied where.
    virtual CFileLinkTable* FileLinks() { return nullptr; }
};

}  // namespace orv
