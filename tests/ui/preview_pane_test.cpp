// The "Slide" pane driven as an operator would: clicks with Shift and Ctrl,
// the new page row, dragging pages to a new place, the transition tiles,
// the keys, the page focus, play mode, and projects of no, one and
// thousands of pages.
#include <QClipboard>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

#include <algorithm>

#include "canvas_fixture.h"
#include "objects/shape_object.h"
#include "project/clipboard_formats.h"
#include "support/sample_projects.h"
#include "ui/preview_dlg.h"

namespace orv {
namespace {

class PreviewPaneTest : public test::CanvasTest {
protected:
    void SetUp() override {
        test::CanvasTest::SetUp();
        pane = frame->PreviewPane();
        ASSERT_NE(pane, nullptr);
        pane->resize(260, 500);
        QApplication::processEvents();
    }
    CProjectManager& Project() { return doc->Project(); }
    void MakePages(int count) {
        while (Project().PageCount() < count)
            view->ProjectCommand(CMD_NEW_PAGE);
        pane->Refresh();
    }
    // The centre of a page's image, in the pane's window.
    QPoint Row(int index) {
        pane->SelectPage(index, false, false);
        const QRect r = pane->Geometry().ImageRect(index);
        return r.center() - QPoint(0, pane->ScrollBar()->value());
    }
    void Click(int index, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QTest::mouseClick(pane, Qt::LeftButton, mods, Row(index));
    }
    // The current page and the set, in order.
    std::vector<int> Marked() {
        std::vector<int> marked = Project().m_aSelPages;
        marked.push_back(Project().m_nCurPage);
        std::sort(marked.begin(), marked.end());
        return marked;
    }
    bool CurrentInSet() {
        const auto& set = Project().m_aSelPages;
        return std::find(set.begin(), set.end(), Project().m_nCurPage) != set.end();
    }
    QRgb PixelAt(QPoint at) { return pane->grab().toImage().pixel(at); }

