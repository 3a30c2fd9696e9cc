// The ribbon on a live frame: the whole command table reaches a handler and
// is enabled in the states it should be, the uniform control pattern with
// its clamping and its refusals, the step buttons, the effect gallery's
// keys, master attribute mode, the saved state per language, and the font
// and symbol galleries.
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTabBar>
#include <QTimer>
#include <QToolBar>

#include "canvas_fixture.h"
#include "objects/shape_object.h"
#include "project/undo_log.h"
#include "render/fixed_string.h"
#include "render/font_service.h"
#include "shell/command_table.h"
#include "ui/ribbon_bar.h"
#include "ui/ribbon_gallery.h"

namespace orv {
namespace {

class RibbonTest : public test::CanvasTest {
protected:
    CQRDObjectShape* AddShape(CPageManager* on) {
        return static_cast<CQRDObjectShape*>(on->AddObject(std::make_unique<CQRDObjectShape>(
            on, 1, UstRect{20, 20, 120, 80}, MakeDefaultAttr(), MakeDefaultEffect())));
    }
    CQRDObjectShape* SelectedShape() {
        CQRDObjectShape* shape = AddShape(page);
        page->SelectOnly(shape);
        return shape;
    }
    // Types into the field as the operator would and leaves it.
    QString Type(uint32_t id, const QString& text) {
        QLineEdit* field = frame->Ribbon()->Field(id);
        EXPECT_NE(field, nullptr) << id;
        if (!field) return {};
        field->setText(text);
        Q_EMIT field->editingFinished();
        return field->text();
    }
    size_t Undos() { return doc->Project().UndoLog().UndoCount(); }
};

TEST_F(RibbonTest, EveryCommandReachesAHandlerAndHasItsControl) {
    for (const UstCommand& c : Commands()) {
        EXPECT_TRUE(frame->HasCommandHandler(c.nId)) << c.nId;
        const bool onRibbon = c.nGroup != 0 && c.eKind != ECommandKind::ITEM;
        EXPECT_EQ(frame->Ribbon()->Control(c.nId) != nullptr, onRibbon) << c.nId;
        if (QWidget* w = frame->Ribbon()->Control(c.nId)) {
            EXPECT_FALSE(w->toolTip().isEmpty()) << c.nId;
            EXPECT_NE(w->focusPolicy() & Qt::TabFocus, 0) << c.nId;
        }
    }
    EXPECT_FALSE(frame->HasCommandHandler(12345));
    EXPECT_EQ(frame->Ribbon()->Tabs()->count(), 7);
    EXPECT_EQ(frame->Ribbon()->Tabs()->tabText(6), "Run");
}

TEST_F(RibbonTest, StatesEnableTheEditTabsRunAndPageChanges) {
    struct UstExpect {
        uint32_t id;
        bool state0, state1, state2;
    };
    // Edit tabs only in state 0; Run while a project is open; nothing that
    // changes a page in automatic play out.
    const UstExpect expected[] = {
        {225, true, false, false},  {203, true, false, false},  {40044, true, false, false},
        {204, true, false, false},  {760, true, true, false},   {8107, true, true, false},
        {777, true, true, true},    {1312, true, true, true},   {782, false, false, false},
        {247, false, false, false}, {722, false, false, false},
    };
    for (int state : {0, 1, 2}) {
        frame->m_nPlayState = state;
        frame->UpdateRibbon();
        for (const UstExpect& e : expected) {
            const bool want = state == 0 ? e.state0 : state == 1 ? e.state1 : e.state2;
            EXPECT_EQ(frame->IsCommandEnabled(e.id), want) << e.id << " in state " << state;
            EXPECT_EQ(frame->Ribbon()->Control(e.id)->isEnabled(), want) << e.id;
        }
        EXPECT_EQ(frame->Ribbon()->IsTabEnabled(5000), state == 0);
        EXPECT_EQ(frame->Ribbon()->IsTabEnabled(5007), state == 0);
        EXPECT_TRUE(frame->Ribbon()->IsTabEnabled(5005));
    }
    frame->m_nPlayState = 0;
    SelectedShape();
    EXPECT_TRUE(frame->IsCommandEnabled(1500));
    const uint32_t roll = 1;
    page->ExecCommand(&roll, CMD_PAGE_TYPE);
    EXPECT_TRUE(frame->IsCommandEnabled(782));
}

TEST_F(RibbonTest, WithoutAProjectRunIsOffAndTheEditTabsStayOn) {
    auto plain = MakeFrame(9);
    plain->UpdateRibbon();
    EXPECT_FALSE(plain->Ribbon()->IsTabEnabled(5005));
    EXPECT_TRUE(plain->Ribbon()->IsTabEnabled(5000));
    EXPECT_TRUE(plain->IsCommandEnabled(204));
    EXPECT_FALSE(plain->IsCommandEnabled(757));  // no board
    EXPECT_FALSE(plain->IsCommandEnabled(760));
    EXPECT_FALSE(plain->IsCommandEnabled(777));
    // A field used with nothing to apply to keeps to its record.
    plain->OnRibbonField(225, "12");
    EXPECT_EQ(+plain->m_DefaultAttr.effect.nEdge, 12);
}

TEST_F(RibbonTest, TypedValuesAreClampedWrittenBackAndSentOnlyWhenChanged) {
    CQRDObjectShape* shape = SelectedShape();
    const size_t start = Undos();
    EXPECT_EQ(Type(225, "999"), "30");
    EXPECT_EQ(+shape->m_effect.nEdge, 30);
    EXPECT_EQ(Undos(), start + 1);
    EXPECT_EQ(Type(225, "30"), "30");  // the same value applies nothing
    EXPECT_EQ(Type(225, "+030xyz"), "30");
    EXPECT_EQ(Undos(), start + 1);
    EXPECT_EQ(Type(233, "-999999999999"), "-50");
    EXPECT_EQ(+shape->m_effect.nShadowY, -50);
    EXPECT_EQ(Type(225, "letters"), "0");  // read as 0, like the classic call
    EXPECT_EQ(+shape->m_effect.nEdge, 0);
    EXPECT_EQ(Type(226, ""), "0");
    EXPECT_EQ(Type(802, "300"), "255");
    EXPECT_EQ((shape->m_attr.fill[0].clrSolid >> 16) & 0xFF, 255u);
    frame->m_nPaintSlot = 3;
    EXPECT_EQ(Type(218, "-5"), "0");
    EXPECT_EQ(shape->m_attr.fill[3].clrSolid >> 24, 0u);
    EXPECT_EQ(shape->m_attr.fill[0].clrSolid >> 24, 0xFFu);

    // In automatic play out nothing reaches the page and the field shows
    // the value in force again.
    const size_t before = Undos();
    frame->m_nPlayState = 2;
    EXPECT_EQ(Type(225, "7"), "0");
    EXPECT_EQ(+shape->m_effect.nEdge, 0);
    EXPECT_EQ(Undos(), before);
}

TEST_F(RibbonTest, StepsKeepTheirRangeAndStillSend) {
    CQRDObjectShape* shape = SelectedShape();
    ASSERT_EQ(Type(225, "30"), "30");
    const size_t sent = Undos();
    EXPECT_TRUE(frame->RunCommand(228));
    EXPECT_EQ(+shape->m_effect.nEdge, 30);
    EXPECT_EQ(Undos(), sent + 1);  // sent although nothing moved
    EXPECT_TRUE(frame->RunCommand(229));
    EXPECT_EQ(+shape->m_effect.nEdge, 29);
    // 237 raises the stored shadow Y and 238 lowers it.
    const int y = shape->m_effect.nShadowY;
    frame->RunCommand(237);
    EXPECT_EQ(+shape->m_effect.nShadowY, y + 1);
    frame->RunCommand(238);
    frame->RunCommand(238);
    EXPECT_EQ(+shape->m_effect.nShadowY, y - 1);
    ASSERT_EQ(Type(233, "-50"), "-50");
    frame->RunCommand(238);
    EXPECT_EQ(+shape->m_effect.nShadowY, -50);
    frame->UpdateRibbon();
    EXPECT_EQ(frame->Ribbon()->Field(233)->text(), "-50");
}

TEST_F(RibbonTest, FontSizeWithNothingSelectedWaitsInTheDefaultRecord) {
    const size_t start = Undos();
    EXPECT_EQ(Type(203, "5000"), "1001");
    EXPECT_EQ(+frame->m_DefaultAttr.font.nSize, 1001);
    frame->RunCommand(205);
    EXPECT_EQ(+frame->m_DefaultAttr.font.nSize, 1000);
    EXPECT_EQ(Undos(), start);
}

TEST_F(RibbonTest, EffectGalleryKeysAndRefusals) {
    UstPageEffect& e = page->m_effect;
    e.nInEffect = 4;
    e.nOutEffect = 4;
    EXPECT_EQ(frame->OnEffectGallery(0, Qt::ControlModifier), 0);  // Ctrl refuses effect 2
    EXPECT_EQ(+e.nInEffect, 4);
    EXPECT_EQ(frame->OnEffectGallery(3, Qt::ControlModifier), 1);
    EXPECT_EQ(+e.nInEffect, 5);
    EXPECT_EQ(+e.nOutEffect, 4);
    EXPECT_EQ(frame->OnEffectGallery(1, Qt::AltModifier), 0);  // Alt refuses effect 3
    EXPECT_EQ(frame->OnEffectGallery(4, Qt::AltModifier), 1);
    EXPECT_EQ(+e.nOutEffect, 6);
    // Neither key: both sides, but 2 never reaches the in side.
    EXPECT_EQ(frame->OnEffectGallery(0, Qt::NoModifier), 1);
    EXPECT_EQ(+e.nInEffect, 5);
    EXPECT_EQ(+e.nOutEffect, 2);
    EXPECT_EQ(frame->OnEffectGallery(0, Qt::NoModifier), 0);  // nothing new
    frame->m_nEffectTile = 1;
    EXPECT_EQ(frame->OnEffectGallery(7, Qt::NoModifier), 1);
    EXPECT_EQ(+e.nInEffect, 9);
    EXPECT_EQ(+e.nOutEffect, 2);
    frame->m_nPlayState = 2;
    EXPECT_EQ(frame->OnEffectGallery(8, Qt::NoModifier), 0);
    EXPECT_EQ(frame->OnEffectGallery(-1, Qt::NoModifier), 0);
    EXPECT_EQ(frame->Ribbon()->Gallery(CMD_EFFECT_GALLERY)->Count(), 33);
}

TEST_F(RibbonTest, RunFieldsGoToEveryPageOfTheSelection) {
    CProjectManager& project = doc->Project();
    for (int i = 0; i < 2; ++i)
        view->ProjectCommand(CMD_NEW_PAGE);
    EXPECT_EQ(Type(760, "99"), "10");
    EXPECT_EQ(+project.GetCurPage()->m_effect.nInSpeed, 10);
    const int first = 0;
    project.ExecCommand(&first, CMD_ADD_PAGE_TO_SELECTION);
    EXPECT_EQ(Type(762, "-3"), "0");
    EXPECT_EQ(Type(762, "45"), "45");
    EXPECT_EQ(+project.GetPage(0)->m_effect.nInDelay, 45);
    EXPECT_EQ(+project.GetCurPage()->m_effect.nInDelay, 45);
    EXPECT_NE(+project.GetPage(1)->m_effect.nInDelay, 45);
}

TEST_F(RibbonTest, MasterModeColoursTheSelectedPagesAsOneUndo) {
    CProjectManager& project = doc->Project();
    for (int i = 0; i < 3; ++i)
        view->ProjectCommand(CMD_NEW_PAGE);
    std::vector<CQRDObjectShape*> shapes;
    for (int i = 0; i < project.PageCount(); ++i) {
        shapes.push_back(AddShape(project.GetPage(i)));
        project.GetPage(i)->PushUndo(UNDO_PAGES_EDITED);
    }
    for (int i : {0, 1})
        project.ExecCommand(&i, CMD_ADD_PAGE_TO_SELECTION);
    const uint32_t before = shapes[2]->m_attr.fill[0].clrSolid;
    const size_t start = Undos();
    frame->m_bMasterMode = true;
    ASSERT_EQ(Type(803, "17"), "17");
    for (int i : {0, 1, 3})
        EXPECT_EQ((shapes[static_cast<size_t>(i)]->m_attr.fill[0].clrSolid >> 8) & 0xFF, 17u);
    EXPECT_EQ(+shapes[2]->m_attr.fill[0].clrSolid, before);
    EXPECT_EQ(Undos(), start + 1);
    view->EditCommand(57643);
    for (int i = 0; i < project.PageCount(); ++i)
        EXPECT_EQ(static_cast<const CQRDObjectShape*>(project.GetPage(i)->Objects().front().get())
                      ->m_attr.fill[0]
                      .clrSolid,
                  before)
            << i;
    // Out of master mode only the current page's selection is reached.
    frame->m_bMasterMode = false;
    EXPECT_TRUE(frame->RunCommand(CMD_MASTER_MODE));
    EXPECT_TRUE(frame->m_bMasterMode);
}

TEST_F(RibbonTest, CollapseAndTabAreKeptPerLanguage) {
    {
        auto korean = MakeFrame(18);
        EXPECT_EQ(korean->Ribbon()->Tabs()->tabText(0), QString::fromUtf8("홈"));
        korean->Ribbon()->SetCurrentTab(5001);
        korean->Ribbon()->SetCollapsed(true);
        korean->show();
        EXPECT_TRUE(korean->close());
    }
    EXPECT_TRUE(QSettings().contains("CmdBarsMTFX18"));
    auto again = MakeFrame(18);
    EXPECT_EQ(again->Ribbon()->CurrentTab(), 5001u);
    EXPECT_TRUE(again->Ribbon()->IsCollapsed());
    auto english = MakeFrame(9);
    EXPECT_EQ(english->Ribbon()->CurrentTab(), 5000u);
    EXPECT_FALSE(english->Ribbon()->IsCollapsed());
    // Bytes that are no ribbon state leave it as it is.
    EXPECT_FALSE(english->Ribbon()->RestoreState("junk"));
    EXPECT_EQ(english->Ribbon()->CurrentTab(), 5000u);
}

TEST_F(RibbonTest, FontGalleryKeepsTenRecentFontsAndKoreanFamiliesFirst) {
    for (int i = 0; i < 11; ++i)
        frame->RememberFont(QString("Face %1").arg(i));
    frame->RememberFont("Face 4");
    const QStringList recent = frame->RecentFonts();
    ASSERT_EQ(recent.size(), 10);
    EXPECT_EQ(recent.front(), "Face 4");
    EXPECT_EQ(recent[1], "Face 10");
    EXPECT_FALSE(recent.contains("Face 0"));
    QSettings settings;
    EXPECT_EQ(settings.value("RF/0").toString(), "Face 4");
    EXPECT_EQ(settings.value("RF/9").toString(), "Face 1");

    const QStringList families = GalleryFontFamilies().families;
    const auto at = [&](const char* prefix) {
        for (int i = 0; i < families.size(); ++i)
            if (families[i].startsWith(QString::fromUtf8(prefix))) return i;
        return -1;
    };
    const int korean = std::max(at("UnDotum"), at("은 돋움"));
    ASSERT_GE(korean, 0);
    ASSERT_GE(at("DejaVu Sans"), 0);
    EXPECT_LT(korean, at("DejaVu Sans"));

    // Choosing with nothing selected: the default record and the front of
    // the recent list.
    const size_t start = Undos();
    frame->OnRibbonCombo(202, frame->Ribbon()->Combo(202)->findText("DejaVu Sans"));
    EXPECT_EQ(FixedToQString(&frame->m_DefaultAttr.font.szFace), "DejaVu Sans");
    EXPECT_EQ(frame->RecentFonts().front(), "DejaVu Sans");
    EXPECT_EQ(Undos(), start);
}

TEST_F(RibbonTest, SymbolGalleryShowsTheHangulGroupsFromTheInstalledFace) {
    CRibbonGallery* symbols = frame->Ribbon()->Gallery(CMD_SYMBOL_GALLERY);
    ASSERT_NE(symbols, nullptr);
    // Fonts of the four symbol groups are not Debian's; the three Hangul
    // groups come from UnGungseo: 5 + 67 + 15 + 26 + 28 + 15 + 26 + 29 tiles.
    if (!GalleryFontFamilies().symbolFonts.isEmpty()) GTEST_SKIP();
    EXPECT_EQ(symbols->Count(), 211);
    const uint32_t first = symbols->InPlace()->item(0)->data(Qt::UserRole).toUInt();
    EXPECT_EQ(first, 13184u | (2705u << 16));
    const QListWidgetItem* heading = symbols->DropDown()->item(0);
    EXPECT_EQ(heading->text(), QString::fromUtf8("도량형"));
    EXPECT_FALSE(heading->flags() & Qt::ItemIsSelectable);
}

// The menu bar keeps File and Help only; every command the other menus
// hold opens from the canvas and keeps its key without the bar.
TEST_F(RibbonTest, MenuBarKeepsFileAndHelpTheRestOpensFromTheCanvas) {
    QStringList bar;
    for (QAction* menu : frame->menuBar()->actions())
        bar << menu->text();
    EXPECT_EQ(bar, (QStringList{"&File", "&View", "&Help"}));
    QStringList file;
    for (QAction* a : frame->findChild<QMenu*>("FileMenu")->actions())
        file << a->objectName();
    for (const char* name : {"cmd57600", "cmd57603", "cmd806", "cmd807", "cmd40016", "cmd40082"})
        EXPECT_TRUE(file.contains(name)) << name;
    // Undo has no button on a tab: its key works from the window itself.
    QAction* undo = frame->findChild<QAction*>("cmd57643");
    ASSERT_NE(undo, nullptr);
    EXPECT_TRUE(frame->actions().contains(undo));
    EXPECT_EQ(undo->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    auto* quick = frame->findChild<QToolBar*>("QuickAccessBar");
    ASSERT_NE(quick, nullptr);
    EXPECT_TRUE(quick->actions().contains(undo));
    EXPECT_TRUE(frame->Ribbon()->isAncestorOf(quick));
    // The canvas's menu offers every command menu; in play mode only Play
    // keeps its commands usable.
    QStringList canvas;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) return;
        for (QAction* a : menu->actions())
            canvas << a->text();
        menu->close();
    });
    frame->ShowCanvasMenu(QPoint(10, 10));
    for (const char* title : {"&Edit", "&Insert", "&Live", "S&hape", "O&utput", "&Play"})
        EXPECT_TRUE(canvas.contains(title)) << title;
    frame->EnterPlayMode();
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_TRUE(frame->findChild<QAction*>("cmd781")->isEnabled());
}

