#pragma once
// A figure on a page: one of the shape kinds drawn in a box, with the same
// face, edge, outline and shadow as text. One control point (the yellow
// handle) sets a corner radius, an arrow's neck or a slant.

#include <QPointF>

#include "objects/qrd_object.h"
#include "render/attr_records.h"
#include "render/object_image.h"

namespace orv {

constexpr uint32_t CMD_EDIT_SHAPE = 8001;
// Argument: a UstShape record.
constexpr uint32_t CMD_SHAPE_STYLE = 40053;
constexpr int SHAPE_CIRCLE = 3;

// The box a drag from start to current draws: normalised, and for a circle
// made square by growing its shorter side.
UstRect ShapeDragRect(int kind, const UstPoint& start, const UstPoint& current);

class CQRDObjectShape : public CQRDObject {
public:
    CQRDObjectShape() = default;
    // A new shape of the kind over the rectangle (view pixels).
    CQRDObjectShape(CPageContext* page, int kind, const UstRect& view, const UstAttr& attr,
                    const UstEffect& effect);

    int GetType() const override { return OBJ_SHAPE; }
    QString GetName() const override;
    bool HasAdjustPoint() const override;
    bool CanRotate() const override { return true; }
    // The blink flag lives with the shape in memory only: the shape's file
    // form has no word for it.
    bool CanBlink() const override { return true; }
    bool GetBlink() const override { return m_bBlink != 0; }
    void SetBlink(int32_t on) override { m_bBlink = on ? 1 : 0; }
    void DrawBlinkMark() override;
    bool HitTestAdjust(int x, int y) const override;
    bool Execute(const void* args, uint32_t code) override;
    void ReleaseCache() override { m_image.Reset(); }
    void OnZoom() override;
    void DrawHandles(QPainter& painter) const override;
    void Draw() override;
    void DrawTo(uint32_t* bits, int width, int height) override;
    void PrepareLiveFrame(int, int, int, int) override;
    void ResetLive(int32_t, int32_t) override { m_prepared.Reset(); }
    void FreeLive() override { m_prepared.Reset(); }
    void PrepareScrollImage(int32_t width, int32_t height) override;
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override;
    UstPoint GetLiveExtent() const override;

    // The file form.
    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectShape"; }

    // The control point in page units for the box as it stands: a box
    // resized since the point was set carries it along.
    QPointF ControlPoint() const;
    // The yellow handle's centre on the canvas, turned with the shape.
    QPointF ControlHandleCentre() const;
    // Puts the control point under a canvas point, kept inside the box.
    void DragControlTo(int x, int y);
    // A resize has ended: the carried point becomes the shape's own.
    void CommitResize();
    void SetEditing(bool on);
    bool Editing() const { return m_bEdit != 0; }
    const ObjectImage& CachedImage() const { return m_image; }

    int32_t m_nKind = 0;
    UstEffect m_effect{};
    UstAttr m_attr{};
    float m_fCtrlX = 0, m_fCtrlY = 0;  // page units, for m_rcCtrlBox
    float m_fZoom = 1.0f;
    int32_t m_bEdit = 0;
    int32_t m_bBlink = 0;

protected:
    void SaveStateBody(CByteWriter& out) const override;
    bool LoadStateBody(CByteReader& in, int flag) override;

private:
    void Render(ObjectImage& out, int boxWidth, int boxHeight, float scale, int targetHeight) const;
    bool ImageFits(int targetHeight) const;
    void SetControl(QPointF stored);
    void Changed();
    UstRect m_rcCtrlBox;  // the stored box the control point was set for
    ObjectImage m_image;  // at the zoom, box corner at (0, 0)
    int m_nImageAngle = 0, m_nImageTarget = 0;
    UstRect m_rcImageBox;
    ObjectImage m_prepared;
};

}  // namespace orv
