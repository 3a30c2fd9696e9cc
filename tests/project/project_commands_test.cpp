// The project's own commands: pages made and deleted, the set of extra
// selected pages, the index that moves alone on air, a background given to
// every Cut page, and effect values set on several pages with the guarded
// pair that keeps roll and crawl numbers.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include "objects/shape_object.h"
#include "project/project_manager.h"
#include "project/undo_log.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CFakeView;

class CHost : public CProjectHost {
public:
    int PlayState() const override { return state; }
    bool PlayPanelOpen() const override { return panel; }
    void PagesChanged() override { ++changes; }
    void PageStatusChanged() override { ++statuses; }
    int state = 0, changes = 0, statuses = 0;
    bool panel = false;
};

class ProjectCommands : public testing::Test {
protected:
    ProjectCommands() : view(40, 20) {}
    void SetUp() override {
        project.SetHost(&host);
        project.SetObjectFolder(QDir(dir.path()).filePath("Object"));
        project.AttachAll(&view);
        for (int i = 0; i < 3; ++i)
            ASSERT_EQ(project.ExecCommand(nullptr, CMD_NEW_PAGE), 1);
        project.m_bModified = 0;
    }
    int Index(const CPageManager* page) const {
        for (int i = 0; i < project.PageCount(); ++i)
            if (project.GetPage(i) == page) return i;
        return -1;
    }
    int Command(uint32_t id, int index) { return project.ExecCommand(&index, id); }

    QTemporaryDir dir;
    CFakeView view;
    CHost host;
    CProjectManager project;
};

TEST_F(ProjectCommands, NewPagesGoAtTheEndOrAfterTheIndexAndBecomeCurrent) {
    EXPECT_EQ(project.PageCount(), 4);
    EXPECT_EQ(project.m_nCurPage, 3);  // each new page went at the end
    CPageManager* second = project.GetPage(1);
    const int after = 0;
    ASSERT_EQ(project.ExecCommand(&after, CMD_NEW_PAGE), 1);
    EXPECT_EQ(project.m_nCurPage, 1);
    EXPECT_EQ(Index(second), 2);
    EXPECT_EQ(project.GetCurPage(), project.GetPage(1));
    EXPECT_EQ(project.PageStatus(), "Page 2/5");
    EXPECT_EQ(project.m_bModified, 1);
}

TEST_F(ProjectCommands, DeletingTheCurrentAndSelectedPages) {
    CPageManager* p0 = project.GetPage(0);
    CPageManager* p2 = project.GetPage(2);
    ASSERT_EQ(Command(CMD_PAGE_CLICKED, 1), 1);
    ASSERT_EQ(Command(CMD_ADD_PAGE_TO_SELECTION, 3), 1);
    EXPECT_EQ(Command(CMD_ADD_PAGE_TO_SELECTION, 1), 0);  // the current page is not in the set
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_DELETE_PAGES), 1);
    ASSERT_EQ(project.PageCount(), 2);
    EXPECT_EQ(project.GetPage(0), p0);
    EXPECT_EQ(project.GetPage(1), p2);
    // The page now at the old index takes over.
    EXPECT_EQ(project.m_nCurPage, 1);
    EXPECT_EQ(project.GetCurPage(), p2);
    EXPECT_TRUE(project.m_aSelPages.empty());
}

TEST_F(ProjectCommands, DeletingTheLastPagePicksTheOneBeforeAndThenTheEmptyState) {
    ASSERT_EQ(Command(CMD_PAGE_CLICKED, 3), 1);
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_DELETE_PAGES), 1);
    EXPECT_EQ(project.m_nCurPage, 2);
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_SELECT_ALL_PAGES), 1);
    EXPECT_EQ(project.m_aSelPages, (std::vector<int>{0, 1}));
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_DELETE_PAGES), 1);
    EXPECT_EQ(project.PageCount(), 0);
    EXPECT_EQ(project.m_nCurPage, -1);
    EXPECT_EQ(project.GetCurPage(), nullptr);
    EXPECT_EQ(project.ExecCommand(nullptr, CMD_DELETE_PAGES), 0);
}

TEST_F(ProjectCommands, ThePlayPageStaysWhileThePlayPanelIsOpen) {
    project.m_pPlayPage = project.GetPage(3);
    host.panel = true;
    EXPECT_FALSE(project.IsPageDeletable(3));
    EXPECT_TRUE(project.IsPageDeletable(2));
    EXPECT_FALSE(project.IsPageDeletable(4));
    EXPECT_EQ(project.ExecCommand(nullptr, CMD_DELETE_PAGES), 0);  // only the current, held
    host.panel = false;
    EXPECT_TRUE(project.IsPageDeletable(3));
}

