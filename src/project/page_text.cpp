// The page's commands for text: the look of the selected texts, symbols,
// splitting a text into lines or characters, and the end of an edit.
#include <algorithm>

#include "project/page_manager.h"

namespace orv {

void CPageManager::ScrollToShow(const UstRect& r) {
    if (!IsScrollPage()) return;
    const UstPoint s = GetScrollOrigin();
    const bool roll = m_nPageType == 1;
    const int nearEdge = roll ? r.top : r.left, farEdge = roll ? r.bottom : r.right;
    const int origin = roll ? s.y : s.x, length = roll ? m_nHeight : m_nWidth;
    if (nearEdge >= origin && farEdge <= origin + length) return;
    ScrollToRect(r.left, r.top, r.right, r.bottom);
}

CQRDObject* CPageManager::FindText(const QString& key, bool matchCase,
                                   const CQRDObject* after) const {
    auto it = m_objects.begin();
    if (after) {
        it = std::find_if(m_objects.begin(), m_objects.end(),
                          [after](const auto& o) { return o.get() == after; });
        // A mark that is gone from the page starts the search at the head.
        it = it == m_objects.end() ? m_objects.begin() : it + 1;
    }
    for (; it != m_objects.end(); ++it) {
        if ((*it)->GetType() != OBJ_TEXT) continue;
        const QString text = (*it)->GetPlainText();
        if ((matchCase ? text : text.toLower()).contains(key)) return it->get();
    }
    return nullptr;
}

CQRDObjectText* CPageManager::EditedText() const {
    CQRDObjectText* text = m_pEditingText;
    const bool here = text && std::any_of(m_objects.begin(), m_objects.end(),
                                          [text](const auto& o) { return o.get() == text; });
    return here ? text : nullptr;
}

// Redraws everything; the text under edit comes last, by itself.
void CPageManager::RedrawAll(const UstRect& before) {
    CQRDObjectText* edited = EditedText();
    RenderCanvasExcept(edited);
    if (edited) edited->Draw();
    DrawHandles();
    if (m_pView) m_pView->InvalidateRect(UnionRect(before, SelectionWindowRect()));
}

void CPageManager::RedrawEditing(const UstRect& windowBefore) {
    CQRDObjectText* edited = EditedText();
    const size_t size = static_cast<size_t>(std::max(0, m_nWidth)) * std::max(0, m_nHeight);
    UstRect dirty;
    if (edited) edited->PrepareDraw();
    if (m_pCanvas && edited && m_bUnderlayValid && m_underlay.size() == size &&
        edited->TakeDirty(dirty)) {
        // Only where characters came, went or moved: the page as kept
        // without the text, then the text over it.
        const UstRect area{std::max(0, dirty.left), std::max(0, dirty.top),
                           std::min(m_nWidth, dirty.right), std::min(m_nHeight, dirty.bottom)};
        for (int y = area.top; y < area.bottom; ++y) {
            const size_t at = static_cast<size_t>(y) * m_nWidth + area.left;
            std::copy_n(m_underlay.begin() + static_cast<ptrdiff_t>(at), area.Width(),
                        m_pCanvas + at);
        }
        edited->DrawClipped(area);
    } else {
        RenderCanvasExcept(edited);
        if (m_pCanvas && edited) {
            m_underlay.assign(m_pCanvas, m_pCanvas + size);
            m_bUnderlayValid = true;
        }
        if (edited) edited->Draw();
    }
    if (m_pView)
        m_pView->InvalidateRect(
            UnionRect(windowBefore, edited ? edited->GetInvalidRect() : UstRect{}));
}

void CPageManager::EndTextEdit() {
    CQRDObjectText* text = EditedText();
    if (!text) return;
    const UstRect before = text->GetInvalidRect();
    text->EndEdit();
    m_bUnderlayValid = false;
    m_underlay = {};
    if (text->IsBlank()) {
        Unselect(text);
        if (m_pDoc) m_pDoc->ObjectRemoved(text);
        Remove(text);
        SetModified(true);
        RedrawAll(before);
        return;
    }
    PushUndo(4);
    SetModified(true);
    RebuildPageText(false);
    if (m_pDoc) m_pDoc->RefreshTextList();
    RedrawAll(before);
}

int CPageManager::TextCommand(const void* arg, uint32_t id) {
    if (!arg) return 0;
    const UstRect before = SelectionWindowRect();
    bool changed = false;
    for (CQRDObject* o : SelectedLeaves())
        if (o->GetType() == OBJ_TEXT || o->GetType() == OBJ_TIMER) changed |= o->Execute(arg, id);
    if (!changed) return 0;
    RefreshSelectedGroups();
    RedrawAll(before);
    return Tail();
}

int CPageManager::LookCommand(const void* arg, uint32_t id) {
    if (!arg || m_selection.empty()) return 0;
    const UstRect before = SelectionWindowRect();
    for (CQRDObject* o : SelectedLeaves())
        o->Execute(arg, id);
    RefreshSelectedGroups();
    // Colouring characters of the text under edit redraws only them.
    if (m_selection.size() == 1 && m_selection.front() == EditedText())
        RedrawEditing(before);
    else
        RedrawAll(before);
    return Tail();
}

int CPageManager::SymbolCommand(const void* arg) {
    for (CQRDObject* o : m_selection)
        if (o->GetType() == OBJ_TEXT && o->IsEditing()) return o->Execute(arg, CMD_SYMBOL) ? 1 : 0;
    return 0;
}

namespace {

// A new text of the given characters whose first one stands where it stood
// in the text it came from.
std::unique_ptr<CQRDObjectText> PieceOf(const CQRDObjectText& from, CPageContext* page,
                                        const UstTextLayout& layout, int first, int last) {
    std::vector<UstCharAttr> chars;
    for (int i = first; i <= last; ++i) {
        const UstCharAttr& c = from.Chars()[static_cast<size_t>(i)];
        if (c.nChar != CHAR_LINE_END) chars.push_back(c);
    }
    if (chars.empty()) return nullptr;
    auto piece = std::make_unique<CQRDObjectText>(page);
    piece->m_attr = from.m_attr;
    piece->m_effect = from.m_effect;
    piece->m_nAngle = from.m_nAngle;
    const UstCharAttr& head = from.Chars()[static_cast<size_t>(first)];
    const UstCharPos at = layout.pos[static_cast<size_t>(first)];
    piece->SetChars(std::move(chars));
    piece->SetOrigin(at.x - static_cast<float>(head.nOriginX),
                     at.y + static_cast<float>(head.nOriginY));
    return piece;
}

}  // namespace

int CPageManager::SplitText(bool intoChars) {
    if (m_selection.size() != 1 || m_selection.front()->GetType() != OBJ_TEXT) return 0;
    auto* text = static_cast<CQRDObjectText*>(m_selection.front());
    const UstTextLayout layout = text->StoredLayout();
    if (intoChars ? text->CharCount() <= 1 : layout.nLines <= 1) return 0;
    if (text->IsEditing()) EndTextEdit();
    const UstRect before = SelectionWindowRect();
    std::vector<std::unique_ptr<CQRDObjectText>> pieces;
    if (intoChars) {
        for (int i = 0; i < text->CharCount(); ++i)
            if (!IsBlankChar(text->Chars()[static_cast<size_t>(i)].nChar))
                pieces.push_back(PieceOf(*text, this, layout, i, i));
    } else {
        for (const auto& [first, last] : layout.lineRange)
            pieces.push_back(PieceOf(*text, this, layout, first, last));
    }
    m_selection.clear();
    if (m_pDoc) m_pDoc->ObjectRemoved(text);
    Remove(text);
    for (auto& piece : pieces)
        if (piece) Select(AddObject(std::move(piece)));
    RedrawAll(before);
    return Tail();
}

}  // namespace orv
