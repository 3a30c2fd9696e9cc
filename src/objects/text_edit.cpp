// Editing a text in place: typing, deleting, the caret and the selection,
// the mouse, and the input method's composition.
#include <QString>

#include <algorithm>
#include <cstring>

#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "render/font_service.h"
#include "render/pixels.h"
#include "render/text_measure.h"

namespace orv {

namespace {

// Typing after one of these was chosen must not turn letters into symbols.
bool IsSymbolFace(const UstFontBlock& font) {
    const QString face = FixedToQString(&font.szFace);
    return face == u"Webdings" || face == u"Wingdings" || face == u"Wingdings 2" ||
           face == u"Wingdings 3";
}

struct UstSymbolFont {
    const char16_t* face;
    uint8_t charSet, pitchFamily;
};

// The font a symbol code fixes; null for codes that keep the font.
const UstSymbolFont* SymbolFontFor(uint32_t code) {
    static const UstSymbolFont hangul{u"궁서", 129, 18};
    static const UstSymbolFont webdings{u"Webdings", 2, 18};
    static const UstSymbolFont wingdings{u"Wingdings", 2, 2};
    static const UstSymbolFont wingdings2{u"Wingdings 2", 2, 18};
    static const UstSymbolFont wingdings3{u"Wingdings 3", 2, 18};
    if ((code >= 2702 && code <= 2706) || (code >= 2708 && code <= 2710)) return &hangul;
    switch (code) {
        case 2711:
            return &webdings;
        case 2712:
            return &wingdings;
        case 2713:
            return &wingdings2;
        case 2714:
            return &wingdings3;
        default:
            return nullptr;
    }
}

// The brush-script Hangul face is a system font elsewhere; here the
// installed face of the same style stands in, or the closest Korean one.
QString InstalledSymbolFace(const QString& face, uint8_t charSet) {
    if (face != u"궁서") return face;
    const UstFaceMatch same = MatchFace(QStringLiteral("UnGungseo"), charSet);
    if (!same.bFallback) return same.family;
    return ReplacementFace(face, charSet);
}

UstDefaultAttr FallbackLook() {
    UstDefaultAttr d{};
    d.attr = MakeDefaultAttr();
    d.effect = MakeDefaultEffect();
    d.font.nCharSet = 1;
    d.font.nSize = 72;
    QStringToFixed(QString::fromStdU16String(DefaultGuiFaceName()), &d.font.szFace);
    d.metric.nWidth = 100;
    return d;
}

const UstDefaultAttr& DefaultLook(const CTextEditHost* host) {
    static const UstDefaultAttr fallback = FallbackLook();
    return host ? host->DefaultAttr() : fallback;
}

const UstDefaultAttr& WorkingLook(CTextEditHost* host) {
    return host ? host->WorkingAttr() : DefaultLook(nullptr);
}

// The line an index stands on; past the last character, nLines.
int LineOfIndex(const UstTextLayout& layout, int index) {
    for (int l = 0; l < layout.nLines; ++l)
        if (index <= layout.lineRange[static_cast<size_t>(l)].second) return l;
    return layout.nLines;
}

bool IsLineStart(const std::vector<UstCharAttr>& chars, int index) {
    return index == 0 || chars[static_cast<size_t>(index) - 1].nChar == CHAR_LINE_END;
}

}  // namespace

// ---- beginning and ending ----

void CQRDObjectText::BeginEdit(int x, int y, bool selectAll) {
    if (m_pPage) {
        if (CQRDObjectText* other = m_pPage->EditingText(); other && other != this)
            other->EndEdit();
        m_pPage->SetEditingText(this);
    }
    ClearSelection();
    m_bDragging = 0;
    m_pRotated.Reset();
    m_nImeState = 0;
    m_nCompLen = 0;
    if (!m_arrChar.empty()) {
        m_nCaret = !selectAll && m_nAngle % 360 == 0 ? HitCharIndex(x, y) : 0;
    } else {
        ScaleFromPage();
        const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
        const UstDefaultAttr& look = DefaultLook(EditHost());
        if (CTextEditHost* host = EditHost()) {
            host->WorkingAttr().font = look.font;
            host->WorkingAttr().metric = look.metric;
            host->AttrChanged();
        }
        const int height = PixelHeight(look.font.nSize, m_fScale);
        const int top = y + s.y + 8 - height;
        m_nCaret = 0;
        m_rcView = {x + s.x, top, x + s.x, top};
        m_fViewX = static_cast<float>(x + s.x);
        m_fViewY = static_cast<float>(top) +
                   static_cast<float>(LineMetricAt(look.font.nSize).ascent) * m_fScale;
        m_rcLaid = m_rcView;
        SyncStored();
        RecalcHandles();
    }
    if (CTextEditHost* host = EditHost()) host->SetCanvasMode(MODE_TEXT);
    UpdateCaret();
    PublishCaretLook();
}

bool CQRDObjectText::EndEdit() {
    if (!IsEditing()) return false;
    CTextEditHost* host = EditHost();
    if ((m_nImeState & IME_COMPOSING) && host) host->CompleteComposition();
    m_pPage->SetEditingText(nullptr);
    m_nImeState = 0;
    m_nCompLen = 0;
    ClearSelection();
    bool trimmed = false;
    while (m_arrChar.size() > 1 && m_arrChar.back().nChar == CHAR_LINE_END) {
        m_arrChar.pop_back();
        m_arrGlyph.pop_back();
        trimmed = true;
    }
    if (trimmed) Relayout();
    m_nCaret = std::min(m_nCaret, CharCount());
    m_arrSelRect.clear();
    UpdateStored(false);
    RecalcHandles();
    m_strName = GetPlainText().section(QChar(13), 0, 0).left(32);
    if (host) {
        host->ShowCaret({});
        host->SetCanvasMode(MODE_SELECT);
    }
    return true;
}

// ---- inserting ----

UstCharAttr CQRDObjectText::TypedCharAttr(uint32_t ch) const {
    const UstDefaultAttr& work = WorkingLook(EditHost());
    const bool symbol = IsSymbolFace(work.font);
    const UstDefaultAttr& from = symbol ? DefaultLook(EditHost()) : work;
    UstCharAttr c = NewCharAttr();
    c.nChar = ch;
    c.font = from.font;
    c.metric = from.metric;
    c.clrFill = work.attr.fill[UstAttr::BODY].clrSolid;
    c.bBlink = 0;
    if (!IsBlankChar(ch)) {
        // A face without the character would show a box: the nearest family
        // that has it draws it instead.
        const QString face = FixedToQString(&c.font.szFace);
        const QString covering = CoveringFamily(face, ch);
        if (!covering.isEmpty() && covering != face) QStringToFixed(covering, &c.font.szFace);
    }
    MeasureChar(c, true);
    return c;
}

void CQRDObjectText::InsertAt(int index, const std::vector<UstCharAttr>& chars) {
    index = std::clamp(index, 0, CharCount());
    m_arrChar.insert(m_arrChar.begin() + index, chars.begin(), chars.end());
    m_arrGlyph.insert(m_arrGlyph.begin() + index, chars.size(), UstFES{});
}

void CQRDObjectText::InsertChar(uint32_t ch) {
    InsertText(&ch, 1);
}

void CQRDObjectText::InsertText(const uint32_t* chars, int count) {
    std::vector<UstCharAttr> typed;
    typed.reserve(static_cast<size_t>(std::max(0, count)));
    for (int i = 0; i < count; ++i)
        typed.push_back(TypedCharAttr(chars[i]));
    InsertChars(typed);
}

void CQRDObjectText::InsertSymbol(uint32_t ch, uint32_t symbolCode) {
    UstCharAttr c = TypedCharAttr(ch);
    const UstDefaultAttr& work = WorkingLook(EditHost());
    c.font = work.font;
    c.metric = work.metric;
    if (const UstSymbolFont* f = SymbolFontFor(symbolCode)) {
        const QString face = InstalledSymbolFace(QString::fromUtf16(f->face), f->charSet);
        QStringToFixed(face, &c.font.szFace);
        c.font.nCharSet = f->charSet;
        c.font.nPitchFamily = f->pitchFamily;
    }
    MeasureChar(c, true);
    InsertChars({c});
}

void CQRDObjectText::InsertChars(const std::vector<UstCharAttr>& chars) {
    if (chars.empty()) return;
    const UstRect before = WindowRect();
    if (HasSelection()) {
        const int start = m_nSelStart;
        AddDirty(start, m_nSelEnd);
        m_arrChar.erase(m_arrChar.begin() + start, m_arrChar.begin() + m_nSelEnd);
        m_arrGlyph.erase(m_arrGlyph.begin() + start, m_arrGlyph.begin() + m_nSelEnd);
        m_nCaret = start;
        ClearSelection();
    }
    InsertAt(m_nCaret, chars);
    m_nCaret = std::min(m_nCaret + static_cast<int>(chars.size()), CharCount());
    Relayout();
    AfterChange(before);
}

namespace {

std::vector<uint32_t> TypableCodes(const QString& text) {
    std::vector<uint32_t> codes;
    const QList<uint> ucs = text.toUcs4();
    for (qsizetype i = 0; i < ucs.size(); ++i) {
        const uint c = ucs[i];
        if (c == '\r' || c == '\n') {
            if (c == '\n' && i > 0 && ucs[i - 1] == '\r') continue;
            codes.push_back(CHAR_LINE_END);
        } else if (c >= 32 && c != 127 && !(c >= 0xD800 && c <= 0xDFFF) && c <= 0x10FFFF &&
                   c != 0xFFFE && c != 0xFFFF) {
            codes.push_back(c == '\t' ? CHAR_SPACE : c);
        }
    }
    return codes;
}

}  // namespace

void CQRDObjectText::InsertString(const QString& text) {
    const std::vector<uint32_t> codes = TypableCodes(text);
    InsertText(codes.data(), static_cast<int>(codes.size()));
}

void CQRDObjectText::SetPlainText(const QString& text) {
    std::vector<UstCharAttr> chars;
    for (uint32_t code : TypableCodes(text))
        chars.push_back(TypedCharAttr(code));
    SetChars(std::move(chars));
}

// ---- deleting ----

void CQRDObjectText::DeleteRange(int from, int to, int newCaret) {
    from = std::clamp(from, 0, CharCount());
    to = std::clamp(to, from, CharCount());
    const UstRect before = WindowRect();
    AddDirty(from, to);
    m_arrChar.erase(m_arrChar.begin() + from, m_arrChar.begin() + to);
    m_arrGlyph.erase(m_arrGlyph.begin() + from, m_arrGlyph.begin() + to);
    m_nCaret = std::clamp(newCaret, 0, CharCount());
    Relayout();
    AfterChange(before);
}

void CQRDObjectText::DeleteSelection() {
    if (!HasSelection()) return;
    const int start = std::max(0, m_nSelStart), end = m_nSelEnd;
    ClearSelection();
    DeleteRange(start, end, start);
}

void CQRDObjectText::Backspace() {
    if (HasSelection()) return DeleteSelection();
    if (m_nCaret > 0) DeleteRange(m_nCaret - 1, m_nCaret, m_nCaret - 1);
}

void CQRDObjectText::DeleteForward() {
    if (HasSelection()) return DeleteSelection();
    if (m_nCaret < CharCount()) DeleteRange(m_nCaret, m_nCaret + 1, m_nCaret);
}

// ---- after every change ----

void CQRDObjectText::AfterChange(const UstRect& windowBefore) {
    m_nCompStart = std::min(m_nCompStart, CharCount());
    BuildSelectionBars();
    UpdateCaret();
    if (m_pPage && IsEditing()) {
        // Keep the caret in sight on pages longer than the frame.
        if (m_rcCaret.Height() > 0) m_pPage->ScrollToShow(m_rcCaret);
    }
    if (CTextEditHost* host = EditHost(); host && IsEditing())
        host->TextChanged(*this, windowBefore);
}

// ---- the caret ----

float CQRDObjectText::CaretX(int index) const {
    if (m_layout.pos.empty()) return m_fViewX;
    if (index >= CharCount()) return m_layout.pos.back().x;
    const UstCharAttr& c = m_arrChar[static_cast<size_t>(index)];
    return m_layout.pos[static_cast<size_t>(index)].x - static_cast<float>(c.nOriginX) * m_fScale;
}

void CQRDObjectText::UpdateCaret() {
    const int count = CharCount();
    if (count == 0 || m_layout.pos.empty()) {
        // An empty text keeps the caret BeginEdit made at the click.
        const int h = PixelHeight(WorkingLook(EditHost()).font.nSize, m_fScale);
        const int ascent = RoundToInt(
            static_cast<float>(LineMetricAt(WorkingLook(EditHost()).font.nSize).ascent) * m_fScale);
        const int x = RoundToInt(m_fViewX), top = RoundToInt(m_fViewY) - ascent;
        m_rcCaret = {x, top, x + 2, top + h};
    } else {
        const int at = std::clamp(
            (m_nImeState & IME_COMPOSING) ? m_nCompStart + m_nCompCursor : m_nCaret, 0, count);
        const bool lineStart = IsLineStart(m_arrChar, at);
        const int sizeFrom = lineStart && at < count ? at : std::max(0, at - 1);
        const UstCharAttr& c = m_arrChar[static_cast<size_t>(sizeFrom)];
        const int h = PixelHeight(c.font.nSize, m_fScale);
        float top = 0;
        if (c.nChar == CHAR_LINE_END && sizeFrom == at - 1) {
            top = m_layout.pos[static_cast<size_t>(count)].y;  // the empty last line
        } else {
            const float baseline = m_layout.pos[static_cast<size_t>(sizeFrom)].y +
                                   static_cast<float>(c.nOriginY) * m_fScale;
            top = baseline - static_cast<float>(LineMetricAt(c.font.nSize).ascent) * m_fScale;
        }
        const int x = RoundToInt(CaretX(at));
        m_rcCaret = {x, RoundToInt(top), x + 2, RoundToInt(top) + h};
    }
    CTextEditHost* host = EditHost();
    if (!host || !IsEditing()) return;
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    UstRect shown = Offset(m_rcCaret, -s.x, -s.y);
    if (m_pPage) {
        const UstRect page{0, 0, m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight()};
        shown = {std::max(shown.left, page.left), std::max(shown.top, page.top),
                 std::min(shown.right, page.right), std::min(shown.bottom, page.bottom)};
        if (shown.Width() <= 0 || shown.Height() <= 0) shown = {};
    }
    host->ShowCaret(shown);
}

void CQRDObjectText::PublishCaretLook() {
    CTextEditHost* host = EditHost();
    if (!host || m_arrChar.empty()) return;
    const int at = std::clamp(m_nCaret > 0 ? m_nCaret - 1 : 0, 0, CharCount() - 1);
    const UstCharAttr& c = m_arrChar[static_cast<size_t>(at)];
    UstDefaultAttr& work = host->WorkingAttr();
    work.font = c.font;
    work.metric = c.metric;
    if (m_attr.fill[UstAttr::BODY].nType == 0) work.attr.fill[UstAttr::BODY].clrSolid = c.clrFill;
    host->AttrChanged();
}

int CQRDObjectText::VerticalTarget(bool up) const {
    const int count = CharCount();
    if (count == 0) return 0;
    const bool endsInLineEnd = m_arrChar.back().nChar == CHAR_LINE_END;
    int line = LineOfIndex(m_layout, m_nCaret);
    if (line == m_layout.nLines && !endsInLineEnd) line = m_layout.nLines - 1;
    const int target = up ? line - 1 : line + 1;
    const int lastLine = endsInLineEnd ? m_layout.nLines : m_layout.nLines - 1;
    if (target < 0 || target > lastLine) return m_nCaret;
    if (target == m_layout.nLines) return count;  // the empty line after a final line end
    const auto [first, last] = m_layout.lineRange[static_cast<size_t>(target)];
    const float x = CaretX(m_nCaret);
    float best = 100000.0f;
    int found = first;
    auto consider = [&](int index) {
        const float d = std::abs(CaretX(index) - x);
        if (d < best) best = d, found = index;
    };
    for (int i = first; i <= last; ++i)
        consider(i);
    if (!up && target == m_layout.nLines - 1 && !endsInLineEnd) consider(count);
    return found;
}

void CQRDObjectText::MoveCaret(int direction, bool shift) {
    const int count = CharCount();
    const int old = m_nCaret;
    m_nAnchor = m_nCaret;
    switch (direction) {
        case CARET_RIGHT:
            m_nCaret = std::min(count, m_nCaret + 1);
            break;
        case CARET_LEFT:
            m_nCaret = std::max(0, m_nCaret - 1);
            break;
        case CARET_UP:
        case CARET_DOWN:
            m_nCaret = VerticalTarget(direction == CARET_UP);
            break;
        case CARET_HOME:
            while (m_nCaret > 0 &&
                   m_arrChar[static_cast<size_t>(m_nCaret) - 1].nChar != CHAR_LINE_END)
                --m_nCaret;
            break;
        case CARET_END:
            while (m_nCaret < count &&
                   m_arrChar[static_cast<size_t>(m_nCaret)].nChar != CHAR_LINE_END)
                ++m_nCaret;
            break;
        default:
            return;
    }
    const UstRect before = WindowRect();
    if (shift)
        ExtendSelection(old);
    else
        ClearSelection();
    BuildSelectionBars();
    UpdateCaret();
    PublishCaretLook();
    if (CTextEditHost* host = EditHost(); host && IsEditing()) host->TextChanged(*this, before);
}

// With Shift the end of the selection that stood at the anchor follows the
// caret; a fresh selection spans anchor and caret.
void CQRDObjectText::ExtendSelection(int oldCaret) {
    if (!HasSelection()) {
        m_nSelStart = std::min(oldCaret, m_nCaret);
        m_nSelEnd = std::max(oldCaret, m_nCaret);
    } else if (oldCaret == m_nSelEnd) {
        m_nSelEnd = m_nCaret;
    } else {
        m_nSelStart = m_nCaret;
    }
    if (m_nSelStart > m_nSelEnd) std::swap(m_nSelStart, m_nSelEnd);
    if (m_nSelStart == m_nSelEnd) ClearSelection();
}

void CQRDObjectText::ClearSelection() {
    if (!m_arrSelRect.empty()) m_bDirtyAll = true;
    m_nSelStart = m_nSelEnd = -1;
    m_arrSelRect.clear();
}

void CQRDObjectText::BuildSelectionBars() {
    if (!m_arrSelRect.empty()) m_bDirtyAll = true;  // the old bars must go
    m_arrSelRect.clear();
    if (!HasSelection() || m_layout.nLines == 0) return;
    float top = static_cast<float>(m_rcView.top);
    for (int l = 0; l < m_layout.nLines; ++l) {
        const auto [first, last] = m_layout.lineRange[static_cast<size_t>(l)];
        const float height = m_layout.lineHeight[static_cast<size_t>(l)];
        const int from = std::max(first, m_nSelStart), to = std::min(last + 1, m_nSelEnd);
        if (from < to) {
            const int left = RoundToInt(CaretX(from)), right = RoundToInt(CaretX(to));
            m_arrSelRect.push_back(
                {left, RoundToInt(top), std::max(right, left + 2), RoundToInt(top + height)});
        }
        top += height;
    }
}

// ---- hit testing and the mouse ----

int CQRDObjectText::HitCharIndex(int x, int y) const {
    const int count = CharCount();
    if (count == 0 || m_layout.nLines == 0) return 0;
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    const auto px = static_cast<float>(x + s.x), py = static_cast<float>(y + s.y);
    float top = static_cast<float>(m_rcView.top);
    if (py < top) return 0;
    for (int l = 0; l < m_layout.nLines; ++l) {
        top += m_layout.lineHeight[static_cast<size_t>(l)];
        if (py >= top) continue;
        const auto [first, last] = m_layout.lineRange[static_cast<size_t>(l)];
        if (px < m_layout.pos[static_cast<size_t>(first)].x) return first;
        const bool lastLine = l == m_layout.nLines - 1;
        const UstCharAttr& lc = m_arrChar[static_cast<size_t>(last)];
        const float lineRight =
            m_layout.pos[static_cast<size_t>(last)].x +
            static_cast<float>(std::max(+lc.nBoxWidth, +lc.nAdvance)) * m_fScale;
        if (px >= lineRight) return lastLine && lc.nChar != CHAR_LINE_END ? count : last;
        for (int i = first; i <= last; ++i) {
            const UstCharAttr& c = m_arrChar[static_cast<size_t>(i)];
            const float left = m_layout.pos[static_cast<size_t>(i)].x;
            const float right = i < last ? m_layout.pos[static_cast<size_t>(i) + 1].x : lineRight;
            if (px >= right) continue;
            const float half = static_cast<float>(c.nBoxWidth) * m_fScale / 2.0f;
            return px > left + half && c.nChar != CHAR_LINE_END ? i + 1 : i;
        }
        return last;
    }
    return count;
}

bool CQRDObjectText::MouseDown(int x, int y) {
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    const UstRect& r = m_rcView;
    const int vx = x + s.x, vy = y + s.y;
    const bool inside = vx >= r.left && vx <= r.right && vy >= r.top && vy <= r.bottom;
    if (!inside) return false;
    const UstRect before = WindowRect();
    m_nCaret = m_nAnchor = HitCharIndex(x, y);
    ClearSelection();
    m_bDragging = 1;
    UpdateCaret();
    PublishCaretLook();
    if (CTextEditHost* host = EditHost()) host->TextChanged(*this, before);
    return true;
}

void CQRDObjectText::MouseMove(int x, int y) {
    if (!m_bDragging || (m_nImeState & IME_COMPOSING)) return;
    const int at = HitCharIndex(x, y);
    if (at == m_nCaret) return;
    const UstRect before = WindowRect();
    m_nCaret = at;
    m_nSelStart = std::min(m_nAnchor, at);
    m_nSelEnd = std::max(m_nAnchor, at);
    if (m_nSelStart == m_nSelEnd) ClearSelection();
    BuildSelectionBars();
    UpdateCaret();
    if (m_pPage) m_pPage->ScrollToShow(m_rcCaret);
    if (CTextEditHost* host = EditHost()) host->TextChanged(*this, before);
}

void CQRDObjectText::MouseUp() {
    m_bDragging = 0;
    PublishCaretLook();
}

// ---- the input method ----

void CQRDObjectText::ImeStart() {
    if (HasSelection()) DeleteSelection();
    m_nImeState |= IME_COMPOSING;
    m_nCompLen = 0;
    m_nCompCursor = 0;
    m_nCompStart = m_nCaret;
}

void CQRDObjectText::ReplaceComposition(const std::vector<uint32_t>& text) {
    const UstRect before = WindowRect();
    const int start = std::clamp(m_nCompStart, 0, CharCount());
    const int end = std::clamp(start + m_nCompLen, start, CharCount());
    AddDirty(start, end);
    m_arrChar.erase(m_arrChar.begin() + start, m_arrChar.begin() + end);
    m_arrGlyph.erase(m_arrGlyph.begin() + start, m_arrGlyph.begin() + end);
    std::vector<UstCharAttr> typed;
    for (uint32_t c : text)
        typed.push_back(TypedCharAttr(c));
    InsertAt(start, typed);
    m_nCompStart = start;
    m_nCompLen = static_cast<int>(typed.size());
    m_nCaret = start;
    Relayout();
    AfterChange(before);
}

void CQRDObjectText::ImeComposition(const QString& composition, int cursor) {
    if (!(m_nImeState & IME_COMPOSING)) ImeStart();
    std::vector<uint32_t> codes;
    for (uint c : composition.toUcs4())
        if (c >= 32) codes.push_back(c);
    m_nCompCursor = std::clamp(cursor, 0, static_cast<int>(codes.size()));
    ReplaceComposition(codes);
}

void CQRDObjectText::ImeResult(const QString& result) {
    if (!(m_nImeState & IME_COMPOSING)) ImeStart();
    std::vector<uint32_t> codes;
    for (uint c : result.toUcs4())
        if (c >= 32) codes.push_back(c);
    if (codes.size() >= 2 && codes.back() == 0x3000) codes.pop_back();
    m_nCompCursor = 0;
    ReplaceComposition(codes);
    m_nCompStart += m_nCompLen;
    m_nCaret = m_nCompStart;
    m_nCompLen = 0;
    UpdateCaret();
    PublishCaretLook();
}

void CQRDObjectText::ImeEnd() {
    m_nImeState &= ~IME_COMPOSING;
    m_nCompCursor = 0;
    UpdateCaret();
}

void CQRDObjectText::ImeCandidates(bool open) {
    if (open)
        m_nImeState |= IME_CANDIDATES;
    else
        m_nImeState &= ~IME_CANDIDATES;
}

}  // namespace orv
