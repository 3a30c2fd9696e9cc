// The text object's model: its fields, archive and state forms, and the
// commands that change its look.
#include "objects/text_object.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "objects/archive_fields.h"
#include "render/fixed_string.h"
#include "render/font_service.h"
#include "render/pixels.h"
#include "render/text_measure.h"

namespace orv {

namespace {

bool SameFace(const UstFontBlock& a, const UstFontBlock& b) {
    return std::memcmp(a.szFace, b.szFace, sizeof a.szFace) == 0;
}

// Families as the system lists them, read once: looking a face up happens on
// every load and style.
const QSet<QString>& InstalledFaces() {
    static const QSet<QString> faces = [] {
        QSet<QString> set;
        for (const QString& f : InstalledFontFamilyNames())
            set.insert(f.toCaseFolded());
        return set;
    }();
    return faces;
}

}  // namespace

bool IsFaceInstalled(const UstFontBlock& font) {
    return InstalledFaces().contains(FixedToQString(&font.szFace).toCaseFolded());
}

UstFontBlock FallbackFontBlock(const CTextEditHost* host) {
    if (host) return host->DefaultAttr().font;
    UstFontBlock fallback{};
    QStringToFixed(QString::fromStdU16String(DefaultGuiFaceName()), &fallback.szFace);
    fallback.nCharSet = 1;
    return fallback;
}

void TakeFallbackFace(UstFontBlock& font, const UstFontBlock& fallback) {
    std::memcpy(font.szFace, fallback.szFace, sizeof font.szFace);
    font.nCharSet = fallback.nCharSet;
    font.nPitchFamily = fallback.nPitchFamily;
}

CQRDObjectText::CQRDObjectText(CPageContext* page) : CQRDObject(page) {
    if (const CTextEditHost* host = EditHost()) {
        m_attr = host->DefaultAttr().attr;
        m_effect = host->DefaultAttr().effect;
    } else {
        m_attr = MakeDefaultAttr();
        m_effect = MakeDefaultEffect();
    }
    ScaleFromPage();
}

CQRDObjectText::~CQRDObjectText() {
    if (IsEditing()) m_pPage->SetEditingText(nullptr);
}

QString CQRDObjectText::GetPlainText() const {
    std::vector<char32_t> codes;
    codes.reserve(m_arrChar.size());
    for (const UstCharAttr& c : m_arrChar)
        codes.push_back(static_cast<char32_t>(c.nChar));
    return QString::fromUcs4(codes.data(), static_cast<qsizetype>(codes.size()));
}

void CQRDObjectText::SetChars(std::vector<UstCharAttr> chars) {
    m_arrChar = std::move(chars);
    m_arrGlyph.assign(m_arrChar.size(), UstFES{});
    m_nCaret = std::min<int>(m_nCaret, CharCount());
    ClearSelection();
    Relayout();
}

void CQRDObjectText::SetOrigin(float storeX, float storeY) {
    m_fStoreX = storeX;
    m_fStoreY = storeY;
    ScaleFromPage();
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    DropAllLayers();
    Relayout();
}

bool CQRDObjectText::IsBlank() const {
    return std::all_of(m_arrChar.begin(), m_arrChar.end(), [](const UstCharAttr& c) {
        return c.nChar == CHAR_SPACE || c.nChar == CHAR_LINE_END;
    });
}

void CQRDObjectText::MeasureAll() {
    for (UstCharAttr& c : m_arrChar)
        MeasureChar(c, true);
    DropAllLayers();
    Relayout();
}

std::pair<int, int> CQRDObjectText::Range() const {
    if (HasSelection()) return {m_nSelStart, std::min(m_nSelEnd, CharCount())};
    return {0, CharCount()};
}

void CQRDObjectText::Attach(CPageContext* page) {
    CQRDObject::Attach(page);
    ScaleFromPage();
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    Relayout();
}

void CQRDObjectText::AfterLoad() {
    OnZoom();
}

void CQRDObjectText::ReleaseCache() {
    DropAllLayers();
    m_pRotated.Reset();
}

void CQRDObjectText::OnZoom() {
    ScaleFromPage();
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    DropAllLayers();
    Relayout();
}

// ---- state and archive ----

uint32_t CQRDObjectText::GetStateSize() const {
    const auto [from, to] = Range();
    return 4128u + 118u * static_cast<uint32_t>(to - from);
}

void CQRDObjectText::SaveStateHeader(CByteWriter& out) const {
    const auto [from, to] = Range();
    out.Put<int32_t>(to - from);
}

bool CQRDObjectText::LoadStateHeader(CByteReader& in) {
    const auto count = in.Get<int32_t>();
    if (count < 0 || static_cast<size_t>(count) * sizeof(UstCharAttr) > in.Remaining())
        return false;
    m_arrChar.assign(static_cast<size_t>(count), NewCharAttr());
    return true;
}

void CQRDObjectText::SaveStateGeometry(CByteWriter& out) const {
    out.Put(m_bTyping);
    out.Put(m_fStoreX);
    out.Put(m_fStoreY);
    out.Put(m_rcOld);
}

void CQRDObjectText::LoadStateGeometry(CByteReader& in) {
    m_bTyping = in.Get<int32_t>();
    m_fStoreX = in.Get<float>();
    m_fStoreY = in.Get<float>();
    m_rcOld = in.Get<UstRect>();
}

void CQRDObjectText::SaveStateBody(CByteWriter& out) const {
    out.Put(m_effect);
    out.Put(m_attr);
    const auto [from, to] = Range();
    for (int i = from; i < to; ++i)
        out.Put(m_arrChar[static_cast<size_t>(i)]);
}

bool CQRDObjectText::LoadStateBody(CByteReader& in, int /*flag*/) {
    m_effect = in.Get<UstEffect>();
    m_attr = in.Get<UstAttr>();
    for (UstCharAttr& c : m_arrChar)
        c = in.Get<UstCharAttr>();
    return true;
}

bool CQRDObjectText::LoadState(CByteReader& in, int flag) {
    if (IsEditing()) {
        // Pasting into the text under edit: the packed characters go in at
        // the caret with their own look.
        CQRDObjectText packed;
        if (!packed.LoadState(in, flag)) return false;
        InsertChars(packed.m_arrChar);
        return true;
    }
    if (!CQRDObject::LoadState(in, flag)) return false;
    ClearSelection();
    m_nCaret = 0;
    m_arrGlyph.assign(m_arrChar.size(), UstFES{});
    ScaleFromPage();
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    Relayout();
    return true;
}

void CQRDObjectText::Serialize(CByteWriter& out) const {
    WriteArchiveHead(out);
    out.Put(m_nAngle);
    out.Put(m_bTyping);
    out.Put(m_fStoreX);
    out.Put(m_fStoreY);
    out.Put<int32_t>(CharCount());
    out.Put(m_effect);
    out.Put(m_attr);
    for (const UstCharAttr& c : m_arrChar)
        out.Put(c);
}

bool CQRDObjectText::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_nAngle = in.Get<int32_t>();
    m_bTyping = in.Get<int32_t>();
    m_fStoreX = in.Get<float>();
    m_fStoreY = in.Get<float>();
    const auto count = in.Get<int32_t>();
    if (count < 0 || static_cast<size_t>(count) * sizeof(UstCharAttr) > in.Remaining())
        throw std::runtime_error("text: character count past the end of the data");
    m_effect = in.Get<UstEffect>();
    m_attr = in.Get<UstAttr>();
    m_arrChar.resize(static_cast<size_t>(count));
    for (UstCharAttr& c : m_arrChar)
        c = in.Get<UstCharAttr>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedPoint(m_fStoreX, m_fStoreY, "a text's origin");
    CheckArchivedEffect(m_effect, "a text");
    for (const UstCharAttr& c : m_arrChar)
        CheckArchivedChar(c, "a text");
    m_arrGlyph.assign(m_arrChar.size(), UstFES{});
    RemeasureMissingFaces();
    CheckLaidOut();
    ScaleFromPage();
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    m_nCaret = 0;
    Relayout();
    return true;
}

