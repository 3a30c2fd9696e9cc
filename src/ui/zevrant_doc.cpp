#include "ui/zevrant_doc.h"

#include <QDir>

namespace orv {

CZevrantDoc::CZevrantDoc(QObject* parent)
    : QObject(parent),
      m_strTitle(tr("New Project")),
      m_pProject(std::make_unique<CProjectManager>(1920, 1080)) {}

CZevrantDoc::~CZevrantDoc() = default;

void CZevrantDoc::UseSessionFolder(const QString& parent) {
    if (!m_pProject->ObjectFolder().isEmpty()) return;
    QDir().mkpath(parent);
    m_pSessionFolder = std::make_unique<QTemporaryDir>(QDir(parent).filePath("session-XXXXXX"));
    if (!m_pSessionFolder->isValid()) return;
    const QString objects = QDir(m_pSessionFolder->path()).filePath("Object");
    QDir().mkpath(objects);
    m_pProject->SetObjectFolder(objects);
}

QString CZevrantDoc::AutoSave() {
    // Without a project file there is no recovery file to write to.
    if (m_strProjectPath.isEmpty() || !m_pProject->m_bModified) return {};
    return {};
}

}  // namespace orv
