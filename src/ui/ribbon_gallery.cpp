#include "ui/ribbon_gallery.h"

#include <algorithm>

#include <QFrame>
#include <QHBoxLayout>
#include <QListWidget>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace orv {

namespace {

constexpr int ITEM_ROLE = Qt::UserRole + 1;  // the item's number, -1 on a heading
constexpr int DROP_COLUMNS = 8;
constexpr int DROP_ROWS = 8;

QListWidget* MakeList(QWidget* parent, QSize tile, bool oneRow) {
    auto* list = new QListWidget(parent);
    list->setViewMode(oneRow ? QListView::IconMode : QListView::ListMode);
    list->setFlow(oneRow ? QListView::LeftToRight : QListView::TopToBottom);
    list->setWrapping(oneRow);
    list->setIconSize(tile);
    list->setMovement(QListView::Static);
    list->setResizeMode(QListView::Adjust);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setStyleSheet(
        "QListWidget::item:hover { border: 1px solid #FF8040; }"
        "QListWidget::item:selected { border: 2px solid #3D6CC0; }");
    return list;
}

}  // namespace

CRibbonGallery::CRibbonGallery(uint32_t id, QSize tile, int rowWidth, QWidget* parent)
    : QWidget(parent),
      m_nId(id),
      m_tile(tile),
      m_pRow(MakeList(this, tile, true)),
      m_pMore(new QToolButton(this)),
      m_pPopup(new QFrame(this, Qt::Popup)),
      m_pAll(MakeList(m_pPopup, tile, false)) {
    setObjectName(QString("ctl%1").arg(id));
    m_pRow->setObjectName(QString("row%1").arg(id));
    m_pRow->setGridSize(tile + QSize(6, 6));
    m_pRow->setFixedSize(rowWidth, tile.height() + 14);
    m_pRow->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pMore->setObjectName(QString("more%1").arg(id));
    m_pMore->setArrowType(Qt::DownArrow);
    m_pMore->setFixedWidth(16);
    m_pMore->setToolTip(tr("More"));
    m_pAll->setObjectName(QString("all%1").arg(id));
    auto* popup = new QVBoxLayout(m_pPopup);
    popup->setContentsMargins(1, 1, 1, 1);
    popup->addWidget(m_pAll);
    m_pPopup->setFrameShape(QFrame::Box);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pRow);
    layout->addWidget(m_pMore);
    // Tab reaches the tiles, or the drop-down where the row is hidden.
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(rowWidth > 0 ? static_cast<QWidget*>(m_pRow) : m_pMore);
    m_pMore->setFocusPolicy(Qt::TabFocus);
    connect(m_pMore, &QToolButton::clicked, this, &CRibbonGallery::ShowDropDown);
    connect(m_pRow, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { OnClicked(m_pRow, m_pRow->row(item)); });
    connect(m_pAll, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { OnClicked(m_pAll, m_pAll->row(item)); });
}

void CRibbonGallery::SetItems(const std::vector<UstGalleryItem>& items) {
    m_items = items;
    m_nCount = static_cast<int>(std::count_if(items.begin(), items.end(),
                                              [](const UstGalleryItem& i) { return !i.bHeading; }));
    if (m_nCurrent >= m_nCount) m_nCurrent = -1;
    Fill(m_pRow, false);
    Fill(m_pAll, true);
}

void CRibbonGallery::Fill(QListWidget* list, bool headings) const {
    list->clear();
    int number = 0;
    for (const UstGalleryItem& item : m_items) {
        if (item.bHeading && !headings) continue;
        auto* row = new QListWidgetItem(list);
        if (item.bHeading) {
            row->setText(item.text);
            row->setFlags(Qt::NoItemFlags);
            QFont bold = list->font();
            bold.setBold(true);
            row->setFont(bold);
            row->setBackground(QColor(0xDD, 0xE4, 0xEE));
            row->setData(ITEM_ROLE, -1);
            continue;
        }
        row->setData(ITEM_ROLE, number++);
        row->setData(Qt::UserRole, item.nData);
        row->setToolTip(item.text);
        if (!item.icon.isNull()) {
            row->setIcon(item.icon);
            if (headings) row->setText(item.text);
        } else {
            row->setText(item.text);
        }
        if (item.bOwnFont) row->setFont(item.font);
    }
}

void CRibbonGallery::SetCurrentIndex(int index) {
    m_nCurrent = index >= 0 && index < m_nCount ? index : -1;
    for (QListWidget* list : {m_pRow, m_pAll}) {
        const QSignalBlocker block(list);
        list->clearSelection();
        for (int r = 0; r < list->count(); ++r)
            if (list->item(r)->data(ITEM_ROLE).toInt() == m_nCurrent && m_nCurrent >= 0)
                list->item(r)->setSelected(true);
    }
}

void CRibbonGallery::ShowDropDown() {
    const int wide = std::max(width(), DROP_COLUMNS * (m_tile.width() + 8));
    m_pPopup->resize(wide, DROP_ROWS * (m_tile.height() + 8));
    m_pPopup->move(mapToGlobal(QPoint(0, height())));
    m_pPopup->show();
}

void CRibbonGallery::OnClicked(QListWidget* list, int row) {
    const QListWidgetItem* item = list->item(row);
    const int index = item ? item->data(ITEM_ROLE).toInt() : -1;
    if (index < 0) return;
    m_pPopup->hide();
    Q_EMIT Picked(m_nId, index);
}

}  // namespace orv
