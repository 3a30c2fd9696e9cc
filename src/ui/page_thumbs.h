#pragma once
// The page thumbnails of the active project, as the pane and the overview
// both show them: the current page, the set of extra selected pages, a
// click, Shift and Ctrl, the in and out effect tiles, the keys, the wheel
// and dragging pages to a new place. What differs is only the geometry.
// Pixels come from the pages' own thumbnails; nothing is rendered here.

#include <QImage>

#include "ui/pane_dialogs.h"
#include "ui/thumb_geometry.h"

class QMenu;
class QPainter;
class QScrollBar;

namespace orv {

class CMainFrame;
class CPageManager;
class CProjectManager;
class CZevrantView;

class CPageThumbs : public CPaneDialog {
    Q_OBJECT
public:
    explicit CPageThumbs(CMainFrame* frame, QWidget* parent = nullptr);

    // The project's pages changed, or the current page: the scroll range
    // and the current row follow, and the pane repaints.
    void Refresh();
    // Makes `index` current (with bNotify through the project's click, 640)
    // and scrolls it into view: to the top with bScrollTop, else only when
    // it stands outside the visible band.
    void SelectPage(int index, bool bScrollTop, bool bNotify);
    int HitTest(int x, int y, int* outIndex) const;
    const UstThumbGeometry& Geometry() const { return m_geometry; }
    QScrollBar* ScrollBar() const { return m_pScroll; }
    int PageCount() const;
    // Paints the rows that the band of the window shows.
    void Redraw(QPainter& painter, const QRect& band);

    int m_nCurrent = -1;     // the row drawn as current
    int m_nFocus = -1;       // the page of the effect gallery
    int m_nEffectSide = -1;  // -1 none, 0 in, 1 out

    static constexpr QRgb BACK = 0xFFCEDDEE;
    static constexpr QRgb MARK_FOCUS = 0xFFFF8040;
    static constexpr QRgb MARK = 0xFF3D6CC0;

Q_SIGNALS:
    // The effect gallery for a page's side is about to open; a test can
    // answer it.
    void EffectMenuShown(QMenu* menu);
    // The same for the pages' context menu.
    void ContextMenuShown(QMenu* menu);

protected:
    virtual UstThumbGeometry ComputeGeometry(int clientWidth, float aspect) const = 0;
    virtual void PaintCaption(QPainter& painter, const CPageManager& page, const QRect& rect) const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    CMainFrame* m_pFrame;

private:
    CZevrantView* View() const;
    CProjectManager* Project() const;
    int PlayState() const;
    float Aspect() const;
    void Relayout();
    void OnScrolled(int value);
    QPoint ToContent(QPoint window) const;
    bool IsMarked(int index) const;
    void LeftClick(int hit, int index, Qt::KeyboardModifiers mods);
    void RightClick(int hit, int index, QPoint at);
    void PageMenu(QPoint at);
    void ClickPage(int index, Qt::KeyboardModifiers mods);
    void NewPageAtEnd();
    void PickEffect(int index, int side, QPoint at);
    void MoveTo(int index);
    void EndDrag(QPoint window);
    void PaintCell(QPainter& painter, int cell, int pages, const CProjectManager& project) const;
    void PaintThumb(QPainter& painter, const CPageManager& page, const QRect& rect) const;
    void PaintTile(QPainter& painter, int number, const QRect& rect, bool chosen) const;

    QScrollBar* m_pScroll;
    UstThumbGeometry m_geometry;
    bool m_bPressed = false;   // went down on a page
    bool m_bDragging = false;  // pages are being moved
    bool m_bClearOnRelease = false;
    QPoint m_ptPress;
    int m_nDropGap = -1;
    int m_nShownScroll = 0;  // the scroll position of the pixels on screen
};

// The effect gallery as a menu: the groups as sections, one checkable entry
// per transition with its number as data, `current` checked.
QMenu* MakeEffectMenu(int current, uint16_t language, QWidget* parent);

}  // namespace orv
