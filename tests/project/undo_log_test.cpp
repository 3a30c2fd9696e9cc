// Undo by page snapshots: the base record after load, the depth of the log,
// pages added and removed and brought back, the identity fix-up that only
// reaches the newest record, and random sequences of edits, undos and redos
// checked against the states they should reach and against a save and reload.
#include <gtest/gtest.h>

#include <QDir>
#include <QMimeData>
#include <QTemporaryDir>

#include <cstring>
#include <random>

#include "objects/shape_object.h"
#include "project/archive.h"
#include "project/clipboard_formats.h"
#include "project/project_manager.h"
#include "support/rect_object.h"

namespace orv {
namespace {

using test::CFakeView;
using Bytes = std::vector<uint8_t>;

Bytes Snapshot(const CPageManager& page) {
    CArchiveOut ar;
    page.SerializeSnapshot(ar);
    return ar.Bytes().Bytes();
}

uint32_t Word(const Bytes& b, size_t at) {
    uint32_t v;
    std::memcpy(&v, b.data() + at, 4);
    return v;
}

std::unique_ptr<CQRDObject> Box(int x, int kind = 1) {
    return std::make_unique<CQRDObjectShape>(nullptr, kind, UstRect{x, 10, x + 40, 50},
                                             MakeDefaultAttr(), MakeDefaultEffect());
}

class UndoLog : public testing::Test {
protected:
    UndoLog() : view(64, 48), project(640, 480) {}
    void SetUp() override {
        project.SetObjectFolder(QDir(dir.path()).filePath("Object"));
        project.AttachAll(&view);
    }
    CPageManager& Cur() { return *project.GetCurPage(); }
    // One edit of the current page through its command routine.
    void AddBox(int x) { Cur().InsertNew(Box(x)); }
    void Nudge(int dx) {
        const UstPoint d{dx, 0};
        ASSERT_EQ(Cur().ExecCommand(&d, CMD_NUDGE_RIGHT), 1);
    }
    int FirstLeft() { return Cur().Objects().front()->m_rcStored.left; }

    QTemporaryDir dir;
    CFakeView view;
    CProjectManager project;
};

TEST_F(UndoLog, AfterLoadOnlyTheBaseRecordIsThereAndUndoIsOff) {
    ASSERT_EQ(project.UndoLog().UndoCount(), 1u);
    EXPECT_EQ(Word(project.UndoLog().UndoRecords().front(), 0), UNDO_BASE);
    EXPECT_FALSE(project.CanUndo());
    EXPECT_FALSE(project.CanRedo());
    EXPECT_EQ(project.Undo(), 0);
    AddBox(5);
    EXPECT_TRUE(project.CanUndo());
    ASSERT_EQ(project.Undo(), 1);
    EXPECT_TRUE(Cur().Objects().empty());  // back to the base
    EXPECT_FALSE(project.CanUndo());
    ASSERT_EQ(project.Redo(), 1);
    EXPECT_EQ(Cur().Objects().size(), 1u);
}

TEST_F(UndoLog, ASinglePageRecordHasItsSnapshotAtTwenty) {
    AddBox(5);
    const Bytes& r = project.UndoLog().UndoRecords().front();
    EXPECT_EQ(Word(r, 0), UNDO_PAGES_EDITED);
    EXPECT_EQ(Word(r, 4), 1u);
    EXPECT_EQ(Word(r, 8), Cur().m_nIdentity);
    EXPECT_EQ(Word(r, 12), 0u);  // index
    EXPECT_EQ(Word(r, 16), 20u);
    EXPECT_EQ(Bytes(r.begin() + 20, r.end()), Snapshot(Cur()));
}

TEST_F(UndoLog, UndoStopsAtTheOldestSnapshotKept) {
    AddBox(0);
    for (int i = 0; i < 39; ++i)
        Nudge(1);  // 40 edits: the box stands at 0, 1, ..., 39
    EXPECT_EQ(project.UndoLog().UndoCount(), 31u);
    int undone = 0;
    while (project.Undo())
        ++undone;
    EXPECT_EQ(undone, 31);
    // The oldest record kept is the edit that put the box at 9.
    EXPECT_EQ(FirstLeft(), 9);
    EXPECT_FALSE(project.CanUndo());
    ASSERT_EQ(project.Redo(), 1);
    EXPECT_EQ(FirstLeft(), 9);
    ASSERT_EQ(project.Redo(), 1);
    EXPECT_EQ(FirstLeft(), 10);
}

// The objects an undo leaves alone keep their drawn layers; the canvas must
// still be what a page drawn from nothing shows.
TEST_F(UndoLog, AnUndoDrawsWhatAFreshPageDraws) {
    AddBox(0);
    AddBox(300);
    const std::vector<uint32_t> before = view.canvas;
    Cur().SelectOnly(Cur().Objects().front().get());
    Nudge(200);
    ASSERT_NE(view.canvas, before);
    ASSERT_EQ(project.Undo(), 1);
    EXPECT_EQ(view.canvas, before);
    for (const auto& o : Cur().Objects())
        o->ReleaseCache();
    Cur().Activate(false);
    EXPECT_EQ(view.canvas, before);
}

TEST_F(UndoLog, ANewPageGoesBackAfterItsEditAndComesBackWithANewIdentity) {
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_NEW_PAGE), 1);
    ASSERT_EQ(project.PageCount(), 2);
    const uint32_t made = Cur().m_nIdentity;
    AddBox(7);
    const Bytes edited = Snapshot(Cur());
    ASSERT_EQ(project.Undo(), 1);  // the edit
    EXPECT_EQ(project.PageCount(), 2);
    EXPECT_TRUE(Cur().Objects().empty());
    ASSERT_EQ(project.Undo(), 1);  // the page
    EXPECT_EQ(project.PageCount(), 1);
    EXPECT_EQ(project.m_nCurPage, 0);
    ASSERT_EQ(project.Redo(), 1);
    ASSERT_EQ(project.PageCount(), 2);
    EXPECT_EQ(project.m_nCurPage, 1);
    EXPECT_NE(Cur().m_nIdentity, made);
    EXPECT_TRUE(Cur().Objects().empty());
    // The edit's record waits in the redo list, whose rows the fix-up of
    // identities does not reach: it names the old page and is skipped.
    EXPECT_TRUE(project.CanRedo());
    ASSERT_EQ(project.Redo(), 1);
    EXPECT_TRUE(Cur().Objects().empty());
    EXPECT_NE(Snapshot(Cur()), edited);
}

