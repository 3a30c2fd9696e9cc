#include "ui/play_dlg.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

#include "project/page_manager.h"

namespace orv {

namespace {

constexpr int MARGIN = 4;
const QColor ON_AIR_COLOUR(220, 30, 30);
const QColor CURSOR_COLOUR(40, 110, 230);

}  // namespace

QImage ThumbImage(const CPageManager& page) {
    const std::vector<uint32_t>& bits = page.ThumbBits();
    const int w = page.m_nThumbWidth, h = page.m_nThumbHeight;
    if (w <= 0 || h <= 0 || bits.size() < static_cast<size_t>(w) * h) return {};
    return QImage(reinterpret_cast<const uchar*>(bits.data()), w, h, w * 4,
                  QImage::Format_ARGB32_Premultiplied)
        .mirrored(false, true);
}

CPlayCellList::CPlayCellList(QWidget* parent) : QAbstractScrollArea(parent) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(),
            [this] { viewport()->update(); });
}

void CPlayCellList::SetPages(std::vector<CPageManager*> pages) {
    m_pages = std::move(pages);
    m_nOnAir = -1;
    m_nCursor = std::min(m_nCursor, std::max(0, static_cast<int>(m_pages.size()) - 1));
    UpdateScrollBar();
    viewport()->update();
}

void CPlayCellList::SetOnAir(int index) {
    if (index == m_nOnAir) return;
    m_nOnAir = index;
    viewport()->update();
}

// The cursor's cell is scrolled into view, as the operator steps with the
// keypad and looks at the list.
void CPlayCellList::SetCursor(int index) {
    m_nCursor = index;
    const int top = index * CellHeight(), bottom = top + CellHeight();
    QScrollBar* bar = verticalScrollBar();
    if (top < bar->value()) bar->setValue(top);
    if (bottom > bar->value() + viewport()->height()) bar->setValue(bottom - viewport()->height());
    viewport()->update();
}

int CPlayCellList::IndexAt(int y) const {
    const int index = (y + verticalScrollBar()->value()) / CellHeight();
    return index >= 0 && index < static_cast<int>(m_pages.size()) ? index : -1;
}

void CPlayCellList::UpdateScrollBar() {
    const int total = static_cast<int>(m_pages.size()) * CellHeight();
    verticalScrollBar()->setRange(0, std::max(0, total - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(CellHeight() / 4 + 1);
}

void CPlayCellList::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().base());
    const int h = CellHeight(), first = verticalScrollBar()->value() / h;
    for (int i = std::max(first, 0); i < static_cast<int>(m_pages.size()); ++i) {
        const QRect cell(0, i * h - verticalScrollBar()->value(), viewport()->width(), h);
        if (cell.top() > viewport()->height()) break;
        PaintCell(painter, cell, *m_pages[static_cast<size_t>(i)], i);
        const QColor mark = i == m_nOnAir ? ON_AIR_COLOUR : CURSOR_COLOUR;
        if (i == m_nOnAir || i == m_nCursor) {
            painter.setPen(QPen(mark, i == m_nOnAir ? 3 : 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(cell.adjusted(1, 1, -2, -2));
        }
    }
}

void CPlayCellList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBar();
}

void CPlayCellList::mousePressEvent(QMouseEvent* event) {
    const int index = IndexAt(event->position().toPoint().y());
    if (index < 0) return;
    SetCursor(index);
    if (m_fnSelect) m_fnSelect(index);
}

int CPlayDlg::CellHeight() const {
    const int width = std::max(viewport()->width() - 2 * MARGIN, 16);
    return width * 9 / 16 + 2 * MARGIN + fontMetrics().height();
}

void CPlayDlg::PaintCell(QPainter& painter, const QRect& cell, CPageManager& page, int index) {
    const QRect text(cell.left() + MARGIN, cell.top() + MARGIN, cell.width() - 2 * MARGIN,
                     fontMetrics().height());
    painter.setPen(palette().text().color());
    const QString discarded = page.m_effect.bDiscard ? tr(" (discarded)") : QString();
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     tr("Page %1").arg(index + 1) + discarded);
    const QRect picture(text.left(), text.bottom() + 1, text.width(),
                        cell.bottom() - text.bottom() - MARGIN);
    painter.fillRect(picture, Qt::black);
    const QImage thumb = ThumbImage(page);
    if (!thumb.isNull()) painter.drawImage(picture, thumb);
}

int CPlayTextDlg::CellHeight() const {
    return 3 * fontMetrics().height() + 2 * MARGIN;
}

void CPlayTextDlg::PaintCell(QPainter& painter, const QRect& cell, CPageManager& page, int index) {
    painter.setPen(palette().mid().color());
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    painter.setPen(palette().text().color());
    const QString lines =
        page.m_strPageText.isEmpty() ? tr("Page %1").arg(index + 1) : page.m_strPageText;
    painter.drawText(cell.adjusted(MARGIN, MARGIN, -MARGIN, -MARGIN),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, lines);
}

}  // namespace orv
