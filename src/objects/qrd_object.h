#pragma once
// The base of everything that stands on a page: shared geometry, handles,
// hit testing and the table of operations through which the page and the
// canvas treat every object alike. Each kind overrides only what is its own.

#include <QPainter>
#include <QPolygon>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>

#include "objects/byte_stream.h"
#include "objects/page_context.h"

namespace orv {

enum EObjectType : int32_t {
    OBJ_BASE = 0,
    OBJ_TEXT = 1,
    OBJ_SHAPE = 2,
    OBJ_PICTURE = 3,
    OBJ_ANIMATION = 4,
    OBJ_TIMER = 5,
    OBJ_GROUP = 6
};

// Geometry command codes shared by every object.
enum EObjectCommand : uint32_t {
    CMD_SET_RECT = 900,
    CMD_NUDGE_RIGHT = 901,
    CMD_NUDGE_LEFT = 902,
    CMD_NUDGE_UP = 903,
    CMD_NUDGE_DOWN = 904,
    CMD_ROTATION = 905,
    CMD_BODY_PAINT = 260,
    CMD_EDGE_PAINT = 261,
    CMD_OUTLINE_PAINT = 262,
    CMD_SHADOW_PAINT = 263
};

// The effect-size commands: each replaces the whole effect record.
bool IsEffectCommand(uint32_t code);

constexpr int HANDLE_SIZE = 8;
constexpr int HANDLE_ROTATE = 8;
constexpr int HANDLE_COUNT = 9;

class CQRDObject {
public:
    CQRDObject() = default;
    explicit CQRDObject(CPageContext* page) : m_pPage(page) {}
    virtual ~CQRDObject() = default;
    CQRDObject(const CQRDObject&) = delete;
    CQRDObject& operator=(const CQRDObject&) = delete;

    // In the order of the operation table.
    virtual int GetAngle() const { return m_nAngle; }
    virtual UstRect GetBoundRect() const;
    virtual int GetType() const { return OBJ_BASE; }
    virtual bool EndEdit() { return false; }
    virtual bool IsEditing() const { return false; }
    virtual bool GetBlink() const { return false; }
    virtual bool GetTyping() const { return false; }
    virtual bool HasAdjustPoint() const { return false; }
    virtual bool HasSizeHandles() const { return true; }
    virtual bool CanRotate() const { return false; }
    virtual bool CanBlink() const { return false; }
    virtual void SetBlink(int32_t) {}
    virtual void SetTyping(int32_t) {}
    virtual void ReservedA(int32_t) {}
    virtual void ReservedB(int32_t) {}
    virtual bool HitTest(int x, int y) const;
    virtual int HitTestHandle(int x, int y) const;
    virtual bool HitTestAdjust(int, int) const { return false; }
    virtual UstRect GetInvalidRect() const;
    virtual void Attach(CPageContext* page);
    virtual void AfterLoad() {}
    virtual void ReleaseCache() {}
    virtual QString GetName() const { return {}; }
    virtual void CenterOnPage();
    virtual bool Execute(const void* args, uint32_t code);
    virtual void RecalcHandles();
    virtual void DrawHandles(QPainter& painter) const;
    virtual void DrawBlinkMark() {}
    virtual void DrawTypingMark() {}
    virtual void Draw() {}
    virtual void DrawTo(uint32_t* /*bits*/, int /*width*/, int /*height*/) {}
    // What a play frame takes of the object: as DrawTo, except for what the
    // live stage plays over the page.
    virtual void DrawForPlay(uint32_t* bits, int width, int height) { DrawTo(bits, width, height); }
    virtual void UpdateView();
    virtual void UpdateStoredMoved(int width, int height);
    virtual void UpdateStored(bool keepSize);
    virtual void OnZoom();
    virtual uint32_t GetStateSize() const;
    virtual void SaveState(CByteWriter& out) const;
    virtual bool LoadState(CByteReader& in, int flag);
    virtual void SaveStateDeep(CByteWriter& out) const { SaveState(out); }
    virtual bool LoadStateDeep(CByteReader& in) { return LoadState(in, 0); }
    virtual void PickUpAttributes() {}
    // Draws the object into the page's second blink picture: as on air,
    // but with its blinking parts left out (mode 0) or shown flat in the
    // colour (mode 1). An object that does not blink draws as on air.
    virtual void PrepareBlinkFrame(uint32_t* bits, int width, int height, int mode,
                                   uint32_t colour);
    // The live state of a Roll or Crawl page's object: cleared when a run
    // begins (with the frame's size), made whole by PrepareScrollImage, cut
    // into strips by DrawLive, freed when the run ends. Kinds that draw
    // nothing on air keep none.
    virtual void ResetLive(int32_t, int32_t) {}
    virtual void FreeLive() {}
    virtual void PrepareScrollImage(int32_t, int32_t) {}
    virtual void PrepareLiveFrame(int, int, int, int) {}
    // Draws what the object has inside the page area (left, top) to
    // (right, bottom) into a strip of width x height pixels whose corner
    // shows (left, top). Called from the strip thread.
    virtual void DrawLive(uint32_t*, int, int, int, int, int, int) {}
    virtual UstPoint GetLiveExtent() const { return {m_rcStored.right, m_rcStored.bottom}; }

