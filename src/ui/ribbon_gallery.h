#pragma once
// A gallery that fits in a ribbon group: one row of tiles in place and a
// drop-down holding all of them in a grid, with headings between groups of
// items. Picking a tile in either says which item it was.

#include <QFont>
#include <QIcon>
#include <QWidget>

#include <vector>

class QListWidget;
class QToolButton;
class QFrame;

namespace orv {

struct UstGalleryItem {
    QIcon icon;
    QString text;           // the tile's tooltip, or its label when it has no icon
    bool bHeading = false;  // a heading row, not an item
    QFont font{};           // a label drawn in its own face
    bool bOwnFont = false;
    uint32_t nData = 0;  // what the tile stands for, kept as Qt::UserRole
};

class CRibbonGallery : public QWidget {
    Q_OBJECT
public:
    CRibbonGallery(uint32_t id, QSize tile, int rowWidth, QWidget* parent = nullptr);

    // Items are numbered without the headings.
    void SetItems(const std::vector<UstGalleryItem>& items);
    int Count() const { return m_nCount; }
    void SetCurrentIndex(int index);
    int CurrentIndex() const { return m_nCurrent; }
    uint32_t Id() const { return m_nId; }
    QListWidget* InPlace() const { return m_pRow; }
    QListWidget* DropDown() const { return m_pAll; }
    QToolButton* MoreButton() const { return m_pMore; }
    // Shows the drop-down under the gallery.
    void ShowDropDown();

Q_SIGNALS:
    void Picked(uint32_t id, int index);

private:
    void Fill(QListWidget* list, bool headings) const;
    void OnClicked(QListWidget* list, int row);

    uint32_t m_nId;
    QSize m_tile;
    std::vector<UstGalleryItem> m_items;
    int m_nCount = 0;
    int m_nCurrent = -1;
    QListWidget* m_pRow;
    QToolButton* m_pMore;
    QFrame* m_pPopup;
    QListWidget* m_pAll;
};

}  // namespace orv