TEST_F(ProjectCommands, OnAirOnlyTheIndexMoves) {
    CPageManager* shown = project.GetCurPage();
    host.state = 1;
    ASSERT_EQ(Command(CMD_PAGE_CLICKED, 0), 1);
    EXPECT_EQ(project.m_nCurPage, 0);
    EXPECT_EQ(project.GetCurPage(), shown);  // nothing was put on the canvas
    EXPECT_EQ(shown->m_bActive, 1);
    EXPECT_EQ(Command(CMD_ADD_PAGE_TO_SELECTION, 2), 0);
    EXPECT_EQ(Command(CMD_REMOVE_PAGE_FROM_SELECTION, 2), 0);
    host.state = 0;
    ASSERT_EQ(Command(CMD_GO_TO_PAGE, 0), 1);
    EXPECT_EQ(project.GetCurPage(), project.GetPage(0));
    EXPECT_EQ(Command(CMD_GO_TO_PAGE, 9), 0);
}

TEST_F(ProjectCommands, TheSelectionSetStaysSortedAndAnswersWhatItHad) {
    ASSERT_EQ(Command(CMD_ADD_PAGE_TO_SELECTION, 2), 1);
    ASSERT_EQ(Command(CMD_ADD_PAGE_TO_SELECTION, 0), 1);
    ASSERT_EQ(Command(CMD_ADD_PAGE_TO_SELECTION, 2), 1);
    EXPECT_EQ(project.m_aSelPages, (std::vector<int>{0, 2}));
    EXPECT_EQ(Command(CMD_REMOVE_PAGE_FROM_SELECTION, 2), 1);
    EXPECT_EQ(Command(CMD_REMOVE_PAGE_FROM_SELECTION, 2), 0);
    EXPECT_EQ(project.ExecCommand(nullptr, CMD_CLEAR_PAGE_SELECTION), 1);
    EXPECT_TRUE(project.m_aSelPages.empty());
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_LEAVE_CANVAS), 1);
    EXPECT_EQ(project.GetCurPage(), nullptr);
}

// 8202 gives a transition only where one stands: roll (0) and crawl (1)
// pages keep their numbers, 2 never comes in and 3 never goes out.
TEST_F(ProjectCommands, EffectValuesReachTheSetAndTheGuardedPairKeepsScrollPages) {
    project.GetPage(0)->m_effect.nInEffect = 0;
    project.GetPage(0)->m_effect.nOutEffect = 0;
    project.GetPage(1)->m_effect.nInEffect = 1;
    project.GetPage(1)->m_effect.nOutEffect = 1;
    project.m_aSelPages = {0, 1, 2};
    const int32_t wipe = 7;
    ASSERT_EQ(project.SetPagesEffectValue(&wipe, CMD_EFFECT_PAIR), 1);
    EXPECT_EQ(project.GetPage(0)->m_effect.nInEffect, 0);
    EXPECT_EQ(project.GetPage(1)->m_effect.nOutEffect, 1);
    EXPECT_EQ(project.GetPage(2)->m_effect.nInEffect, 7);
    EXPECT_EQ(project.GetPage(3)->m_effect.nOutEffect, 7);  // the current page too
    const int32_t none = 2, cut = 3;
    ASSERT_EQ(project.SetPagesEffectValue(&none, CMD_EFFECT_PAIR), 1);
    EXPECT_EQ(project.GetPage(2)->m_effect.nInEffect, 7);
    EXPECT_EQ(project.GetPage(2)->m_effect.nOutEffect, 2);
    ASSERT_EQ(project.SetPagesEffectValue(&cut, CMD_EFFECT_PAIR), 1);
    EXPECT_EQ(project.GetPage(2)->m_effect.nInEffect, 3);
    EXPECT_EQ(project.GetPage(2)->m_effect.nOutEffect, 2);
    // A plain set here, where the single page's command toggles.
    const int32_t on = 1;
    ASSERT_EQ(project.SetPagesEffectValue(&on, 764), 1);
    ASSERT_EQ(project.SetPagesEffectValue(&on, 764), 1);
    EXPECT_EQ(project.GetPage(2)->m_effect.bInFade, 1);
    EXPECT_EQ(project.SetPagesEffectValue(&on, 766), 0);
    EXPECT_EQ(project.m_bModified, 1);
}

