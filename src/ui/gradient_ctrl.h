#pragma once

#include <QWidget>

#include <algorithm>

#include "render/gradient.h"

namespace orv {

// The gradient bar: the colours of the gradient one column per pixel, with
// its pegs as triangles below. Click selects, drag moves, double click adds
// a peg of the current colour, Delete removes, the arrows nudge.
class CGradientCtrl : public QWidget {
    Q_OBJECT
public:
    static constexpr int MARGIN = 5;
    static constexpr int MIN_BAR = 11;

    explicit CGradientCtrl(QWidget* parent = nullptr);
    CGradient& Gradient() { return m_gradient; }
    int Selected() const { return m_nSelected; }
    void SetSelected(int index);
    void SetCurrentColour(uint32_t colorref) { m_nCurrentColour = colorref; }
    QSize minimumSizeHint() const override { return {MIN_BAR + 2 * MARGIN, 36}; }

    // Position along the bar for a widget x, and back.
    float PositionAt(int x) const;
    int XAt(float position) const;

Q_SIGNALS:
    void SelectionChanged(int index);
    void PegAdded(int index);
    void PegsChanged();

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int PegUnder(int x) const;
    int BarLength() const { return std::max(MIN_BAR, width() - 2 * MARGIN); }

    CGradient m_gradient;
    int m_nSelected = CGradient::PEG_NONE;
    uint32_t m_nCurrentColour = 0;
    bool m_bDragging = false;
};

}  // namespace orv
