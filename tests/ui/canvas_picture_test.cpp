// Pictures through the editor: the Insert menu with a file dialog answered
// by the test, the message for a file that cannot be used, and a key colour
// picked by a click on the canvas.
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

#include "canvas_fixture.h"
#include "objects/group_object.h"
#include "objects/picture_object.h"

namespace orv {
namespace {

class CanvasPictureTest : public test::CanvasTest {
protected:
    QString Picture(const char* name, const QImage& image) {
        const QString path = QDir(m_home.path()).filePath(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QImage Solid(int w, int h, QRgb colour) {
        QImage image(w, h, QImage::Format_ARGB32);
        image.fill(colour);
        return image;
    }
};

TEST_F(CanvasPictureTest, InsertsAPictureAndABackgroundThroughTheMenu) {
    QImage logo = Solid(200, 100, 0xFF00FF00u);
    for (int y = 40; y < 60; ++y)
        for (int x = 80; x < 120; ++x)
            logo.setPixel(x, y, 0xFFFF0000u);  // a red mark in the middle
    const QString file = Picture("logo.png", logo);
    EXPECT_EQ(TriggerWithFile("cmd40051", file), QString());
    ASSERT_EQ(page->Objects().size(), 1u);
    auto* picture = static_cast<CQRDObjectPicture*>(page->Objects()[0].get());
    EXPECT_EQ(picture->GetType(), OBJ_PICTURE);
    EXPECT_EQ(picture->m_rcStored, (UstRect{0, 0, 200, 100}));
    EXPECT_TRUE(QFileInfo::exists(QDir(page->ObjectFolder()).filePath("logo.png")));

    const QString back = Picture("back.png", Solid(64, 36, 0xFF2040C0u));
    EXPECT_EQ(TriggerWithFile("cmd40050", back), QString());
    EXPECT_EQ(page->m_background.bPresent, 1);
    EXPECT_EQ(page->m_background.strFile, "back.png");
    const QRect r = view->PageRect();
    const QImage shown = view->grab().toImage();
    EXPECT_EQ(shown.pixel(r.right() - 30, r.bottom() - 30), 0xFF2040C0u);
}

TEST_F(CanvasPictureTest, AFileThatCannotBeUsedSaysSo) {
    const QString path = QDir(m_home.path()).filePath("photo.jpg");
    QFile fake(path);
    ASSERT_TRUE(fake.open(QIODevice::WriteOnly));
    fake.write("not a picture at all");
    fake.close();
    EXPECT_EQ(TriggerWithFile("cmd40051", path), "Failed loading picture.");
    EXPECT_TRUE(page->Objects().empty());
}

TEST_F(CanvasPictureTest, AClickOnTheCanvasPicksTheKeyColour) {
    QImage shot = Solid(400, 200, 0xFF00FF00u);
    for (int y = 50; y < 150; ++y)
        for (int x = 150; x < 250; ++x)
            shot.setPixel(x, y, 0xFFFF8000u);
    const QString file = Picture("shot.png", shot);
    frame->m_Env.bSafety = 0;  // no guide line under the click
    view->RefreshCanvas();
    ASSERT_EQ(TriggerWithFile("cmd40051", file), QString());
    auto* picture = static_cast<CQRDObjectPicture*>(page->Objects()[0].get());
    frame->findChild<QAction*>("cmd720")->trigger();
    ASSERT_TRUE(picture->IsPicking());
    // A point on the green, away from the handles.
    const int gx = static_cast<int>(300 * zoom / 100), gy = static_cast<int>(170 * zoom / 100);
    const QPoint green = At(gx, gy);
    QTest::mouseMove(view, green);
    EXPECT_EQ(view->cursor().shape(), Qt::BitmapCursor);
    QTest::mouseClick(view, Qt::LeftButton, {}, green);
    EXPECT_FALSE(picture->IsPicking());
    EXPECT_EQ(picture->m_bKeying, 1);
    EXPECT_EQ(picture->m_crKey, 0xFF00FF00u);
    page->ClearSelection();
    page->RenderCanvas();
    // Keyed out: the backdrop shows where the green was; the orange stays.
    const uint32_t* s = view->Surface();
    const int w = view->FitWidth();
    const int ox = static_cast<int>(200 * zoom / 100), oy = static_cast<int>(100 * zoom / 100);
    EXPECT_NE(s[gy * w + gx] & 0xFFFFFFu, 0x00FF00u);
    EXPECT_EQ(s[oy * w + ox], 0xFFFF8000u);
    // Reset through the menu brings the green back.
    page->SelectOnly(picture);
    frame->findChild<QAction*>("cmd740")->trigger();
    EXPECT_EQ(picture->m_bKeying, 0);
}

TEST_F(CanvasPictureTest, GroupAndUngroupThroughTheMenu) {
    test::CRectObject* a = Add({10, 10, 40, 40});
    test::CRectObject* b = Add({60, 10, 90, 40});
    page->Select(a);
    page->Select(b);
    frame->findChild<QAction*>("cmd209")->trigger();
    ASSERT_EQ(page->Objects().size(), 1u);
    EXPECT_EQ(page->Objects()[0]->GetType(), OBJ_GROUP);
    // Dragging the group by the space between its members moves both.
    const int ax = a->m_rcView.left;
    Drag(At(50, 25), At(70, 45));
    EXPECT_EQ(a->m_rcView.left, ax + 20);
    frame->findChild<QAction*>("cmd210")->trigger();
    EXPECT_EQ(page->Objects().size(), 2u);
}

}  // namespace
}  // namespace orv
