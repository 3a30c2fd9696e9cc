#pragma once
// A picture on a page: an image file from the project's object folder scaled
// to its box, with a whole-picture alpha and an optional key colour. The
// finished image is kept, so that scaling, keying and turning run only after
// something changed.

#include "objects/qrd_object.h"
#include "render/attr_records.h"
#include "render/object_image.h"
#include "render/tga_file.h"

namespace orv {

enum EPictureCommand : uint32_t {
    CMD_START_KEYING = 720,
    CMD_PICTURE_ALPHA = 722,
    CMD_RESET_KEY = 740,
    CMD_KEY_COLOUR = 1011
};

class CQRDObjectPicture : public CQRDObject {
public:
    void RelinkMedia(const MediaRename& rename) override;
    CQRDObjectPicture() = default;
    // A picture of the named file in the page's object folder, whose source
    // is sourceWidth x sourceHeight; its box stands at the page's origin.
    CQRDObjectPicture(CPageContext* page, const QString& fileName, int sourceWidth,
                      int sourceHeight, const UstAttr& attr, const UstEffect& effect);

    int GetType() const override { return OBJ_PICTURE; }
    QString GetName() const override { return QStringLiteral("Picture"); }
    bool CanRotate() const override { return true; }
    bool EndEdit() override;
    bool Execute(const void* args, uint32_t code) override;
    void ReleaseCache() override;
    void OnZoom() override;
    void Draw() override;
    void DrawTo(uint32_t* bits, int width, int height) override;
    void PrepareLiveFrame(int, int, int, int) override;
    void ResetLive(int32_t, int32_t) override { m_prepared.Reset(); }
    void FreeLive() override { m_prepared.Reset(); }
    void PrepareScrollImage(int32_t width, int32_t height) override;
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override;
    UstPoint GetLiveExtent() const override;

    // Keying: the next click on the canvas picks the colour.
    void StartKeying() { m_bPicking = 1; }
    bool IsPicking() const { return m_bPicking != 0; }
    // Clears the key; true when the picture was keyed.
    bool ResetKey();

    // Gives the picture its source pixels directly, for pictures made in
    // memory; the file name is then only a label.
    void SetSource(UstPixelImage source);
    // The source as read from the object folder, or null when it cannot be.
    const uint32_t* Source();
    // The image the canvas shows, made if needed; empty when there is none.
    const ObjectImage& CanvasImage();

    // The file form.
    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectPicture"; }

    QString m_strFile;
    int32_t m_bKeying = 0;
    uint32_t m_crKey = 0;
    int32_t m_nAlpha = 255;
    UstEffect m_effect{};
    UstAttr m_attr{};
    int32_t m_bPicking = 0;
    int32_t m_nSourceWidth = 0, m_nSourceHeight = 0;
    float m_fZoom = 1.0f;

protected:
    void SaveStateBody(CByteWriter& out) const override;
    bool LoadStateBody(CByteReader& in, int flag) override;

private:
    bool Render(ObjectImage& out, int boxWidth, int boxHeight, float scale, int targetHeight);
    bool ImageFits(const ObjectImage& image, const UstRect& box, int targetHeight) const;
    // The image at full scale, kept for the page image and play.
    const ObjectImage& FullImage(int frameHeight);
    void Changed();

    UstPixelImage m_source;
    bool m_bSourceTried = false;  // a missing file is not looked for on every draw
    ObjectImage m_image;          // at the zoom, box corner at (0, 0)
    UstRect m_rcImageBox;
    int m_nImageAngle = 0, m_nImageTarget = 0;
    ObjectImage m_full;  // at scale 1
    UstRect m_rcFullBox;
    int m_nFullAngle = 0, m_nFullTarget = 0;
    ObjectImage m_prepared;
};

}  // namespace orv
