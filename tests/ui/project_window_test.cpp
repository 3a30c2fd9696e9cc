// Projects through the editor: a project saved into a folder of its own,
// its window brought forward instead of a second one, closing with and
// without keeping the work and refused on air, the Open and New dialogs, a
// damaged file refused with its reason, auto-save, and two project windows
// that type on their own.
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include "canvas_fixture.h"
#include "modal_answers.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/project_store.h"
#include "ui/child_frame.h"
#include "ui/project_dialogs.h"

namespace orv {
namespace {

class ProjectWindowTest : public test::CanvasTest {
protected:
    void SetUp() override {
        CanvasTest::SetUp();
        workspace = Home("Workspace");
        QDir().mkpath(workspace);
        frame->SetWorkspace(workspace);
    }
    QString Home(const QString& name) const { return QDir(m_home.path()).filePath(name); }
    // Answers a project dialog with a name in the workspace.
    static std::function<void(CDlgPrj*)> Name(const QString& location, const QString& name) {
        return [location, name](CDlgPrj* dlg) {
            dlg->findChild<QLineEdit*>("location")->setText(location);
            dlg->findChild<QLineEdit*>("name")->setText(name);
            QMetaObject::invokeMethod(dlg, "accept", Qt::QueuedConnection);
        };
    }
    void Trigger(const char* command) {
        QAction* action = frame->findChild<QAction*>(command);
        ASSERT_NE(action, nullptr) << command;
        action->trigger();
        QApplication::processEvents();
    }
    // The shapes on a project file's first page, by their stored widths.
    static std::vector<int> Widths(const QString& file) {
        CProjectManager project;
        EXPECT_TRUE(project.LoadProject(file));
        std::vector<int> out;
        if (project.PageCount() > 0)
            for (const auto& o : project.GetPage(0)->Objects())
                if (o->GetType() == OBJ_SHAPE) out.push_back(o->m_rcStored.Width());
        return out;
    }
    // A shape as wide as given in page pixels, whatever the zoom.
    void AddShape(CPageManager* p, int width) {
        const float z = p->GetZoom() / 100.0f;
        const int w = static_cast<int>(static_cast<float>(width) * z + 0.5f);
        p->AddShape(0, {0, 0, w, 20}, MakeDefaultAttr(), MakeDefaultEffect())->m_rcStored.right =
            width;
    }
    // The active window's project saved into Show and closed again.
    QString SavedShow() {
        AddShape(page, 40);
        test::CModalAnswers answers;
        answers.Dialog<CDlgPrj>(Name(workspace, "Show"));
        Trigger("cmd57603");
        EXPECT_TRUE(answers.AllAnswered());
        return QDir(workspace).filePath("Show/project.qrdprj");
    }

