// Animations through the editor: the Insert menu with a file or a picture
// sequence converted under its progress dialog, the messages for what
// cannot be used, "Animation Properties", the preview and the context menu.
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTimer>

#include "canvas_fixture.h"
#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "support/ani_files.h"
#include "test_util.h"
#include "ui/ani_dialog.h"
#include "ui/progress_dialog.h"

namespace orv {
namespace {

class CanvasAnimationTest : public test::CanvasTest {
protected:
    QString Path(const QString& name) const { return QDir(m_home.path()).filePath(name); }
    QString Clip(const char* name, uint32_t colour) {
        EXPECT_TRUE(test::WriteAnimation(Path(name), 60, 30, 3,
                                         [colour](int, int, int) { return colour; }));
        return Path(name);
    }
    CQRDObjectAni* OnlyAnimation() const {
        if (page->Objects().size() != 1 || page->Objects()[0]->GetType() != OBJ_ANIMATION)
            return nullptr;
        return static_cast<CQRDObjectAni*>(page->Objects()[0].get());
    }
    // Runs while the action is triggered, every few milliseconds.
    void TriggerWatching(const char* command, const std::function<void()>& watch) {
        QTimer poll;
        poll.setInterval(5);
        QObject::connect(&poll, &QTimer::timeout, watch);
        poll.start();
        frame->findChild<QAction*>(command)->trigger();
        QApplication::processEvents();
    }
};

TEST_F(CanvasAnimationTest, AFileIsInsertedAndOneThatNoSourceReadsSaysSo) {
    EXPECT_EQ(TriggerWithFile("cmd245", Clip("spin.ani32", 0xFF00A0FFu)), QString());
    CQRDObjectAni* a = OnlyAnimation();
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->m_rcStored, (UstRect{0, 0, 60, 30}));
    EXPECT_TRUE(QFileInfo::exists(QDir(page->ObjectFolder()).filePath("spin.ani32")));
    test::WriteFile(Path("notes.mp4").toStdString(), "not a video");
    EXPECT_EQ(TriggerWithFile("cmd245", Path("notes.mp4")), "Failed inserting animation file");
    EXPECT_EQ(page->Objects().size(), 1u);
}

TEST_F(CanvasAnimationTest, OnePictureOfASequenceConvertsThemAllUnderTheProgressDialog) {
    for (const char* name : {"take1.png", "take2.png", "take10.png", "other5.png"}) {
        QImage image(20, 10, QImage::Format_ARGB32);
        image.fill(QString(name).startsWith("other") ? 0xFF0000FFu : 0xFFFF0000u);
        ASSERT_TRUE(image.save(Path(name)));
    }
    // The dialog comes and goes between two turns of the test's timer, so
    // its showing is caught as it happens.
    struct CShown : QObject {
        QString title;
        bool eventFilter(QObject* o, QEvent* e) override {
            if (auto* p = qobject_cast<CDlgProgress*>(o); p && e->type() == QEvent::Show)
                title = p->windowTitle();
            return false;
        }
    } shown;
    qApp->installEventFilter(&shown);
    bool answered = false;
    TriggerWatching("cmd245", [&] {
        if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            dialog && !answered) {
            answered = true;
            dialog->selectFile(Path("take2.png"));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        }
    });
    qApp->removeEventFilter(&shown);
    EXPECT_EQ(shown.title, "Converting...");
    CQRDObjectAni* a = OnlyAnimation();
    ASSERT_NE(a, nullptr);
    EXPECT_TRUE(QRegularExpression("^\\d{17}\\.ANI32$").match(a->m_strFile).hasMatch());
    auto player = CreateMediaPlayer(a->FilePath());
    ASSERT_TRUE(player);
    EXPECT_EQ(player->GetInfo()->nFrames, 3);  // take1, take2, take10, not other5
    EXPECT_EQ(a->Still()[0], 0xFFFF0000u);
}

TEST_F(CanvasAnimationTest, ASequenceThatCannotBeConvertedSaysSo) {
    test::WriteFile(Path("bad1.png").toStdString(), "no picture");
    EXPECT_EQ(TriggerWithFile("cmd245", Path("bad1.png")),
              "Failed converting TGA(PNG) sequence files to animation file.");
    EXPECT_TRUE(page->Objects().empty());
}

TEST_F(CanvasAnimationTest, PropertiesDialogChangesOnlyTheRepeat) {
    ASSERT_EQ(TriggerWithFile("cmd245", Clip("spin.ani32", 0xFF00A0FFu)), QString());
    CQRDObjectAni* a = OnlyAnimation();
    ASSERT_NE(a, nullptr);
    bool fpsEnabled = true;
    int fps = 0, fpsMax = 0, repeatMax = 0;
    TriggerWatching("cmd40025", [&] {
        auto* dialog = qobject_cast<CDlgPropAni*>(QApplication::activeModalWidget());
        if (!dialog) return;
        fpsEnabled = dialog->m_pFps->isEnabled();
        fps = dialog->m_pFps->value();
        fpsMax = dialog->m_pFps->maximum();
        repeatMax = dialog->m_pRepeat->maximum();
        dialog->m_pRepeat->setValue(12);
        dialog->accept();
    });
    EXPECT_FALSE(fpsEnabled);
    EXPECT_EQ(fps, 30);
    EXPECT_EQ(fpsMax, 30);
    EXPECT_EQ(repeatMax, 9999);
    EXPECT_EQ(int32_t{a->m_words.nRepeat}, 12);
}

TEST_F(CanvasAnimationTest, PreviewAndTheContextMenuOverAnAnimation) {
    // Half transparent: red in frame 0, the still; blue after.
    ASSERT_TRUE(test::WriteAnimation(Path("fade.ani32"), 60, 30, 3, [](int, int, int i) {
        return i == 0 ? 0x80FF0000u : 0x800000FFu;
    }));
    ASSERT_EQ(TriggerWithFile("cmd245", Path("fade.ani32")), QString());
    const std::vector<uint32_t> before(view->Surface(),
                                       view->Surface() + view->FitWidth() * view->FitHeight());
    const int inside = static_cast<int>(20 * zoom / 100);
    // Each frame as it is painted, over the page's grey (0xE0) and not over
    // the still: frame 1 over it would keep some red.
    struct CPainted : QObject {
        const uint32_t* pixel = nullptr;
        std::vector<uint32_t> seen;
        bool eventFilter(QObject*, QEvent* e) override {
            if (e->type() == QEvent::Paint) seen.push_back(*pixel);
            return false;
        }
    } painted;
    painted.pixel = view->Surface() + inside * view->FitWidth() + inside;
    view->installEventFilter(&painted);
    EXPECT_TRUE(view->PreviewAnimation());
    view->removeEventFilter(&painted);
    ASSERT_GE(painted.seen.size(), 3u);
    EXPECT_EQ(painted.seen[0], 0xFFF07070u);
    EXPECT_EQ(painted.seen[1], 0xFF7070F0u);
    EXPECT_EQ(painted.seen[2], 0xFF7070F0u);
    EXPECT_EQ(std::vector<uint32_t>(view->Surface(),
                                    view->Surface() + view->FitWidth() * view->FitHeight()),
              before);
    QStringList entries;
    QTimer::singleShot(50, [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            for (QAction* action : menu->actions())
                entries << action->objectName();
            menu->close();
        }
    });
    QTest::mouseClick(view, Qt::RightButton, {}, At(inside, inside));
    EXPECT_EQ(entries, QStringList({"cmd40025", "cmd40031"}));
}

}  // namespace
}  // namespace orv
