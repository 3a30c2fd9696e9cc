#pragma once
// One page of a project: its objects in z-order, the selection, its type and
// play settings, its scroll position, and the one command routine through
// which every edit of its objects passes.

#include <QString>

#include <memory>
#include <vector>

#include "objects/qrd_object.h"
#include "objects/text_object.h"
#include "project/page_background.h"
#include "project/page_data.h"
#include "project/page_host.h"
#include "project/page_records.h"

class QMimeData;

namespace orv {

enum EPageCommand : uint32_t {
    CMD_ALIGN_RIGHT = 500,
    CMD_ALIGN_LEFT = 501,
    CMD_ALIGN_TOP = 502,
    CMD_ALIGN_BOTTOM = 503,
    CMD_CENTRE = 504,
    CMD_CENTRE_H = 505,
    CMD_CENTRE_V = 506,
    CMD_TO_LEFT = 507,
    CMD_TO_RIGHT = 508,
    CMD_TO_TOP = 509,
    CMD_TO_BOTTOM = 510,
    CMD_INSERT_BACKGROUND = 240,
    CMD_ERASE_BACKGROUND = 241,
    CMD_INSERT_PICTURE = 243,
    CMD_INSERT_ANIMATION = 245,
    CMD_INSERT_TIMER = 246,
    CMD_TIMER_PROPERTIES = 40024,
    CMD_INSERT_BACKGROUND_FILE = 40050,
    CMD_INSERT_PICTURE_FILE = 40051,
    CMD_PAGE_TYPE = 736,
    CMD_DELETE = 805,
    CMD_TO_FRONT = 1500,
    CMD_TO_BACK = 1501,
    CMD_FORWARD = 1502,
    CMD_BACKWARD = 1503,
    CMD_SPLIT_LINES = 40022,
    CMD_SPLIT_CHARS = 40023
};

enum EHitResult : int {
    HIT_SIZE_FIRST = 0,
    HIT_SIZE_LAST = 7,
    HIT_ROTATE = 8,
    HIT_ADJUST = 9,
    HIT_SIZE_MANY = 10,
    HIT_NONE_EMPTY = 11,
    HIT_NONE_CLEARED = 12,
    HIT_SELECTED = 13,
    HIT_NEWLY_SELECTED = 14,
    HIT_OTHER = 15
};

class CArchiveIn;
class CArchiveOut;
class CQRDObjectAni;
class CQRDObjectGroup;
struct UstAniPlay;
class CQRDObjectPicture;
class CQRDObjectShape;
class CQRDObjectTC;
struct UstTCSetting;

class CPageManager : public CPageContext {
public:
    CPageManager();
    CPageManager(CPageDoc* doc, CPageView* view);
    ~CPageManager() override;

    // CPageContext, for the objects.
    float GetZoom() const override;
    UstPoint GetScrollOrigin() const override { return {m_nScrollX, m_nScrollY}; }
    UstPoint GetCanvasOrigin() const override { return {m_nOriginX, m_nOriginY}; }
    int GetCanvasWidth() const override { return m_nWidth; }
    int GetCanvasHeight() const override { return m_nHeight; }
    uint32_t* GetCanvasBits() override { return m_pCanvas; }
    void ObjectRemovedItself(CQRDObject* object) override;
    void ScrollToShow(const UstRect& r) override;
    QString ObjectFolder() const override;
    CTextEditHost* EditHost() const override { return m_pView ? m_pView->EditHost() : nullptr; }
    CQRDObjectText* EditingText() const override { return m_pEditingText; }
    void SetEditingText(CQRDObjectText* text) override { m_pEditingText = text; }

    // The page body of the project file. Reading throws on damage and
    // leaves the page unfit for use; the caller drops it.
    void Serialize(CArchiveOut& ar) const;
    void Deserialize(CArchiveIn& ar);
    // After a save: a changed page's thumbnail goes to its file, and the
    // page counts as saved once it is there.
    void StoreThumbnail();
    // Before a save: a changed page made while the project had no folder
    // gets its thumbnail file now.
    void EnsureThumbFile();
    QString ThumbPath() const;

