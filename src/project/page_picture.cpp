// The page's side of pictures and backgrounds: inserting them from files,
// keying, alpha, and the background under everything.
#include <QDir>

#include <algorithm>

#include "objects/picture_object.h"
#include "project/canvas_overlays.h"
#include "project/object_folder.h"
#include "project/page_manager.h"
#include "render/image_file.h"
#include "render/pixels.h"

namespace orv {

QString CPageManager::ObjectFolder() const {
    return m_pDoc ? m_pDoc->ObjectFolder() : QString();
}

CQRDObjectPicture* CPageManager::InsertPicture(const QString& source) {
    auto picture = MakePicture(source);
    return picture ? static_cast<CQRDObjectPicture*>(InsertNew(std::move(picture))) : nullptr;
}

std::unique_ptr<CQRDObjectPicture> CPageManager::MakePicture(const QString& source) {
    if (!m_pDoc || !m_pDoc->FileLinks() || !IsImageExtension(source)) return nullptr;
    // Decoded before anything is copied: a damaged file leaves no trace.
    UstPixelImage image = LoadImageFile(source);
    if (!image || image.width < 1 || image.height < 1) return nullptr;
    QString name;
    if (!CopyToObjectFolder(source, name, ObjectFolder(), *m_pDoc->FileLinks())) return nullptr;
    // A picture paints with neither, but keeps both for the file.
    auto picture = std::make_unique<CQRDObjectPicture>(this, name, image.width, image.height,
                                                       MakeDefaultAttr(), MakeDefaultEffect());
    picture->SetSource(std::move(image));
    return picture;
}

int CPageManager::InsertBackground(const QString& source) {
    if (!m_pDoc || !m_pDoc->FileLinks() || IsScrollPage()) return 0;
    if (m_background.Insert(source, ObjectFolder(), *m_pDoc->FileLinks()) !=
        EBackgroundLoad::LOADED)
        return 0;
    Repaint();
    UpdateThumbnail();
    if (m_pDoc) m_pDoc->RefreshPreviewList();
    SetModified(true);
    return 1;
}

void CPageManager::TakeBackgroundFile(const QString& name) {
    m_background.strFile = name;
    m_background.bPresent = 1;
    // Off the canvas the pixels serve only the page's image.
    if (m_background.Reload(ObjectFolder())) UpdateThumbnail();
    m_background.ReleasePixels();
    SetModified(true);
}

int CPageManager::EraseBackground() {
    if (!m_background.bPresent && m_background.strFile.isEmpty()) return 0;
    m_background.Clear();
    Repaint();
    UpdateThumbnail();
    if (m_pDoc) m_pDoc->RefreshPreviewList();
    SetModified(true);
    return 1;
}

void CPageManager::ReloadBackground() {
    const bool had = m_background.bPresent != 0;
    m_background.Reload(ObjectFolder());
    // A file gone since the last time: the page shows the backdrop.
    if (had && !m_background.bPresent) SetModified(true);
}

CQRDObjectPicture* CPageManager::PickingPicture() const {
    if (m_selection.size() != 1 || m_selection.front()->GetType() != OBJ_PICTURE) return nullptr;
    auto* picture = static_cast<CQRDObjectPicture*>(m_selection.front());
    return picture->IsPicking() ? picture : nullptr;
}

int CPageManager::StartKeying() {
    if (!OneSelectedOfKind(OBJ_PICTURE)) return 0;
    static_cast<CQRDObjectPicture*>(m_selection.front())->StartKeying();
    return 1;
}

int CPageManager::PictureCommand(const void* arg, uint32_t id) {
    if (!arg || m_selection.empty() || m_selection.front()->GetType() != OBJ_PICTURE) return 0;
    const UstRect before = SelectionWindowRect();
    if (!m_selection.front()->Execute(arg, id)) return 0;
    Redraw(before);
    return Tail();
}

int CPageManager::ResetKey() {
    if (!OneSelectedOfKind(OBJ_PICTURE)) return 0;
    if (!static_cast<CQRDObjectPicture*>(m_selection.front())->ResetKey()) return 0;
    Redraw(SelectionWindowRect());
    UpdateThumbnail();
    SetModified(true);
    return 1;
}

// What lies under the objects on the edit canvas: the backdrop, and over it
// a blended background, or a covering one instead of it.
void CPageManager::DrawBackgroundStep(const UstEnv& env) {
    const uint32_t* surface =
        m_background.bPresent ? m_background.Surface(m_nWidth, m_nHeight) : nullptr;
    if (surface && !m_background.IsBlended()) {
        CopyPixelRect(m_pCanvas, m_nWidth, {0, 0, m_nWidth, m_nHeight}, surface, m_nWidth, 0, 0,
                      m_nWidth, m_nHeight);
        return;
    }
    DrawCanvasBackdrop(m_pCanvas, m_nWidth, m_nHeight, env,
                       m_pView ? m_pView->BackdropImage() : nullptr);
    if (surface)
        BlendPixelRect(m_pCanvas, m_nWidth, {0, 0, m_nWidth, m_nHeight}, surface, m_nWidth,
                       {0, 0, m_nWidth, m_nHeight});
}

void CPageManager::DrawForPlay(uint32_t* bits, uint32_t* blinkBits, int w, int h, bool withTimers) {
    if (!bits || w <= 0 || h <= 0) return;
    // A scroll page is longer than any frame: its objects make their live
    // state here, and the strips are cut from it later.
    if (IsScrollPage()) {
        for (auto& o : m_objects)
            o->PrepareScrollImage(w, h);
        return;
    }
    DrawFrame(bits, blinkBits, w, h, withTimers);
}

void CPageManager::DrawFrame(uint32_t* bits, uint32_t* blinkBits, int w, int h, bool withTimers) {
    if (!IsScrollPage() && m_background.bPresent) {
        if (!m_background.HasPixels()) m_background.Reload(ObjectFolder());
        m_background.DrawForPlay(bits, blinkBits, w, h);
    }
    const FieldValues values = m_data.Values();
    for (auto& o : m_objects) {
        if (!withTimers && o->GetType() == OBJ_TIMER) continue;
        // A template text goes to air as a filled copy: the page keeps
        // the placeholders the operator typed.
        std::unique_ptr<CQRDObjectText> filled;
        CQRDObject* drawn = o.get();
        if (o->GetType() == OBJ_TEXT) {
            const auto* text = static_cast<const CQRDObjectText*>(o.get());
            if (text->m_nPlayShown < 0 && text->HasFields()) {
                filled = text->FilledCopy(values);
                drawn = filled.get();
            }
        }
        drawn->DrawForPlay(bits, w, h);
        if (blinkBits) drawn->PrepareBlinkFrame(blinkBits, w, h, m_blink.nMode, m_blink.crColor);
    }
}

std::vector<QString> CPageManager::FieldNames() const {
    std::vector<QString> names;
    for (const auto& o : m_objects) {
        if (o->GetType() != OBJ_TEXT) continue;
        for (const QString& n : orv::FieldNames(static_cast<const CQRDObjectText&>(*o).Chars()))
            if (std::find(names.begin(), names.end(), n) == names.end()) names.push_back(n);
    }
    return names;
}

}  // namespace orv
