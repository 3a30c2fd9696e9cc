#pragma once
// A main frame with one project window shown, and helpers to place objects
// and points on its canvas.

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "frame_fixture.h"
#include "project/project_manager.h"
#include "support/rect_object.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv::test {

class CanvasTest : public test::CFrameFixture {
protected:
    void SetUp() override {
        CFrameFixture::SetUp();
        frame = MakeFrame(9);
        doc = new CZevrantDoc(frame.get());
        view = frame->AddProjectWindow(doc);
        frame->resize(760, 560);
        frame->show();
        QApplication::processEvents();
        page = view->Page();
        ASSERT_NE(page, nullptr);
        zoom = frame->m_fZoom;
    }
    void TearDown() override {
        frame->hide();
        frame.reset();
    }
    // An object given in view units at the current zoom.
    CRectObject* Add(UstRect viewRect, bool rotates = false) {
        const float k = 100.0f / zoom;
        const UstRect stored{int(viewRect.left * k), int(viewRect.top * k), int(viewRect.right * k),
                             int(viewRect.bottom * k)};
        auto* o = static_cast<CRectObject*>(
            page->AddObject(std::make_unique<CRectObject>(stored, 0xFF00FF00u, rotates)));
        page->RenderCanvas();
        return o;
    }
    QPoint At(int x, int y) const { return view->PageRect().topLeft() + QPoint(x, y); }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QTest::mousePress(view, Qt::LeftButton, mods, from);
        QTest::mouseMove(view, (from + to) / 2);
        QTest::mouseMove(view, to);
        QTest::mouseRelease(view, Qt::LeftButton, mods, to);
    }

    // Triggers a menu command and answers its file dialog with the file;
    // answers what a message box said, if one came.
    QString TriggerWithFile(const char* command, const QString& file) {
        QString said;
        bool answered = false;
        // The dialog, then perhaps a message box, each once it is up.
        QTimer poll;
        poll.setInterval(5);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* dialog = qobject_cast<QFileDialog*>(modal); dialog && !answered) {
                answered = true;
                dialog->selectFile(file);
                QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
            } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                said = box->text();
                box->close();
            }
        });
        poll.start();
        QAction* action = frame->findChild<QAction*>(command);
        EXPECT_NE(action, nullptr) << command;
        if (action) action->trigger();
        QApplication::processEvents();
        EXPECT_TRUE(answered);
        return said;
    }

    std::unique_ptr<CMainFrame> frame;
    CZevrantDoc* doc = nullptr;
    CZevrantView* view = nullptr;
    CPageManager* page = nullptr;
    float zoom = 100.0f;
};

}  // namespace orv::test
