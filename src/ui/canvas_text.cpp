// The canvas while a text is under edit: the mouse, keys and input method
// go to the text, and the canvas shows its caret.
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "objects/text_object.h"
#include "project/project_manager.h"
#include "render/font_service.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

const UstDefaultAttr& CZevrantView::DefaultAttr() const {
    static const UstDefaultAttr fallback = MakeDefaultDefaultAttr(DefaultGuiFaceName());
    return m_pFrame ? m_pFrame->m_DefaultAttr : fallback;
}

UstDefaultAttr& CZevrantView::WorkingAttr() {
    static UstDefaultAttr fallback = MakeDefaultDefaultAttr(DefaultGuiFaceName());
    return m_pFrame ? m_pFrame->m_WorkAttr : fallback;
}

void CZevrantView::AttrChanged() {
    if (m_pFrame) QMetaObject::invokeMethod(m_pFrame, "OnAttrChanged", Qt::QueuedConnection);
}

void CZevrantView::SetCanvasMode(int mode) {
    if (m_pFrame) m_pFrame->m_nCanvasMode = mode;
    setAttribute(Qt::WA_InputMethodEnabled, mode == MODE_TEXT);
    if (hasFocus()) QGuiApplication::inputMethod()->update(Qt::ImEnabled);
    setCursor(mode == MODE_TEXT ? Qt::IBeamCursor : Qt::ArrowCursor);
}

void CZevrantView::ShowCaret(const UstRect& canvasRect) {
    const QRect old = m_rcCaret;
    m_rcCaret = canvasRect.Width() > 0 ? canvasRect.ToQRect() : QRect();
    update(old.translated(m_rcPage.topLeft()));
    update(m_rcCaret.translated(m_rcPage.topLeft()));
    if (hasFocus()) QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
}

void CZevrantView::TextChanged(CQRDObjectText& /*text*/, const UstRect& windowBefore) {
    if (CPageManager* page = Page()) page->RedrawEditing(windowBefore);
}

void CZevrantView::CompleteComposition() {
    QGuiApplication::inputMethod()->commit();
}

CQRDObjectText* CZevrantView::EditedText() const {
    CPageManager* page = Page();
    return page ? page->EditedText() : nullptr;
}

CQRDObjectText* CZevrantView::StartNewText(const QPoint& canvas) {
    CPageManager* page = Page();
    if (!page) return nullptr;
    EndTextEdit();
    auto* text =
        static_cast<CQRDObjectText*>(page->AddObject(std::make_unique<CQRDObjectText>(page)));
    EditText(text, canvas, false);
    return text;
}

void CZevrantView::EditText(CQRDObjectText* text, const QPoint& canvas, bool selectAll) {
    CPageManager* page = Page();
    if (!page || !text) return;
    if (EditedText() != text) EndTextEdit();
    page->SelectOnly(text);
    text->BeginEdit(canvas.x(), canvas.y(), selectAll);
    setFocus();
    page->RedrawEditing(text->GetInvalidRect());
    update();
}

void CZevrantView::EndTextEdit() {
    CPageManager* page = Page();
    if (!page || !page->EditedText()) return;
    page->EndTextEdit();
    m_rcCaret = QRect();
    page->RenderCanvas();
    page->DrawHandles();
    update();
}

// While a text is under edit the left button belongs to it; a click outside
// it ends the edit and then acts as usual.
bool CZevrantView::EditingMousePress(QMouseEvent* event, const QPoint& canvas) {
    CQRDObjectText* text = EditedText();
    if (!text || event->button() != Qt::LeftButton) return false;
    if (text->MouseDown(canvas.x(), canvas.y())) return true;
    EndTextEdit();
    return false;
}

