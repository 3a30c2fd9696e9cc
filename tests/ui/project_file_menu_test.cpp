// Projects through the editor's File menu: a new project saved into a folder
// of its own with its media, opened again in a second window, and a damaged
// file refused with its reason.
#include <QDir>
#include <QFile>

#include "canvas_fixture.h"
#include "objects/picture_object.h"
#include "ui/child_frame.h"

namespace orv {
namespace {

class ProjectFileMenuTest : public test::CanvasTest {
protected:
    QString Home(const QString& name) const { return QDir(m_home.path()).filePath(name); }
};

TEST_F(ProjectFileMenuTest, ANewProjectIsSavedIntoAFolderOfItsOwnAndOpensAgain) {
    QImage logo(80, 40, QImage::Format_ARGB32);
    logo.fill(0xFF2080FFu);
    ASSERT_TRUE(logo.save(Home("logo.png")));
    ASSERT_EQ(TriggerWithFile("cmd40051", Home("logo.png")), QString());
    page->AddShape(3, {10, 10, 60, 60}, MakeDefaultAttr(), MakeDefaultEffect());
    ASSERT_TRUE(QDir().mkpath(Home("Show")));
    const QString path = Home("Show/project.qrdprj");
    EXPECT_EQ(TriggerWithFile("cmdSave", path), QString());
    ASSERT_TRUE(QFile::exists(path));
    EXPECT_TRUE(QFile::exists(Home("Show/Object/logo.png")));
    EXPECT_EQ(QDir(Home("Show/Data")).entryList({"*.page"}, QDir::Files).size(), 1);
    EXPECT_EQ(doc->Title(), "Show");
    EXPECT_EQ(view->parentWidget()->windowTitle(), "Show");

    EXPECT_EQ(TriggerWithFile("cmdOpenProjectFile", path), QString());
    const auto views = frame->Views();
    ASSERT_EQ(views.size(), 2u);
    CPageManager* opened = views[1]->Page();
    ASSERT_NE(opened, nullptr);
    ASSERT_EQ(opened->Objects().size(), 2u);
    EXPECT_EQ(opened->Objects()[0]->GetType(), OBJ_PICTURE);
    EXPECT_EQ(static_cast<const CQRDObjectPicture&>(*opened->Objects()[0]).m_strFile, "logo.png");
    EXPECT_EQ(opened->Objects()[1]->GetType(), OBJ_SHAPE);
    EXPECT_EQ(opened->m_strThumbFile, page->m_strThumbFile);
    EXPECT_NE(views[1]->Document(), doc);

    // Saved again unchanged, the file keeps its bytes.
    const QByteArray before = [&] {
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }();
    frame->SaveActiveProject();
    QFile after(path);
    ASSERT_TRUE(after.open(QIODevice::ReadOnly));
    EXPECT_EQ(after.readAll(), before);
}

TEST_F(ProjectFileMenuTest, ADamagedFileOpensNothingAndSaysWhy) {
    const QString bad = Home("bad.qrdprj");
    QFile f(bad);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray(200, '\0'));
    f.close();
    const QString said = TriggerWithFile("cmdOpenProjectFile", bad);
    EXPECT_TRUE(said.contains("bad.qrdprj")) << said.toStdString();
    EXPECT_TRUE(said.contains("a frame of 0 x 0")) << said.toStdString();
    EXPECT_EQ(frame->Views().size(), 1u);
}

}  // namespace
}  // namespace orv
