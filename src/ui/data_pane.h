#pragma once
// The "Data" pane: the fields of the current page with their values, how
// new data reaches the air, and the CSV file whose rows the Run key steps
// through. Edits go straight into the page's data; the frame keeps the data
// file and the air up to date.

#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace orv {

class CPageManager;

// Where the pane finds its page: the active window's, or none.
struct UstDataSource {
    CPageManager* pPage = nullptr;
    QString strFolder;  // the project's folder; empty before its first save
};

class CDataPane : public QWidget {
    Q_OBJECT
public:
    explicit CDataPane(QWidget* parent = nullptr);

    // The page and its values change from many places (the page list, undo,
    // the control server's thread): while the pane shows it looks again
    // twice a second instead of hooking each of them.
    void SetSource(std::function<UstDataSource()> source);
    // Looks now; the values of a cell being typed into are left alone.
    void Refresh();
    CPageManager* Page() const { return m_source.pPage; }
    QTableWidget* Table() const { return m_pTable; }
    QComboBox* UpdateChoice() const { return m_pMode; }
    QLabel* RowsLabel() const { return m_pRows; }
    // Rows from a CSV file, copied beside the project file first unless it
    // is there already; false with a message for the operator.
    bool UseCsv(const QString& path, QString& error);
    void DropCsv();

Q_SIGNALS:
    // Values, update choice or rows of the page changed here.
    void DataChanged(CPageManager* page);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Rebuild();
    void ShowValues();
    void ShowRows();
    void OnCellChanged(int row, int column);
    void OnModeChosen(int index);
    void ChooseCsv();
    // False when the page changed under the pane: it shows the new one.
    bool StillCurrent();

    std::function<UstDataSource()> m_fnSource;
    UstDataSource m_source;
    std::vector<QString> m_names;
    bool m_bFilling = false;
    QLabel* m_pNote;
    QTableWidget* m_pTable;
    QComboBox* m_pMode;
    QLabel* m_pRows;
    QPushButton* m_pCsv;
    QPushButton* m_pNoCsv;
    QTimer m_poll;
};

}  // namespace orv
