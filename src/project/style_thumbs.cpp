#include "project/style_thumbs.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QThread>

#include <vector>

#include "media/timestamp_name.h"
#include "render/fill_brush.h"
#include "render/fixed_string.h"
#include "render/image_file.h"
#include "render/object_image.h"
#include "render/shape_image.h"
#include "render/text_image.h"
#include "render/text_measure.h"

namespace orv {

namespace {

constexpr uint32_t HATCH_FORE = 0xFF808080, HATCH_BACK = 0xFF0000FF;
constexpr int SAMPLE_SIZE = 26;
constexpr int KOREAN_GAP = 10;
constexpr char16_t HANGUL_HAN = 0xD55C;

QImage HatchedCanvas() {
    QImage image(STYLE_THUMB_WIDTH, STYLE_THUMB_HEIGHT, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.fillRect(image.rect(), HatchBrush(22, HATCH_FORE, HATCH_BACK));
    return image;
}

UstCharAttr SampleChar(const UstText& style, uint32_t code) {
    UstCharAttr c = style.character;
    c.nChar = code;
    c.font.nSize = SAMPLE_SIZE;
    MeasureChar(c, true);
    return c;
}

template <class R, class Draw>
bool MakeThumb(R& style, const QString& folder, const StyleClock& clock, Draw draw) {
    const QString name = FreeStyleName(folder, {".BMP"}, clock);
    if (name.isEmpty()) return false;
    const QString file = name + ".BMP";
    if (!SaveStyleThumb(draw(), QDir(folder).filePath(file))) return false;
    QStringToFixed(file, &style.szThumb);
    return true;
}

}  // namespace

QDateTime StyleClockNow() {
    return QDateTime::currentDateTime();
}

QString FreeStyleName(const QString& folder, const QStringList& suffixes, const StyleClock& clock) {
    const QDir dir(folder);
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (attempt > 0) QThread::msleep(1);
        const QString name = TimestampName(clock());
        bool free = true;
        for (const QString& suffix : suffixes)
            free = free && !QFileInfo::exists(dir.filePath(name + suffix));
        if (free) return name;
    }
    return {};
}

bool SaveStyleThumb(const QImage& image, const QString& file) {
    if (image.isNull()) return false;
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    std::vector<uint32_t> bits(static_cast<size_t>(rgb.width()) * rgb.height());
    for (int y = 0; y < rgb.height(); ++y)
        std::memcpy(bits.data() + static_cast<size_t>(y) * rgb.width(), rgb.constScanLine(y),
                    static_cast<size_t>(rgb.width()) * 4);
    // The resolution repeats the pixel size on purpose: galleries elsewhere
    // read it back that way.
    return SaveBmp24(bits.data(), rgb.width(), rgb.height(), rgb.width(), rgb.height(), file);
}

QImage DrawTextThumbnail(const UstText& style, bool korean) {
    QImage image = HatchedCanvas();
    std::vector<UstCharAttr> chars{SampleChar(style, 'A')};
    if (korean) chars.push_back(SampleChar(style, HANGUL_HAN));
    int width = 0, height = 0;
    for (const UstCharAttr& c : chars) {
        width += c.nBoxWidth;
        height = std::max(height, int{c.nBoxHeight});
    }
    width += KOREAN_GAP * (static_cast<int>(chars.size()) - 1);
    float x = static_cast<float>(STYLE_THUMB_WIDTH - width) / 2.0f;
    QPainter painter(&image);
    for (const UstCharAttr& c : chars) {
        const float y = static_cast<float>(STYLE_THUMB_HEIGHT - c.nBoxHeight) / 2.0f;
        ObjectImage out;
        RenderSingleGlyph(out, c, style.effect, style.attr, x, y, 1.0f, 1.0f, &painter);
        x += static_cast<float>(c.nBoxWidth + KOREAN_GAP);
    }
    return image;
}

QImage DrawShapeThumbnail(const UstShape& style) {
    QImage image = HatchedCanvas();
    QPainter painter(&image);
    ObjectImage out;
    RenderShapeImage(out, 0, 20, 12, 70, 36, style.effect, style.attr, 0.0f, 0.0f, 0, 1.0f, 1.0f,
                     &painter);
    return image;
}

QImage DrawColorThumbnail(const UstColor& style) {
    QImage image(STYLE_THUMB_WIDTH, STYLE_THUMB_HEIGHT, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    UstBrushSlot slot;
    const UstRect rect{0, 0, STYLE_THUMB_WIDTH, STYLE_THUMB_HEIGHT};
    CreateFillBrush(slot, style.fill, rect, nullptr, 1.0f, 1.0f);
    QPainter painter(&image);
    painter.fillRect(image.rect(), slot.brush);
    return image;
}

bool MakeTextThumbnail(UstText& style, const QString& folder, bool korean,
                       const StyleClock& clock) {
    return MakeThumb(style, folder, clock, [&] { return DrawTextThumbnail(style, korean); });
}

bool MakeShapeThumbnail(UstShape& style, const QString& folder, const StyleClock& clock) {
    return MakeThumb(style, folder, clock, [&] { return DrawShapeThumbnail(style); });
}

bool MakeColorThumbnail(UstColor& style, const QString& folder, const StyleClock& clock) {
    return MakeThumb(style, folder, clock, [&] { return DrawColorThumbnail(style); });
}

}  // namespace orv