void CZevrantView::mouseDoubleClickEvent(QMouseEvent* event) {
    CPageManager* page = Page();
    const QPoint window = event->position().toPoint();
    if (!page || !m_pFrame || m_pFrame->m_nPlayState != 0 || !m_rcPage.contains(window)) return;
    if (event->button() != Qt::LeftButton || EditedText()) return;
    const QPoint canvas = ToCanvas(window);
    CQRDObject* hit = page->HitTestObject(canvas.x(), canvas.y());
    const bool select = m_pFrame->m_nCanvasMode == MODE_SELECT;
    m_drag = {};
    if (select && hit && hit->GetType() == OBJ_TEXT && !hit->m_bLocked) {
        EditText(static_cast<CQRDObjectText*>(hit), canvas, false);
        return;
    }
    m_pFrame->m_nCanvasMode = MODE_SELECT;
    StartNewText(canvas);
}

bool CZevrantView::EditingKey(QKeyEvent* event) {
    CQRDObjectText* text = EditedText();
    if (!text) return false;
    // Keys belong to the input method while it composes.
    if (text->m_nImeState & IME_COMPOSING) return true;
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
        case Qt::Key_Backspace:
            text->Backspace();
            return true;
        case Qt::Key_Delete:
            text->DeleteForward();
            return true;
        case Qt::Key_Left:
            text->MoveCaret(CARET_LEFT, shift);
            return true;
        case Qt::Key_Right:
            text->MoveCaret(CARET_RIGHT, shift);
            return true;
        case Qt::Key_Up:
            text->MoveCaret(CARET_UP, shift);
            return true;
        case Qt::Key_Down:
            text->MoveCaret(CARET_DOWN, shift);
            return true;
        case Qt::Key_Home:
            text->MoveCaret(CARET_HOME, shift);
            return true;
        case Qt::Key_End:
            text->MoveCaret(CARET_END, shift);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            text->InsertChar(CHAR_LINE_END);
            return true;
        case Qt::Key_Escape:
            EndTextEdit();
            return true;
        default:
            break;
    }
    if (control && event->key() == Qt::Key_V) {
        PasteIntoText();
        return true;
    }
    if (control || event->modifiers().testFlag(Qt::AltModifier)) return false;
    if (!event->text().isEmpty()) text->InsertString(event->text());
    return true;
}

void CZevrantView::PasteIntoText() {
    CQRDObjectText* text = EditedText();
    if (!text) return;
    const QString pasted = QApplication::clipboard()->text();
    // A paste of anything that is not text must not drown the editor.
    constexpr qsizetype LIMIT = 100000;
    text->InsertString(pasted.left(LIMIT));
}

// The input method's composition maps onto the text's: start, replace the
// running string, confirm, cancel, and a cursor inside the composition.
void CZevrantView::inputMethodEvent(QInputMethodEvent* event) {
    CQRDObjectText* text = EditedText();
    if (!text) {
        event->ignore();
        return;
    }
    int cursor = static_cast<int>(event->preeditString().size());
    for (const QInputMethodEvent::Attribute& a : event->attributes())
        if (a.type == QInputMethodEvent::Cursor) cursor = a.start;
    const bool composing = text->m_nImeState & IME_COMPOSING;
    if (!event->commitString().isEmpty()) {
        text->ImeResult(event->commitString());
        if (event->preeditString().isEmpty()) text->ImeEnd();
    }
    if (!event->preeditString().isEmpty()) {
        text->ImeComposition(event->preeditString(), cursor);
    } else if (composing && event->commitString().isEmpty()) {
        text->ImeComposition(QString(), 0);  // cancelled: the composition goes
        text->ImeEnd();
    }
    event->accept();
}

QVariant CZevrantView::inputMethodQuery(Qt::InputMethodQuery query) const {
    switch (query) {
        case Qt::ImEnabled:
            return EditedText() != nullptr;
        case Qt::ImCursorRectangle:
            return m_rcCaret.translated(m_rcPage.topLeft());
        case Qt::ImHints:
            return static_cast<int>(Qt::ImhMultiLine);
        default:
            return QWidget::inputMethodQuery(query);
    }
}

}  // namespace orv