    QString workspace;
};

TEST_F(ProjectWindowTest, AProjectWithoutAFolderIsSavedIntoOneWithItsMedia) {
    QImage logo(80, 40, QImage::Format_ARGB32);
    logo.fill(0xFF2080FFu);
    ASSERT_TRUE(logo.save(Home("logo.png")));
    ASSERT_EQ(TriggerWithFile("cmd40051", Home("logo.png")), QString());
    const QString path = SavedShow();
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_TRUE(QFile::exists(path + ".backup"));  // the working file while it is open
    EXPECT_TRUE(QFile::exists(QDir(workspace).filePath("Show/Object/logo.png")));
    EXPECT_EQ(QDir(QDir(workspace).filePath("Show/Data")).entryList({"*.page"}).size(), 1);
    EXPECT_EQ(doc->Title(), "Show");
    EXPECT_EQ(view->parentWidget()->windowTitle(), "Show");
    EXPECT_EQ(Widths(path + ".backup"), (std::vector<int>{40}));

    // Opening it again brings its window forward rather than a second one.
    EXPECT_EQ(frame->OpenProjectPath(path), view);
    EXPECT_EQ(frame->Views().size(), 1u);
}

TEST_F(ProjectWindowTest, ClosingAsksOrSavesAndKeepsOrDropsTheWork) {
    const QString path = SavedShow();
    frame->m_Env.bAutoSave = 0;
    // Refused on air.
    frame->m_nPlayState = 1;
    {
        test::CModalAnswers answers;
        answers.Message();
        Trigger("cmd57602");
        EXPECT_EQ(answers.Said(), QStringList{"Please exit play mode to close project."});
    }
    ASSERT_EQ(frame->Views().size(), 1u);
    frame->m_nPlayState = 0;
    // Yes keeps the work in the project file; the working file goes.
    AddShape(page, 60);
    {
        test::CModalAnswers answers;
        answers.Message(QMessageBox::Yes);
        Trigger("cmd57602");
        ASSERT_EQ(answers.Said().size(), 1);
        EXPECT_EQ(answers.Said()[0], "Save the changes? Show\n");
    }
    QApplication::processEvents();
    EXPECT_TRUE(frame->Views().empty());
    EXPECT_FALSE(QFile::exists(path + ".backup"));
    EXPECT_EQ(Widths(path), (std::vector<int>{40, 60}));

    // No drops everything since the open, a save included.
    CZevrantView* again = frame->OpenProjectPath(path);
    ASSERT_NE(again, nullptr);
    AddShape(again->Page(), 80);
    frame->SaveActiveProject();
    EXPECT_EQ(Widths(path + ".backup"), (std::vector<int>{40, 60, 80}));
    AddShape(again->Page(), 90);
    {
        test::CModalAnswers answers;
        answers.Message(QMessageBox::No);
        Trigger("cmd57602");
    }
    QApplication::processEvents();
    EXPECT_FALSE(QFile::exists(path + ".backup"));
    EXPECT_EQ(Widths(path), (std::vector<int>{40, 60}));

    // With auto-save on nothing is asked and the work is kept.
    frame->m_Env.bAutoSave = 1;
    again = frame->OpenProjectPath(path);
    ASSERT_NE(again, nullptr);
    AddShape(again->Page(), 70);
    test::CModalAnswers none;
    Trigger("cmd57602");
    QApplication::processEvents();
    EXPECT_TRUE(none.Said().isEmpty());
    EXPECT_EQ(Widths(path), (std::vector<int>{40, 60, 70}));
}

TEST_F(ProjectWindowTest, AutoSaveWritesTheWorkingFileAndSaysSo) {
    const QString path = SavedShow();
    AddShape(page, 55);
    QMetaObject::invokeMethod(view, "OnAutoSave");
    EXPECT_EQ(frame->StatusPane(3)->text(), "project.qrdprj.backup is saved.");
    EXPECT_EQ(Widths(path + ".backup"), (std::vector<int>{40, 55}));
    EXPECT_EQ(Widths(path), std::vector<int>{});  // the project file waits for the close
    frame->StatusPane(3)->clear();
    QMetaObject::invokeMethod(view, "OnAutoSave");  // nothing changed since
    EXPECT_TRUE(frame->StatusPane(3)->text().isEmpty());
}

TEST_F(ProjectWindowTest, TheOpenDialogListsWhatIsNotOpenAndAsksForAChoice) {
    SavedShow();
    ASSERT_TRUE(CreateProjectFolder(QDir(workspace).filePath("Other"), 1920, 1080, nullptr));
    test::CModalAnswers answers;
    QStringList listed;
    answers.Dialog<CDlgOpenPrj>([&](CDlgOpenPrj* dlg) {
        QTreeWidget* list = dlg->List();
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            listed << list->topLevelItem(i)->text(0);
        QMetaObject::invokeMethod(dlg, "accept", Qt::QueuedConnection);  // nothing chosen
    });
    answers.Message();
    // The dialog stays after the message; choosing the row and OK opens the project.
    answers.Dialog<CDlgOpenPrj>([](CDlgOpenPrj* dlg) {
        dlg->List()->setCurrentItem(dlg->List()->topLevelItem(0));
        QMetaObject::invokeMethod(dlg, "accept", Qt::QueuedConnection);
    });
    Trigger("cmd57601");
    EXPECT_EQ(listed, QStringList{"Other"});  // Show is open
    EXPECT_EQ(answers.Said(), QStringList{"Please select a project."});
    ASSERT_EQ(frame->Views().size(), 2u);
    EXPECT_EQ(frame->ActiveView()->Document()->Title(), "Other");
}

TEST_F(ProjectWindowTest, NewProjectsProposeANameAndRefuseOneThatExists) {
    SavedShow();
    test::CModalAnswers answers;
    QString proposed;
    answers.Dialog<CDlgPrj>([&](CDlgPrj* dlg) {
        proposed = dlg->findChild<QLineEdit*>("name")->text();
        Name(workspace, "Show")(dlg);  // taken: the dialog says so and stays
    });
    answers.Message();
    answers.Dialog<CDlgPrj>(Name(workspace, "Late News"));
    Trigger("cmd57600");
    EXPECT_EQ(proposed, "Show1");
    EXPECT_EQ(answers.Said(),
              QStringList{"The project name already exists, please reenter project name."});
    ASSERT_EQ(frame->Views().size(), 2u);
    EXPECT_EQ(frame->ActiveView()->Document()->Title(), "Late News");
    EXPECT_TRUE(QFile::exists(QDir(workspace).filePath("Late News/project.qrdprj.backup")));
}

TEST_F(ProjectWindowTest, ADamagedFileOpensNothingAndSaysWhy) {
    const QString bad = Home("bad.qrdprj");
    QFile f(bad);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray(200, '\0'));
    f.close();
    const QString said = TriggerWithFile("cmdOpenProjectFile", bad);
    EXPECT_TRUE(said.contains("bad.qrdprj")) << said.toStdString();
    EXPECT_TRUE(said.contains("a frame of 0 x 0")) << said.toStdString();
    EXPECT_EQ(frame->Views().size(), 1u);
    EXPECT_EQ(QFile(bad).size(), 200);
}

// Each window edits on its own: keys typed into one text never reach the
// text under edit in the other window.
TEST_F(ProjectWindowTest, TwoWindowsTypeIndependently) {
    auto* second = new CZevrantDoc(frame.get());
    CZevrantView* other = frame->AddProjectWindow(second);
    QApplication::processEvents();
    ASSERT_NE(other->Page(), nullptr);
    CQRDObjectText* a = view->StartNewText({40, 60});
    CQRDObjectText* b = other->StartNewText({40, 60});
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_TRUE(a->IsEditing());
    EXPECT_TRUE(b->IsEditing());  // starting one did not end the other
    QTest::keyClicks(view, "left");
    QTest::keyClicks(other, "right");
    QTest::keyClicks(view, "!");
    EXPECT_EQ(a->GetPlainText(), "left!");
    EXPECT_EQ(b->GetPlainText(), "right");
    EXPECT_EQ(view->Page()->EditingText(), a);
    EXPECT_EQ(other->Page()->EditingText(), b);
    view->EndTextEdit();
    EXPECT_TRUE(b->IsEditing());
}

}  // namespace
}  // namespace orv
