#pragma once
// A gallery of 90 x 48 thumbnails: hover and selection marks, a scroll, and
// "Add" and "Delete" below. It knows nothing of what the pictures stand
// for, so that any pane or ribbon group can host one.

#include <QWidget>

class QListWidget;
class QListWidgetItem;
class QPushButton;
class QVBoxLayout;

namespace orv {

class CStyleGallery : public QWidget {
    Q_OBJECT
public:
    explicit CStyleGallery(QWidget* parent = nullptr);

    // The thumbnail files, in order; an empty or unreadable file shows a
    // blank tile so that indices stay those of the library.
    void SetItems(const QStringList& thumbFiles);
    void InsertItem(int index, const QString& thumbFile);
    void RemoveItem(int index);
    int Count() const;
    int CurrentIndex() const;
    void SetCurrentIndex(int index);
    QListWidget* List() const { return m_pList; }
    QPushButton* AddButton() const { return m_pAdd; }
    QPushButton* DeleteButton() const { return m_pDelete; }
    // Room under the grid for a control of the host's own.
    QVBoxLayout* Footer() const { return m_pFooter; }

Q_SIGNALS:
    void Applied(int index);
    void AddRequested();
    void DeleteRequested(int index);

private:
    void UpdateButtons();
    static QIcon TileIcon(const QString& thumbFile);

    QListWidget* m_pList;
    QPushButton* m_pAdd;
    QPushButton* m_pDelete;
    QVBoxLayout* m_pFooter;
};

}  // namespace orv