// The table's keys reach the window whichever tab shows, and no key of the
// editor belongs to two actions: Qt would run neither.
TEST_F(RibbonTest, KeysFromTheTableWorkOnEveryTabAndNoneIsShared) {
    QAction* find = frame->findChild<QAction*>("cmd57636");
    ASSERT_NE(find, nullptr);
    EXPECT_EQ(find->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_F));
    EXPECT_TRUE(frame->actions().contains(find));
    EXPECT_EQ(frame->findChild<QAction*>("cmd57635")->shortcut(),
              QKeySequence(Qt::CTRL | Qt::Key_X));
    std::map<QString, QString> owner;
    for (QAction* a : frame->findChildren<QAction*>())
        for (const QKeySequence& key : a->shortcuts()) {
            const auto [it, fresh] = owner.emplace(key.toString(), a->objectName());
            EXPECT_TRUE(fresh) << key.toString().toStdString() << " on " << it->second.toStdString()
                               << " and " << a->objectName().toStdString();
        }
}

// Lock turns the whole selection one way: locked when none of it was,
// else unlocked; a click on a locked object then does not move it.
TEST_F(RibbonTest, LockLocksAllWhenNoneIsLockedElseUnlocksAll) {
    CQRDObjectShape* a = AddShape(page);
    CQRDObjectShape* b = AddShape(page);
    page->SelectOnly(a);
    page->Select(b);
    b->m_bLocked = 1;
    QAction* lock = frame->findChild<QAction*>("cmd40019");
    ASSERT_NE(lock, nullptr);
    lock->trigger();
    EXPECT_EQ(a->m_bLocked + b->m_bLocked, 0);
    lock->trigger();
    EXPECT_EQ(a->m_bLocked + b->m_bLocked, 2);
    EXPECT_TRUE(doc->Project().m_bModified);
    frame->m_nPlayState = 2;
    lock->trigger();
    EXPECT_EQ(a->m_bLocked + b->m_bLocked, 2);
    frame->m_nPlayState = 0;
}