// Characters measured beyond reason would lay the text out past any page;
// that is found before the rectangle's arithmetic meets it.
void CQRDObjectText::CheckLaidOut() const {
    if (m_arrChar.empty()) return;
    UstTextLayout probe;
    UstRect rect;
    LayoutText(probe, m_fStoreX, m_fStoreY, rect, m_arrChar.data(), CharCount(), 1.0f, 1.0f);
    CheckArchivedRect(rect, "a text");
}

// A face this machine lacks gives way, for all its characters, to the
// default face; those are measured again.
void CQRDObjectText::RemeasureMissingFaces() {
    std::vector<std::pair<QString, bool>> looked;  // this load's answers
    const UstFontBlock fallback = FallbackFontBlock(EditHost());
    for (UstCharAttr& c : m_arrChar) {
        const QString face = FixedToQString(&c.font.szFace);
        auto it = std::find_if(looked.begin(), looked.end(),
                               [&](const auto& entry) { return entry.first == face; });
        if (it == looked.end()) it = looked.insert(looked.end(), {face, IsFaceInstalled(c.font)});
        if (it->second) continue;
        TakeFallbackFace(c.font, fallback);
        MeasureChar(c, true);
    }
}

// ---- commands ----

bool CQRDObjectText::Execute(const void* args, uint32_t code) {
    if (!args) return false;
    bool changed = false;
    switch (code) {
        case CMD_SET_RECT: {
            const auto* r = static_cast<const UstRect*>(args);
            Nudge(r->left - m_rcView.left, r->top - m_rcView.top);
            return true;
        }
        case CMD_NUDGE_RIGHT:
        case CMD_NUDGE_LEFT:
        case CMD_NUDGE_UP:
        case CMD_NUDGE_DOWN: {
            const auto* d = static_cast<const UstPoint*>(args);
            Nudge(d->x, d->y);
            return true;
        }
        case CMD_FONT_FACE:
            changed = ApplyFontBlock(*static_cast<const UstFontBlock*>(args), true);
            break;
        case CMD_FONT_SIZE:
        case CMD_TEXT_WIDTH:
        case CMD_TEXT_SPACING:
        case CMD_TEXT_LEADING:
        case CMD_TEXT_SHEAR:
            changed = ApplyMetric(code, *static_cast<const int32_t*>(args));
            break;
        case CMD_BODY_PAINT:
        case CMD_EDGE_PAINT:
        case CMD_OUTLINE_PAINT:
        case CMD_SHADOW_PAINT:
            changed = ApplyPaint(code, *static_cast<const UstFill*>(args));
            break;
        case CMD_ROTATION:
            return SetRotation(*static_cast<const int32_t*>(args));
        case CMD_SYMBOL: {
            if (!IsEditing()) return false;
            const uint32_t v = *static_cast<const uint32_t*>(args);
            InsertSymbol(v & 0xFFFF, v >> 16);
            return true;
        }
        case CMD_TEXT_STYLE:
            changed = ApplyStyle(*static_cast<const UstText*>(args));
            break;
        default:
            if (!IsEffectCommand(code)) return false;
            m_effect = *static_cast<const UstEffect*>(args);
            DropAllLayers();
            changed = true;
    }
    if (changed) {
        m_bDirtyAll = true;
        const UstRect before = WindowRect();
        Relayout();
        if (IsEditing()) AfterChange(before);
    }
    return changed;
}

