#pragma once
// The background and picture libraries: plain folders where each entry is
// an image under a timestamp name and its thumbnail, the same timestamp
// with "_TB.BMP" behind it.

#include <QString>
#include <QStringList>

#include "project/style_thumbs.h"

namespace orv {

// Whether the file may stand as a gallery thumbnail: exactly 90 x 48 and 24
// bits a pixel. A BMP is judged by its header; other types by their decoded
// pixels (three opaque channels of eight bits).
bool IsStyleThumbnail(const QString& file);

// Fills the two lists of a library: the images sorted ascending, and beside
// each its thumbnail's name, or an empty name when it has no usable one.
// Pairing by name rather than by two sorted lists keeps an image and its
// picture together when a thumbnail is missing or was refused.
void ScanPictureFolder(const QString& folder, QStringList& thumbList, QStringList& imageList);

// The 90 x 48 thumbnail of an image file, scaled over the whole area; a
// null image when the file cannot be read or has no pixels.
QImage DrawPictureThumbnail(const QString& source);

// Copies the source into the folder under a free timestamp name and makes
// its thumbnail. Names are the new files' names in the folder; false, with
// nothing left behind, on any failure.
bool AddPictureStyle(const QString& folder, const QString& source, QString& outImage,
                     QString& outThumb, const StyleClock& clock = StyleClockNow);

// One library in memory, its lists kept aligned.
class CPictureLibrary {
public:
    explicit CPictureLibrary(QString folder) : m_strFolder(std::move(folder)) {}
    const QString& Folder() const { return m_strFolder; }
    void Scan() { ScanPictureFolder(m_strFolder, m_thumbs, m_images); }
    int Count() const { return static_cast<int>(m_images.size()); }
    QString ImagePath(int index) const;
    QString ThumbPath(int index) const;  // empty when the entry has none
    // The index of the new entry, or -1.
    int Add(const QString& source, const StyleClock& clock = StyleClockNow);
    // Deletes both files; false when the image could not be deleted.
    bool Delete(int index);

private:
    QString m_strFolder;
    QStringList m_thumbs, m_images;
};

}  // namespace orv
