#pragma once

#include <QRect>
#include <QWidget>

#include <cstdint>
#include <vector>

#include "board/video_modes.h"
#include "objects/text_host.h"
#include "project/page_host.h"
#include "shell/key_routing.h"

class QPainter;
class QScrollBar;

namespace orv {

class CMainFrame;
class CPageManager;
class CQRDObject;
class CZevrantDoc;

// The edit canvas: the current page's image at the zoom that fits the
// window, centred on the surround colour, and the select-and-move gestures.
class CZevrantView : public QWidget, public CPageView, public CTextEditHost {
    Q_OBJECT
public:
    CZevrantView(CMainFrame* frame, CZevrantDoc* doc, QWidget* parent = nullptr);
    ~CZevrantView() override;

    CZevrantDoc* Document() const { return m_pDoc; }
    CMainFrame* Frame() const { return m_pFrame; }
    // A command of the project (pages made, deleted, chosen), then the
    // canvas and the page status brought up to date.
    int ProjectCommand(uint32_t id, const void* arg = nullptr);
    void ShowPageStatus();
    CPageManager* Page() const;
    const QRect& PageRect() const { return m_rcPage; }
    const uint32_t* Surface() const { return m_pSurface.empty() ? nullptr : m_pSurface.data(); }
    int FitWidth() const { return m_nFitWidth; }
    int FitHeight() const { return m_nFitHeight; }
    int PageKind() const { return m_nPageKind; }
    QScrollBar* ScrollBar(bool vertical) const { return vertical ? m_wndVScroll : m_wndHScroll; }

    // The edit options changed: rebuild the page image.
    void RefreshCanvas();
    void GoToPage(int index);
    // A page command from a menu; answers what the page answered.
    int PageCommand(uint32_t id, const void* arg = nullptr);

    // Undo, redo, cut, copy and paste of the Edit menu: with the focus on
    // the page thumbnails copy and cut take pages, else the selected
    // objects; a paste takes whatever the clipboard holds. Only in the edit
    // state; answers what the command answered.
    int EditCommand(uint32_t id);

    // Plays the one selected animation through once on the canvas; false
    // when none is selected or its file gives no source.
    bool PreviewAnimation();
    // The animation's commands, over a selected animation.
    void AnimationMenu(const QPoint& window);

    // The canvas's own commands by number: the text and select modes, pages
    // before and after, the end of an edit, the next and previous object,
    // select all, order and alignment, blink and typing on the selection. Nonzero when something
    // was done; the page decides whether each is enabled, and nothing runs in automatic play out.
    int CanvasCommand(uint32_t id);
    bool CanvasCommandEnabled(uint32_t id) const;

    // A play key that reached the canvas in edit state.
    void OnHotKey(const UstKeyInfo& key);

    Q_INVOKABLE void OnAutoSave();

    // CPageView
    UstViewFrame GetViewFrame() override;
    const UstEnv& Env() const override;
    float Zoom() const override;
    const QImage* BackdropImage() override;
    void SetPageType(uint32_t pageType, bool repaint) override;
    int SetScrollBar(uint32_t pageType, int origin, int total) override;
    void InvalidateRect(const UstRect& windowRect) override;
    void Repaint() override;
    CTextEditHost* EditHost() override { return this; }

    // CTextEditHost
    const UstDefaultAttr& DefaultAttr() const override;
    UstDefaultAttr& WorkingAttr() override;
    void AttrChanged() override;
    void SetCanvasMode(int mode) override;
    void ShowCaret(const UstRect& canvasRect) override;
    void TextChanged(CQRDObjectText& text, const UstRect& windowBefore) override;
    void CompleteComposition() override;

    // Text editing from the canvas: a new text at a canvas point, or the
    // given one, put under edit.
    CQRDObjectText* StartNewText(const QPoint& canvas);
    void EditText(CQRDObjectText* text, const QPoint& canvas, bool selectAll);
    void EndTextEdit();
    CQRDObjectText* EditedText() const;
    const QRect& CaretRect() const { return m_rcCaret; }

    static constexpr QRgb SURROUND = 0xFF9099AE;  // RGB(144, 153, 174)

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum class EDrag { NONE, SIZE, ROTATE, MOVE, BAND, CREATE, ADJUST };
    struct UstDrag {
        EDrag kind = EDrag::NONE;
        int handle = -1;
        CQRDObject* object = nullptr;
        QPoint start;  // canvas coordinates
        QPoint current;
        UstRect before;              // window area to repaint at the end
        std::vector<UstRect> rects;  // view rectangles at the start
        bool moved = false;
    };

    void OnSize(int cx, int cy);
    UstSize FrameSize() const;
    void FitAndRender();
    void RenderPage();
    void LayOutScrollBars();
    void OnScroll(bool vertical, int value);
    QPoint ToCanvas(const QPoint& window) const;
    void BeginDrag(const QPoint& canvas);
    void DragTo(const QPoint& canvas);
    void EndDrag();
    void SelectInBand();
    void BeginShapeDrag(const QPoint& canvas);
    void DrawShapePreview(QPainter& painter) const;
    void EndShapeDrag(const UstDrag& drag);
    void DragControlPoint(const QPoint& canvas);
    void RightButton(const QPoint& canvas);
    void PickKeyColour(const QPoint& canvas);
    void UpdateCursor(const QPoint& window);
    bool NavigationKey(int key);
    bool EditingMousePress(QMouseEvent* event, const QPoint& canvas);
    bool EditingKey(QKeyEvent* event);
    void PasteIntoText();

    CMainFrame* m_pFrame;
    CZevrantDoc* m_pDoc;
    QScrollBar* m_wndVScroll;
    QScrollBar* m_wndHScroll;
    int m_nPageKind = 0;
    std::vector<uint32_t> m_pSurface;
    int m_nFitWidth = 0, m_nFitHeight = 0;
    QRect m_rcPage;
    int m_bMenuOpen = 0;
    bool m_bAttached = false;
    bool m_bLayingOut = false;
    UstDrag m_drag;
    QRect m_rcCaret;  // canvas pixels; empty when no caret shows
    float m_fZoom = 100.0f;
};

// The cursor shown over a handle, 0 to 7 sizing, 8 rotating.
Qt::CursorShape HandleCursor(int handle);
QCursor RotateCursor();
QCursor PickColourCursor();

}  // namespace orv
