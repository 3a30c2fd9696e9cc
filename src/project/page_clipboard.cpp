// The page's side of the clipboard: copying and cutting the selection,
// objects and text pasted onto the page, and a paste into the text under
// edit.
#include <QDir>
#include <QFileInfo>
#include <QMimeData>

#include "objects/text_object.h"
#include "project/clipboard_formats.h"
#include "project/object_folder.h"
#include "project/page_manager.h"

namespace orv {

namespace {

// Pasted text comes as it would be typed; a paste of a whole file must not
// drown the page.
constexpr qsizetype PASTED_TEXT_LIMIT = 100000;
// Any of the effect-size commands carries the whole effect record.
constexpr uint32_t CMD_EFFECT_SIZES = 225;

}  // namespace

bool CPageManager::CopySelection(QMimeData& mime) const {
    if (!CanCopy()) return false;
    CByteWriter out;
    for (const CQRDObject* o : m_selection)
        o->SaveState(out);
    SetMimeBlock(mime, MIME_OBJECTS,
                 CountedBlock(static_cast<uint32_t>(m_selection.size()), out.Bytes()));
    SetMimeSourceFolder(mime, ObjectFolder());
    return true;
}

int CPageManager::CutSelection(QMimeData* mime) {
    if (!mime || !CopySelection(*mime)) return 0;
    const UstRect before = SelectionWindowRect();
    CQRDObjectText* edited = EditedText();
    if (edited && edited->HasSelection()) {
        edited->DeleteForward();
        RedrawEditing(before);
    } else {
        DeleteSelection();
        Redraw(before);
    }
    return Tail();
}

int CPageManager::AddObjectsFromFlat(const std::vector<uint8_t>& block, const QString& sourceFolder,
                                     bool activePage) {
    CByteReader in(block);
    if (in.Remaining() < 4) return 0;
    const auto count = in.Get<uint32_t>();
    auto objects = ReadFlatObjects(in, count, this, false, 1);
    if (objects.size() != count || count == 0) return 0;
    const QString target = ObjectFolder();
    const bool foreign = !sourceFolder.isEmpty() && !target.isEmpty() &&
                         QDir(sourceFolder).canonicalPath() != QDir(target).canonicalPath();
    CFileLinkTable* links = m_pDoc ? m_pDoc->FileLinks() : nullptr;
    const auto rename = [&](const QString& name) {
        // Media of another project come along into this one's folder.
        const QString source = QDir(sourceFolder).filePath(name);
        QString copied;
        if (!foreign || !links || name.isEmpty() || !QFileInfo(source).isFile() ||
            !CopyToObjectFolder(source, copied, target, *links))
            return name;
        return copied;
    };
    for (auto& o : objects) {
        o->RelinkMedia(rename);
        CQRDObject* added = AddObject(std::move(o));
        if (activePage) Select(added);
    }
    return static_cast<int>(count);
}

bool CPageManager::AddTextFromClipboard(const QString& text, bool activePage) {
    QString typed = text.left(PASTED_TEXT_LIMIT);
    typed.remove(QChar(10));
    if (typed.isEmpty()) return false;
    auto object = std::make_unique<CQRDObjectText>(this);
    object->SetOrigin(100.0f, 200.0f);
    object->SetPlainText(typed);
    if (object->IsBlank()) return false;
    CQRDObject* added = AddObject(std::move(object));
    if (activePage) Select(added);
    return true;
}

void CPageManager::FinishPaste(bool activePage) {
    RebuildPageText(false);
    UpdateThumbnail();
    SetModified(true);
    if (!activePage)
        for (auto& o : m_objects)
            o->ReleaseCache();
}

int CPageManager::PasteIntoEditedText(const QMimeData* mime) {
    CQRDObjectText* edited = EditedText();
    if (!mime || !edited) return 0;
    const UstRect before = edited->GetInvalidRect();
    const std::vector<uint8_t> block = MimeBlock(*mime, MIME_OBJECTS);
    uint32_t count = 0;
    int32_t kind = 0;
    if (PeekObjectBlock(block, &count, &kind) && count == 1 && kind == OBJ_TEXT) {
        // One copied text lends its look to the text under edit.
        CByteReader in(block.data() + 4, block.size() - 4);
        CQRDObjectText look;
        try {
            if (!look.LoadState(in, 0)) return 0;
        } catch (const std::out_of_range&) {
            return 0;
        }
        edited->Execute(&look.m_effect, CMD_EFFECT_SIZES);
        for (uint32_t paint = 0; paint < 4; ++paint)
            edited->Execute(&look.m_attr.fill[paint], CMD_BODY_PAINT + paint);
        RedrawEditing(before);
        return 1;
    }
    QString text = MimePlainText(*mime).left(PASTED_TEXT_LIMIT);
    text.remove(QChar(10));
    if (text.isEmpty()) return 0;
    edited->InsertString(text);
    return 1;
}

}  // namespace orv
