#include "ui/gradient_ctrl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace orv {

namespace {
constexpr int BAR_HEIGHT = 20;

QColor FromColorRef(uint32_t c) {
    return QColor(c & 255, (c >> 8) & 255, (c >> 16) & 255);
}
}  // namespace

CGradientCtrl::CGradientCtrl(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(minimumSizeHint());
}

float CGradientCtrl::PositionAt(int x) const {
    return std::clamp(static_cast<float>(x - MARGIN) / static_cast<float>(BarLength() - 1), 0.0f,
                      1.0f);
}

int CGradientCtrl::XAt(float position) const {
    return MARGIN + static_cast<int>(std::lround(position * (BarLength() - 1)));
}

void CGradientCtrl::SetSelected(int index) {
    if (index == m_nSelected) return;
    m_nSelected = index;
    update();
    Q_EMIT SelectionChanged(index);
}

int CGradientCtrl::PegUnder(int x) const {
    for (int i = 0; i < m_gradient.PegCount(); ++i)
        if (std::abs(XAt(m_gradient.GetPeg(i).position) - x) <= 4) return i;
    if (std::abs(XAt(0.0f) - x) <= 4) return CGradient::PEG_START;
    if (std::abs(XAt(1.0f) - x) <= 4) return CGradient::PEG_END;
    return CGradient::PEG_NONE;
}

void CGradientCtrl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int length = BarLength();
    const std::vector<uint8_t> entries = m_gradient.MakeEntries(length);
    for (int i = 0; i < length; ++i) {
        const size_t k = static_cast<size_t>(i) * 3;
        p.setPen(QColor(entries[k], entries[k + 1], entries[k + 2]));
        p.drawLine(MARGIN + i, 0, MARGIN + i, BAR_HEIGHT - 1);
    }
    auto peg = [&](int index, float position) {
        const int x = XAt(position);
        const QPolygon triangle({QPoint(x, BAR_HEIGHT + 1), QPoint(x - 4, BAR_HEIGHT + 9),
                                 QPoint(x + 4, BAR_HEIGHT + 9)});
        p.setPen(index == m_nSelected ? Qt::red : Qt::black);
        p.setBrush(FromColorRef(m_gradient.GetPeg(index).colour));
        p.drawPolygon(triangle);
    };
    peg(CGradient::PEG_START, 0.0f);
    peg(CGradient::PEG_END, 1.0f);
    for (int i = 0; i < m_gradient.PegCount(); ++i)
        peg(i, m_gradient.GetPeg(i).position);
}

void CGradientCtrl::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int x = static_cast<int>(event->position().x());
    SetSelected(PegUnder(x));
    m_bDragging = m_nSelected >= 0;
}

void CGradientCtrl::mouseMoveEvent(QMouseEvent* event) {
    if (!m_bDragging || m_nSelected < 0) return;
    const CPeg& peg = m_gradient.GetPeg(m_nSelected);
    const int index = m_gradient.SetPeg(m_nSelected, peg.colour,
                                        PositionAt(static_cast<int>(event->position().x())));
    m_nSelected = index;
    update();
    Q_EMIT PegsChanged();
}

void CGradientCtrl::mouseDoubleClickEvent(QMouseEvent* event) {
    const int index =
        m_gradient.AddPeg(m_nCurrentColour, PositionAt(static_cast<int>(event->position().x())));
    if (index < 0) return;  // fourteen pegs already
    SetSelected(index);
    Q_EMIT PegAdded(index);
    Q_EMIT PegsChanged();
}

void CGradientCtrl::keyPressEvent(QKeyEvent* event) {
    if (m_nSelected < 0) return QWidget::keyPressEvent(event);
    const CPeg peg = m_gradient.GetPeg(m_nSelected);
    const float step = 1.0f / static_cast<float>(BarLength() - 1);
    if (event->key() == Qt::Key_Delete) {
        m_gradient.RemovePeg(m_nSelected);
        SetSelected(CGradient::PEG_NONE);
    } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        const float to = peg.position + (event->key() == Qt::Key_Left ? -step : step);
        m_nSelected = m_gradient.SetPeg(m_nSelected, peg.colour, to);
    } else {
        return QWidget::keyPressEvent(event);
    }
    update();
    Q_EMIT PegsChanged();
}

}  // namespace orv