    CPreviewDlg* pane = nullptr;
};

TEST_F(PreviewPaneTest, ClicksShiftAndCtrlMarkPagesButNeverTheCurrentOneInTheSet) {
    MakePages(6);
    Click(1);
    EXPECT_EQ(Project().m_nCurPage, 1);
    EXPECT_TRUE(Project().m_aSelPages.empty());
    Click(4, Qt::ShiftModifier);
    EXPECT_EQ(Project().m_nCurPage, 1);
    EXPECT_EQ(Marked(), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_FALSE(CurrentInSet());
    // From the later page back to the earlier one: the same range.
    Click(4);
    EXPECT_TRUE(Project().m_aSelPages.empty());
    Click(1, Qt::ShiftModifier);
    EXPECT_EQ(Marked(), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_FALSE(CurrentInSet());
    Click(5, Qt::ControlModifier);
    EXPECT_EQ(Marked(), (std::vector<int>{1, 2, 3, 4, 5}));
    Click(2, Qt::ControlModifier);
    EXPECT_EQ(Marked(), (std::vector<int>{1, 3, 4, 5}));
    Click(4, Qt::ControlModifier);  // the current page: the set goes
    EXPECT_EQ(Marked(), std::vector<int>{4});
    // A click on nothing (the gap above the first row) clears the set too.
    Click(0, Qt::ControlModifier);
    QTest::mouseClick(pane, Qt::LeftButton, Qt::NoModifier, QPoint(100, 2));
    EXPECT_EQ(Marked(), std::vector<int>{4});
    // The current page is framed.
    const QRect image = pane->Geometry().ImageRect(4).translated(0, -pane->ScrollBar()->value());
    EXPECT_NE(PixelAt(image.topLeft() - QPoint(1, 1)), CPageThumbs::BACK);
}

TEST_F(PreviewPaneTest, AnEmptyProjectShowsOnlyTheNewPageRowWhichAddsAPage) {
    view->ProjectCommand(CMD_DELETE_PAGES);
    ASSERT_EQ(Project().PageCount(), 0);
    pane->Refresh();
    int index = -1;
    const QPoint first = pane->Geometry().ImageRect(0).center();
    EXPECT_EQ(pane->HitTest(first.x(), first.y(), &index), THUMB_HIT_NEW_PAGE);
    EXPECT_FALSE(pane->ScrollBar()->isVisible());
    pane->grab();  // paints without a page
    QTest::mouseClick(pane, Qt::LeftButton, Qt::ControlModifier, first);
    EXPECT_EQ(Project().PageCount(), 0);  // not with Ctrl
    QTest::mouseClick(pane, Qt::LeftButton, Qt::NoModifier, first);
    ASSERT_EQ(Project().PageCount(), 1);
    EXPECT_EQ(Project().m_nCurPage, 0);
    QTest::mouseClick(pane, Qt::LeftButton, Qt::NoModifier, Row(1));
    EXPECT_EQ(Project().PageCount(), 2);
    EXPECT_EQ(Project().m_nCurPage, 1);
}

TEST_F(PreviewPaneTest, ANarrowPaneTakesTheSmallMarginAndHidesTheTiles) {
    MakePages(2);
    pane->resize(200, 500);
    EXPECT_TRUE(pane->Geometry().bNarrow);
    EXPECT_EQ(pane->Geometry().nLeft, 30);
    int index = -1;
    const QRect tile = ListGeometry(260, 170.0f / 300).EffectTile(0, 0);
    EXPECT_EQ(pane->HitTest(tile.center().x(), tile.center().y(), &index), THUMB_HIT_PAGE);
    pane->resize(260, 500);
    EXPECT_EQ(pane->HitTest(tile.center().x(), tile.center().y(), &index), THUMB_HIT_IN_EFFECT);
}

TEST_F(PreviewPaneTest, DraggingPagesMovesThemAsOneUndoableStep) {
    MakePages(4);
    std::vector<CPageManager*> p;
    for (int i = 0; i < 4; ++i)
        p.push_back(Project().GetPage(i));
    Click(0);
    const QPoint from = Row(0);
    const QPoint to = Row(2) + QPoint(0, pane->Geometry().nImageHeight / 2 - 2);  // under page 2
    QTest::mousePress(pane, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(pane, from + QPoint(0, 20));
    QTest::mouseMove(pane, to);
    QTest::mouseRelease(pane, Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_EQ(Project().GetPage(0), p[1]);
    EXPECT_EQ(Project().GetPage(1), p[2]);
    EXPECT_EQ(Project().GetPage(2), p[0]);
    EXPECT_EQ(Project().GetCurPage(), p[0]);
    EXPECT_EQ(Project().m_nCurPage, 2);
    view->EditCommand(CMD_UNDO);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Project().GetPage(i), p[static_cast<size_t>(i)]) << i;
    // A press on a marked page that does not move stays a click: the set goes.
    Click(3);
    Click(1, Qt::ControlModifier);
    QTest::mouseClick(pane, Qt::LeftButton, Qt::NoModifier, Row(1));
    EXPECT_EQ(Marked(), std::vector<int>{1});
    // Two marked pages carried to the head keep their order.
    Click(3, Qt::ControlModifier);
    const QPoint head = Row(0) - QPoint(0, pane->Geometry().nImageHeight / 2 - 2);
    QTest::mousePress(pane, Qt::LeftButton, Qt::NoModifier, Row(3));
    QTest::mouseMove(pane, Row(3) - QPoint(0, 20));
    QTest::mouseMove(pane, head);
    QTest::mouseRelease(pane, Qt::LeftButton, Qt::NoModifier, head);
    EXPECT_EQ(Project().GetPage(0), p[1]);
    EXPECT_EQ(Project().GetPage(1), p[3]);
    EXPECT_EQ(Project().GetPage(2), p[0]);
}

TEST_F(PreviewPaneTest, ATileOpensTheGalleryForItsPageAndSide) {
    MakePages(3);
    QString shownChecked;
    QObject::connect(pane, &CPageThumbs::EffectMenuShown, pane, [&](QMenu* menu) {
        for (QAction* a : menu->actions())
            if (a->isChecked()) shownChecked = a->objectName();
        QTimer::singleShot(0, menu, [menu] {
            menu->findChild<QAction*>("effect12")->trigger();
            menu->close();
        });
    });
    const int in = Project().GetPage(1)->m_effect.nInEffect;
    const int out = Project().GetPage(1)->m_effect.nOutEffect;
    Row(1);
    const QRect tile = pane->Geometry().EffectTile(1, 1).translated(0, -pane->ScrollBar()->value());
    QTest::mouseClick(pane, Qt::LeftButton, Qt::NoModifier, tile.center());
    EXPECT_EQ(shownChecked, QString("effect%1").arg(out));
    EXPECT_EQ(pane->m_nFocus, 1);
    EXPECT_EQ(pane->m_nEffectSide, 1);
    EXPECT_EQ(Project().GetPage(1)->m_effect.nOutEffect, 12);
    EXPECT_EQ(Project().GetPage(1)->m_effect.nInEffect, in);
    EXPECT_EQ(Project().m_nCurPage, 2);  // the tile does not change the page
    EXPECT_EQ(Project().m_bModified, 1);
    Project().Undo();
    EXPECT_EQ(Project().GetPage(1)->m_effect.nOutEffect, out);
    // On air the gallery does not open.
    shownChecked.clear();
    frame->m_nPlayState = 1;
    QTest::mouseClick(pane, Qt::LeftButton, Qt::NoModifier, tile.center());
    EXPECT_TRUE(shownChecked.isEmpty());
    frame->m_nPlayState = 0;
}

TEST_F(PreviewPaneTest, KeysMoveAddAndDeletePagesOnlyInTheEditState) {
    MakePages(4);
    pane->setFocus();
    Click(0);
    QTest::keyClick(pane, Qt::Key_Down);
    EXPECT_EQ(Project().m_nCurPage, 1);
    QTest::keyClick(pane, Qt::Key_End);
    EXPECT_EQ(Project().m_nCurPage, 3);
    QTest::keyClick(pane, Qt::Key_Down);
    EXPECT_EQ(Project().m_nCurPage, 3);
    QTest::keyClick(pane, Qt::Key_Home);
    QTest::keyClick(pane, Qt::Key_Up);
    EXPECT_EQ(Project().m_nCurPage, 0);
    Click(2, Qt::ShiftModifier);
    QTest::keyClick(pane, Qt::Key_Delete);
    EXPECT_EQ(Project().PageCount(), 1);
    QTest::keyClick(pane, Qt::Key_Insert);
    EXPECT_EQ(Project().PageCount(), 2);
    frame->m_nPlayState = 1;
    QTest::keyClick(pane, Qt::Key_Delete);
    QTest::keyClick(pane, Qt::Key_Insert);
    EXPECT_EQ(Project().PageCount(), 2);
    Click(0);  // on air a click chooses the page
    EXPECT_EQ(Project().m_nCurPage, 0);
    Click(1, Qt::ControlModifier);
    EXPECT_TRUE(Project().m_aSelPages.empty());
    frame->m_nPlayState = 2;  // automatic play out: the pane only shows
    Click(1);
    QTest::keyClick(pane, Qt::Key_End);
    QTest::keyClick(pane, Qt::Key_Delete);
    EXPECT_EQ(Project().m_nCurPage, 0);
    EXPECT_EQ(Project().PageCount(), 2);
    frame->m_nPlayState = 0;
}

TEST_F(PreviewPaneTest, WithThePaneFocusedCopyTakesPages) {
    MakePages(2);
    frame->activateWindow();
    Click(0);
    pane->setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(frame->m_bPageFocus);
    QTest::keyClick(pane, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* mime = QApplication::clipboard()->mimeData();
    ASSERT_NE(mime, nullptr);
    EXPECT_TRUE(mime->hasFormat(MIME_PAGES));
    view->setFocus();
    QApplication::processEvents();
    EXPECT_FALSE(frame->m_bPageFocus);
}

TEST_F(PreviewPaneTest, ThumbnailsComeFromThePagesAndABlankOneStandsForAMissingOne) {
    MakePages(2);
    Click(0);
    // An edit: the page makes its thumbnail anew, and the pane shows it.
    Project().GetPage(0)->InsertNew(
        std::make_unique<test::CRectObject>(UstRect{0, 0, 1920, 1080}, 0xFFFF0000u));
    pane->Refresh();
    const QRect first = pane->Geometry().ImageRect(0).translated(0, -pane->ScrollBar()->value());
    EXPECT_EQ(PixelAt(first.center()) & 0xFFFFFFu, 0xFF0000u);
    // Page 2 has no thumbnail yet: white.
    CPageManager* second = Project().GetPage(1);
    if (second->ThumbBits().empty()) {
        const QRect r = pane->Geometry().ImageRect(1).translated(0, -pane->ScrollBar()->value());
        EXPECT_EQ(PixelAt(r.center()) & 0xFFFFFFu, 0xFFFFFFu);
    }
}

TEST_F(PreviewPaneTest, FiveThousandPagesScrollAndPaintOnlyWhatShows) {
    std::vector<std::unique_ptr<CPageManager>> pages;
    for (int i = 0; i < 4999; ++i)
        pages.push_back(std::make_unique<CPageManager>(&Project(), view));
    Project().AdoptPages(std::move(pages), true, -1);
    pane->Refresh();
    ASSERT_EQ(pane->PageCount(), 5000);
    EXPECT_EQ(pane->ScrollBar()->maximum(), pane->Geometry().ContentHeight(5000) - pane->height());
    pane->SelectPage(4999, false, true);
    EXPECT_EQ(Project().m_nCurPage, 4999);
    const QRect last = pane->Geometry().ImageRect(4999).translated(0, -pane->ScrollBar()->value());
    EXPECT_GE(last.top(), 0);
    EXPECT_LE(last.bottom(), pane->height());
    pane->grab();
    QWheelEvent up(QPointF(50, 50), pane->mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, 240),
                   Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    const int before = pane->ScrollBar()->value();
    QApplication::sendEvent(pane, &up);
    EXPECT_EQ(pane->ScrollBar()->value(), before - 2 * pane->Geometry().nPitch);
}

TEST_F(PreviewPaneTest, ThumbnailFilesMissingOrCutShortLeaveBlankPages) {
    CProjectManager made;
    const QString file = test::MakeProjectFolder(QDir(m_home.path()).filePath("show"), made);
    ASSERT_FALSE(file.isEmpty());
    for (int i = 0; i < 3; ++i) {
        CPageManager* p = made.InsertPage(made.PageCount() - 1);
        UstAttr red = MakeDefaultAttr();
        red.fill[UstAttr::BODY].clrSolid = 0xFFFF0000u;
        p->AddObject(std::make_unique<CQRDObjectShape>(p, 0, UstRect{0, 0, 1920, 1080}, red,
                                                       MakeDefaultEffect()));
    }
    ASSERT_TRUE(test::SaveWithThumbnails(made, file));
    // Page 1's file is cut short, page 2's is gone, page 3's stays.
    QFile cut(made.DataFolder() + made.GetPage(0)->m_strThumbFile);
    ASSERT_TRUE(cut.open(QIODevice::ReadWrite));
    ASSERT_TRUE(cut.resize(100));
    cut.close();
    ASSERT_TRUE(QFile::remove(made.DataFolder() + made.GetPage(1)->m_strThumbFile));
    ASSERT_NE(frame->OpenProjectPath(file), nullptr);
    pane->Refresh();
    ASSERT_EQ(pane->PageCount(), 3);
    const QImage shown = pane->grab().toImage();
    const auto centre = [&](int i) {
        return shown.pixel(pane->Geometry().ImageRect(i).center() -
                           QPoint(0, pane->ScrollBar()->value())) &
               0xFFFFFFu;
    };
    EXPECT_EQ(centre(0), 0xFFFFFFu);
    EXPECT_EQ(centre(1), 0xFFFFFFu);
    EXPECT_EQ(centre(2), 0xFF0000u);
}

TEST_F(PreviewPaneTest, TheRightButtonKeepsTheMarkedPagesAndOpensThePagesMenu) {
    MakePages(5);
    QString answer;
    QStringList offered;
    QObject::connect(pane, &CPageThumbs::ContextMenuShown, pane, [&](QMenu* menu) {
        offered.clear();
        for (QAction* a : menu->actions())
            if (!a->isSeparator()) offered << a->objectName();
        QTimer::singleShot(0, menu, [menu, &answer] {
            if (QAction* a = menu->findChild<QAction*>(answer)) a->trigger();
            menu->close();
        });
    });
    Click(1);
    Click(3, Qt::ControlModifier);
    answer = "none";
    QTest::mouseClick(pane, Qt::RightButton, Qt::NoModifier, Row(3));
    EXPECT_EQ(offered, (QStringList{"cmd604", "cmd605", "cmd57635", "cmd57634", "cmd57637"}));
    EXPECT_EQ(Marked(), (std::vector<int>{1, 3}));  // kept
    answer = "cmd605";
    QTest::mouseClick(pane, Qt::RightButton, Qt::NoModifier, Row(1));
    EXPECT_EQ(Project().PageCount(), 3);
    // On a page outside the marks it is chosen alone first.
    answer = "cmd604";
    QTest::mouseClick(pane, Qt::RightButton, Qt::NoModifier, Row(2));
    EXPECT_EQ(Project().PageCount(), 4);
    EXPECT_EQ(Project().m_nCurPage, 3);
    // On air the right button shows no menu.
    offered.clear();
    frame->m_nPlayState = 1;
    QTest::mouseClick(pane, Qt::RightButton, Qt::NoModifier, Row(0));
    EXPECT_TRUE(offered.isEmpty());
    frame->m_nPlayState = 0;
}

}  // namespace
}  // namespace orv
