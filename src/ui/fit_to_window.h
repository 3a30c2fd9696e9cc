#pragma once
// The size at which the page image is shown: the largest of a fixed series of
// steps that fits the window. The chosen step is the editor's zoom.

#include <QRect>

namespace orv {

struct UstFit {
    int nWidth = 0;
    int nHeight = 0;
    int nZoom = 100;  // percent of the page size
};

// pageKind: 0 plain, 1 vertical roll (vertical scroll bar), 2 horizontal crawl.
UstFit FitToWindow(int clientWidth, int clientHeight, int pageWidth, int pageHeight, int pageKind,
                   int scrollBarExtent);

// Where an image of the fitted size stands: centred in the client area less
// the scroll bar of a scrolling page kind.
QRect PlaceFitted(const UstFit& fit, int clientWidth, int clientHeight, int pageKind,
                  int scrollBarExtent);

}  // namespace orv