bool CQRDObjectText::ApplyFontBlock(const UstFontBlock& font, bool faceOnly) {
    const auto [from, to] = Range();
    bool changed = false;
    for (int i = from; i < to; ++i) {
        UstCharAttr& c = m_arrChar[static_cast<size_t>(i)];
        if (SameFace(c.font, font) && (faceOnly || c.font.nSize == font.nSize)) continue;
        const int32_t size = c.font.nSize;
        c.font = font;
        if (faceOnly) c.font.nSize = size;
        MeasureChar(c, true);
        DropLayers(i, i + 1);
        changed = true;
    }
    return changed;
}

namespace {

void SetMetricField(UstCharAttr& c, uint32_t code, int32_t value) {
    switch (code) {
        case CMD_FONT_SIZE:
            c.font.nSize = value;
            break;
        case CMD_TEXT_WIDTH:
            c.metric.nWidth = value;
            break;
        case CMD_TEXT_SPACING:
            c.metric.nSpacing = value;
            break;
        case CMD_TEXT_LEADING:
            c.metric.nLeading = value;
            break;
        default:
            c.metric.nShear = value;
    }
}

int32_t MetricField(const UstCharAttr& c, uint32_t code) {
    switch (code) {
        case CMD_FONT_SIZE:
            return c.font.nSize;
        case CMD_TEXT_WIDTH:
            return c.metric.nWidth;
        case CMD_TEXT_SPACING:
            return c.metric.nSpacing;
        case CMD_TEXT_LEADING:
            return c.metric.nLeading;
        default:
            return c.metric.nShear;
    }
}

}  // namespace

bool CQRDObjectText::ApplyMetric(uint32_t code, int32_t value) {
    if (code == CMD_FONT_SIZE) value = std::clamp(value, 1, MAX_TEXT_SIZE);
    const auto [from, to] = Range();
    bool changed = false;
    for (int i = from; i < to; ++i) {
        UstCharAttr& c = m_arrChar[static_cast<size_t>(i)];
        // The fields are packed: read and write them by value.
        if (MetricField(c, code) == value) continue;
        SetMetricField(c, code, value);
        changed = true;
        // Spacing and leading move characters; they do not change them.
        if (code == CMD_TEXT_SPACING || code == CMD_TEXT_LEADING) continue;
        MeasureChar(c, true);
        DropLayers(i, i + 1);
    }
    return changed;
}

