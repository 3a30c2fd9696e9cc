#pragma once
// The 90 x 48 pictures the style galleries show: drawn here, saved as 24-bit
// BMP files whose resolution fields repeat the pixel size, under a
// timestamp name in the style's folder.

#include <QDateTime>
#include <QImage>
#include <QString>
#include <QStringList>

#include <functional>

#include "render/style_records.h"

namespace orv {

constexpr int STYLE_THUMB_WIDTH = 90;
constexpr int STYLE_THUMB_HEIGHT = 48;

using StyleClock = std::function<QDateTime()>;
QDateTime StyleClockNow();

// A timestamp free for every suffix in the folder (a name with each suffix
// behind it must not exist), after up to five tries a millisecond apart;
// empty when all five were taken.
QString FreeStyleName(const QString& folder, const QStringList& suffixes,
                      const StyleClock& clock = StyleClockNow);

// Saves a thumbnail-sized image (any format) as the 24-bit BMP.
bool SaveStyleThumb(const QImage& image, const QString& file);

// The pictures themselves, opaque, 90 x 48.
QImage DrawTextThumbnail(const UstText& style, bool korean);
QImage DrawShapeThumbnail(const UstShape& style);
QImage DrawColorThumbnail(const UstColor& style);

// Draw, save under a free name in the folder and store that name in the
// record; false, with nothing written, on failure.
bool MakeTextThumbnail(UstText& style, const QString& folder, bool korean,
                       const StyleClock& clock = StyleClockNow);
bool MakeShapeThumbnail(UstShape& style, const QString& folder,
                        const StyleClock& clock = StyleClockNow);
bool MakeColorThumbnail(UstColor& style, const QString& folder,
                        const StyleClock& clock = StyleClockNow);

}  // namespace orv
