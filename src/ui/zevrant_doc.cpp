#include "ui/zevrant_doc.h"

namespace orv {

CZevrantDoc::CZevrantDoc(QObject* parent) : QObject(parent), m_strTitle(tr("New Project")) {}

QString CZevrantDoc::AutoSave() {
    // Without a project file there is no recovery file to write to.
    if (m_strProjectPath.isEmpty() || !m_bModified) return {};
    return {};
}

}  // namespace orv
