// Animations on a page: inserted from files into the object folder, left out
// of play frames but kept in the thumbnail, their play count as a page
// command, and the list that live playout takes.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "project/project_manager.h"
#include "support/ani_files.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

constexpr uint32_t RED = 0xFFFF0000u;

class PageAnimations : public testing::Test {
protected:
    PageAnimations() : view(40, 20) {}
    void SetUp() override {
        objects = QDir(dir.path()).filePath("Object");
        project.SetObjectFolder(objects);
        view.env.nBackKind = BACK_COLOR;
        view.env.clrBack = 0xFF101010u;
        view.env.bSafety = 0;
        project.AttachAll(&view);
        page = project.GetCurPage();
    }
    // A red animation of w x h and two frames outside the object folder.
    QString Clip(const QString& name, int w, int h) {
        const QString path = QDir(dir.path()).filePath(name);
        EXPECT_TRUE(test::WriteAnimation(path, w, h, 2, [](int, int, int) { return RED; }));
        return path;
    }
    QStringList Copies() const { return QDir(objects).entryList(QDir::Files); }

    QTemporaryDir dir;
    QString objects;
    test::CFakeView view;
    CProjectManager project;
    CPageManager* page = nullptr;
};

TEST_F(PageAnimations, InsertedAtTheFileSizeWithItsStillAndSelected) {
    const QString clip = Clip("spin.ani32", 12, 6);
    ASSERT_EQ(page->ExecCommand(&clip, CMD_INSERT_ANIMATION), 1);
    ASSERT_EQ(page->Objects().size(), 1u);
    auto* a = static_cast<CQRDObjectAni*>(page->Objects()[0].get());
    EXPECT_EQ(a->GetType(), OBJ_ANIMATION);
    EXPECT_EQ(a->m_strFile, "spin.ani32");
    EXPECT_EQ(a->m_rcStored, (UstRect{0, 0, 12, 6}));
    EXPECT_TRUE(a->HasStill());
    EXPECT_EQ(page->Selection(), (std::vector<CQRDObject*>{a}));
    EXPECT_EQ(Copies(), QStringList{"spin.ani32"});
    EXPECT_EQ(project.m_bModified, 1);
    page->ClearSelection();
    page->RenderCanvas();
    EXPECT_EQ(view.At(6, 3), RED);
}

TEST_F(PageAnimations, FilesNoSourceReadsAreRefusedWithoutACopy) {
    const QString text = QDir(dir.path()).filePath("notes.ani32");
    test::WriteFile(text.toStdString(), "frames? no");
    const QString png = QDir(dir.path()).filePath("still.png");
    for (const QString& file : {text, png, QDir(dir.path()).filePath("missing.ani32"), QString()})
        EXPECT_EQ(page->ExecCommand(&file, CMD_INSERT_ANIMATION), 0) << file.toStdString();
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_INSERT_ANIMATION), 0);
    EXPECT_TRUE(page->Objects().empty());
    EXPECT_TRUE(Copies().isEmpty());
}

TEST_F(PageAnimations, PlayFramesLeaveItToTheLiveStageButTheThumbnailShowsIt) {
    const QString clip = Clip("full.ani32", 1920, 1080);
    ASSERT_EQ(page->ExecCommand(&clip, CMD_INSERT_ANIMATION), 1);
    std::vector<uint32_t> frame(1920 * 1080, 0);
    page->DrawForPlay(frame.data(), nullptr, 1920, 1080);
    EXPECT_EQ(frame[540 * 1920 + 960], 0u);
    page->UpdateThumbnail();
    ASSERT_FALSE(page->ThumbBits().empty());
    EXPECT_EQ(page->ThumbBits()[page->ThumbBits().size() / 2], RED);
}

TEST_F(PageAnimations, PlayCountOfTheSelectedAnimation) {
    const QString clip = Clip("spin.ani32", 12, 6);
    ASSERT_EQ(page->ExecCommand(&clip, CMD_INSERT_ANIMATION), 1);
    auto* a = static_cast<CQRDObjectAni*>(page->Objects()[0].get());
    const int32_t seven = 7;
    EXPECT_EQ(page->ExecCommand(&seven, CMD_ANIMATION_PROPERTIES), 1);
    EXPECT_EQ(int32_t{a->m_words.nRepeat}, 7);
    EXPECT_EQ(page->ExecCommand(&seven, CMD_ANIMATION_PROPERTIES), 0);  // no change
    page->ClearSelection();
    EXPECT_EQ(page->ExecCommand(&seven, CMD_ANIMATION_PROPERTIES), 0);
}

TEST_F(PageAnimations, LivePlayoutListsEachAnimationWhoseFileIsThere) {
    const QString one = Clip("one.ani32", 40, 20), two = Clip("two.ani32", 8, 8);
    ASSERT_EQ(page->ExecCommand(&one, CMD_INSERT_ANIMATION), 1);
    ASSERT_EQ(page->ExecCommand(&two, CMD_INSERT_ANIMATION), 1);
    auto* second = static_cast<CQRDObjectAni*>(page->Objects()[1].get());
    second->m_rcStored = {100, 50, 300, 151};
    page->AddObject(std::make_unique<test::CRectObject>(UstRect{0, 0, 5, 5}));
    // The first inside a group with a rectangle.
    page->ClearSelection();
    page->Select(page->Objects()[0].get());
    page->Select(page->Objects()[2].get());
    ASSERT_NE(page->GroupSelection(), nullptr);
    std::vector<UstAniPlay> list;
    page->CollectAnimations(list, 960, 540);  // half the project's frame
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].pObject, second);
    EXPECT_EQ(list[0].rcTarget, (UstRect{50, 25, 150, 76}));  // 75.5 rounds away from zero
    EXPECT_EQ(list[1].strFile, QDir(objects).filePath("one.ani32"));
    EXPECT_EQ(list[1].rcTarget, (UstRect{0, 0, 20, 10}));
    ASSERT_TRUE(QFile::remove(QDir(objects).filePath("two.ani32")));
    list.clear();
    page->CollectAnimations(list, 1920, 1080);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].rcTarget, (UstRect{0, 0, 40, 20}));
}

}  // namespace
}  // namespace orv
