#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QSettings>
#include <QTest>

#include "canvas_fixture.h"
#include "project/project_manager.h"
#include "render/tga_file.h"
#include "support/rect_object.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {
namespace {

using test::CanvasTest;
using test::CRectObject;

TEST_F(CanvasTest, ClickSelectsAndClickOnNothingClears) {
    CRectObject* a = Add({20, 20, 60, 50});
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(30, 30));
    EXPECT_EQ(page->Selection(), std::vector<CQRDObject*>{a});
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(150, 100));
    EXPECT_TRUE(page->Selection().empty());
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(-3, 30));  // outside the page
    EXPECT_TRUE(page->Selection().empty());
}

TEST_F(CanvasTest, ShiftClickTogglesAndRightClickSelectsOnlyThatObject) {
    CRectObject* a = Add({20, 20, 60, 50});
    CRectObject* b = Add({100, 20, 140, 50});
    QTest::mouseClick(view, Qt::LeftButton, Qt::ShiftModifier, At(30, 30));
    QTest::mouseClick(view, Qt::LeftButton, Qt::ShiftModifier, At(110, 30));
    EXPECT_EQ(page->Selection().size(), 2u);
    QTest::mouseClick(view, Qt::LeftButton, Qt::ShiftModifier, At(30, 30));
    EXPECT_EQ(page->Selection(), std::vector<CQRDObject*>{b});
    QTest::mouseClick(view, Qt::RightButton, Qt::NoModifier, At(30, 30));
    EXPECT_EQ(page->Selection(), std::vector<CQRDObject*>{a});
    QTest::mouseClick(view, Qt::RightButton, Qt::NoModifier, At(200, 100));
    EXPECT_TRUE(page->Selection().empty());
}

TEST_F(CanvasTest, RubberBandTakesOnlyObjectsWhollyInside) {
    CRectObject* inside = Add({20, 20, 40, 40});
    Add({70, 20, 120, 40});  // cut by the band
    Drag(At(10, 10), At(90, 60));
    EXPECT_EQ(page->Selection(), std::vector<CQRDObject*>{inside});
}

TEST_F(CanvasTest, DragMovesTheSelection) {
    CRectObject* a = Add({20, 20, 60, 50});
    const UstRect start = a->m_rcView;
    Drag(At(30, 30), At(50, 40));
    EXPECT_EQ(a->m_rcView,
              (UstRect{start.left + 20, start.top + 10, start.right + 20, start.bottom + 10}));
    EXPECT_EQ(page->m_bModified, 1);
}

TEST_F(CanvasTest, HandleDragSizesUnlessLocked) {
    CRectObject* a = Add({20, 20, 60, 50});
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(30, 30));
    Drag(At(60, 50), At(80, 70));
    EXPECT_EQ(a->m_rcView, (UstRect{20, 20, 80, 70}));
    a->m_bLocked = 1;
    Drag(At(80, 70), At(90, 90));
    EXPECT_EQ(a->m_rcView, (UstRect{20, 20, 80, 70}));
}

TEST_F(CanvasTest, RotationHandleTurnsTowardThePointer) {
    CRectObject* a = Add({40, 60, 80, 100}, true);
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(50, 70));
    Drag(At(60, 35), At(120, 80));  // the handle 25 above the top, then right of the centre
    EXPECT_EQ(a->m_nAngle, 90);
    EXPECT_EQ(frame->m_nCanvasMode, 0);
}

TEST_F(CanvasTest, ArrowsNudgeAndDeleteRemoves) {
    CRectObject* a = Add({20, 20, 60, 50});
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(30, 30));
    QTest::keyClick(view, Qt::Key_Right);
    EXPECT_EQ(a->m_rcView.left, 21);
    QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(a->m_rcView.top, 30);
    QTest::keyClick(view, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Up);
    EXPECT_EQ(a->m_rcView, (UstRect{11, 29, 51, 59}));
    QTest::keyClick(view, Qt::Key_Delete);
    EXPECT_TRUE(page->Objects().empty());
}

TEST_F(CanvasTest, PageKeysMoveThroughThePages) {
    CProjectManager& project = doc->Project();
    project.InsertPage(0);
    project.InsertPage(1);
    ASSERT_EQ(project.PageCount(), 3);
    QTest::keyClick(view, Qt::Key_PageDown);
    EXPECT_EQ(project.m_nCurPage, 1);
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_EQ(project.m_nCurPage, 2);
    EXPECT_EQ(frame->StatusPane(4)->text(), "Page 3/3");
    QTest::keyClick(view, Qt::Key_PageDown);
    EXPECT_EQ(project.m_nCurPage, 2);
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_EQ(project.m_nCurPage, 0);
    QTest::keyClick(view, Qt::Key_PageUp);
    EXPECT_EQ(project.m_nCurPage, 0);
}

TEST_F(CanvasTest, RollPageHasAScrollBarThatTheWheelMoves) {
    QWheelEvent down(QPointF(50, 50), view->mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &down);
    EXPECT_EQ(page->m_nScrollY, 0);  // a plain page ignores the wheel
    uint32_t roll = 1;
    view->PageCommand(CMD_PAGE_TYPE, &roll);
    QScrollBar* bar = view->ScrollBar(true);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_FALSE(view->ScrollBar(false)->isVisible());
    const int h = page->m_nHeight;
    page->ScrollToRect(0, 3 * h, 10, 3 * h + 10);  // the page grows to reach it
    const int origin = page->m_nScrollY;
    ASSERT_GT(origin, 40);
    QWheelEvent up(QPointF(50, 50), view->mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, 120),
                   Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &up);
    EXPECT_EQ(page->m_nScrollY, origin - 40);
    EXPECT_EQ(bar->value(), origin - 40);
}

TEST_F(CanvasTest, ExportWritesThePageAtFrameSize) {
    page->AddObject(std::make_unique<CRectObject>(UstRect{100, 50, 300, 150}, 0xFF00FF00u));
    const QString file = m_home.filePath("page.tga");
    ASSERT_TRUE(frame->ExportPageTo(file));
    const UstPixelImage image = ReadTga(file.toStdString());
    ASSERT_TRUE(image);
    EXPECT_EQ(image.width, 1920);
    EXPECT_EQ(image.height, 1080);
    EXPECT_EQ(image.bits[static_cast<size_t>(60) * 1920 + 120], 0xFF00FF00u);
    EXPECT_EQ(image.bits[0], 0u);
    EXPECT_FALSE(frame->ExportPageTo(m_home.filePath("no/such/folder/page.tga")));
}

}  // namespace
}  // namespace orv
