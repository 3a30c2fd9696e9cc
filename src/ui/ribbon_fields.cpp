// The ribbon's uniform control pattern: a field shows the value of the
// record in force, a typed value is parsed, clamped and written back, and
// a changed value goes to the objects through RouteCommand. Play settings
// of pages take their own path.
#include <cstddef>
#include <cstring>

#include <QAction>
#include <QLineEdit>
#include <QSlider>

#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/project_manager.h"
#include "shell/command_table.h"
#include "ui/main_frame.h"
#include "ui/ribbon_bar.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr uint32_t ID_ALPHA = 218, ID_RED = 802, ID_GREEN = 803, ID_BLUE = 804;

// The whole-object look of an object that has one.
bool ObjectLook(const CQRDObject* o, UstAttr* attr, UstEffect* effect) {
    switch (o->GetType()) {
        case OBJ_TEXT: {
            const auto* t = static_cast<const CQRDObjectText*>(o);
            *attr = t->m_attr;
            *effect = t->m_effect;
            return true;
        }
        case OBJ_SHAPE: {
            const auto* s = static_cast<const CQRDObjectShape*>(o);
            *attr = s->m_attr;
            *effect = s->m_effect;
            return true;
        }
        default:
            return false;
    }
}

// Where a field's number stands in the record, in bytes; -1 when the id is
// none of its fields. Packed records are read and written by copying.
constexpr int NO_FIELD = -1;

int EffectOffset(uint32_t id) {
    switch (id) {
        case 225:
            return offsetof(UstEffect, nEdge);
        case 226:
            return offsetof(UstEffect, nEdgeSoft);
        case 227:
            return offsetof(UstEffect, nOutline);
        case 232:
            return offsetof(UstEffect, nShadowX);
        case 233:
            return offsetof(UstEffect, nShadowY);
        case 234:
            return offsetof(UstEffect, nShadowSoft);
        default:
            return NO_FIELD;
    }
}

int AttrOffset(uint32_t id) {
    if (const int at = EffectOffset(id); at != NO_FIELD)
        return static_cast<int>(offsetof(UstDefaultAttr, effect)) + at;
    const int metric = offsetof(UstDefaultAttr, metric);
    switch (id) {
        case CMD_FONT_SIZE:
            return offsetof(UstDefaultAttr, font) + offsetof(UstFontBlock, nSize);
        case CMD_TEXT_WIDTH:
            return metric + offsetof(UstTextMetric, nWidth);
        case CMD_TEXT_SPACING:
            return metric + offsetof(UstTextMetric, nSpacing);
        case CMD_TEXT_LEADING:
            return metric + offsetof(UstTextMetric, nLeading);
        case CMD_TEXT_SHEAR:
            return metric + offsetof(UstTextMetric, nShear);
        default:
            return NO_FIELD;
    }
}

int PageEffectOffset(uint32_t id) {
    switch (id) {
        case 760:
            return offsetof(UstPageEffect, nInSpeed);
        case 761:
            return offsetof(UstPageEffect, nOutSpeed);
        case 762:
            return offsetof(UstPageEffect, nInDelay);
        case 763:
            return offsetof(UstPageEffect, nOutDelay);
        case 782:
            return offsetof(UstPageEffect, nRepeat);
        case 783:
            return offsetof(UstPageEffect, nScrollDelay);
        default:
            return NO_FIELD;
    }
}

int32_t ReadAt(const void* record, int at) {
    int32_t v = 0;
    std::memcpy(&v, static_cast<const char*>(record) + at, sizeof v);
    return v;
}

void WriteAt(void* record, int at, int32_t v) {
    std::memcpy(static_cast<char*>(record) + at, &v, sizeof v);
}

int ChannelShift(uint32_t id) {
    switch (id) {
        case ID_ALPHA:
            return 24;
        case ID_RED:
            return 16;
        case ID_GREEN:
            return 8;
        case ID_BLUE:
            return 0;
        default:
            return -1;
    }
}

}  // namespace

UstDefaultAttr& CMainFrame::GetAttrForSelection() {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || page->Selection().empty()) return m_DefaultAttr;
    const CQRDObject* o = page->Selection().front();
    ObjectLook(o, &m_WorkAttr.attr, &m_WorkAttr.effect);
    // The caret publishes the look of the text under edit; a text selected
    // whole shows its first character's.
    if (o->GetType() == OBJ_TEXT && !o->IsEditing()) {
        const auto& chars = static_cast<const CQRDObjectText*>(o)->Chars();
        if (!chars.empty()) {
            m_WorkAttr.font = chars.front().font;
            m_WorkAttr.metric = chars.front().metric;
        }
    }
    return m_WorkAttr;
}

int CMainFrame::RouteCommand(const void* arg, uint32_t id) {
    CZevrantView* view = ActiveView();
    if (!view || m_nPlayState == 2) return 0;
    if (m_bMasterMode && IsMasterCommand(id)) {
        const int result = view->Document()->Project().ExecCommand(arg, id);
        view->update();
        return result;
    }
    return view->PageCommand(id, arg);
}

bool CMainFrame::FieldValue(uint32_t id, int32_t* value) {
    UstDefaultAttr& rec = GetAttrForSelection();
    if (const int at = AttrOffset(id); at != NO_FIELD) {
        *value = ReadAt(&rec, at);
        return true;
    }
    if (const int shift = ChannelShift(id); shift >= 0) {
        *value = static_cast<int32_t>((rec.attr.fill[m_nPaintSlot].clrSolid >> shift) & 0xFF);
        return true;
    }
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page) return false;
    if (id == CMD_PICTURE_ALPHA) {
        const auto& sel = page->Selection();
        if (sel.size() != 1 || sel.front()->GetType() != OBJ_PICTURE) return false;
        *value = static_cast<const CQRDObjectPicture*>(sel.front())->m_nAlpha;
        return true;
    }
    if (const int at = PageEffectOffset(id); at != NO_FIELD) {
        *value = ReadAt(&page->m_effect, at);
        return true;
    }
    return false;
}

