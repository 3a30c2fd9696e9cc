// The picture object's state, commands and file forms; its drawing is in
// picture_draw.cpp.
#include "objects/picture_object.h"

#include <algorithm>

#include "objects/archive_fields.h"

namespace orv {

CQRDObjectPicture::CQRDObjectPicture(CPageContext* page, const QString& fileName, int sourceWidth,
                                     int sourceHeight, const UstAttr& attr, const UstEffect& effect)
    : CQRDObject(page),
      m_strFile(fileName),
      m_effect(effect),
      m_attr(attr),
      m_nSourceWidth(sourceWidth),
      m_nSourceHeight(sourceHeight) {
    m_fZoom = Zoom() / 100.0f;
    m_rcStored = {0, 0, sourceWidth, sourceHeight};
    m_rcView = {0, 0, static_cast<int>(static_cast<float>(sourceWidth) * m_fZoom),
                static_cast<int>(static_cast<float>(sourceHeight) * m_fZoom)};
    RecalcHandles();
}

void CQRDObjectPicture::Changed() {
    m_image.Reset();
    m_full.Reset();
}

void CQRDObjectPicture::ReleaseCache() {
    Changed();
    m_source = {};
    m_bSourceTried = false;
}

void CQRDObjectPicture::OnZoom() {
    CQRDObject::OnZoom();
    m_fZoom = Zoom() / 100.0f;
    m_image.Reset();
}

bool CQRDObjectPicture::EndEdit() {
    if (!m_bPicking) return false;
    m_bPicking = 0;
    return true;
}

bool CQRDObjectPicture::ResetKey() {
    const bool wasKeyed = m_bKeying != 0;
    m_bKeying = 0;
    m_crKey = 0;
    if (wasKeyed) Changed();
    return wasKeyed;
}

bool CQRDObjectPicture::Execute(const void* args, uint32_t code) {
    if (!args) return false;
    switch (code) {
        case CMD_PICTURE_ALPHA: {
            const int32_t alpha = std::clamp(*static_cast<const int32_t*>(args), 0, 255);
            if (alpha == m_nAlpha) return false;
            m_nAlpha = alpha;
            Changed();
            return true;
        }
        case CMD_KEY_COLOUR: {
            const uint32_t key = *static_cast<const uint32_t*>(args);
            m_bPicking = 0;
            if (m_bKeying && key == m_crKey) return false;
            m_bKeying = 1;
            m_crKey = key;
            Changed();
            return true;
        }
        case CMD_ROTATION: {
            const int32_t angle = *static_cast<const int32_t*>(args);
            if (angle == m_nAngle) return false;
            m_nAngle = angle;
            UpdateStored(true);
            RecalcHandles();
            return true;
        }
        default:
            return CQRDObject::Execute(args, code);
    }
}

void CQRDObjectPicture::SetSource(UstPixelImage source) {
    m_nSourceWidth = source.width;
    m_nSourceHeight = source.height;
    m_source = std::move(source);
    m_bSourceTried = true;
    Changed();
}

void CQRDObjectPicture::Serialize(CByteWriter& out) const {
    WriteArchiveHead(out);
    out.Put(m_nAngle);
    out.Put(m_rcStored);
    WriteArchiveString(out, m_strFile);
    out.Put(m_bKeying);
    out.Put(m_crKey);
    out.Put(m_nAlpha);
    out.Put(m_effect);
    out.Put(m_attr);
}

bool CQRDObjectPicture::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_nAngle = in.Get<int32_t>();
    m_rcStored = in.Get<UstRect>();
    m_strFile = ReadArchiveString(in);
    m_bKeying = in.Get<int32_t>();
    m_crKey = in.Get<uint32_t>();
    m_nAlpha = in.Get<int32_t>();
    m_effect = in.Get<UstEffect>();
    m_attr = in.Get<UstAttr>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedRect(m_rcStored, "a picture");
    CheckArchivedEffect(m_effect, "a picture");
    m_fZoom = Zoom() / 100.0f;
    ReleaseCache();
    UpdateView();
    RecalcHandles();
    return true;
}

void CQRDObjectPicture::SaveStateBody(CByteWriter& out) const {
    out.Put(m_effect);
    out.Put(m_attr);
    WriteArchiveString(out, m_strFile);
    out.Put(m_bKeying);
    out.Put(m_crKey);
    out.Put(m_nAlpha);
}

bool CQRDObjectPicture::LoadStateBody(CByteReader& in, int) {
    m_effect = in.Get<UstEffect>();
    m_attr = in.Get<UstAttr>();
    const QString file = ReadArchiveString(in);
    if (file != m_strFile) {
        m_strFile = file;
        m_source = {};
        m_bSourceTried = false;
    }
    m_bKeying = in.Get<int32_t>();
    m_crKey = in.Get<uint32_t>();
    m_nAlpha = in.Get<int32_t>();
    m_fZoom = Zoom() / 100.0f;
    Changed();
    return true;
}

void CQRDObjectPicture::RelinkMedia(const MediaRename& rename) {
    const QString file = rename(m_strFile);
    if (file == m_strFile) return;
    m_strFile = file;
    m_source = {};
    m_bSourceTried = false;
}

}  // namespace orv
