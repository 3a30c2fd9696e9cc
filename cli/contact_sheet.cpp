#include "contact_sheet.h"

#include <QFont>
#include <QPainter>

#include <algorithm>

namespace orv::cli {

namespace {

constexpr int MARGIN = 12, LABEL = 22, TITLE = 34, CHECKER = 8;

void DrawChecker(QPainter& painter, const QRect& area) {
    for (int y = area.top(); y <= area.bottom(); y += CHECKER)
        for (int x = area.left(); x <= area.right(); x += CHECKER) {
            const bool dark = ((x - area.left()) / CHECKER + (y - area.top()) / CHECKER) % 2;
            painter.fillRect(QRect(x, y, CHECKER, CHECKER).intersected(area),
                             dark ? QColor(70, 70, 70) : QColor(100, 100, 100));
        }
}

}  // namespace

void CFrameCollector::SetStage(const char* stage) {
    std::lock_guard lock(m_mutex);
    m_szStage = stage;
}

// The frame is an output frame with both fields in it: it is shrunk as a
// whole, so a thumbnail mixes the two moments as a viewer's eye would.
void CFrameCollector::Add(const uint32_t* frame, const CfgVideo& format, int keyLevel) {
    const QImage full(reinterpret_cast<const uchar*>(frame), format.nWidth, format.nHeight,
                      format.nWidth * 4, QImage::Format_ARGB32_Premultiplied);
    const int h = std::max(1, m_nThumbWidth * format.nHeight / std::max(1, format.nWidth));
    QImage thumb = full.scaled(m_nThumbWidth, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    std::lock_guard lock(m_mutex);
    m_frames.push_back(
        {std::move(thumb), static_cast<int>(m_frames.size()) + 1, keyLevel, m_szStage});
}

std::vector<UstSheetFrame> CFrameCollector::Frames() const {
    std::lock_guard lock(m_mutex);
    return m_frames;
}

std::vector<int> PickEvenly(int total, int count) {
    std::vector<int> picks;
    if (total <= 0 || count <= 0) return picks;
    if (count == 1) return {0};
    if (total <= count) {
        for (int i = 0; i < total; ++i)
            picks.push_back(i);
        return picks;
    }
    for (int i = 0; i < count; ++i)
        picks.push_back(static_cast<int>((static_cast<int64_t>(i) * (total - 1) + (count - 1) / 2) /
                                         (count - 1)));
    return picks;
}

QImage MakeContactSheet(const std::vector<UstSheetFrame>& frames, const QString& title, int count,
                        int columns) {
    const std::vector<int> picks = PickEvenly(static_cast<int>(frames.size()), count);
    const QSize thumb = frames.empty() ? QSize(320, 180) : frames.front().thumb.size();
    const int rows = std::max(1, (static_cast<int>(picks.size()) + columns - 1) / columns);
    const int cellW = thumb.width() + MARGIN, cellH = thumb.height() + LABEL + MARGIN;
    QImage sheet(MARGIN + columns * cellW, TITLE + rows * cellH, QImage::Format_RGB32);
    sheet.fill(QColor(30, 30, 30));
    QPainter painter(&sheet);
    QFont font("DejaVu Sans");
    font.setPixelSize(14);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(MARGIN, 0, sheet.width() - 2 * MARGIN, TITLE), Qt::AlignVCenter, title);
    for (size_t i = 0; i < picks.size(); ++i) {
        const UstSheetFrame& f = frames[static_cast<size_t>(picks[i])];
        const int x = MARGIN + static_cast<int>(i % columns) * cellW;
        const int y = TITLE + static_cast<int>(i / columns) * cellH;
        const QRect area(QPoint(x, y), thumb);
        DrawChecker(painter, area);
        painter.setOpacity(f.nKeyLevel / 255.0);
        painter.drawImage(area.topLeft(), f.thumb);
        painter.setOpacity(1.0);
        painter.drawText(QRect(x, y + thumb.height(), thumb.width(), LABEL), Qt::AlignVCenter,
                         QString("#%1  %2  key %3").arg(f.nFrame).arg(f.szStage).arg(f.nKeyLevel));
    }
    return sheet;
}

}  // namespace orv::cli
