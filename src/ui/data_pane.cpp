#include "ui/data_pane.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "project/csv_rows.h"
#include "project/page_manager.h"

namespace orv {

namespace {

constexpr int POLL_MS = 500;

}  // namespace

CDataPane::CDataPane(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    m_pNote = new QLabel(this);
    m_pNote->setWordWrap(true);
    layout->addWidget(m_pNote);
    m_pTable = new QTableWidget(0, 2, this);
    m_pTable->setHorizontalHeaderLabels({tr("Field"), tr("Value")});
    m_pTable->horizontalHeader()->setStretchLastSection(true);
    m_pTable->verticalHeader()->hide();
    m_pTable->setMinimumWidth(100);
    layout->addWidget(m_pTable, 1);
    // The pane shares its dock with the styles: nothing in it may ask for
    // more width than they do, or the canvas would lose it.
    auto* mode = new QLabel(tr("New data on air:"), this);
    mode->setWordWrap(true);
    layout->addWidget(mode);
    m_pMode = new QComboBox(this);
    m_pMode->addItem(tr("Change in place"), DATA_UPDATE_RECT);
    m_pMode->addItem(tr("Take again"), DATA_UPDATE_RETAKE);
    m_pMode->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pMode->setMinimumContentsLength(8);
    layout->addWidget(m_pMode);
    m_pRows = new QLabel(this);
    m_pRows->setWordWrap(true);
    layout->addWidget(m_pRows);
    auto* csv = new QHBoxLayout;
    m_pCsv = new QPushButton(tr("Rows from CSV..."), this);
    m_pNoCsv = new QPushButton(tr("No Rows"), this);
    for (QPushButton* button : {m_pCsv, m_pNoCsv}) {
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        csv->addWidget(button);
    }
    layout->addLayout(csv);
    connect(m_pTable, &QTableWidget::cellChanged, this, &CDataPane::OnCellChanged);
    connect(m_pMode, &QComboBox::activated, this, &CDataPane::OnModeChosen);
    connect(m_pCsv, &QPushButton::clicked, this, &CDataPane::ChooseCsv);
    connect(m_pNoCsv, &QPushButton::clicked, this, &CDataPane::DropCsv);
    m_poll.setInterval(POLL_MS);
    connect(&m_poll, &QTimer::timeout, this, &CDataPane::Refresh);
    Rebuild();
}

void CDataPane::SetSource(std::function<UstDataSource()> source) {
    m_fnSource = std::move(source);
    Refresh();
}

void CDataPane::showEvent(QShowEvent* event) {
    Refresh();
    m_poll.start();
    QWidget::showEvent(event);
}

void CDataPane::hideEvent(QHideEvent* event) {
    m_poll.stop();
    QWidget::hideEvent(event);
}

void CDataPane::Refresh() {
    const UstDataSource now = m_fnSource ? m_fnSource() : UstDataSource{};
    const bool samePage = now.pPage == m_source.pPage && now.strFolder == m_source.strFolder;
    m_source = now;
    if (!samePage || (now.pPage && now.pPage->FieldNames() != m_names)) {
        Rebuild();
        return;
    }
    // A cell's editor lives in the table while the operator types.
    if (!m_pTable->viewport()->findChild<QLineEdit*>()) ShowValues();
    ShowRows();
}

bool CDataPane::StillCurrent() {
    const UstDataSource now = m_fnSource ? m_fnSource() : UstDataSource{};
    if (now.pPage == m_source.pPage && now.pPage) return true;
    Refresh();
    return false;
}

void CDataPane::Rebuild() {
    CPageManager* page = m_source.pPage;
    m_names = page ? page->FieldNames() : std::vector<QString>{};
    m_bFilling = true;
    m_pTable->setRowCount(static_cast<int>(m_names.size()));
    for (int row = 0; row < static_cast<int>(m_names.size()); ++row) {
        auto* name = new QTableWidgetItem(m_names[static_cast<size_t>(row)]);
        name->setFlags(Qt::ItemIsEnabled);
        m_pTable->setItem(row, 0, name);
        m_pTable->setItem(row, 1, new QTableWidgetItem);
    }
    m_bFilling = false;
    m_pNote->setText(!page             ? tr("No page.")
                     : m_names.empty() ? tr("This page has no fields: type {{name}} in a text.")
                                       : QString());
    m_pNote->setVisible(!m_pNote->text().isEmpty());
    for (QWidget* w : std::initializer_list<QWidget*>{m_pTable, m_pMode, m_pCsv, m_pNoCsv})
        w->setEnabled(page != nullptr);
    ShowValues();
    ShowRows();
}

void CDataPane::ShowValues() {
    if (!m_source.pPage) return;
    const FieldValues values = m_source.pPage->m_data.Values();
    m_bFilling = true;
    for (int row = 0; row < m_pTable->rowCount(); ++row) {
        const auto it = values.find(m_names[static_cast<size_t>(row)]);
        const QString text = it == values.end() ? QString() : it->second;
        if (m_pTable->item(row, 1)->text() != text) m_pTable->item(row, 1)->setText(text);
    }
    m_bFilling = false;
    m_pMode->setCurrentIndex(m_source.pPage->m_data.UpdateMode() == DATA_UPDATE_RETAKE ? 1 : 0);
}

void CDataPane::ShowRows() {
    const CPageData* data = m_source.pPage ? &m_source.pPage->m_data : nullptr;
    const int count = data ? data->RowCount() : 0;
    m_pNoCsv->setEnabled(count > 0);
    if (count == 0) {
        m_pRows->setText(tr("No rows"));
        return;
    }
    // The row the next take shows: the one after the last taken.
    const int next = (data->RowIndex() + 1) % count;
    m_pRows->setText(tr("%1: next row %2 of %3").arg(data->CsvName()).arg(next + 1).arg(count));
}

void CDataPane::OnCellChanged(int row, int column) {
    if (m_bFilling || column != 1 || !StillCurrent()) return;
    m_source.pPage->m_data.MergeValues(
        {{m_names[static_cast<size_t>(row)], m_pTable->item(row, 1)->text()}});
    Q_EMIT DataChanged(m_source.pPage);
}

void CDataPane::OnModeChosen(int index) {
    if (!StillCurrent()) return;
    m_source.pPage->m_data.SetUpdateMode(m_pMode->itemData(index).toInt());
    Q_EMIT DataChanged(m_source.pPage);
}

void CDataPane::ChooseCsv() {
    if (!StillCurrent()) return;
    const QString path = QFileDialog::getOpenFileName(this, tr("Rows from CSV"), m_source.strFolder,
                                                      tr("CSV Files (*.csv)"));
    if (path.isEmpty()) return;
    QString error;
    if (!UseCsv(path, error)) QMessageBox::warning(this, tr("Data"), error);
}

bool CDataPane::UseCsv(const QString& path, QString& error) {
    if (!m_source.pPage) return false;
    if (m_source.strFolder.isEmpty()) {
        error = tr("Save the project first: its rows are kept beside it.");
        return false;
    }
    std::vector<FieldValues> rows;
    QString reason;
    if (!ReadCsvRows(path, rows, &reason)) {
        error = tr("%1 cannot be used: %2").arg(QFileInfo(path).fileName(), reason);
        return false;
    }
    const QString name = QFileInfo(path).fileName();
    // The data file names its rows' file plainly, and never a hidden one.
    if (name.startsWith('.')) {
        error = tr("%1 cannot be used: its name starts with a dot.").arg(name);
        return false;
    }
    const QString beside = QDir(m_source.strFolder).filePath(name);
    if (QFileInfo(path).absoluteFilePath() != QFileInfo(beside).absoluteFilePath()) {
        QFile::remove(beside);
        if (!QFile::copy(path, beside)) {
            error = tr("%1 cannot be copied into the project's folder.").arg(name);
            return false;
        }
    }
    m_source.pPage->m_data.SetRows(std::move(rows), name);
    ShowRows();
    Q_EMIT DataChanged(m_source.pPage);
    return true;
}

void CDataPane::DropCsv() {
    if (!StillCurrent()) return;
    m_source.pPage->m_data.SetRows({}, {});
    ShowRows();
    Q_EMIT DataChanged(m_source.pPage);
}

}  // namespace orv