TEST_F(ProjectCommands, ABackgroundForEveryCutPageIsCopiedOnce) {
    const uint32_t roll = 1;
    project.GetPage(1)->ExecCommand(&roll, CMD_PAGE_TYPE);
    const QString file = QDir(dir.path()).filePath("sky.png");
    QImage sky(8, 4, QImage::Format_ARGB32);
    sky.fill(0xFF3060C0u);
    ASSERT_TRUE(sky.save(file));
    ASSERT_EQ(project.ExecCommand(&file, CMD_BACKGROUND_TO_ALL), 1);
    for (int i : {0, 2, 3}) {
        EXPECT_EQ(project.GetPage(i)->m_background.bPresent, 1) << i;
        EXPECT_EQ(project.GetPage(i)->m_background.strFile, "sky.png") << i;
        EXPECT_EQ(project.GetPage(i)->m_bModified, 1) << i;
    }
    EXPECT_EQ(project.GetPage(1)->m_background.bPresent, 0);     // a roll page has none
    EXPECT_FALSE(project.GetPage(0)->m_background.HasPixels());  // off the canvas
    EXPECT_EQ(QDir(project.ObjectFolder()).entryList(QDir::Files), QStringList{"sky.png"});
    const QString notes = QDir(dir.path()).filePath("notes.txt");
    EXPECT_EQ(project.ExecCommand(&notes, CMD_BACKGROUND_TO_ALL), 0);
}

TEST_F(ProjectCommands, ALibraryBackgroundGoesToTheCurrentAndSelectedPagesAsOneUndo) {
    const uint32_t roll = 1;
    project.GetPage(1)->ExecCommand(&roll, CMD_PAGE_TYPE);
    Command(CMD_ADD_PAGE_TO_SELECTION, 0);
    Command(CMD_ADD_PAGE_TO_SELECTION, 1);
    const QString file = QDir(dir.path()).filePath("sky.png");
    QImage sky(8, 4, QImage::Format_ARGB32);
    sky.fill(0xFF3060C0u);
    ASSERT_TRUE(sky.save(file));
    const size_t undo = project.UndoLog().UndoCount();
    ASSERT_EQ(project.ExecCommand(&file, CMD_BACKGROUND_STYLE), 1);
    EXPECT_EQ(project.GetPage(0)->m_background.strFile, "sky.png");
    EXPECT_EQ(project.GetPage(3)->m_background.strFile, "sky.png");  // the current page
    EXPECT_EQ(project.GetPage(1)->m_background.bPresent, 0);         // roll
    EXPECT_EQ(project.GetPage(2)->m_background.bPresent, 0);         // not selected
    EXPECT_EQ(project.UndoLog().UndoCount(), undo + 1);
    project.Undo();
    EXPECT_EQ(project.GetPage(0)->m_background.bPresent, 0);
    EXPECT_EQ(project.GetPage(3)->m_background.bPresent, 0);
    // A file that is no picture changes nothing and records nothing.
    const QString notes = QDir(dir.path()).filePath("notes.png");
    test::WriteFile(notes.toStdString(), "no picture");
    const size_t after = project.UndoLog().UndoCount();
    EXPECT_EQ(project.ExecCommand(&notes, CMD_BACKGROUND_STYLE), 0);
    EXPECT_EQ(project.UndoLog().UndoCount(), after);
}

