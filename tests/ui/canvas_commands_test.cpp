// The canvas's commands by number and their enable states, the View menu
// that carries them, the page overview, and the canvas cases of selecting
// and editing that the commands must not disturb.
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

#include "canvas_fixture.h"
#include "objects/shape_object.h"
#include "ui/canvas_commands.h"
#include "ui/page_overview.h"
#include "ui/preview_dlg.h"

namespace orv {
namespace {

class CanvasCommandsTest : public test::CanvasTest {
protected:
    CProjectManager& Project() { return doc->Project(); }
    std::vector<CQRDObject*> Objects(std::initializer_list<int> lefts) {
        std::vector<CQRDObject*> made;
        for (int left : lefts)
            made.push_back(Add({left, 20, left + 30, 50}));
        return made;
    }
    int Run(uint32_t id) { return frame->CanvasCommand(id); }
    std::vector<CQRDObject*> Sel() { return page->Selection(); }
};

TEST_F(CanvasCommandsTest, PreviousAndNextPageStopAtTheEndsAndRestInAutomaticPlay) {
    view->ProjectCommand(CMD_NEW_PAGE);
    view->ProjectCommand(CMD_NEW_PAGE);
    view->GoToPage(0);
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_PREVIOUS_PAGE));
    EXPECT_EQ(Run(CMD_PREVIOUS_PAGE), 0);
    EXPECT_EQ(Run(CMD_NEXT_PAGE), 1);
    EXPECT_EQ(Run(CMD_NEXT_PAGE), 1);
    EXPECT_EQ(Project().m_nCurPage, 2);
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_NEXT_PAGE));
    EXPECT_EQ(Run(CMD_NEXT_PAGE), 0);
    EXPECT_EQ(frame->StatusPane(4)->text(), "Page 3/3");
    frame->m_nPlayState = 2;
    for (uint32_t id :
         std::initializer_list<uint32_t>{CMD_PREVIOUS_PAGE, CMD_SELECT_ALL, CMD_NEXT_OBJECT,
                                         CMD_FIND, CMD_JUMP_TO_PAGE, CMD_INSERT_TIMER, CMD_BLINK})
        EXPECT_FALSE(frame->CanvasCommandEnabled(id)) << id;
    EXPECT_EQ(Run(CMD_PREVIOUS_PAGE), 0);
    EXPECT_EQ(Project().m_nCurPage, 2);
    frame->m_nPlayState = 0;
}

TEST_F(CanvasCommandsTest, NextAndPreviousObjectWalkTheListAndWrapRound) {
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_NEXT_OBJECT));  // an empty page
    const auto o = Objects({10, 60, 110});
    EXPECT_EQ(Run(CMD_NEXT_OBJECT), 1);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[0]});  // none selected: the first
    Run(CMD_NEXT_OBJECT);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[1]});
    page->SelectOnly(o[2]);
    Run(CMD_NEXT_OBJECT);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[0]});
    Run(CMD_PREVIOUS_OBJECT);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[2]});
    page->ClearSelection();
    Run(CMD_PREVIOUS_OBJECT);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[2]});  // none selected: the last
    // Several selected: behind the last of them, before the first of them,
    // in list order whatever the order of selecting.
    page->SelectOnly(o[1]);
    page->Select(o[0]);
    Run(CMD_NEXT_OBJECT);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[2]});
    page->SelectOnly(o[2]);
    page->Select(o[1]);
    Run(CMD_PREVIOUS_OBJECT);
    EXPECT_EQ(Sel(), std::vector<CQRDObject*>{o[0]});
}

TEST_F(CanvasCommandsTest, EndOfEditSelectAllAndTheBlinkFlag) {
    const auto o = Objects({10, 60});
    view->StartNewText({200, 200});
    QTest::keyClicks(view, "ab");
    ASSERT_NE(view->EditedText(), nullptr);
    EXPECT_TRUE(frame->CanvasCommandEnabled(CMD_END_EDIT));
    EXPECT_EQ(Run(CMD_END_EDIT), 1);
    EXPECT_EQ(view->EditedText(), nullptr);
    EXPECT_EQ(frame->m_nCanvasMode, MODE_SELECT);
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_END_EDIT));
    EXPECT_EQ(Run(CMD_SELECT_ALL), 1);
    EXPECT_EQ(Sel().size(), 3u);
    // In play the same command selects every page.
    view->ProjectCommand(CMD_NEW_PAGE);
    view->ProjectCommand(CMD_NEW_PAGE);
    frame->m_nPlayState = 1;
    EXPECT_EQ(Run(CMD_SELECT_ALL), 1);
    EXPECT_EQ(Project().m_aSelPages, (std::vector<int>{0, 1}));
    frame->m_nPlayState = 0;
}

TEST_F(CanvasCommandsTest, BlinkOnTheSelectionTurnsOnUnlessAllBlinkAlready) {
    CPageManager* cur = Project().GetCurPage();
    auto* a = cur->InsertNew(std::make_unique<CQRDObjectShape>(
        nullptr, 1, UstRect{10, 10, 100, 100}, MakeDefaultAttr(), MakeDefaultEffect()));
    auto* b = cur->InsertNew(std::make_unique<CQRDObjectShape>(
        nullptr, 1, UstRect{200, 10, 300, 100}, MakeDefaultAttr(), MakeDefaultEffect()));
    EXPECT_TRUE(frame->CanvasCommandEnabled(CMD_BLINK));
    cur->ClearSelection();
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_BLINK));
    cur->SelectOnly(a);
    ASSERT_EQ(Run(CMD_BLINK), 1);
    EXPECT_TRUE(a->GetBlink());
    cur->Select(b);
    Run(CMD_BLINK);
    EXPECT_TRUE(a->GetBlink());
    EXPECT_TRUE(b->GetBlink());
    Run(CMD_BLINK);
    EXPECT_FALSE(a->GetBlink());
    EXPECT_FALSE(b->GetBlink());
}