// Every tab in both languages shows each of its groups; with ORV_SHOT_DIR
// set the frame is saved per tab for a person to look at.
TEST_F(RibbonTest, EveryTabShowsItsGroupsInBothLanguages) {
    auto korean = MakeFrame(18);
    korean->AddProjectWindow(new CZevrantDoc(korean.get()));
    const QByteArray shots = qgetenv("ORV_SHOT_DIR");
    for (CMainFrame* f : {frame.get(), korean.get()}) {
        f->resize(1600, 1000);
        f->show();
        f->UpdateRibbon();
        for (const UstCommandTab& tab : CommandTabs()) {
            f->Ribbon()->SetCurrentTab(tab.nId);
            QApplication::processEvents();
            ASSERT_EQ(f->Ribbon()->CurrentTab(), tab.nId);
            for (const UstCommandGroup& g : CommandGroups()) {
                auto* box = f->Ribbon()->findChild<QWidget*>(QString("grp%1").arg(g.nId));
                ASSERT_NE(box, nullptr) << g.nId;
                EXPECT_EQ(box->isVisible(), g.nTab == tab.nId) << g.nId;
            }
            if (!shots.isEmpty())
                f->grab().save(QDir(QString::fromLocal8Bit(shots))
                                   .filePath(QString("ribbon_%1_%2.png")
                                                 .arg(f == frame.get() ? "en" : "ko")
                                                 .arg(QString::fromUtf8(tab.szText))));
        }
    }
    korean->hide();
}

}  // namespace
}  // namespace orv
