#pragma once
// A stand-in page object for tests: a filled rectangle of one colour.

#include <QString>

#include <algorithm>
#include <vector>

#include "objects/qrd_object.h"
#include "project/page_host.h"

namespace orv::test {

class CRectObject : public CQRDObject {
public:
    CRectObject(UstRect stored, uint32_t colour = 0xFFFF0000u, bool rotates = false,
                int type = OBJ_SHAPE)
        : m_nColour(colour), m_bRotates(rotates), m_nType(type) {
        m_rcStored = stored;
    }
    int GetType() const override { return m_nType; }
    bool CanRotate() const override { return m_bRotates; }
    QString GetPlainText() const override { return m_strText; }
    void Draw() override {
        if (!m_pPage || !m_pPage->GetCanvasBits()) return;
        Fill(m_pPage->GetCanvasBits(), m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight(),
             ScrolledViewRect());
    }
    void DrawTo(uint32_t* bits, int width, int height) override {
        Fill(bits, width, height, m_rcStored);
    }

    uint32_t m_nColour;
    bool m_bRotates;
    int m_nType;
    QString m_strText;

private:
    void Fill(uint32_t* bits, int w, int h, const UstRect& r) const {
        for (int y = std::max(0, r.top); y < std::min(h, r.bottom); ++y)
            for (int x = std::max(0, r.left); x < std::min(w, r.right); ++x)
                bits[static_cast<size_t>(y) * w + x] = m_nColour;
    }
};

// A page context with a settable zoom, scroll and canvas.
class CFakeContext : public CPageContext {
public:
    float GetZoom() const override { return fZoom; }
    UstPoint GetScrollOrigin() const override { return scroll; }
    UstPoint GetCanvasOrigin() const override { return origin; }
    int GetCanvasWidth() const override { return width; }
    int GetCanvasHeight() const override { return height; }
    uint32_t* GetCanvasBits() override { return canvas.empty() ? nullptr : canvas.data(); }
    void ObjectRemovedItself(CQRDObject* object) override { removed.push_back(object); }
    QString ObjectFolder() const override { return folder; }
    CTextEditHost* EditHost() const override { return host; }
    CQRDObjectText* EditingText() const override { return editing; }
    void SetEditingText(CQRDObjectText* text) override { editing = text; }
    // Gives the context a canvas of its size, cleared to the colour.
    void MakeCanvas(uint32_t colour = 0) {
        canvas.assign(static_cast<size_t>(width) * height, colour);
    }
    uint32_t At(int x, int y) const { return canvas[static_cast<size_t>(y) * width + x]; }
    std::vector<uint32_t> canvas;
    std::vector<CQRDObject*> removed;
    float fZoom = 100.0f;
    UstPoint scroll, origin;
    int width = 1920, height = 1080;
    QString folder;
    CTextEditHost* host = nullptr;
    CQRDObjectText* editing = nullptr;
};

// A view with a canvas of its own and a record of what the page asked of it.
class CFakeView : public CPageView {
public:
    CFakeView(int w, int h) : width(w), height(h), canvas(static_cast<size_t>(w) * h, 0) {
        env = MakeDefaultEnv(9);
    }
    UstViewFrame GetViewFrame() override {
        UstViewFrame f;
        f.rcFrame = {10, 20, 10 + width, 20 + height};
        f.nWidth = width;
        f.nHeight = height;
        f.nOriginX = 10;
        f.nOriginY = 20;
        f.pCanvas = canvas.data();
        return f;
    }
    const UstEnv& Env() const override { return env; }
    float Zoom() const override { return zoom; }
    const QImage* BackdropImage() override { return nullptr; }
    void SetPageType(uint32_t type, bool) override { pageType = type; }
    int SetScrollBar(uint32_t, int origin, int total) override {
        lastTotal = total;
        return origin;
    }
    void InvalidateRect(const UstRect&) override { ++invalidations; }
    void Repaint() override { ++repaints; }
    CTextEditHost* EditHost() override { return host; }
    uint32_t At(int x, int y) const { return canvas[static_cast<size_t>(y) * width + x]; }

    int width, height;
    std::vector<uint32_t> canvas;
    UstEnv env;
    float zoom = 100.0f;
    uint32_t pageType = 0;
    int lastTotal = 0, invalidations = 0, repaints = 0;
    CTextEditHost* host = nullptr;
};

}  // namespace orv::test
