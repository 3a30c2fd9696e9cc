#pragma once
// The two list panes of play mode: the thumbnails of the pages to play, with
// the page on air marked, and the lines of their text. Cells painted by
// hand in a vertically scrolling list; a click selects a cell. They call
// nothing in the engine: a selection goes to the list pane, which moves the
// list's cursor.

#include <QAbstractScrollArea>
#include <QImage>

#include <functional>
#include <vector>

namespace orv {

class CPageManager;

// A page's thumbnail the right way up (its bits are kept bottom row first,
// as its file has them); null when the page has none.
QImage ThumbImage(const CPageManager& page);

class CPlayCellList : public QAbstractScrollArea {
    Q_OBJECT
public:
    using Select = std::function<void(int index)>;

    explicit CPlayCellList(QWidget* parent = nullptr);

    void SetPages(std::vector<CPageManager*> pages);
    void SetOnAir(int index);   // -1: nothing on air
    void SetCursor(int index);  // the list's next page
    void SetSelect(Select select) { m_fnSelect = std::move(select); }
    int OnAir() const { return m_nOnAir; }
    int Cursor() const { return m_nCursor; }
    int IndexAt(int y) const;

protected:
    virtual int CellHeight() const = 0;
    virtual void PaintCell(QPainter& painter, const QRect& cell, CPageManager& page, int index) = 0;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    const std::vector<CPageManager*>& Pages() const { return m_pages; }

private:
    void UpdateScrollBar();

    std::vector<CPageManager*> m_pages;
    int m_nOnAir = -1, m_nCursor = 0;
    Select m_fnSelect;
};

class CPlayDlg : public CPlayCellList {  // "Play": thumbnails
    Q_OBJECT
public:
    using CPlayCellList::CPlayCellList;

protected:
    int CellHeight() const override;
    void PaintCell(QPainter& painter, const QRect& cell, CPageManager& page, int index) override;
};

class CPlayTextDlg : public CPlayCellList {  // "Text": the pages' lines
    Q_OBJECT
public:
    using CPlayCellList::CPlayCellList;

protected:
    int CellHeight() const override;
    void PaintCell(QPainter& painter, const QRect& cell, CPageManager& page, int index) override;
};

}  // namespace orv
