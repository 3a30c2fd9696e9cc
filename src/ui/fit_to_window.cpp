#include "ui/fit_to_window.h"

namespace orv {

namespace {

void Margins(int pageKind, int scrollBarExtent, int& marginX, int& marginY) {
    marginX = 10;
    marginY = 10;
    if (pageKind == 1) {
        marginX = scrollBarExtent + 10;
        marginY = 0;
    } else if (pageKind == 2) {
        marginX = 0;
        marginY = scrollBarExtent + 10;
    }
}

}  // namespace

UstFit FitToWindow(int clientWidth, int clientHeight, int pageWidth, int pageHeight, int pageKind,
                   int scrollBarExtent) {
    int marginX = 0, marginY = 0;
    Margins(pageKind, scrollBarExtent, marginX, marginY);
    const int roomX = clientWidth - marginX;
    const int roomY = clientHeight - marginY;
    UstFit fit;
    if (pageWidth == 640) {
        // Standard-definition pages are shown from one and a half times up.
        for (int k = 0, w = 960; w > 448; ++k, w -= 32) {
            fit = {w, pageHeight * (150 - 5 * k) / 100, 150 - 5 * k};
            if (fit.nWidth <= roomX && fit.nHeight <= roomY) break;
        }
        return fit;
    }
    for (int k = 0; k < 16; ++k) {
        const int percent = 100 - 5 * k;
        fit = {pageWidth * percent / 100, pageHeight * percent / 100, percent};
        if (fit.nWidth <= roomX && fit.nHeight <= roomY) break;
    }
    return fit;
}

QRect PlaceFitted(const UstFit& fit, int clientWidth, int clientHeight, int pageKind,
                  int scrollBarExtent) {
    const int areaW = clientWidth - (pageKind == 1 ? scrollBarExtent : 0);
    const int areaH = clientHeight - (pageKind == 2 ? scrollBarExtent : 0);
    return QRect((areaW - fit.nWidth) / 2, (areaH - fit.nHeight) / 2, fit.nWidth, fit.nHeight);
}

}  // namespace orv
