#include "ui/radio_fill_color.h"

#include <QPainter>

#include <cmath>
#include <cstring>

#include "render/fill_brush.h"
#include "render/fixed_string.h"
#include "render/image_file.h"
#include "render/pixels.h"

namespace orv {

CRadioFillColor::CRadioFillColor(const QString& caption, QWidget* parent)
    : QAbstractButton(parent), m_fill(MakeBlankAttr().fill[0]) {
    setText(caption);
    setCheckable(true);
    setAutoExclusive(true);
    setFixedSize(WIDTH, HEIGHT);
    m_swatch = Swatch(m_fill);
}

void CRadioFillColor::SetFill(const UstFill& fill) {
    m_fill = fill;
    m_swatch = Swatch(fill);
    update();
}

QImage CRadioFillColor::Swatch(const UstFill& source) {
    QImage image(WIDTH, HEIGHT, QImage::Format_ARGB32);
    image.fill(0);
    UstFill fill = source;
    if (fill.nType == 2) {
        const QString file = FixedToQString(&fill.szImage);
        const UstPixelImage texture =
            IsImageExtension(file) ? LoadImageFile(file) : UstPixelImage{};
        if (texture) {
            ScalePixelRect(reinterpret_cast<uint32_t*>(image.bits()), {0, 0, WIDTH, HEIGHT},
                           texture.bits.get(), {0, 0, texture.width, texture.height}, 2);
        } else {
            QPainter p(&image);
            p.fillRect(image.rect(), HatchBrush(44, 0xFF2C99FFu, 0xFFFFFFFFu));
        }
        return image;
    }
    QPainter p(&image);
    if (fill.nType == 1) {
        for (uint32_t& c : fill.clrStop)
            c |= 0xFF000000u;
        QPainterPath box;
        box.addRect(0, 0, WIDTH, HEIGHT);
        UstBrushSlot slot;
        CreateFillBrush(slot, fill, {0, 0, WIDTH, HEIGHT}, &box, 1.0f, 1.0f);
        p.fillRect(image.rect(), slot.brush);
    } else {
        p.fillRect(image.rect(), QColor::fromRgb(fill.clrSolid | 0xFF000000u));
    }
    return image;
}

uint32_t CRadioFillColor::CaptionColour(const UstFill& fill) {
    if (fill.nType == 2) return 0xFF000000u;
    const uint32_t base = fill.nType == 1 ? fill.clrStop[0] : fill.clrSolid;
    const uint32_t inverse = ~base & 0x00FFFFFFu;
    double d = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const double c = static_cast<double>((base >> shift) & 255);
        const double i = static_cast<double>((inverse >> shift) & 255);
        d += (c - i) * (c - i);
    }
    return std::sqrt(d) < 100.0 ? 0xFF000000u : (0xFF000000u | inverse);
}

void CRadioFillColor::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.drawImage(0, 0, m_swatch);
    const QColor frames[3] = {isChecked() ? Qt::red : Qt::black,
                              isChecked() ? Qt::black : Qt::white, Qt::white};
    const int rings = isChecked() ? 3 : 2;
    for (int i = 0; i < rings; ++i) {
        p.setPen(frames[i]);
        p.drawRect(QRect(i, i, WIDTH - 1 - 2 * i, HEIGHT - 1 - 2 * i));
    }
    p.setPen(QColor::fromRgba(CaptionColour(m_fill)));
    p.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace orv