TEST_F(CanvasCommandsTest, WithTwoSelectedAHandleGivesNothingToGrab) {
    const auto o = Objects({20, 80});
    page->SelectOnly(o[0]);
    page->Select(o[1]);
    page->RenderCanvas();
    const UstRect before0 = o[0]->m_rcView, before1 = o[1]->m_rcView;
    Drag(At(50, 50), At(70, 90));  // the first object's lower right handle
    EXPECT_EQ(o[0]->m_rcView, before0);
    EXPECT_EQ(o[1]->m_rcView, before1);
    EXPECT_EQ(Sel().size(), 2u);
}

TEST_F(CanvasCommandsTest, AClickInTextModeWhileATextIsEditedMakesNoNewText) {
    QTest::mouseDClick(view, Qt::LeftButton, Qt::NoModifier, At(60, 120));
    QTest::keyClicks(view, "abc");
    CQRDObjectText* text = view->EditedText();
    ASSERT_NE(text, nullptr);
    ASSERT_EQ(frame->m_nCanvasMode, MODE_TEXT);
    const QPoint inside = At(text->ScrolledViewRect().left + 2, text->ScrolledViewRect().top + 2);
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, inside);
    EXPECT_EQ(page->Objects().size(), 1u);
    EXPECT_EQ(view->EditedText(), text);
}

TEST_F(CanvasCommandsTest, TheViewMenuCarriesTheCommandsAndOpensTheOverview) {
    QAction* next = frame->findChild<QAction*>("cmd8103");
    QAction* overview = frame->findChild<QAction*>("cmd8110");
    ASSERT_NE(next, nullptr);
    ASSERT_NE(overview, nullptr);
    auto* menu = qobject_cast<QMenu*>(next->parent());
    ASSERT_NE(menu, nullptr);
    Q_EMIT menu->aboutToShow();
    EXPECT_FALSE(next->isEnabled());  // one page
    EXPECT_TRUE(overview->isEnabled());
    Q_EMIT menu->aboutToHide();
    EXPECT_TRUE(next->isEnabled());
    for (int i = 0; i < 5; ++i)
        view->ProjectCommand(CMD_NEW_PAGE);
    overview->trigger();
    CDlgPageOverview* dlg = frame->PageOverview();
    ASSERT_NE(dlg, nullptr);
    EXPECT_TRUE(dlg->isVisible());
    CPageOverviewGrid* grid = dlg->Grid();
    EXPECT_EQ(grid->PageCount(), 6);
    EXPECT_GT(grid->Geometry().nColumns, 1);
    // The overview and the pane share the pages' selection.
    const QRect third = grid->Geometry().ImageRect(2);
    QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, third.center());
    EXPECT_EQ(Project().m_nCurPage, 2);
    EXPECT_EQ(frame->PreviewPane()->m_nCurrent, 2);
    QTest::mouseClick(grid, Qt::LeftButton, Qt::ControlModifier,
                      grid->Geometry().ImageRect(4).center());
    EXPECT_EQ(Project().m_aSelPages, std::vector<int>{4});
    // Carried to the head in the grid: page 3 and page 5 lead, in order.
    CPageManager* p2 = Project().GetPage(2);
    CPageManager* p4 = Project().GetPage(4);
    const QPoint from = third.center();
    const QPoint head = grid->Geometry().ImageRect(0).topLeft() + QPoint(10, 20);
    QTest::mousePress(grid, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(grid, from + QPoint(-20, 0));
    QTest::mouseMove(grid, head);
    QTest::mouseRelease(grid, Qt::LeftButton, Qt::NoModifier, head);
    EXPECT_EQ(Project().GetPage(0), p2);
    EXPECT_EQ(Project().GetPage(1), p4);
    EXPECT_EQ(Project().m_nCurPage, 0);
    dlg->close();
}

TEST_F(CanvasCommandsTest, ModesOrderAndAlignmentByNumber) {
    EXPECT_EQ(Run(CMD_EDIT_TEXT_MODE), 1);
    EXPECT_EQ(frame->m_nCanvasMode, MODE_TEXT);
    EXPECT_EQ(Run(CMD_SELECT_MODE), 1);
    EXPECT_EQ(frame->m_nCanvasMode, MODE_SELECT);
    const auto o = Objects({10, 60});
    o[1]->m_rcView.top += 10;
    page->SelectOnly(o[0]);
    // Among the selected needs two; to the page one will do.
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_ALIGN_TOP));
    EXPECT_TRUE(frame->CanvasCommandEnabled(CMD_TO_FRONT));
    EXPECT_TRUE(frame->CanvasCommandEnabled(CMD_TO_TOP));
    ASSERT_EQ(Run(CMD_TO_FRONT), 1);
    EXPECT_EQ(page->Objects().back().get(), o[0]);
    page->Select(o[1]);
    ASSERT_TRUE(frame->CanvasCommandEnabled(CMD_ALIGN_TOP));
    ASSERT_EQ(Run(CMD_ALIGN_TOP), 1);
    EXPECT_EQ(o[0]->m_rcView.top, o[1]->m_rcView.top);
    page->ClearSelection();
    EXPECT_FALSE(frame->CanvasCommandEnabled(CMD_TO_BACK));
    EXPECT_EQ(Run(CMD_TO_BACK), 0);
}

}  // namespace
}  // namespace orv