    // The undo form: the page without version words, blink or typing
    // settings. Loading replaces the objects and brings the page up to
    // date; it throws on damage and then leaves the page as it was.
    void SerializeSnapshot(CArchiveOut& ar) const;
    void SerializeSnapshot(CArchiveIn& ar);

    // The flat record of the page clipboard: a fixed part and each
    // object's deep state. Reading answers false, with the page untouched,
    // on anything it cannot use; the background named is only looked for
    // by FindPastedBackground, once the page belongs to its project.
    uint32_t GetFlatSize() const;
    void WriteFlat(CByteWriter& out) const;
    bool ReadFlat(CByteReader& in);
    // The same for a private copy: the background taken as it stands and
    // objects read in their deep form.
    bool ReadFlatClone(CByteReader& in);
    // The background of a pasted page: looked for in the folder the page
    // came from, then as a plain name; found, it is copied into this
    // project, else the page has none.
    void FindPastedBackground(const QString& sourceFolder);

    // Objects from the object format onto this page, on top and selected
    // when it is the page on the canvas; media of another project's folder
    // copied into this one. The count added: 0, with the page untouched,
    // when the block cannot be used.
    int AddObjectsFromFlat(const std::vector<uint8_t>& block, const QString& sourceFolder,
                           bool activePage);
    // A new text of the characters, line feeds dropped; false for nothing.
    bool AddTextFromClipboard(const QString& text, bool activePage);
    // The selection in the object format; false when nothing can be copied.
    bool CopySelection(QMimeData& mime) const;
    // After a paste: text list, thumbnail, modified; a page off the canvas
    // lets go of its caches.
    void FinishPaste(bool activePage);

    void Attach(CPageDoc* doc, CPageView* view);
    int ExecCommand(const void* arg, uint32_t id, CQRDObject* target = nullptr);
    int SetEffectValue(const void* value, uint32_t id);
    // What play control asks of a page before it takes it to air: a blinking
    // object anywhere (groups included) asks for the blink; an animation on
    // a Cut page with objects asks for the live stage.
    bool HasBlinkObject() const;
    bool HasTypingObject() const;
    // The texts with the typing flag, head to tail, groups included.
    std::vector<CQRDObjectText*> TypingTexts() const;
    bool HasAnimation() const;
    // Objects in `kept` are the page's own from before, already sized for
    // the view: they keep the layers they have drawn.
    void Activate(bool keepBackground, const std::vector<const CQRDObject*>& kept = {});
    void Deactivate();
    // The view's canvas changed size or zoom: take the new frame and redraw.
    void OnViewResized();

    void RenderCanvas() { RenderCanvasExcept(nullptr); }
    void RenderCanvasExcept(const CQRDObject* except);
    void DrawHandles();
    void Repaint();
    void UpdateThumbnail();
    // The page at full scale into a cleared block of w x h, as it would go
    // to air: the background, then what each object draws for play. A scroll
    // page gives its first screen.
    void DrawToImage(uint32_t* bits, int w, int h);
    // A frame for play: the background, then the objects, into buffer A;
    // with buffer B, the same page without its blinking parts (or with them
    // in the blink colour) into B as well. The caller has cleared both.
    // withTimers false leaves the page's own timers out, for the play
    // engine that runs them over the picture.
    void DrawForPlay(uint32_t* bits, uint32_t* blinkBits, int w, int h, bool withTimers = true);
    void RebuildPageText(bool measure);
    void SetModified(bool modified);
    void PushUndo(int kind);
    void DeleteSelection();

    // Text editing on this page. The edited text if it stands here.
    CQRDObjectText* EditedText() const;
    // Ends the edit: a text left blank goes, anything else is one undo step.
    void EndTextEdit();
    // Typing: the other objects from their kept layers, the text on top,
    // and only the union of before and now shown again.
    void RedrawEditing(const UstRect& windowBefore);

    // The first text object, head to tail and behind `after` when given,
    // whose text holds the key. Without matchCase the caller has lower-cased
    // the key, and each text is compared in lower case.
    CQRDObject* FindText(const QString& key, bool matchCase, const CQRDObject* after) const;

