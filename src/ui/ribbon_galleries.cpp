// The ribbon's galleries: fonts with the recent list, symbols drawn from
// the installed fonts, the palette, the style libraries and the effects.
#include <cstring>

#include <QComboBox>
#include <QListWidget>
#include <QPainter>
#include <QSettings>

#include "playout/effect_table.h"
#include "project/project_manager.h"
#include "project/style_library.h"
#include "render/fixed_string.h"
#include "render/font_service.h"
#include "shell/command_table.h"
#include "ui/main_frame.h"
#include "ui/ribbon_bar.h"
#include "ui/ribbon_gallery.h"
#include "ui/styles_pane.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int RECENT_FONTS = 10;
constexpr int FONT_ITEM_POINTS = 13;
constexpr int SYMBOL_TILE = 20;

struct UstSymbolStrip {
    const char* szGroup;  // UTF-8
    uint32_t nStrip;
    uint32_t nFirst, nLast;
    const char* szFont;  // the font the group needs; "궁서" for the Hangul groups
};
constexpr UstSymbolStrip SYMBOL_STRIPS[] = {
    {"도량형", 2705, 13184, 13188, "궁서"},        {"도량형", 2706, 13192, 13258, "궁서"},
    {"원문자", 2702, 9312, 9326, "궁서"},          {"원문자", 2703, 9424, 9449, "궁서"},
    {"원문자", 2704, 12896, 12923, "궁서"},        {"괄호문자", 2708, 9332, 9346, "궁서"},
    {"괄호문자", 2709, 9372, 9397, "궁서"},        {"괄호문자", 2710, 12800, 12828, "궁서"},
    {"Webdings", 2711, 33, 255, "Webdings"},       {"Wingdings", 2712, 33, 255, "Wingdings"},
    {"Wingdings 2", 2713, 33, 249, "Wingdings 2"}, {"Wingdings 3", 2714, 33, 240, "Wingdings 3"},
};

constexpr uint32_t PALETTE[] = {
    0xFFFFFFFF, 0xFF000000, 0xFFEEECE1, 0xFF1F497D, 0xFF4F81BD, 0xFFC0504D, 0xFF9BBB59, 0xFF8064A2,
    0xFF4BACC6, 0xFFF79646, 0xFFF2F2F2, 0xFF7F7F7F, 0xFFDDD9C3, 0xFFC6D9F0, 0xFFDBE5F1, 0xFFF2DCDB,
    0xFFEBF1DD, 0xFFE5E0EC, 0xFFDBEEF3, 0xFFFDEADA, 0xFFC00000, 0xFFFF0000, 0xFFFFC000, 0xFFFFFF00,
    0xFF92D050, 0xFF00B050, 0xFF00B0F0, 0xFF0070C0, 0xFF002060, 0xFF7030A0,
};

QIcon SymbolTile(const QString& family, char32_t code) {
    QPixmap tile(SYMBOL_TILE, SYMBOL_TILE);
    tile.fill(Qt::white);
    QPainter p(&tile);
    QFont font(family);
    font.setPixelSize(SYMBOL_TILE - 4);
    p.setFont(font);
    p.setPen(Qt::black);
    p.drawText(tile.rect(), Qt::AlignCenter, QString::fromUcs4(&code, 1));
    return QIcon(tile);
}

// The palette tile: inset by two pixels, a light border left and right.
QIcon PaletteTile(uint32_t argb) {
    QPixmap tile(16, 16);
    tile.fill(Qt::white);
    QPainter p(&tile);
    p.fillRect(QRect(2, 2, 12, 12), QColor::fromRgba(argb));
    p.setPen(QColor(0xC5, 0xC5, 0xC5));
    p.drawLine(2, 2, 2, 13);
    p.drawLine(13, 2, 13, 13);
    return QIcon(tile);
}

}  // namespace

QStringList CMainFrame::RecentFonts() const {
    QSettings settings;
    settings.beginGroup("RF");
    QStringList fonts;
    for (int i = 0; i < RECENT_FONTS; ++i) {
        const QString face = settings.value(QString::asprintf("%d", i)).toString();
        if (!face.isEmpty() && !fonts.contains(face)) fonts.push_back(face);
    }
    return fonts;
}

void CMainFrame::RememberFont(const QString& face) {
    QStringList fonts = RecentFonts();
    fonts.removeAll(face);
    fonts.prepend(face);
    QSettings settings;
    settings.beginGroup("RF");
    for (int i = 0; i < RECENT_FONTS; ++i) {
        const QString key = QString::asprintf("%d", i);
        if (i < fonts.size())
            settings.setValue(key, fonts[i]);
        else
            settings.remove(key);
    }
}

void CMainFrame::FillFontGallery() {
    const bool ko = m_nLanguage == LANG_KOREAN;
    const UstGalleryFonts installed = GalleryFontFamilies();
    m_symbolFonts = installed.symbolFonts;
    std::vector<UstGalleryItem> items;
    const auto add = [&](const QString& family) {
        UstGalleryItem item;
        item.text = family;
        item.font = QFont(family, FONT_ITEM_POINTS);
        item.bOwnFont = true;
        items.push_back(item);
    };
    items.push_back(
        {{}, ko ? QString::fromUtf8("최근에 사용한 글꼴") : "Recently Used Fonts", true});
    for (const QString& family : RecentFonts())
        add(family);
    items.push_back({{}, ko ? QString::fromUtf8("모든 글꼴") : "All Fonts", true});
    for (const QString& family : installed.families)
        add(family);
    if (CRibbonGallery* g = m_pRibbon->Gallery(CMD_FONT_GALLERY)) g->SetItems(items);
    if (QComboBox* combo = m_pRibbon->Combo(202)) {
        const QSignalBlocker block(combo);
        combo->clear();
        combo->addItems(installed.families);
    }
    std::vector<UstGalleryItem> sizes;
    for (int size : {8, 10, 12, 14, 18, 24, 36, 48, 60, 72, 96, 120, 160, 200})
        sizes.push_back({{}, QString::number(size)});
    if (CRibbonGallery* g = m_pRibbon->Gallery(CMD_SIZE_GALLERY)) g->SetItems(sizes);
}

