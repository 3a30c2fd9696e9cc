#pragma once
// Text on a page: one flat array of characters, each with its whole look,
// laid out line by line and rendered character by character into layers
// that are kept until that character changes. Editing happens in place on
// the canvas; at most one text in the whole program is under edit.

#include <QString>

#include <memory>
#include <utility>
#include <vector>

#include "objects/qrd_object.h"
#include "objects/text_fields.h"
#include "objects/text_host.h"
#include "render/object_image.h"
#include "render/text_layout.h"
#include "render/text_records.h"

namespace orv {

enum ETextCommand : uint32_t {
    CMD_FONT_FACE = 202,
    CMD_FONT_SIZE = 203,
    CMD_TEXT_WIDTH = 723,
    CMD_TEXT_SPACING = 724,
    CMD_TEXT_LEADING = 725,
    CMD_TEXT_SHEAR = 726,
    CMD_SYMBOL = 2104,
    CMD_TEXT_STYLE = 40052
};

// Whether the face is among the installed families.
bool IsFaceInstalled(const UstFontBlock& font);
// The face a missing one gives way to on loading: the editor's default, or
// the system's interface face when there is no editor.
UstFontBlock FallbackFontBlock(const CTextEditHost* host);
// Face, character set and pitch of the fallback; the size stays.
void TakeFallbackFace(UstFontBlock& font, const UstFontBlock& fallback);

enum ECaretMove { CARET_RIGHT = 0, CARET_LEFT, CARET_UP, CARET_DOWN, CARET_HOME, CARET_END };

// Input method state bits.
constexpr uint32_t IME_COMPOSING = 1, IME_CANDIDATES = 2;

struct UstTextExtent;

class CQRDObjectText : public CQRDObject {
public:
    CQRDObjectText() = default;
    // A new text takes the default look of the editor.
    explicit CQRDObjectText(CPageContext* page);
    ~CQRDObjectText() override;

    // The editor's side of editing, set once by the application.
    // The editor around this text, through its page; null on no page.
    CTextEditHost* EditHost() const { return m_pPage ? m_pPage->EditHost() : nullptr; }
    // The text under edit anywhere in the program, or null.

    int GetType() const override { return OBJ_TEXT; }
    bool CanRotate() const override { return true; }
    bool CanBlink() const override { return true; }
    bool IsEditing() const override { return m_pPage && m_pPage->EditingText() == this; }
    bool GetBlink() const override;
    // The selected characters, or all of them when nothing is selected.
    void SetBlink(int32_t on) override;
    bool GetTyping() const override { return m_bTyping != 0; }
    void SetTyping(int32_t on) override { m_bTyping = on; }
    void DrawBlinkMark() override;
    void DrawTypingMark() override;
    void PrepareBlinkFrame(uint32_t* bits, int width, int height, int mode,
                           uint32_t colour) override;
    // Typed on air: only the first m_nPlayShown characters go to the frame
    // (all of them while it is below 0), in the whole text's layout.
    void DrawForPlay(uint32_t* bits, int width, int height) override;
    // The frame pixels that characters from..to - 1 cover, shadows included;
    // a turned text answers a rectangle over the whole frame.
    UstRect TypedRect(int from, int to);
    QString GetName() const override { return m_strName; }
    QString GetPlainText() const override;
    bool Execute(const void* args, uint32_t code) override;
    void Attach(CPageContext* page) override;
    void AfterLoad() override;
    void ReleaseCache() override;
    void OnZoom() override;
    void Draw() override;
    void DrawTo(uint32_t* bits, int width, int height) override;
    void ResetLive(int32_t width, int32_t height) override;
    void FreeLive() override;
    void PrepareScrollImage(int32_t width, int32_t height) override;
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override;
    UstPoint GetLiveExtent() const override;
    uint32_t GetStateSize() const override;
    bool LoadState(CByteReader& in, int flag) override;
    bool EndEdit() override;

    // The file form: the archive head, then this class's fields.
    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectText"; }

    // Building a text outside the editor (import, splitting, tests).
    void SetChars(std::vector<UstCharAttr> chars);
    void SetOrigin(float storeX, float storeY);
    // A copy for air with its data fields filled: same place, same look.
    std::unique_ptr<CQRDObjectText> FilledCopy(const FieldValues& values) const;
    bool HasFields() const { return !FindFields(m_arrChar).empty(); }
    // Whether nothing but blanks and line ends is left.
    bool IsBlank() const;
    // Measures every character again, from its own attributes.
    void MeasureAll();

    // Editing. Points are canvas pixels, as the view gets them.
    void BeginEdit(int x, int y, bool selectAll);
    void InsertChar(uint32_t ch);
    void InsertText(const uint32_t* chars, int count);
    void InsertSymbol(uint32_t ch, uint32_t symbolCode);
    void InsertChars(const std::vector<UstCharAttr>& chars);
    void DeleteRange(int from, int to, int newCaret);
    void DeleteSelection();
    void Backspace();
    void DeleteForward();
    void MoveCaret(int direction, bool shift);
    int HitCharIndex(int x, int y) const;
    // False when the point is outside the text: the edit should end.
    bool MouseDown(int x, int y);
    void MouseMove(int x, int y);
    void MouseUp();
    // Text that comes in as a string: pasted or confirmed. Line feeds end
    // lines, other control characters go.
    void InsertString(const QString& text);
    // The whole text replaced by plain characters in the working look, as
    // if typed; carriage returns and line feeds end lines.
    void SetPlainText(const QString& text);