// Master attribute mode: the current page and the extra selected ones take
// the paint, the page left out keeps its own, and one undo takes it back.
TEST_F(ProjectCommands, MasterAttributesReachTheSelectedPagesAsOneUndo) {
    std::vector<CQRDObjectShape*> shapes;
    for (int i = 0; i < project.PageCount(); ++i) {
        CPageManager* page = project.GetPage(i);
        shapes.push_back(
            static_cast<CQRDObjectShape*>(page->AddObject(std::make_unique<CQRDObjectShape>(
                page, 1, UstRect{2, 2, 20, 12}, MakeDefaultAttr(), MakeDefaultEffect()))));
        page->PushUndo(UNDO_PAGES_EDITED);
    }
    const uint32_t before = shapes[2]->m_attr.fill[0].clrSolid;
    ASSERT_NE(before, 0xFFFF0000u);
    Command(CMD_ADD_PAGE_TO_SELECTION, 0);
    Command(CMD_ADD_PAGE_TO_SELECTION, 1);  // with the current page 3: three pages
    UstFill red = MakeDefaultAttr().fill[0];
    red.nType = 0;
    red.clrSolid = 0xFFFF0000u;
    const size_t undo = project.UndoLog().UndoCount();
    ASSERT_EQ(project.ExecCommand(&red, CMD_BODY_PAINT), 1);
    for (int i : {0, 1, 3})
        EXPECT_EQ(+shapes[static_cast<size_t>(i)]->m_attr.fill[0].clrSolid, 0xFFFF0000u) << i;
    EXPECT_EQ(+shapes[2]->m_attr.fill[0].clrSolid, before);
    EXPECT_EQ(project.UndoLog().UndoCount(), undo + 1);
    EXPECT_TRUE(project.GetPage(0)->m_bModified);
    ASSERT_EQ(project.Undo(), 1);
    for (int i = 0; i < project.PageCount(); ++i) {
        const auto* shape =
            static_cast<const CQRDObjectShape*>(project.GetPage(i)->Objects().front().get());
        EXPECT_EQ(+shape->m_attr.fill[0].clrSolid, before) << i;
    }
    // A number outside master mode, or one no object takes, changes nothing.
    const int32_t width = 150;
    EXPECT_EQ(project.ExecCommand(&width, 723), 0);
    EXPECT_EQ(project.ExecCommand(&red, CMD_DELETE), 0);
    host.state = 2;
    EXPECT_EQ(project.ExecCommand(&red, CMD_BODY_PAINT), 0);
    EXPECT_EQ(project.UndoLog().UndoCount(), undo);
}

TEST_F(ProjectCommands, MovedPagesGoAsOneBlockAndComeBackWithOneUndo) {
    // Pages a b c d; d is current; b joins the set. Both go to the head.
    std::vector<CPageManager*> p;
    for (int i = 0; i < 4; ++i)
        p.push_back(project.GetPage(i));
    Command(CMD_ADD_PAGE_TO_SELECTION, 1);
    const size_t undo = project.UndoLog().UndoCount();
    ASSERT_EQ(Command(CMD_MOVE_PAGES, 0), 1);
    const std::vector<CPageManager*> moved = {p[1], p[3], p[0], p[2]};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(project.GetPage(i), moved[static_cast<size_t>(i)]) << i;
    EXPECT_EQ(project.m_nCurPage, 1);
    EXPECT_EQ(project.GetCurPage(), p[3]);
    EXPECT_EQ(project.m_aSelPages, std::vector<int>{0});
    EXPECT_EQ(project.UndoLog().UndoCount(), undo + 1);
    EXPECT_EQ(project.m_bModified, 1);
    project.Undo();
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(project.GetPage(i), p[static_cast<size_t>(i)]) << i;
    EXPECT_EQ(project.m_nCurPage, 3);
    EXPECT_EQ(project.m_aSelPages, std::vector<int>{1});
    project.Redo();
    EXPECT_EQ(project.GetPage(0), p[1]);
    EXPECT_EQ(project.GetPage(3), p[2]);
}

TEST_F(ProjectCommands, AMoveToTheEndOrToWhereTheBlockStandsOrOnAir) {
    std::vector<CPageManager*> p;
    for (int i = 0; i < 4; ++i)
        p.push_back(project.GetPage(i));
    Command(CMD_GO_TO_PAGE, 1);
    const size_t undo = project.UndoLog().UndoCount();
    // Before itself or just behind itself: nothing changes, nothing recorded.
    EXPECT_EQ(Command(CMD_MOVE_PAGES, 1), 0);
    EXPECT_EQ(Command(CMD_MOVE_PAGES, 2), 0);
    EXPECT_EQ(Command(CMD_MOVE_PAGES, 5), 0);
    EXPECT_EQ(Command(CMD_MOVE_PAGES, -1), 0);
    EXPECT_EQ(project.UndoLog().UndoCount(), undo);
    ASSERT_EQ(Command(CMD_MOVE_PAGES, 4), 1);
    EXPECT_EQ(project.GetPage(3), p[1]);
    EXPECT_EQ(project.GetPage(1), p[2]);
    EXPECT_EQ(project.m_nCurPage, 3);
    host.state = 1;
    EXPECT_EQ(Command(CMD_MOVE_PAGES, 0), 0);
    EXPECT_EQ(project.GetPage(3), p[1]);
}

}  // namespace
}  // namespace orv