    CQRDObject* HitTestObject(int x, int y) const;
    int HitTestHandles(int x, int y, CQRDObject** outObject);
    int ScrollToRect(int left, int top, int right, int bottom);
    void SetScrollY(int pos);
    void SetScrollX(int pos);
    bool IsScrollPage() const { return m_nPageType == 1 || m_nPageType == 2; }
    int GetStripCount(int* outPad, int w, int h) const;
    // A Roll or Crawl run: every object's live state is cleared when it
    // begins and freed when it ends; in between DrawForPlay makes it and
    // DrawStrip cuts strip `index` (one frame of w x h, counted from the
    // page's top or left) out of it, over what `bits` holds.
    void BeginScroll(int w, int h);
    void EndScroll();
    void DrawStrip(int index, uint32_t* bits, int w, int h) const;

    // Pictures and backgrounds, as their commands do them: a picture from a
    // file, selected alone, or null when the file cannot be used.
    CQRDObjectPicture* InsertPicture(const QString& source);
    // An animation from an ANI32, QRDANI or video file, at the file's frame
    // size with its first frame as the still, selected alone; null when no
    // source reads the file.
    CQRDObjectAni* InsertAnimation(const QString& source);
    // The same objects made, with their media copied, but not yet placed.
    std::unique_ptr<CQRDObjectPicture> MakePicture(const QString& source);
    std::unique_ptr<CQRDObjectAni> MakeAnimation(const QString& source);
    // The play count of the selected animation.
    int AnimationProperties(const void* repeat);
    // A new timer or clock from the dialog's record, the only selection.
    CQRDObjectTC* InsertTimer(const UstTCSetting& setting);
    // New settings for the one selected timer.
    int TimerProperties(const void* setting);
    // One entry for each animation of the page, groups included, whose file
    // is there, its box scaled from the project's frame to w x h.
    void CollectAnimations(std::vector<UstAniPlay>& out, int w, int h) const;
    int InsertBackground(const QString& source);
    // A page that is not on the canvas takes a background already in the
    // object folder, and its image is made anew.
    void TakeBackgroundFile(const QString& name);
    int EraseBackground();
    // The selected picture waiting for a click that picks its key colour.
    CQRDObjectPicture* PickingPicture() const;
    // Binding the selection into one group, and dissolving the selected group.
    CQRDObjectGroup* GroupSelection();
    int UngroupSelection();

    // Adding and selecting, for the commands that create objects and the
    // canvas's gestures.
    CQRDObject* AddObject(std::unique_ptr<CQRDObject> object);
    // A new object on top, selected alone and drawn, as one undo step.
    CQRDObject* InsertNew(std::unique_ptr<CQRDObject> object);
    // A new shape of the kind over the rectangle (page pixels at the zoom),
    // selected alone, as one undo step; null for an empty rectangle.
    CQRDObjectShape* AddShape(int kind, const UstRect& view, const UstAttr& attr,
                              const UstEffect& effect);
    bool IsSelected(const CQRDObject* object) const;
    void Select(CQRDObject* object);
    void Unselect(CQRDObject* object);
    void ToggleSelection(CQRDObject* object);
    void ClearSelection() { m_selection.clear(); }
    void SelectOnly(CQRDObject* object);
    // The union of the selection's bounding rectangles in window pixels.
    UstRect SelectionWindowRect() const;
    // A gesture changed objects directly: redraw, and finish like a command.
    void FinishGesture(const UstRect& before);

    // Enable states for the ribbon.
    bool OneSelectedOfKind(int kind) const;
    bool AnySelectedOfKind(int kind) const;
    bool ManySelected() const { return m_selection.size() > 1; }
    bool OneSelected() const { return m_selection.size() == 1; }
    bool AnySelected() const { return !m_selection.empty(); }
    bool SelectedIsEditing() const;
    bool CanCopy() const;

    const std::vector<std::unique_ptr<CQRDObject>>& Objects() const { return m_objects; }
    const std::vector<CQRDObject*>& Selection() const { return m_selection; }
    const std::vector<uint32_t>& ThumbBits() const { return m_pThumbBits; }

