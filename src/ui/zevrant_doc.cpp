#include "ui/zevrant_doc.h"

namespace orv {

CZevrantDoc::CZevrantDoc(QObject* parent)
    : QObject(parent),
      m_strTitle(tr("New Project")),
      m_pProject(std::make_unique<CProjectManager>(1920, 1080)) {}

CZevrantDoc::~CZevrantDoc() = default;

QString CZevrantDoc::AutoSave() {
    // Without a project file there is no recovery file to write to.
    if (m_strProjectPath.isEmpty() || !m_pProject->m_bModified) return {};
    return {};
}

}  // namespace orv
