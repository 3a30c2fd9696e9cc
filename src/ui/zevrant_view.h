#pragma once

#include <QRect>
#include <QWidget>

#include <cstdint>
#include <vector>

#include "shell/key_routing.h"

namespace orv {

class CMainFrame;
class CZevrantDoc;

// The edit canvas: the page image at the zoom that fits the window, centred,
// on the editor's surround colour.
class CZevrantView : public QWidget {
    Q_OBJECT
public:
    CZevrantView(CMainFrame* frame, CZevrantDoc* doc, QWidget* parent = nullptr);

    CZevrantDoc* Document() const { return m_pDoc; }
    const QRect& PageRect() const { return m_rcPage; }
    const uint32_t* Surface() const { return m_pSurface.empty() ? nullptr : m_pSurface.data(); }
    int FitWidth() const { return m_nFitWidth; }
    int FitHeight() const { return m_nFitHeight; }

    // The edit options changed: rebuild the page image.
    void RefreshCanvas();

    // A play key that reached the canvas in edit state.
    void OnHotKey(const UstKeyInfo& key);

    Q_INVOKABLE void OnAutoSave();

    static constexpr QRgb SURROUND = 0xFF9099AE;  // RGB(144, 153, 174)

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void OnSize(int cx, int cy);
    void FitAndRender();
    void RenderPage();

    CMainFrame* m_pFrame;
    CZevrantDoc* m_pDoc;
    int m_nPageKind = 0;
    std::vector<uint32_t> m_pSurface;
    int m_nFitWidth = 0, m_nFitHeight = 0;
    QRect m_rcPage;
    int m_bMenuOpen = 0;
};

}  // namespace orv