void CMainFrame::StoreField(UstDefaultAttr& rec, uint32_t id, int32_t value) {
    if (const int at = AttrOffset(id); at != NO_FIELD) WriteAt(&rec, at, value);
    if (const int shift = ChannelShift(id); shift >= 0) {
        UstFill& fill = rec.attr.fill[m_nPaintSlot];
        fill.clrSolid =
            (fill.clrSolid & ~(0xFFu << shift)) | (static_cast<uint32_t>(value) << shift);
        fill.nType = 0;
    }
}

// Attribute fields go through RouteCommand with the record; the font size
// with nothing selected stays in the default record, which new text takes.
void CMainFrame::SendField(UstDefaultAttr& rec, uint32_t id, int32_t value) {
    if (EffectOffset(id) != NO_FIELD) {
        RouteCommand(&rec.effect, id);
    } else if (ChannelShift(id) >= 0) {
        RouteCommand(&rec.attr.fill[m_nPaintSlot],
                     CMD_BODY_PAINT + static_cast<uint32_t>(m_nPaintSlot));
    } else if (id == CMD_FONT_SIZE && &rec == &m_DefaultAttr && !m_bMasterMode) {
        return;
    } else if (AttrOffset(id) != NO_FIELD || id == CMD_PICTURE_ALPHA) {
        RouteCommand(&value, id);
    } else {
        SendEffectValue(id, value);
    }
}

// Several pages selected: the project sets all of them; else the current
// page alone.
int CMainFrame::SendEffectValue(uint32_t id, int32_t value) {
    CZevrantView* view = ActiveView();
    if (!view || m_nPlayState == 2) return 0;
    CProjectManager& project = view->Document()->Project();
    if (!project.m_aSelPages.empty()) return project.SetPagesEffectValue(&value, id);
    CPageManager* page = project.GetCurPage();
    return page ? page->SetEffectValue(&value, id) : 0;
}

void CMainFrame::OnRibbonField(uint32_t id, const QString& text) {
    QLineEdit* field = m_pRibbon ? m_pRibbon->Field(id) : nullptr;
    int32_t old = 0;
    if (!IsCommandEnabled(id) || !FieldValue(id, &old)) {
        if (field) field->setText(FieldValue(id, &old) ? QString::number(old) : QString());
        return;
    }
    const std::u16string typed = text.toStdU16String();
    const int32_t value =
        ClampToCommand(id, ParseFieldNumber(typed.data(), static_cast<int>(typed.size())));
    if (field) field->setText(QString::number(value));
    if (value == old) return;
    UstDefaultAttr& rec = GetAttrForSelection();
    StoreField(rec, id, value);
    SendField(rec, id, value);
    UpdateRibbon();
}

// At the end of its range a step keeps the value and still sends it.
void CMainFrame::OnRibbonStep(uint32_t id) {
    const UstCommand* step = FindCommand(id);
    int32_t old = 0;
    if (!step || !IsCommandEnabled(id) || !FieldValue(step->nPartner, &old)) return;
    const int32_t value = ClampToCommand(step->nPartner, int64_t{old} + step->nDelta);
    UstDefaultAttr& rec = GetAttrForSelection();
    StoreField(rec, step->nPartner, value);
    SendField(rec, step->nPartner, value);
    UpdateRibbon();
}

void CMainFrame::OnRibbonSlider(uint32_t id, int value) {
    const UstCommand* slider = FindCommand(id);
    int32_t old = 0;
    if (!slider || !IsCommandEnabled(id) || !FieldValue(slider->nPartner, &old)) return;
    const int32_t v = ClampToCommand(id, value);
    if (v != old) SendEffectValue(id, v);
    UpdateRibbon();
}

bool CMainFrame::HasCommandHandler(uint32_t id) const {
    const UstCommand* c = FindCommand(id);
    if (!c) return false;
    const auto isField = [](uint32_t f) {
        return AttrOffset(f) != NO_FIELD || ChannelShift(f) >= 0 ||
               PageEffectOffset(f) != NO_FIELD || f == CMD_PICTURE_ALPHA;
    };
    switch (c->eKind) {
        case ECommandKind::EDIT:
            return isField(id);
        case ECommandKind::STEP:
        case ECommandKind::SLIDER:
            return isField(c->nPartner);
        default: {
            if (m_commands.count(id) > 0) return true;
            const QAction* action = findChild<QAction*>(QString("cmd%1").arg(id));
            return action && !action->property("ribbonMade").toBool();
        }
    }
}

void CMainFrame::UpdateRibbonValues() {
    for (const auto& [id, widget] : m_pRibbon->Controls()) {
        int32_t value = 0;
        const bool known = FieldValue(id, &value);
        if (auto* field = qobject_cast<QLineEdit*>(widget); field && !field->hasFocus()) {
            const QString text = known ? QString::number(value) : QString();
            if (field->text() != text) field->setText(text);
        } else if (auto* slider = qobject_cast<QSlider*>(widget);
                   slider && !slider->isSliderDown()) {
            const UstCommand* c = FindCommand(id);
            if (c && FieldValue(c->nPartner, &value)) {
                const QSignalBlocker block(slider);
                slider->setValue(value);
            }
        }
    }
}

}  // namespace orv
