#include "project/page_manager.h"

#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"

#include <algorithm>
#include <cstring>

#include "project/canvas_overlays.h"
#include "project/clipboard_formats.h"
#include "project/thumb_file.h"

namespace orv {

CPageManager::CPageManager()
    : m_effect(MakeDefaultPageEffect()),
      m_blink(MakeDefaultPageBlink()),
      m_typing(MakeDefaultPageTyping()) {
    m_background.pPage = this;
}

CPageManager::CPageManager(CPageDoc* doc, CPageView* view) : CPageManager() {
    m_pDoc = doc;
    m_pView = view;
    if (doc) {
        m_nThumbWidth = doc->ThumbWidth();
        m_nThumbHeight = doc->ThumbHeight();
    }
    m_pThumbBits.assign(static_cast<size_t>(m_nThumbWidth) * m_nThumbHeight, 0);
    if (doc) m_strThumbFile = CreateThumbFile(doc->DataFolder(), m_nThumbWidth, m_nThumbHeight);
    CopyViewFrame();
}

CPageManager::~CPageManager() = default;

float CPageManager::GetZoom() const {
    return m_pView ? m_pView->Zoom() : 100.0f;
}

void CPageManager::CopyViewFrame() {
    if (!m_pView) return;
    const UstViewFrame f = m_pView->GetViewFrame();
    m_rcFrame = f.rcFrame;
    m_nWidth = f.nWidth;
    m_nHeight = f.nHeight;
    m_nOriginX = f.nOriginX;
    m_nOriginY = f.nOriginY;
    m_pCanvas = f.pCanvas;
}

void CPageManager::Attach(CPageDoc* doc, CPageView* view) {
    m_pDoc = doc;
    m_pView = view;
    if (doc) {
        m_nThumbWidth = doc->ThumbWidth();
        m_nThumbHeight = doc->ThumbHeight();
    }
    CopyViewFrame();
    m_nScrollX = m_nScrollY = 0;
    for (auto& o : m_objects)
        o->Attach(this);
    // A missing or foreign file leaves the thumbnail blank.
    m_pThumbBits = ReadThumbFile(ThumbPath(), m_nThumbWidth, m_nThumbHeight);
    RebuildPageText(false);
}

void CPageManager::SetModified(bool modified) {
    m_bModified = modified ? 1 : 0;
    if (modified && m_pDoc) m_pDoc->SetProjectModified();
}

void CPageManager::PushUndo(int kind) {
    if (m_pDoc) m_pDoc->PushUndo(*this, kind);
}

int CPageManager::Tail() {
    RebuildPageText(false);
    UpdateThumbnail();
    if (m_pDoc) {
        m_pDoc->RefreshPreviewList();
        m_pDoc->RefreshTextList();
    }
    SetModified(true);
    PushUndo(4);
    return 1;
}

void CPageManager::Redraw(const UstRect& before) {
    RenderCanvas();
    DrawHandles();
    if (m_pView) m_pView->InvalidateRect(UnionRect(before, SelectionWindowRect()));
}

void CPageManager::FinishGesture(const UstRect& before) {
    Redraw(before);
    Tail();
}

int CPageManager::ExecCommand(const void* arg, uint32_t id, CQRDObject* target) {
    switch (id) {
        case CMD_SET_RECT: {
            if (!target || !arg || Find(target) == m_objects.end()) return 0;
            const UstRect before = SelectionWindowRect();
            target->Execute(arg, CMD_SET_RECT);
            Redraw(before);
            return 1;
        }
        case CMD_NUDGE_RIGHT:
        case CMD_NUDGE_LEFT:
        case CMD_NUDGE_UP:
        case CMD_NUDGE_DOWN:
            return Nudge(arg, id);
        case CMD_ALIGN_RIGHT:
        case CMD_ALIGN_LEFT:
        case CMD_ALIGN_TOP:
        case CMD_ALIGN_BOTTOM:
            return AlignToEdge(id);
        case CMD_CENTRE:
        case CMD_CENTRE_H:
        case CMD_CENTRE_V:
        case CMD_TO_LEFT:
        case CMD_TO_RIGHT:
        case CMD_TO_TOP:
        case CMD_TO_BOTTOM:
            return AlignToPage(id);
        case CMD_TO_FRONT:
        case CMD_TO_BACK:
        case CMD_FORWARD:
        case CMD_BACKWARD:
            return ZOrder(id);
        case CMD_DELETE: {
            if (m_selection.empty()) return 0;
            const UstRect before = SelectionWindowRect();
            DeleteSelection();
            Redraw(before);
            return Tail();
        }
        case CMD_PAGE_TYPE:
            return SetPageType(arg);
        case CMD_BLINK:
        case CMD_TYPING: {
            // The marks of the selection change on the canvas.
            const int result = SetEffectValue(arg, id);
            if (result) Redraw(SelectionWindowRect());
            return result;
        }
        case CMD_BLINK_PROPERTIES:
        case CMD_TYPING_PROPERTIES:
            return SetEffectValue(arg, id);
        case CMD_FONT_FACE:
        case CMD_FONT_SIZE:
        case CMD_TEXT_WIDTH:
        case CMD_TEXT_SPACING:
        case CMD_TEXT_LEADING:
        case CMD_TEXT_SHEAR:
        case CMD_TEXT_STYLE:
            return TextCommand(arg, id);
        case CMD_BODY_PAINT:
        case CMD_EDGE_PAINT:
        case CMD_OUTLINE_PAINT:
        case CMD_SHADOW_PAINT:
            return LookCommand(arg, id);
        case CMD_SYMBOL:
            return SymbolCommand(arg);
        case CMD_SPLIT_LINES:
        case CMD_SPLIT_CHARS:
            return SplitText(id == CMD_SPLIT_CHARS);
        case CMD_EDIT_SHAPE:
            return EditShapeCommand();
        case CMD_SHAPE_STYLE:
            return ShapeStyleCommand(arg);
        case CMD_INSERT_PICTURE:
        case CMD_INSERT_PICTURE_FILE:
            return arg && InsertPicture(*static_cast<const QString*>(arg)) ? 1 : 0;
        case CMD_INSERT_ANIMATION:
            return arg && InsertAnimation(*static_cast<const QString*>(arg)) ? 1 : 0;
        case CMD_ANIMATION_PROPERTIES:
            return AnimationProperties(arg);
        case CMD_INSERT_TIMER:
            return arg && InsertTimer(*static_cast<const UstTCSetting*>(arg)) ? 1 : 0;
        case CMD_TIMER_PROPERTIES:
            return TimerProperties(arg);
        case CMD_INSERT_BACKGROUND:
        case CMD_INSERT_BACKGROUND_FILE:
            return arg ? InsertBackground(*static_cast<const QString*>(arg)) : 0;
        case CMD_ERASE_BACKGROUND:
            return EraseBackground();
        case CMD_START_KEYING:
            return StartKeying();
        case CMD_PICTURE_ALPHA:
        case CMD_KEY_COLOUR:
            return PictureCommand(arg, id);
        case CMD_RESET_KEY:
            return ResetKey();
        case CMD_GROUP:
            return GroupSelection() ? 1 : 0;
        case CMD_UNGROUP:
            return UngroupSelection();
        case CMD_CUT:
            return CutSelection(static_cast<QMimeData*>(const_cast<void*>(arg)));
        case CMD_PASTE:
            return PasteIntoEditedText(static_cast<const QMimeData*>(arg));
        default:
            return IsEffectCommand(id) ? LookCommand(arg, id) : 0;
    }
}

int CPageManager::Nudge(const void* arg, uint32_t id) {
    if (!arg || m_selection.empty()) return 0;
    const UstRect before = SelectionWindowRect();
    for (CQRDObject* o : m_selection)
        o->Execute(arg, id);
    Redraw(before);
    return Tail();
}

bool CPageManager::MoveObjectTo(CQRDObject* object, const UstRect& rect) {
    if (rect == object->m_rcView) return false;
    const UstRect before = object->GetInvalidRect();
    object->Execute(&rect, CMD_SET_RECT);
    if (m_pView) {
        m_pView->InvalidateRect(before);
        m_pView->InvalidateRect(object->GetInvalidRect());
    }
    return true;
}

int CPageManager::AlignToEdge(uint32_t id) {
    if (m_selection.size() < 2) return 0;
    // The reference is the object furthest out; the first wins a tie.
    auto edge = [id](const UstRect& r) {
        switch (id) {
            case CMD_ALIGN_RIGHT:
                return r.right;
            case CMD_ALIGN_LEFT:
                return -r.left;
            case CMD_ALIGN_TOP:
                return -r.top;
            default:
                return r.bottom;
        }
    };
    const CQRDObject* ref = m_selection.front();
    for (const CQRDObject* o : m_selection)
        if (edge(o->m_rcView) > edge(ref->m_rcView)) ref = o;
    const UstRect& to = ref->m_rcView;
    bool moved = false;
    for (CQRDObject* o : m_selection) {
        const UstRect& r = o->m_rcView;
        const bool horizontal = id == CMD_ALIGN_RIGHT || id == CMD_ALIGN_LEFT;
        const int d = id == CMD_ALIGN_RIGHT  ? to.right - r.right
                      : id == CMD_ALIGN_LEFT ? to.left - r.left
                      : id == CMD_ALIGN_TOP  ? to.top - r.top
                                             : to.bottom - r.bottom;
        moved |= MoveObjectTo(o, horizontal ? Offset(r, d, 0) : Offset(r, 0, d));
    }
    if (!moved) return 0;
    RenderCanvas();
    DrawHandles();
    return Tail();
}

int CPageManager::AlignToPage(uint32_t id) {
    if (m_selection.empty()) return 0;
    const int w = m_nWidth, h = m_nHeight;
    const int frameWidth = m_pDoc ? m_pDoc->FrameWidth() : 1920;
    const uint32_t percent = m_pView ? m_pView->Env().nSafeInner : 11;
    const int inset = SafeAreaInset(GetZoom(), percent, frameWidth);
    bool moved = false;
    for (CQRDObject* o : m_selection) {
        const UstRect& r = o->m_rcView;
        int dx = 0, dy = 0;
        if (id == CMD_CENTRE || id == CMD_CENTRE_H) dx = w / 2 - r.Width() / 2 - r.left;
        if (id == CMD_CENTRE || id == CMD_CENTRE_V) dy = h / 2 - r.Height() / 2 - r.top;
        if (id == CMD_TO_LEFT) dx = inset - r.left;
        if (id == CMD_TO_RIGHT) dx = w - inset - r.right;
        if (id == CMD_TO_TOP) dy = inset - r.top;
        if (id == CMD_TO_BOTTOM) dy = h - inset - r.bottom;
        moved |= MoveObjectTo(o, Offset(r, dx, dy));
    }
    if (!moved) return 0;
    RenderCanvas();
    DrawHandles();
    return Tail();
}

std::vector<CQRDObject*> CPageManager::SelectedInListOrder() const {
    std::vector<CQRDObject*> out;
    for (const auto& o : m_objects) {
        if (out.size() == m_selection.size()) break;
        if (IsSelected(o.get())) out.push_back(o.get());
    }
    return out;
}

int CPageManager::ZOrder(uint32_t id) {
    const std::vector<CQRDObject*> sel = SelectedInListOrder();
    if (sel.empty() || sel.size() == m_objects.size()) return 0;
    auto index = [this](const CQRDObject* o) { return Find(o) - m_objects.begin(); };
    if (id == CMD_TO_FRONT) {
        for (CQRDObject* o : sel)
            m_objects.push_back(Remove(o));
    } else if (id == CMD_TO_BACK) {
        for (auto it = sel.rbegin(); it != sel.rend(); ++it)
            m_objects.insert(m_objects.begin(), Remove(*it));
    } else if (id == CMD_FORWARD) {
        for (auto it = sel.rbegin(); it != sel.rend(); ++it) {
            const auto i = index(*it);
            if (i + 1 < static_cast<std::ptrdiff_t>(m_objects.size()))
                std::swap(m_objects[static_cast<size_t>(i)], m_objects[static_cast<size_t>(i + 1)]);
        }
    } else {
        for (CQRDObject* o : sel) {
            const auto i = index(o);
            if (i > 0)
                std::swap(m_objects[static_cast<size_t>(i)], m_objects[static_cast<size_t>(i - 1)]);
        }
    }
    const UstRect before = SelectionWindowRect();
    Redraw(before);
    return Tail();
}

void CPageManager::ResetEffectNumbers() {
    static constexpr int32_t IN[3] = {3, 0, 1}, OUT[3] = {2, 0, 1};
    const uint32_t t = std::min<uint32_t>(m_nPageType, 2);
    m_effect.nInEffect = IN[t];
    m_effect.nOutEffect = OUT[t];
}

int CPageManager::SetPageType(const void* arg) {
    if (!arg) return 0;
    const uint32_t type = *static_cast<const uint32_t*>(arg);
    if (type > 2) return 0;
    if (IsScrollPage()) {
        m_selection.clear();
        while (!m_objects.empty()) {
            if (m_pDoc) m_pDoc->ObjectRemoved(m_objects.back().get());
            m_objects.pop_back();
        }
    }
    m_nPageType = type;
    if (IsScrollPage()) m_background.Clear();
    m_nScrollX = m_nScrollY = 0;
    m_nScrollHalf = 0;
    m_fScrollFrac = 0.0f;
    if (m_pView) m_pView->SetPageType(m_nPageType, false);
    CopyViewFrame();
    ResetEffectNumbers();
    if (IsScrollPage()) ApplyScrollOrigin();
    for (auto& o : m_objects)
        o->OnZoom();
    RenderCanvas();
    DrawHandles();
    if (m_pView) m_pView->Repaint();
    SetModified(true);
    return 1;
}

int CPageManager::SetEffectValue(const void* value, uint32_t id) {
    if (!value || id < 760 || id > 800) return 0;
    const int32_t v = *static_cast<const int32_t*>(value);
    UstPageEffect& e = m_effect;
    switch (id) {
        case 760:
        case 768:
            e.nInSpeed = v;
            break;
        case 761:
        case 769:
            e.nOutSpeed = v;
            break;
        case 762:
        case 770:
            e.nInDelay = v;
            break;
        case 763:
        case 771:
            e.nOutDelay = v;
            break;
        case 764:
            e.bInFade = !e.bInFade;
            break;
        case 765:
            e.bOutFade = !e.bOutFade;
            break;
        case 782:
            e.nRepeat = v;
            break;
        case 783:
            e.nScrollDelay = v;
            break;
        case 800:
            e.bDiscard = !e.bDiscard;
            break;
        case 784:
        case 786:
            for (CQRDObject* o : m_selection) {
                if (id == 784 && o->CanBlink()) o->SetBlink(v);
                if (id == 786) o->SetTyping(v);
            }
            break;
        case 785: {
            const auto* b = static_cast<const UstPageBlink*>(value);
            // A speed of 0 would blink without waiting: refused here, before
            // it could reach the air.
            if (b->nSpeed < BLINK_SPEED_MIN || b->nSpeed > BLINK_SPEED_MAX) return 0;
            if (std::memcmp(b, &m_blink, sizeof m_blink) != 0) m_blink = *b;
            break;
        }
        case 787: {
            const auto* t = static_cast<const UstPageTyping*>(value);
            if (std::memcmp(t, &m_typing, sizeof m_typing) != 0) m_typing = *t;
            break;
        }
        default:
            return 0;
    }
    SetModified(true);
    return 1;
}

void CPageManager::Activate(bool keepBackground, const std::vector<const CQRDObject*>& kept) {
    if (m_pView) {
        m_pView->SetPageType(m_nPageType, true);
        CopyViewFrame();
    }
    if (IsScrollPage()) ApplyScrollOrigin();
    m_selection.clear();
    if (!keepBackground) ReloadBackground();
    for (auto& o : m_objects) {
        if (std::find(kept.begin(), kept.end(), o.get()) != kept.end()) continue;
        o->OnZoom();
        o->AfterLoad();
    }
    DropGoneObjects();
    m_bActive = 1;
    RenderCanvas();
}

void CPageManager::OnViewResized() {
    CopyViewFrame();
    if (IsScrollPage()) ApplyScrollOrigin();
    for (auto& o : m_objects)
        o->OnZoom();
    RenderCanvas();
    DrawHandles();
}

void CPageManager::Deactivate() {
    for (auto& o : m_objects)
        o->EndEdit();
    m_selection.clear();
    m_background.ReleasePixels();
    for (auto& o : m_objects)
        o->ReleaseCache();
    m_bActive = 0;
}

std::vector<std::unique_ptr<CQRDObject>>::iterator CPageManager::Find(const CQRDObject* object) {
    return std::find_if(m_objects.begin(), m_objects.end(),
                        [object](const auto& p) { return p.get() == object; });
}

std::unique_ptr<CQRDObject> CPageManager::Remove(CQRDObject* object) {
    auto it = Find(object);
    if (it == m_objects.end()) return nullptr;
    std::unique_ptr<CQRDObject> owned = std::move(*it);
    m_objects.erase(it);
    return owned;
}

void CPageManager::DeleteSelection() {
    const std::vector<CQRDObject*> doomed = m_selection;
    m_selection.clear();
    for (CQRDObject* o : doomed) {
        if (m_pDoc) m_pDoc->ObjectRemoved(o);
        Remove(o);
    }
}

CQRDObject* CPageManager::AddObject(std::unique_ptr<CQRDObject> object) {
    CQRDObject* raw = object.get();
    raw->Attach(this);
    raw->OnZoom();
    m_objects.push_back(std::move(object));
    return raw;
}

CQRDObject* CPageManager::InsertNew(std::unique_ptr<CQRDObject> object) {
    const UstRect before = SelectionWindowRect();
    CQRDObject* raw = AddObject(std::move(object));
    SelectOnly(raw);
    Redraw(before);
    Tail();
    return raw;
}

bool CPageManager::IsSelected(const CQRDObject* object) const {
    return std::find(m_selection.begin(), m_selection.end(), object) != m_selection.end();
}

void CPageManager::Select(CQRDObject* object) {
    if (object && !IsSelected(object) && Find(object) != m_objects.end())
        m_selection.push_back(object);
}

void CPageManager::Unselect(CQRDObject* object) {
    m_selection.erase(std::remove(m_selection.begin(), m_selection.end(), object),
                      m_selection.end());
}

void CPageManager::ToggleSelection(CQRDObject* object) {
    if (IsSelected(object))
        Unselect(object);
    else
        Select(object);
}

void CPageManager::SelectOnly(CQRDObject* object) {
    m_selection.clear();
    Select(object);
}

UstRect CPageManager::SelectionWindowRect() const {
    UstRect all;
    for (const CQRDObject* o : m_selection)
        all = UnionRect(all, o->GetInvalidRect());
    return all;
}

bool CPageManager::OneSelectedOfKind(int kind) const {
    return m_selection.size() == 1 && m_selection.front()->GetType() == kind;
}

bool CPageManager::AnySelectedOfKind(int kind) const {
    return std::any_of(m_selection.begin(), m_selection.end(),
                       [kind](const CQRDObject* o) { return o->GetType() == kind; });
}

bool CPageManager::SelectedIsEditing() const {
    return m_selection.size() == 1 && m_selection.front()->IsEditing();
}

bool CPageManager::CanCopy() const {
    if (m_selection.empty()) return false;
    const CQRDObjectText* edited = EditedText();
    if (edited && edited->HasSelection()) return true;
    return std::none_of(m_selection.begin(), m_selection.end(),
                        [](const CQRDObject* o) { return o->IsEditing(); });
}

}  // namespace orv
