#pragma once

#include "ui/page_thumbs.h"

namespace orv {

// The "Slide" pane: every page of the active project in one column.
class CPreviewDlg : public CPageThumbs {
    Q_OBJECT
public:
    using CPageThumbs::CPageThumbs;

protected:
    UstThumbGeometry ComputeGeometry(int clientWidth, float aspect) const override {
        return ListGeometry(clientWidth, aspect);
    }
};

}  // namespace orv