    // The text an object adds to its page's text list; only text has any.
    virtual QString GetPlainText() const { return {}; }

    // Objects that show a media file by its name in the object folder take
    // the name the rename gives them: a paste into another project has put
    // a copy there.
    using MediaRename = std::function<QString(const QString&)>;
    virtual void RelinkMedia(const MediaRename&) {}

    // The class name a project file records for the object, which says how
    // its file form is written and read; null for a class that never
    // reaches a file.
    virtual const char* ArchiveClassName() const { return nullptr; }

    // The head every archived object starts with, and its reader, which
    // answers whether an old rectangle follows the class's own fields.
    void WriteArchiveHead(CByteWriter& out) const;
    bool ReadArchiveHead(CByteReader& in);
    // The head's first twelve bytes alone: version, reserved word and the
    // old-rectangle flag, for classes that put their own fields first.
    static void WriteArchiveVersion(CByteWriter& out);
    static bool ReadArchiveVersion(CByteReader& in);

    // The rectangle as the view shows it, moved by the page's scroll.
    UstRect ScrolledViewRect() const;
    // The four corners of the view rectangle turned by the angle when the
    // object rotates, scrolled as above.
    QPolygonF HitPolygon() const;
    UstPoint HandleCentre(int index) const;
    int StoredToView(int v) const;
    int ViewToStored(int v) const;

    CPageContext* m_pPage = nullptr;
    UstRect m_rcStored;
    int32_t m_nWord1 = 0;
    int32_t m_nWord2 = 1;
    int32_t m_bLocked = 0;
    int32_t m_nAngle = 0;
    UstRect m_rcOld;
    UstRect m_rcView;
    std::array<UstRect, HANDLE_COUNT> m_rcHandle{};

protected:
    // Kind, class header, words, angle and rectangles: what every packed
    // state opens with.
    void SaveStateHead(CByteWriter& out) const;
    bool LoadStateHead(CByteReader& in);
    virtual void SaveStateHeader(CByteWriter&) const {}
    virtual bool LoadStateHeader(CByteReader&) { return true; }
    virtual void SaveStateGeometry(CByteWriter& out) const;
    virtual void LoadStateGeometry(CByteReader& in);
    virtual void SaveStateBody(CByteWriter&) const {}
    virtual bool LoadStateBody(CByteReader&, int) { return true; }
    float Zoom() const { return m_pPage ? m_pPage->GetZoom() : 100.0f; }
};

// A point turned clockwise (on a y-down canvas) by degrees about a centre.
QPointF RotatePoint(QPointF p, QPointF centre, double degrees);

// The outcome of dragging a size handle: the start rectangle, the object's
// angle, the handle, and where the drag started and stands now. A turned
// object keeps the corner opposite the handle where it was on the page.
UstRect TrackHandleRect(const UstRect& start, int angle, int handle, QPoint from, QPoint to);

// The angle that puts the rotation handle under the point, 0 to 359.
int AngleToward(const UstRect& rect, QPoint point);

}  // namespace orv