void CMainFrame::ChooseFontFromGallery(const QString& face) {
    if (face.isEmpty()) return;
    RememberFont(face);
    FillFontGallery();
    UstDefaultAttr& rec = GetAttrForSelection();
    QStringToFixed(face, &rec.font.szFace);
    // With nothing selected the face waits in the default record for the
    // next text.
    if (&rec != &m_DefaultAttr || m_bMasterMode) RouteCommand(&rec.font, CMD_FONT_FACE);
}

// A group shows only where its font is installed; the brush-script Hangul
// face is answered by the installed face of the same style.
void CMainFrame::FillSymbolGallery() {
    const UstFaceMatch gungseo = MatchFace(QStringLiteral("UnGungseo"), 129);
    m_bGungseo = !gungseo.bFallback && !gungseo.file.empty();
    std::vector<UstGalleryItem> items;
    QString heading;
    for (const UstSymbolStrip& strip : SYMBOL_STRIPS) {
        const QString font = QString::fromUtf8(strip.szFont);
        const bool hangul = font == QString::fromUtf8("궁서");
        if (hangul ? !m_bGungseo : !m_symbolFonts.contains(font)) continue;
        const QString family = hangul ? gungseo.family : font;
        const QString group = QString::fromUtf8(strip.szGroup);
        if (group != heading) items.push_back({{}, heading = group, true});
        for (uint32_t code = strip.nFirst; code <= strip.nLast; ++code) {
            UstGalleryItem item{SymbolTile(family, code),
                                QString("U+%1").arg(code, 4, 16, QChar('0'))};
            item.nData = code | (strip.nStrip << 16);
            items.push_back(item);
        }
    }
    if (CRibbonGallery* g = m_pRibbon->Gallery(CMD_SYMBOL_GALLERY)) g->SetItems(items);
}

void CMainFrame::FillPaletteGallery() {
    std::vector<UstGalleryItem> items;
    for (uint32_t argb : PALETTE) {
        UstGalleryItem item{PaletteTile(argb),
                            QString("#%1").arg(argb & 0xFFFFFF, 6, 16, QChar('0'))};
        item.nData = argb;
        items.push_back(item);
    }
    if (CRibbonGallery* g = m_pRibbon->Gallery(CMD_PALETTE)) g->SetItems(items);
}

void CMainFrame::FillStyleGalleries() {
    if (!m_pRibbon) return;
    for (int lib = 0; lib < STYLE_LIBRARY_COUNT; ++lib) {
        CRibbonGallery* g = m_pRibbon->Gallery(STYLE_COMMANDS[static_cast<size_t>(lib)].nApply);
        if (!g) continue;
        std::vector<UstGalleryItem> items;
        for (int i = 0; i < m_pStyles->Count(lib); ++i) {
            const QString thumb = m_pStyles->ThumbPath(lib, i);
            items.push_back({QIcon(thumb), QString::number(i + 1)});
        }
        g->SetItems(items);
    }
}

void CMainFrame::FillEffectGallery() {
    std::vector<UstGalleryItem> items;
    int group = -1;
    for (const UstEffectRow& row : EffectTable()) {
        const int g = EffectGalleryGroup(row.nNumber);
        if (g < 0) continue;
        if (g != group) items.push_back({{}, EffectGroupName(group = g, m_nLanguage), true});
        items.push_back({{}, EffectName(row.nNumber, m_nLanguage)});
    }
    if (CRibbonGallery* gallery = m_pRibbon->Gallery(CMD_EFFECT_GALLERY)) gallery->SetItems(items);
}

int CMainFrame::OnEffectGallery(int index, Qt::KeyboardModifiers modifiers) {
    const int32_t effect = index + 2;
    CZevrantView* view = ActiveView();
    if (m_nPlayState == 2 || !view || index < 0 || !FindEffectRow(effect)) return 0;
    CProjectManager& project = view->Document()->Project();
    CPageManager* page = project.GetCurPage();
    int changed = 0;
    if (modifiers & Qt::ControlModifier) {
        if (effect == 2) return 0;
        changed = project.SetPagesEffectValue(&effect, CMD_IN_EFFECT);
    } else if (modifiers & Qt::AltModifier) {
        if (effect == 3) return 0;
        changed = project.SetPagesEffectValue(&effect, CMD_OUT_EFFECT);
    } else if (!project.m_aSelPages.empty()) {
        changed = project.SetPagesEffectValue(&effect, CMD_EFFECT_PAIR);
    } else if (page) {
        UstPageEffect& e = page->m_effect;
        const UstPageEffect before = e;
        if (m_nEffectTile == 1 && effect != 2) {
            e.nInEffect = effect;
        } else if (m_nEffectTile == 2 && effect != 3) {
            e.nOutEffect = effect;
        } else {
            if (effect != 2) e.nInEffect = effect;
            if (effect != 3) e.nOutEffect = effect;
        }
        changed = std::memcmp(&before, &e, sizeof e) != 0;
        if (changed) page->SetModified(true);
    }
    if (!changed) return 0;
    project.SetProjectModified();
    project.PanelsChanged();
    return 1;
}

}  // namespace orv