TEST_F(UndoLog, CuttingEveryPageLeavesTheEmptyStateAndUndoBringsThemBack) {
    AddBox(3);
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_NEW_PAGE), 1);
    AddBox(9);
    const Bytes first = Snapshot(*project.GetPage(0)), second = Snapshot(*project.GetPage(1));
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_SELECT_ALL_PAGES), 1);
    QMimeData mime;
    ASSERT_EQ(project.ExecCommand(&mime, CMD_CUT), 1);
    EXPECT_EQ(project.PageCount(), 0);
    EXPECT_EQ(project.m_nCurPage, -1);
    EXPECT_EQ(project.GetCurPage(), nullptr);
    ASSERT_EQ(project.Undo(), 1);
    ASSERT_EQ(project.PageCount(), 2);
    EXPECT_EQ(Snapshot(*project.GetPage(0)), first);
    EXPECT_EQ(Snapshot(*project.GetPage(1)), second);
    EXPECT_EQ(project.m_nCurPage, 0);
    ASSERT_EQ(project.Redo(), 1);
    EXPECT_EQ(project.PageCount(), 0);
}

TEST_F(UndoLog, ANewIdentityReachesOnlyRowsAtTheRunningOffset) {
    // Three records, newest first: [A], [B, A], [A].
    CPageManager& a = Cur();
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_NEW_PAGE), 1);
    CPageManager& b = Cur();
    CUndoLog& log = project.UndoLog();
    log.Clear();
    log.PushPage(a, UNDO_PAGES_EDITED);
    log.PushPages({&b, &a}, UNDO_PAGES_EDITED);
    log.PushPage(a, UNDO_PAGES_EDITED);
    const uint32_t A = a.m_nIdentity, B = b.m_nIdentity, Z = 0xABCDEF01u;
    log.ReplacePageIdentity(A, Z);
    const auto& r = log.UndoRecords();
    // Offset 8 in the newest; 20 in the next, its second row; 44 in the
    // oldest, past its only row.
    EXPECT_EQ(Word(r[0], 8), Z);
    EXPECT_EQ(Word(r[1], 8), B);
    EXPECT_EQ(Word(r[1], 20), Z);
    EXPECT_EQ(Word(r[2], 8), A);
}

TEST_F(UndoLog, AnEditOfSeveralPagesGoesBackOnEachPage) {
    AddBox(1);
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_NEW_PAGE), 1);
    AddBox(2);
    const Bytes p0 = Snapshot(*project.GetPage(0)), p1 = Snapshot(*project.GetPage(1));
    ASSERT_EQ(project.ExecCommand(nullptr, CMD_SELECT_ALL_PAGES), 1);
    QMimeData mime;
    mime.setText("two pages");
    ASSERT_EQ(project.ExecCommand(&mime, CMD_PASTE), 1);
    EXPECT_EQ(project.GetPage(0)->Objects().size(), 2u);
    ASSERT_EQ(project.Undo(), 1);
    EXPECT_EQ(Snapshot(*project.GetPage(0)), p0);
    EXPECT_EQ(Snapshot(*project.GetPage(1)), p1);
}

TEST_F(UndoLog, InsertingABackgroundOnEveryPageEmptiesTheLog) {
    AddBox(1);
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    const QString file = QDir(dir.path()).filePath("back.png");
    ASSERT_TRUE(image.save(file));
    QDir().mkpath(project.ObjectFolder());
    const QString name = file;
    ASSERT_EQ(project.ExecCommand(&name, CMD_BACKGROUND_TO_ALL), 1);
    EXPECT_EQ(project.UndoLog().UndoCount(), 0u);
    EXPECT_FALSE(project.CanUndo());
}

