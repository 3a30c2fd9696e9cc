#include "ui/styles_pane.h"

#include <QComboBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "project/style_library.h"
#include "ui/style_gallery.h"

namespace orv {

const std::array<UstStyleCommands, 5> STYLE_COMMANDS = {{
    {40044, 40046, 40045},  // text
    {40042, 40047, 40043},  // shape
    {40037, 40052, 40038},  // colour
    {40034, 40035, 40036},  // background
    {40039, 40040, 40041},  // picture
}};

CStylesPane::CStylesPane(QWidget* parent)
    : QWidget(parent), m_pTabs(new QTabWidget(this)), m_pPaint(new QComboBox) {
    const QString titles[] = {tr("Text"), tr("Shape"), tr("Color"), tr("Background"),
                              tr("Picture")};
    for (int i = 0; i < STYLE_LIBRARY_COUNT; ++i) {
        auto* gallery = new CStyleGallery;
        gallery->setObjectName(QString("gallery%1").arg(STYLE_COMMANDS[i].nApply));
        m_galleries[static_cast<size_t>(i)] = gallery;
        m_pTabs->addTab(gallery, titles[i]);
        const UstStyleCommands ids = STYLE_COMMANDS[static_cast<size_t>(i)];
        connect(gallery, &CStyleGallery::Applied, this,
                [this, ids](int index) { Q_EMIT Command(ids.nApply, index); });
        connect(gallery, &CStyleGallery::AddRequested, this,
                [this, ids] { Q_EMIT Command(ids.nAdd, -1); });
        connect(gallery, &CStyleGallery::DeleteRequested, this,
                [this, ids](int index) { Q_EMIT Command(ids.nDelete, index); });
    }
    m_pPaint->addItems({tr("Fill"), tr("Edge"), tr("Outline"), tr("Shadow")});
    Gallery(STYLE_COLOR)->Footer()->addWidget(m_pPaint);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pTabs);
}

void CStylesPane::Refresh(const CStyleLibraries& libraries) {
    for (int i = 0; i < STYLE_LIBRARY_COUNT; ++i)
        Refresh(libraries, i);
}

void CStylesPane::Refresh(const CStyleLibraries& libraries, int library) {
    QStringList thumbs;
    for (int i = 0; i < libraries.Count(library); ++i)
        thumbs.push_back(libraries.ThumbPath(library, i));
    Gallery(library)->SetItems(thumbs);
}

int CStylesPane::ColorPaint() const {
    return m_pPaint->currentIndex();
}

}  // namespace orv
