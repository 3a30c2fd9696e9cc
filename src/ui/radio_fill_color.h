#pragma once

#include <QAbstractButton>
#include <QImage>

#include "render/attr_records.h"

namespace orv {

// The 50 x 20 button that shows one layer's fill: its colour, gradient or
// texture, with the caption in a colour that stands out from it.
class CRadioFillColor : public QAbstractButton {
    Q_OBJECT
public:
    static constexpr int WIDTH = 50, HEIGHT = 20;

    explicit CRadioFillColor(const QString& caption, QWidget* parent = nullptr);
    void SetFill(const UstFill& fill);
    const UstFill& Fill() const { return m_fill; }
    QSize sizeHint() const override { return {WIDTH, HEIGHT}; }

    // The fill drawn into a straight 50 x 20 picture.
    static QImage Swatch(const UstFill& fill);
    // The inverse of the solid or first stop colour, or black when that is
    // too close to it (or for a texture). 0xAARRGGBB.
    static uint32_t CaptionColour(const UstFill& fill);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    UstFill m_fill;
    QImage m_swatch;
};

}  // namespace orv