    // The input method: start, the running composition replaced, the result
    // confirmed, the end (with nothing confirmed it is a cancel).
    void ImeStart();
    void ImeComposition(const QString& composition, int cursor);
    void ImeResult(const QString& result);
    void ImeEnd();
    void ImeCandidates(bool open);

    // Typing redraws only what changed. PrepareDraw renders what is missing;
    // TakeDirty answers the canvas area that changed since the last draw,
    // or false when all of it must be drawn again; DrawClipped draws there.
    void PrepareDraw();
    bool TakeDirty(UstRect& canvasArea);
    void DrawClipped(const UstRect& canvasArea);

    // Sizing by handles fits the text to the new rectangle.
    void FitToRect(const UstRect& before, const UstRect& after);

    // The selected range, or the whole text when nothing is selected.
    std::pair<int, int> Range() const;
    bool HasSelection() const { return m_nSelStart >= 0 && m_nSelEnd > m_nSelStart; }
    int CharCount() const { return static_cast<int>(m_arrChar.size()); }
    const std::vector<UstCharAttr>& Chars() const { return m_arrChar; }
    const std::vector<UstFES>& Glyphs() const { return m_arrGlyph; }
    const UstTextLayout& Layout() const { return m_layout; }
    // Layout of the text at full scale from its stored origin.
    UstTextLayout StoredLayout(UstRect* rect = nullptr) const;

    UstEffect m_effect{};
    UstAttr m_attr{};
    float m_fStoreX = 0, m_fStoreY = 0;
    int32_t m_bTyping = 0;
    int32_t m_nPlayShown = -1;
    int32_t m_nCompLen = 0;
    int32_t m_nCompStart = 0;
    int32_t m_nCompCursor = 0;  // where the input method shows its cursor
    uint32_t m_nImeState = 0;
    float m_fViewX = 0, m_fViewY = 0;
    QString m_strName;
    int32_t m_nAnchor = -1;
    int32_t m_nCaret = 0;
    UstRect m_rcCaret;
    int32_t m_nSelStart = -1, m_nSelEnd = -1;
    std::vector<UstRect> m_arrSelRect;
    float m_fScale = 1.0f;
    int32_t m_bDragging = 0;
    UstRect m_rcBefore;
    // How many characters the last change rendered anew; for the benchmark
    // and the tests that keep typing cheap.
    int m_nRendered = 0;

protected:
    void SaveStateHeader(CByteWriter& out) const override;
    bool LoadStateHeader(CByteReader& in) override;
    void SaveStateGeometry(CByteWriter& out) const override;
    void LoadStateGeometry(CByteReader& in) override;
    void SaveStateBody(CByteWriter& out) const override;
    bool LoadStateBody(CByteReader& in, int flag) override;

private:
    friend class CTextEditTest;
    // Layout and rendering.
    void Relayout();
    void ScaleFromPage();
    void DropLayers(int from, int to);
    void DropAllLayers();
    void RenderMissingLayers();
    void DrawKept(QImage& canvas, QPoint shift);
    // The layers at full scale for play, and the extent of all of them.
    std::vector<UstFES> PlayGlyphs(UstTextExtent& extent);
    void DrawPlayGlyphs(uint32_t* bits, int width, int height, const std::vector<UstFES>& glyphs,
                        const UstTextExtent& extent) const;
    void DrawLayers(QImage& canvas, QPoint shift, const std::vector<UstFES>& glyphs,
                    const QRect& clip = {}) const;
    void AddDirty(const UstFES& g);
    void AddDirty(int from, int to);
    void DrawSelectionBars(uint32_t* bits, int width, int height) const;
    void FollowRect();
    void SyncStored();
    // Editing helpers.
    UstCharAttr TypedCharAttr(uint32_t ch) const;
    void InsertAt(int index, const std::vector<UstCharAttr>& chars);
    void AfterChange(const UstRect& windowBefore);
    void UpdateCaret();
    void PublishCaretLook();
    void ClearSelection();
    void ExtendSelection(int oldCaret);
    int VerticalTarget(bool up) const;
    float CaretX(int index) const;
    void BuildSelectionBars();
    void ReplaceComposition(const std::vector<uint32_t>& text);
    UstRect WindowRect() const;
    // Commands.
    bool ApplyFontBlock(const UstFontBlock& font, bool faceOnly);
    bool ApplyMetric(uint32_t code, int32_t value);
    bool ApplyPaint(uint32_t code, const UstFill& fill);
    bool ApplyStyle(const UstText& style);
    bool SetRotation(int32_t angle);
    void Nudge(int dx, int dy);
    void RemeasureMissingFaces();
    void CheckLaidOut() const;

    std::vector<UstCharAttr> m_arrChar;
    std::vector<UstFES> m_arrGlyph;
    UstTextLayout m_layout;
    UstRect m_rcLaid;   // the rectangle the positions were laid out for
    UstRect m_rcDirty;  // page pixels at the zoom that changed since the last draw
    bool m_bDirtyAll = true;
    ObjectImage m_pRotated;  // the whole text stacked and turned; unmade when stale
    int m_nRotatedAngle = 0;
    // The live state of a scroll page's run: the layers at full scale, or
    // the whole text as one image when it is turned, and where they draw.
    std::vector<UstFES> m_liveGlyphs;
    ObjectImage m_liveImage;
    UstRect m_rcLive;
};

}  // namespace orv
