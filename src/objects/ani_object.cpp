#include "objects/ani_object.h"

#include <QDir>
#include <QFile>
#include <QPainter>

#include "objects/archive_fields.h"
#include "render/object_image.h"

namespace orv {

CQRDObjectAni::CQRDObjectAni(CPageContext* page, const QString& file, const UstRect& stored)
    : CQRDObject(page), m_strFile(file) {
    m_rcStored = stored;
    UpdateView();
    RecalcHandles();
}

QString CQRDObjectAni::FilePath() const {
    const QString folder = m_pPage ? m_pPage->ObjectFolder() : QString();
    return folder.isEmpty() ? m_strFile : QDir(folder).filePath(m_strFile);
}

void CQRDObjectAni::AfterLoad() {
    CQRDObject::AfterLoad();
    QFile file(FilePath());
    if (!m_pPage || (!m_strFile.isEmpty() && file.open(QIODevice::ReadOnly))) return;
    m_pPage->ObjectRemovedItself(this);
}

// A grey frame with a cross: where the still frame will stand.
void CQRDObjectAni::Draw() {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return;
    const int width = m_pPage->GetCanvasWidth(), height = m_pPage->GetCanvasHeight();
    const UstRect r = ScrolledViewRect();
    if (!Meets(r, {0, 0, width, height}) || r.Width() < 2 || r.Height() < 2) return;
    QImage canvas = WrapBlock(m_pPage->GetCanvasBits(), width, height);
    QPainter painter(&canvas);
    painter.setPen(QPen(QColor(128, 128, 128), 1));
    const QRect box(r.left, r.top, r.Width() - 1, r.Height() - 1);
    painter.drawRect(box);
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.topRight(), box.bottomLeft());
}

void CQRDObjectAni::Serialize(CByteWriter& out) const {
    WriteArchiveHead(out);
    out.Put(m_rcStored);
    WriteArchiveString(out, m_strFile);
    out.Put(m_words);
}

bool CQRDObjectAni::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_rcStored = in.Get<UstRect>();
    m_strFile = ReadArchiveString(in);
    m_words = in.Get<UstAniWords>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedRect(m_rcStored, "an animation");
    UpdateView();
    RecalcHandles();
    return true;
}

void CQRDObjectAni::SaveStateBody(CByteWriter& out) const {
    out.Put(m_words);
    WriteArchiveString(out, m_strFile);
}

bool CQRDObjectAni::LoadStateBody(CByteReader& in, int) {
    m_words = in.Get<UstAniWords>();
    m_strFile = ReadArchiveString(in);
    return true;
}

}  // namespace orv
