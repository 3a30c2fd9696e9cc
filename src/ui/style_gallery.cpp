#include "ui/style_gallery.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace orv {

namespace {

constexpr int TILE_WIDTH = 90, TILE_HEIGHT = 48;
constexpr int TILE_MARGIN = 8;

}  // namespace

CStyleGallery::CStyleGallery(QWidget* parent)
    : QWidget(parent),
      m_pList(new QListWidget(this)),
      m_pAdd(new QPushButton(tr("Add"), this)),
      m_pDelete(new QPushButton(tr("Delete"), this)),
      m_pFooter(new QVBoxLayout) {
    m_pList->setViewMode(QListView::IconMode);
    m_pList->setIconSize(QSize(TILE_WIDTH, TILE_HEIGHT));
    m_pList->setGridSize(QSize(TILE_WIDTH + TILE_MARGIN, TILE_HEIGHT + TILE_MARGIN));
    m_pList->setResizeMode(QListView::Adjust);
    m_pList->setMovement(QListView::Static);
    m_pList->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pList->setUniformItemSizes(true);
    m_pList->setMouseTracking(true);
    m_pList->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // The hover frame is the toolkit's own colour for a picked tile.
    m_pList->setStyleSheet(
        "QListWidget::item:hover { border: 1px solid #FF8040; }"
        "QListWidget::item:selected { border: 2px solid #3D6CC0; }");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_pAdd);
    buttons->addWidget(m_pDelete);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_pList, 1);
    layout->addLayout(m_pFooter);
    layout->addLayout(buttons);
    connect(m_pList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Q_EMIT Applied(m_pList->row(item)); });
    connect(m_pList, &QListWidget::currentRowChanged, this, [this] { UpdateButtons(); });
    connect(m_pAdd, &QPushButton::clicked, this, [this] { Q_EMIT AddRequested(); });
    connect(m_pDelete, &QPushButton::clicked, this, [this] {
        if (CurrentIndex() >= 0) Q_EMIT DeleteRequested(CurrentIndex());
    });
    UpdateButtons();
}

QIcon CStyleGallery::TileIcon(const QString& thumbFile) {
    QImage image(thumbFile);
    if (image.isNull()) {
        image = QImage(TILE_WIDTH, TILE_HEIGHT, QImage::Format_RGB32);
        image.fill(Qt::lightGray);
    }
    return QIcon(QPixmap::fromImage(image.scaled(TILE_WIDTH, TILE_HEIGHT)));
}

void CStyleGallery::SetItems(const QStringList& thumbFiles) {
    m_pList->clear();
    for (const QString& file : thumbFiles)
        m_pList->addItem(new QListWidgetItem(TileIcon(file), QString()));
    UpdateButtons();
}

void CStyleGallery::InsertItem(int index, const QString& thumbFile) {
    m_pList->insertItem(index, new QListWidgetItem(TileIcon(thumbFile), QString()));
    m_pList->setCurrentRow(index);
    UpdateButtons();
}

void CStyleGallery::RemoveItem(int index) {
    if (index < 0 || index >= Count()) return;
    delete m_pList->takeItem(index);
    // The selection moves to the item before, as a deleted tile's
    // neighbour is what the operator reaches for next.
    if (Count() > 0) m_pList->setCurrentRow(std::max(0, index - 1));
    UpdateButtons();
}

int CStyleGallery::Count() const {
    return m_pList->count();
}

int CStyleGallery::CurrentIndex() const {
    const QListWidgetItem* item = m_pList->currentItem();
    return item && item->isSelected() ? m_pList->row(item) : -1;
}

void CStyleGallery::SetCurrentIndex(int index) {
    m_pList->setCurrentRow(index);
}

void CStyleGallery::UpdateButtons() {
    m_pDelete->setEnabled(CurrentIndex() >= 0);
}

}  // namespace orv
