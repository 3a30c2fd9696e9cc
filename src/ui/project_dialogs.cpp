#include "ui/project_dialogs.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orv {

namespace {

constexpr const char* OPEN_SECTION = "OPEN";

QWidget* LocationRow(QWidget* parent, QLineEdit*& edit, const std::function<void()>& browse) {
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    edit = new QLineEdit(row);
    auto* button = new QPushButton(QStringLiteral("..."), row);
    button->setObjectName("browse");
    QObject::connect(button, &QPushButton::clicked, row, browse);
    layout->addWidget(edit, 1);
    layout->addWidget(button);
    return row;
}

QString BrowseFolder(QWidget* parent, const QString& from) {
    return QFileDialog::getExistingDirectory(parent, QString(), from);
}

}  // namespace

// ---- New and Save As ----

CDlgPrj::CDlgPrj(EKind kind, const QString& location, const QString& currentName, bool wide,
                 QWidget* parent)
    : QDialog(parent), m_kind(kind) {
    setObjectName("DlgPrj");
    setWindowTitle(kind == EKind::NEW ? tr("New Project") : tr("Save Project As"));
    auto* form = new QFormLayout;
    form->addRow(tr("Location:"), LocationRow(this, m_pLocation, [this] { Browse(); }));
    m_pLocation->setText(location);
    m_pLocation->setObjectName("location");
    m_pName = new QLineEdit(ProposeProjectName(currentName), this);
    m_pName->setObjectName("name");
    form->addRow(tr("Project name:"), m_pName);
    if (kind == EKind::NEW) {
        m_pHd = new QRadioButton(tr("HD(16:9)"), this);
        m_pSd = new QRadioButton(tr("SD(4:3)"), this);
        m_pHd->setObjectName("hd");
        m_pSd->setObjectName("sd");
        (wide ? m_pHd : m_pSd)->setChecked(true);
        auto* formats = new QHBoxLayout;
        formats->addWidget(m_pHd);
        formats->addWidget(m_pSd);
        form->addRow(formats);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

QString CDlgPrj::Location() const {
    return m_pLocation->text().trimmed();
}

bool CDlgPrj::Wide() const {
    return !m_pSd || !m_pSd->isChecked();
}

void CDlgPrj::Browse() {
    const QString folder = BrowseFolder(this, Location());
    if (!folder.isEmpty()) m_pLocation->setText(QDir::toNativeSeparators(folder));
}

void CDlgPrj::accept() {
    const QString name = m_pName->text().trimmed();
    if (name.isEmpty() || Location().isEmpty()) return;
    const QString folder = QDir(Location()).filePath(name);
    if (QFileInfo::exists(folder)) {
        QMessageBox::warning(this, windowTitle(),
                             tr("The project name already exists, please reenter project name."));
        return;
    }
    m_strFolder = QDir::cleanPath(folder);
    QDialog::accept();
}

// ---- Open ----

CDlgOpenPrj::CDlgOpenPrj(const QString& location, const QStringList& openProjects, QWidget* parent)
    : QDialog(parent), m_openProjects(openProjects) {
    setObjectName("DlgOpenPrj");
    setWindowTitle(tr("Open Project"));
    resize(640, 480);
    QSettings settings;
    settings.beginGroup(OPEN_SECTION);
    const bool preview = settings.value("fPreview", 0).toInt() != 0;
    m_nSortedCol = settings.value("iSortedCol", 0).toInt();
    m_bAscending = settings.value("bAscending", 1).toInt() != 0;
    settings.endGroup();

    auto* layout = new QVBoxLayout(this);
    auto* top = new QFormLayout;
    top->addRow(tr("Location:"), LocationRow(this, m_pLocation, [this] { Browse(); }));
    m_pLocation->setObjectName("location");
    m_pLocation->setText(location);
    connect(m_pLocation, &QLineEdit::editingFinished, this, &CDlgOpenPrj::Rescan);
    layout->addLayout(top);
    m_pList = new QTreeWidget(this);
    m_pList->setObjectName("projects");
    m_pList->setRootIsDecorated(false);
    m_pList->setHeaderLabels({tr("Project"), tr("Created"), tr("Modified")});
    m_pList->header()->setSectionsClickable(true);
    connect(m_pList->header(), &QHeaderView::sectionClicked, this, &CDlgOpenPrj::SortBy);
    connect(m_pList, &QTreeWidget::itemSelectionChanged, this, &CDlgOpenPrj::ShowSelected);
    connect(m_pList, &QTreeWidget::itemDoubleClicked, this, [this] { accept(); });
    layout->addWidget(m_pList, 1);
    auto* fields = new QFormLayout;
    m_pName = new QLineEdit(this);
    m_pName->setReadOnly(true);
    m_pPages = new QLineEdit(this);
    m_pPages->setReadOnly(true);
    fields->addRow(tr("Project Name:"), m_pName);
    fields->addRow(tr("Pages:"), m_pPages);
    layout->addLayout(fields);
    m_pPreview = new QCheckBox(tr("Preview"), this);
    m_pPreview->setObjectName("preview");
    m_pPreview->setChecked(preview);
    connect(m_pPreview, &QCheckBox::toggled, this, &CDlgOpenPrj::SetPreview);
    layout->addWidget(m_pPreview);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgOpenPrj::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    Rescan();
}

QString CDlgOpenPrj::Location() const {
    return m_pLocation->text().trimmed();
}

void CDlgOpenPrj::Browse() {
    const QString folder = BrowseFolder(this, Location());
    if (folder.isEmpty()) return;
    m_pLocation->setText(QDir::toNativeSeparators(folder));
    Rescan();
}

void CDlgOpenPrj::Rescan() {
    const bool preview = m_pPreview->isChecked();
    m_rows = ScanWorkspace(Location(), m_openProjects, preview);
    m_pList->clear();
    m_pList->setIconSize(preview ? QSize(PRJ_THUMB_WIDTH, PRJ_THUMB_HEIGHT) : QSize());
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const UstPrjThumb& row = m_rows[i];
        auto* item = new QTreeWidgetItem(m_pList, {QFileInfo(row.strPath).absoluteDir().dirName(),
                                                   row.strCreated, row.strModified});
        item->setData(0, Qt::UserRole, static_cast<int>(i));
        if (preview && !row.pBits.empty()) {
            const QImage icon(reinterpret_cast<const uchar*>(row.pBits.data()), PRJ_THUMB_WIDTH,
                              PRJ_THUMB_HEIGHT, PRJ_THUMB_WIDTH * 4, QImage::Format_RGB32);
            item->setIcon(0, QIcon(QPixmap::fromImage(icon.copy())));
        }
    }
    m_pList->sortItems(m_nSortedCol, m_bAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
    // Dates are read whole, not cut off behind an ellipsis.
    for (int c = 0; c < m_pList->columnCount(); ++c)
        m_pList->resizeColumnToContents(c);
    ShowSelected();
}

void CDlgOpenPrj::SetPreview(bool on) {
    // Only this choice of the dialog is written back; the one read at the
    // start stays as it was.
    QSettings settings;
    settings.setValue(QStringLiteral("%1/DlgOpenPrev").arg(OPEN_SECTION), on ? 1 : 0);
    Rescan();
}

void CDlgOpenPrj::SortBy(int column) {
    m_bAscending = column == m_nSortedCol ? !m_bAscending : true;
    m_nSortedCol = column;
    m_pList->sortItems(column, m_bAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
    QSettings settings;
    settings.setValue(QStringLiteral("%1/iSortedCol").arg(OPEN_SECTION), m_nSortedCol);
    settings.setValue(QStringLiteral("%1/bAscending").arg(OPEN_SECTION), m_bAscending ? 1 : 0);
}

void CDlgOpenPrj::ShowSelected() {
    const QTreeWidgetItem* item = m_pList->currentItem();
    if (!item || !item->isSelected()) {
        m_pName->clear();
        m_pPages->clear();
        return;
    }
    const UstPrjThumb& row = m_rows[static_cast<size_t>(item->data(0, Qt::UserRole).toInt())];
    m_pName->setText(item->text(0));
    m_pPages->setText(QString::number(row.nPages));
}

void CDlgOpenPrj::accept() {
    const QTreeWidgetItem* item = m_pList->currentItem();
    if (!item || !item->isSelected()) {
        QMessageBox::information(this, windowTitle(), tr("Please select a project."));
        return;
    }
    m_strPath = m_rows[static_cast<size_t>(item->data(0, Qt::UserRole).toInt())].strPath;
    QDialog::accept();
}

}  // namespace orv
