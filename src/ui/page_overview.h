#pragma once
// "Page Overview": all pages of the active project as a grid of larger
// thumbnails, with their numbers, types and transitions, for a look over a
// whole show. Selection, moving and the transitions work as in the pane.

#include <QDialog>

#include "ui/page_thumbs.h"

namespace orv {

class CPageOverviewGrid : public CPageThumbs {
    Q_OBJECT
public:
    using CPageThumbs::CPageThumbs;
    static constexpr int IMAGE_WIDTH = 240;

protected:
    UstThumbGeometry ComputeGeometry(int clientWidth, float aspect) const override;
    void PaintCaption(QPainter& painter, const CPageManager& page,
                      const QRect& rect) const override;
};

class CDlgPageOverview : public QDialog {
    Q_OBJECT
public:
    explicit CDlgPageOverview(CMainFrame* frame, QWidget* parent = nullptr);
    CPageOverviewGrid* Grid() const { return m_pGrid; }

private:
    CPageOverviewGrid* m_pGrid;
};

}  // namespace orv