    int32_t m_nScrollX = 0;
    int32_t m_nScrollY = 0;
    int32_t m_nWidth = 0;
    int32_t m_nHeight = 0;
    int32_t m_nOriginX = 0;
    int32_t m_nOriginY = 0;
    UstRect m_rcFrame;
    uint32_t* m_pCanvas = nullptr;
    CPageView* m_pView = nullptr;
    CPageDoc* m_pDoc = nullptr;
    int32_t m_nThumbWidth = 300;
    int32_t m_nThumbHeight = 170;
    uint32_t m_nPageType = 0;
    UstPageEffect m_effect;
    QString m_strThumbFile;
    UstPageBlink m_blink;
    UstPageTyping m_typing;
    CPageBackground m_background;
    int32_t m_bModified = 0;
    int32_t m_bActive = 0;
    QString m_strPageText;
    uint32_t m_nIdentity = 0;  // how the undo log knows the page; given by the project
    int32_t m_nScrollHalf = 0;
    int32_t m_nScrollHalves = 2;
    float m_fScrollFrac = 0.0f;
    // Field values for air; kept beside the project file, not in it.
    CPageData m_data;
    // The fields of the page's own texts, in order, for the Data pane and
    // the status the control server gives.
    std::vector<QString> FieldNames() const;

private:
    // The background and every object's play drawing, as a Cut page goes
    // to air.
    void DrawFrame(uint32_t* bits, uint32_t* blinkBits, int w, int h, bool withTimers = true);
    void CopyViewFrame();
    int Tail();
    void Redraw(const UstRect& before);
    void ApplyScrollOrigin();
    int ScrollLength() const { return m_nPageType == 2 ? m_nWidth : m_nHeight; }
    void SetScroll(int pos);
    void ResetEffectNumbers();
    int Nudge(const void* arg, uint32_t id);
    int AlignToEdge(uint32_t id);
    int AlignToPage(uint32_t id);
    bool MoveObjectTo(CQRDObject* object, const UstRect& rect);
    int ZOrder(uint32_t id);
    int SetPageType(const void* arg);
    int TextCommand(const void* arg, uint32_t id);
    int LookCommand(const void* arg, uint32_t id);
    int ShapeStyleCommand(const void* arg);
    int SymbolCommand(const void* arg);
    int SplitText(bool intoChars);
    int EditShapeCommand();
    int StartKeying();
    int PictureCommand(const void* arg, uint32_t id);
    int ResetKey();
    int PasteIntoEditedText(const QMimeData* mime);
    bool ReadFlatPage(CByteReader& in, bool clone);
    std::vector<const CQRDObject*> KeepUnchanged(std::vector<std::unique_ptr<CQRDObject>>& loaded);
    int CutSelection(QMimeData* mime);
    void DrawBackgroundStep(const UstEnv& env);
    void ReloadBackground();
    // The selection with every group opened down to its members.
    std::vector<CQRDObject*> SelectedLeaves() const;
    // Groups in the selection take their members' new bounds.
    void RefreshSelectedGroups();
    void EndStrayShapeEdits();
    void RedrawAll(const UstRect& before);
    // Objects that asked to leave while the page walked its list.
    void DropGoneObjects();
    std::vector<CQRDObject*> SelectedInListOrder() const;
    std::vector<std::unique_ptr<CQRDObject>>::iterator Find(const CQRDObject* object);
    std::unique_ptr<CQRDObject> Remove(CQRDObject* object);

    // Declared before the objects, so that it outlives them: a text under
    // edit clears it when it goes.
    CQRDObjectText* m_pEditingText = nullptr;
    std::vector<std::unique_ptr<CQRDObject>> m_objects;  // head backmost, tail topmost
    std::vector<CQRDObject*> m_selection;                // in selection order
    std::vector<CQRDObject*> m_gone;                     // to be taken out and deleted
    std::vector<uint32_t> m_pThumbBits;
    // The canvas without the text under edit, kept while typing goes on.
    std::vector<uint32_t> m_underlay;
    bool m_bUnderlayValid = false;
};

// Objects of a flat block, all or none: empty when a kind does not exist,
// a state does not read whole, or the count claims more than the bytes hold.
std::vector<std::unique_ptr<CQRDObject>> ReadFlatObjects(CByteReader& in, uint32_t count,
                                                         CPageContext* page, bool deep, int flag);

}  // namespace orv