bool CQRDObjectText::ApplyPaint(uint32_t code, const UstFill& fill) {
    const size_t slot = code - CMD_BODY_PAINT;
    const bool kindChanged = m_attr.fill[slot].nType != fill.nType;
    m_attr.fill[slot] = fill;
    if (code != CMD_BODY_PAINT || kindChanged) {
        DropAllLayers();
        if (code != CMD_BODY_PAINT || fill.nType != 0) return true;
    }
    if (fill.nType != 0) return true;
    const auto [from, to] = Range();
    for (int i = from; i < to; ++i) {
        UstCharAttr& c = m_arrChar[static_cast<size_t>(i)];
        if (c.clrFill == fill.clrSolid) continue;
        c.clrFill = fill.clrSolid;
        DropLayers(i, i + 1);
    }
    return true;
}

bool CQRDObjectText::ApplyStyle(const UstText& style) {
    m_attr = style.attr;
    m_effect = style.effect;
    const bool known = IsFaceInstalled(style.character.font);
    const auto [from, to] = Range();
    for (int i = from; i < to; ++i) {
        UstCharAttr& c = m_arrChar[static_cast<size_t>(i)];
        c.clrFill = style.character.clrFill;
        if (known)
            c.font = style.character.font;
        else
            c.font.nSize = style.character.font.nSize;
    }
    for (UstCharAttr& c : m_arrChar)
        MeasureChar(c, true);
    DropAllLayers();
    return true;
}

bool CQRDObjectText::SetRotation(int32_t angle) {
    if (angle == m_nAngle) return false;
    m_nAngle = angle;
    m_pRotated.Reset();
    UpdateStored(true);
    RecalcHandles();
    return true;
}

void CQRDObjectText::Nudge(int dx, int dy) {
    if (dx == 0 && dy == 0) return;
    m_bDirtyAll = true;
    m_rcView = Offset(m_rcView, dx, dy);
    m_fViewX += static_cast<float>(dx);
    m_fViewY += static_cast<float>(dy);
    for (UstCharPos& p : m_layout.pos) {
        p.x += static_cast<float>(dx);
        p.y += static_cast<float>(dy);
    }
    for (UstFES& g : m_arrGlyph) {
        g.x += dx, g.y += dy;
        g.faceX += dx, g.faceY += dy;
    }
    m_rcCaret = Offset(m_rcCaret, dx, dy);
    SyncStored();
    RecalcHandles();
}

// ---- sizing ----

void CQRDObjectText::FitToRect(const UstRect& before, const UstRect& after) {
    const bool widthChanged = before.Width() != after.Width();
    const bool heightChanged = before.Height() != after.Height();
    if (!widthChanged && !heightChanged) return;
    if (heightChanged) {
        const double ratio =
            before.Height() > 0 ? static_cast<double>(after.Height()) / before.Height() : 1.0;
        for (UstCharAttr& c : m_arrChar) {
            c.font.nSize =
                std::clamp(RoundToInt(static_cast<float>(c.font.nSize * ratio)), 1, MAX_TEXT_SIZE);
            c.metric.nLeading = RoundToInt(static_cast<float>(c.metric.nLeading * ratio));
        }
        m_fViewY += static_cast<float>(after.top - before.top);
    }
    m_fViewX += static_cast<float>(after.left - before.left);
    // The width the text has at 100 percent decides the ratio that fills
    // the new width.
    std::vector<UstCharAttr> plain = m_arrChar;
    for (UstCharAttr& c : plain) {
        c.metric.nWidth = 100;
        MeasureChar(c, true);
    }
    UstTextLayout layout;
    UstRect measured;
    LayoutText(layout, 0, 0, measured, plain.data(), static_cast<int>(plain.size()), m_fScale,
               m_fScale);
    if (measured.Width() > 0) {
        const int percent =
            RoundToInt(static_cast<float>(100.0 * after.Width() / measured.Width()));
        for (UstCharAttr& c : m_arrChar)
            c.metric.nWidth = std::max(1, percent);
    }
    for (UstCharAttr& c : m_arrChar)
        MeasureChar(c, true);
    DropAllLayers();
    Relayout();
    if (CTextEditHost* host = EditHost(); !m_arrChar.empty() && host) {
        UstDefaultAttr& work = host->WorkingAttr();
        work.font = m_arrChar.front().font;
        work.metric = m_arrChar.front().metric;
        host->AttrChanged();
    }
}

}  // namespace orv
