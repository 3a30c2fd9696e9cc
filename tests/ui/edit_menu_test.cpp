// The Edit menu on the canvas: undo and redo by their keys and their
// enable states, objects and pages through the clipboard, and a picture
// file dropped on the canvas.
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

#include "canvas_fixture.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "project/clipboard_formats.h"

namespace orv {
namespace {

class EditMenuTest : public test::CanvasTest {
protected:
    void SetUp() override {
        test::CanvasTest::SetUp();
        frame->activateWindow();
        view->setFocus();
        QApplication::processEvents();
    }
    QAction* Action(uint32_t id) { return frame->findChild<QAction*>(QString("cmd%1").arg(id)); }
    CProjectManager& Project() { return doc->Project(); }
    CPageManager* Cur() { return Project().GetCurPage(); }
    CQRDObject* AddShape(int x) {
        return Cur()->InsertNew(std::make_unique<CQRDObjectShape>(
            nullptr, 1, UstRect{x, 20, x + 200, 120}, MakeDefaultAttr(), MakeDefaultEffect()));
    }
};

TEST_F(EditMenuTest, CtrlZAndCtrlYOnTheCanvasUndoAndRedo) {
    frame->UpdateEditActions(true);
    EXPECT_FALSE(Action(CMD_UNDO)->isEnabled());  // right after load
    EXPECT_FALSE(Action(CMD_REDO)->isEnabled());
    AddShape(40);
    frame->UpdateEditActions(true);
    EXPECT_TRUE(Action(CMD_UNDO)->isEnabled());
    EXPECT_FALSE(Action(CMD_REDO)->isEnabled());
    frame->UpdateEditActions(false);  // the menu closed: the keys are live
    QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Cur()->Objects().empty());
    QTest::keyClick(view, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Cur()->Objects().size(), 1u);
    QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Cur()->Objects().size(), 1u);
    // On air nothing is undone.
    frame->m_nPlayState = 1;
    frame->UpdateEditActions(true);
    EXPECT_FALSE(Action(CMD_UNDO)->isEnabled());
    frame->UpdateEditActions(false);
    EXPECT_EQ(view->EditCommand(CMD_UNDO), 0);
    EXPECT_EQ(Cur()->Objects().size(), 1u);
    frame->m_nPlayState = 0;
}

TEST_F(EditMenuTest, UndoCommitsTheRunningTextEditFirst) {
    CQRDObjectText* text = view->StartNewText({60, 80});
    QTest::keyClicks(view, "abc");
    frame->UpdateEditActions(true);
    EXPECT_TRUE(Action(CMD_UNDO)->isEnabled());
    frame->UpdateEditActions(false);
    QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
    // The edit became one step and that step went back: no text is left.
    EXPECT_FALSE(text == view->EditedText());
    EXPECT_TRUE(Cur()->Objects().empty());
}

TEST_F(EditMenuTest, AnObjectAndAPageGoThroughTheClipboard) {
    Cur()->SelectOnly(AddShape(30));
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* mime = QApplication::clipboard()->mimeData();
    ASSERT_NE(mime, nullptr);
    EXPECT_TRUE(mime->hasFormat(MIME_OBJECTS));
    QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Cur()->Objects().size(), 2u);
    EXPECT_EQ(Cur()->Objects()[1]->m_rcStored, Cur()->Objects()[0]->m_rcStored);

    // With the page thumbnails focused, the same keys take pages.
    frame->m_bPageFocus = true;
    ASSERT_EQ(view->EditCommand(CMD_COPY), 1);
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat(MIME_PAGES));
    ASSERT_EQ(view->EditCommand(CMD_PASTE), 1);
    ASSERT_EQ(Project().PageCount(), 2);
    EXPECT_EQ(Project().m_nCurPage, 1);
    EXPECT_EQ(Cur()->Objects().size(), 2u);
    EXPECT_EQ(frame->StatusPane(4)->text(), "Page 2/2");
    frame->m_bPageFocus = false;
}

TEST_F(EditMenuTest, APngDroppedOnTheCanvasBecomesAPictureThere) {
    QImage image(60, 40, QImage::Format_ARGB32);
    image.fill(0xFF0000FFu);
    const QString file = QDir(m_home.path()).filePath("drop.png");
    ASSERT_TRUE(image.save(file));
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(file)});
    const QPointF at = At(50, 30);
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view, &drop);
    ASSERT_EQ(Cur()->Objects().size(), 1u);
    const CQRDObject& picture = *Cur()->Objects()[0];
    EXPECT_EQ(picture.GetType(), OBJ_PICTURE);
    EXPECT_EQ(picture.m_rcView.left, 50);
    EXPECT_EQ(picture.m_rcView.top, 30);
    EXPECT_TRUE(QFileInfo::exists(QDir(Cur()->ObjectFolder()).filePath("drop.png")));
    EXPECT_TRUE(Project().CanUndo());
}

}  // namespace
}  // namespace orv
