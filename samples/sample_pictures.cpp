#include "samples/sample_pictures.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <cstring>
#include <numbers>

namespace orv {

namespace {

UstPixelImage FromImage(const QImage& image) {
    const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
    UstPixelImage out;
    out.width = straight.width();
    out.height = straight.height();
    out.bits.reset(new uint32_t[static_cast<size_t>(out.width) * out.height]);
    for (int y = 0; y < out.height; ++y)
        std::memcpy(out.bits.get() + static_cast<size_t>(y) * out.width, straight.constScanLine(y),
                    static_cast<size_t>(out.width) * 4);
    return out;
}

}  // namespace

UstPixelImage MakeEmblemPicture(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF c(size / 2.0, size / 2.0);
    const double r = size / 2.0;
    // A glow that fades out to nothing at the rim.
    QRadialGradient glow(c, r);
    glow.setColorAt(0.0, QColor(90, 170, 255, 255));
    glow.setColorAt(0.62, QColor(40, 110, 230, 235));
    glow.setColorAt(0.8, QColor(20, 60, 180, 120));
    glow.setColorAt(1.0, QColor(10, 30, 120, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawEllipse(c, r, r);
    // A white ring and a four-pointed star in the middle.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(255, 255, 255, 230), size * 0.035));
    p.drawEllipse(c, r * 0.55, r * 0.55);
    QPainterPath star;
    for (int i = 0; i < 8; ++i) {
        const double a = i * std::numbers::pi / 4 - std::numbers::pi / 2;
        const double d = i % 2 == 0 ? r * 0.45 : r * 0.13;
        const QPointF q = c + QPointF(std::cos(a) * d, std::sin(a) * d);
        if (i == 0)
            star.moveTo(q);
        else
            star.lineTo(q);
    }
    star.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255));
    p.drawPath(star);
    p.end();
    return FromImage(image);
}

UstPixelImage MakeGreenScreenPicture(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor::fromRgba(SAMPLE_SCREEN_GREEN));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const double u = std::min(width, height) / 10.0;
    const QPointF sun(width * 0.38, height * 0.42);
    p.setPen(QPen(QColor(255, 170, 20), u * 0.35, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 12; ++i) {
        const double a = i * std::numbers::pi / 6;
        const QPointF d(std::cos(a), std::sin(a));
        p.drawLine(sun + d * u * 2.4, sun + d * u * 3.3);
    }
    QRadialGradient disc(sun, u * 2.1);
    disc.setColorAt(0.0, QColor(255, 240, 120));
    disc.setColorAt(1.0, QColor(255, 150, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(disc);
    p.drawEllipse(sun, u * 2.1, u * 2.1);
    // A cloud in front of the sun's lower right.
    p.setBrush(QColor(250, 250, 255));
    p.setPen(QPen(QColor(150, 160, 190), u * 0.12));
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);  // the puffs merge into one outline
    const QPointF base(width * 0.62, height * 0.68);
    for (const auto& [dx, dy, rr] :
         {std::tuple{-1.6, 0.3, 1.1}, {-0.3, -0.4, 1.5}, {1.2, 0.1, 1.2}, {2.3, 0.5, 0.8}})
        cloud.addEllipse(base + QPointF(dx * u, dy * u), rr * u, rr * u);
    p.drawPath(cloud.simplified());
    p.end();
    return FromImage(image);
}

}  // namespace orv
