#pragma once
// A page's background picture. The file name and the flag are what the
// page keeps; the pixels exist only while the page is on the canvas.

#include <QString>

#include <cstdint>
#include <vector>

namespace orv {

class CFileLinkTable;
class CPageManager;

enum class EBackgroundLoad {
    LOADED,
    UNSUPPORTED,  // not a picture type: the pixels are dropped, name and flag kept
    FAILED        // the copy or the decoding failed: name and flag cleared
};

class CPageBackground {
public:
    // Copies the source into the object folder and loads it.
    EBackgroundLoad Insert(const QString& source, const QString& objectFolder,
                           CFileLinkTable& links);
    // Reloads the pixels of the named file at activation. A file that has
    // gone clears name and flag quietly; answers whether pixels are there.
    bool Reload(const QString& objectFolder);
    void ReleasePixels();
    void Clear();
    bool HasPixels() const { return !pBits.empty(); }
    // A TGA is blended over what lies under it; anything else covers it.
    bool IsBlended() const;

    // The picture scaled to w x h. The last two sizes asked for are kept:
    // the canvas's and the frame's, for the page image.
    // Straight for a blended background, opaque otherwise; null without
    // pixels.
    const uint32_t* Surface(int w, int h);
    // Into a play frame: covering, premultiplied.
    void DrawForPlay(uint32_t* bits, uint32_t* keyBits, int w, int h) const;

    CPageManager* pPage = nullptr;
    int nWidth = 0, nHeight = 0;
    std::vector<uint32_t> pBits;
    QString strFile;
    int32_t bPresent = 0;

private:
    bool LoadPixels(const QString& path);
    struct UstSurface {
        std::vector<uint32_t> bits;
        int width = 0, height = 0;
    };
    UstSurface m_surfaces[2];
};

}  // namespace orv