// ---- random sequences ----

// The project's pages as the file keeps them, written and read back.
std::vector<Bytes> Reloaded(const CProjectManager& project, bool* ok) {
    CByteWriter header;
    CArchiveOut list;
    project.Serialize(header, list);
    QByteArray bytes(PROJECT_HEADER_AREA, '\0');
    std::memcpy(bytes.data(), header.Bytes().data(), header.Size());
    bytes.append(reinterpret_cast<const char*>(list.Bytes().Bytes().data()),
                 static_cast<qsizetype>(list.Bytes().Size()));
    CProjectManager back;
    *ok = back.LoadProjectBytes(bytes, QString()) == 1;
    std::vector<Bytes> pages;
    for (const auto& p : back.Pages())
        pages.push_back(Snapshot(*p));
    return pages;
}

// One random edit of the current page through its commands; true when
// it went through to the end that pushes a record.
bool RandomEdit(CPageManager& page, std::mt19937& rng) {
    const int what = static_cast<int>(rng() % 5);
    if (what == 0 || page.Objects().empty()) {
        page.InsertNew(Box(static_cast<int>(rng() % 500), 1 + static_cast<int>(rng() % 3)));
        return true;
    }
    page.SelectOnly(page.Objects()[rng() % page.Objects().size()].get());
    const UstPoint d{static_cast<int>(rng() % 9) - 4, static_cast<int>(rng() % 9) - 4};
    switch (what) {
        case 1:
            return page.ExecCommand(&d, CMD_NUDGE_DOWN) != 0;
        case 2:
            return page.ExecCommand(nullptr, CMD_TO_BACK) != 0;
        case 3:
            return page.ExecCommand(nullptr, CMD_DELETE) != 0;
        default: {
            UstFill fill = MakeDefaultAttr().fill[0];
            fill.clrSolid = 0xFF000000u | rng();
            return page.ExecCommand(&fill, CMD_BODY_PAINT) != 0;
        }
    }
}

TEST_F(UndoLog, RandomEditsUndosAndRedosReachTheStatesTheyShould) {
    std::mt19937 rng(22);
    // The test's own account: newest first, as the log holds them.
    std::deque<Bytes> undo{Snapshot(Cur())}, redo;
    bool baseKept = true;  // the oldest entry is the base, never undone
    for (int step = 0; step < 3000; ++step) {
        const int what = static_cast<int>(rng() % 10);
        Bytes expected = Snapshot(Cur());
        if (what < 5) {
            if (!RandomEdit(Cur(), rng)) continue;
            expected = Snapshot(Cur());
            if (undo.size() > 30) {
                undo.pop_back();
                baseKept = false;
            }
            undo.push_front(expected);
            redo.clear();
        } else if (what < 8) {
            const bool can = undo.size() > (baseKept ? 1u : 0u);
            EXPECT_EQ(project.CanUndo(), can) << step;
            project.Undo();
            if (can) {
                redo.push_front(undo.front());
                undo.pop_front();
                if (!undo.empty()) expected = undo.front();
            }
        } else {
            EXPECT_EQ(project.CanRedo(), !redo.empty()) << step;
            project.Redo();
            if (!redo.empty()) {
                expected = redo.front();
                undo.push_front(redo.front());
                redo.pop_front();
            }
        }
        ASSERT_EQ(Snapshot(Cur()), expected) << "step " << step;
    }
}

// Pages made, edited, deleted, cut and pasted between undos and redos
// pressed at random: whatever state results saves and reads back the same.
TEST_F(UndoLog, TenThousandUndosAndRedosLeaveAProjectThatSavesAndReloads) {
    std::mt19937 rng(2022);
    QMimeData clip;
    int undos = 0;
    for (int step = 0; step < 10000; ++step) {
        const int what = static_cast<int>(rng() % 20);
        if (what < 8) {
            undos += project.Undo();
        } else if (what < 16) {
            undos += project.Redo();
        } else if (what == 16 || !project.GetCurPage()) {
            project.ExecCommand(nullptr, CMD_NEW_PAGE);
        } else if (what == 17) {
            RandomEdit(Cur(), rng);
        } else if (what == 18) {
            project.ExecCommand(nullptr, rng() % 2 ? CMD_DELETE_PAGES : CMD_SELECT_ALL_PAGES);
            if (rng() % 2) project.ExecCommand(&clip, CMD_CUT);
        } else {
            project.ExecCommand(&clip, rng() % 2 ? CMD_COPY : CMD_PASTE);
        }
        if (step % 25) continue;
        bool ok = false;
        const std::vector<Bytes> back = Reloaded(project, &ok);
        ASSERT_TRUE(ok) << step;
        ASSERT_EQ(back.size(), static_cast<size_t>(project.PageCount())) << step;
        for (int i = 0; i < project.PageCount(); ++i)
            ASSERT_EQ(back[static_cast<size_t>(i)], Snapshot(*project.GetPage(i))) << step;
    }
    EXPECT_GT(undos, 1000);
}

}  // namespace
}  // namespace orv
