#include "ui/page_overview.h"

#include <QPainter>
#include <QVBoxLayout>

#include "playout/effect_table.h"
#include "project/page_manager.h"
#include "ui/main_frame.h"

namespace orv {

UstThumbGeometry CPageOverviewGrid::ComputeGeometry(int clientWidth, float aspect) const {
    return GridGeometry(clientWidth, aspect, IMAGE_WIDTH);
}

void CPageOverviewGrid::PaintCaption(QPainter& painter, const CPageManager& page,
                                     const QRect& rect) const {
    const QString types[] = {tr("Cut"), tr("Roll"), tr("Crawl")};
    const QString type = page.m_nPageType < 3 ? types[page.m_nPageType] : QString();
    const uint16_t language = m_pFrame ? m_pFrame->Language() : 9;
    // Roll and crawl numbers are no transitions: the page's kind says it.
    const auto name = [&](int number) {
        const QString text = EffectName(number, language);
        return !text.isEmpty() ? text : number >= 0 && number < 3 ? type : QString::number(number);
    };
    const QString effects =
        tr("In: %1  Out: %2").arg(name(page.m_effect.nInEffect), name(page.m_effect.nOutEffect));
    painter.setPen(Qt::black);
    const QRect lines = rect.adjusted(0, 2, 0, 0);
    painter.drawText(lines, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, type);
    painter.drawText(lines.adjusted(0, lines.height() / 2, 0, 0),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(effects, Qt::ElideRight, rect.width()));
}

CDlgPageOverview::CDlgPageOverview(CMainFrame* frame, QWidget* parent)
    : QDialog(parent), m_pGrid(new CPageOverviewGrid(frame, this)) {
    setObjectName("PageOverview");
    setWindowTitle(tr("Page Overview"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pGrid);
    resize(4 * (46 + CPageOverviewGrid::IMAGE_WIDTH + 14) + 20, 640);
}

}  // namespace orv
