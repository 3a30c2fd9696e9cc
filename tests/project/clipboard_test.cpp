// The clipboard of pages, objects, text and files: records built by hand
// and read back, pastes onto every selected page and into another project
// with its media, the text under edit, and data that cannot be used, which
// adds nothing and leaves no undo record.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include <cstring>

#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
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

template <typename T>
void Append(Bytes& b, const T& v) {
    const auto* p = reinterpret_cast<const uint8_t*>(&v);
    b.insert(b.end(), p, p + sizeof v);
}

std::unique_ptr<CQRDObject> Box(int x) {
    return std::make_unique<CQRDObjectShape>(nullptr, 1, UstRect{x, 10, x + 40, 50},
                                             MakeDefaultAttr(), MakeDefaultEffect());
}

QString SavePng(const QString& path, int w, int h) {
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(Qt::green);
    image.save(path);
    return path;
}

class Clipboard : public testing::Test {
protected:
    Clipboard() : view(64, 48), project(640, 480) {}
    void SetUp() override {
        project.SetObjectFolder(QDir(dir.path()).filePath("Object/"));
        QDir().mkpath(project.ObjectFolder());
        project.AttachAll(&view);
        for (int i = 0; i < 3; ++i)
            ASSERT_EQ(project.ExecCommand(nullptr, CMD_NEW_PAGE), 1);
        ASSERT_EQ(project.ExecCommand(&zero, CMD_GO_TO_PAGE), 1);
    }
    CPageManager& Cur() { return *project.GetCurPage(); }
    size_t Records() { return project.UndoLog().UndoCount(); }
    // The whole project, to show that a refused paste changed nothing.
    std::vector<Bytes> State() {
        std::vector<Bytes> all;
        for (const auto& p : project.Pages())
            all.push_back(Snapshot(*p));
        return all;
    }
    void ExpectRefused(const QMimeData& mime) {
        const std::vector<Bytes> before = State();
        const size_t records = Records();
        EXPECT_EQ(project.ExecCommand(&mime, CMD_PASTE), 0);
        EXPECT_EQ(State(), before);
        EXPECT_EQ(Records(), records);
    }

    const int zero = 0;
    QTemporaryDir dir;
    CFakeView view;
    CProjectManager project;
};

TEST_F(Clipboard, TheObjectFormatIsACountAndEachSelectedState) {
    CQRDObject* a = Cur().AddObject(Box(5));
    CQRDObject* b = Cur().AddObject(Box(90));
    Cur().Select(b);
    Cur().Select(a);
    QMimeData mime;
    ASSERT_TRUE(Cur().CopySelection(mime));
    const Bytes block = MimeBlock(mime, MIME_OBJECTS);
    Bytes expected;
    Append<uint32_t>(expected, 2);
    CByteWriter states;
    b->SaveState(states);  // in selection order
    a->SaveState(states);
    expected.insert(expected.end(), states.Bytes().begin(), states.Bytes().end());
    EXPECT_EQ(block, expected);
    EXPECT_EQ(MimeSourceFolder(mime), project.ObjectFolder());
    Cur().ClearSelection();
    QMimeData none;
    EXPECT_FALSE(Cur().CopySelection(none));
    EXPECT_TRUE(none.formats().isEmpty());
}

TEST_F(Clipboard, ObjectsPastedWithThreePagesSelectedGoOnAllThree) {
    Cur().SelectOnly(Cur().AddObject(Box(5)));
    QMimeData mime;
    ASSERT_TRUE(Cur().CopySelection(mime));
    ASSERT_EQ(project.ExecCommand(&zero, CMD_GO_TO_PAGE), 1);
    const int one = 1, three = 3;
    project.ExecCommand(&one, CMD_ADD_PAGE_TO_SELECTION);
    project.ExecCommand(&three, CMD_ADD_PAGE_TO_SELECTION);
    const size_t records = Records();
    ASSERT_EQ(project.ExecCommand(&mime, CMD_PASTE), 1);
    EXPECT_EQ(project.GetPage(0)->Objects().size(), 2u);
    EXPECT_EQ(project.GetPage(1)->Objects().size(), 1u);
    EXPECT_EQ(project.GetPage(2)->Objects().size(), 0u);
    EXPECT_EQ(project.GetPage(3)->Objects().size(), 1u);
    EXPECT_EQ(project.GetPage(3)->Objects()[0]->m_rcStored, (UstRect{5, 10, 45, 50}));
    // The copies on the current page are the selection; one record for all.
    ASSERT_EQ(Cur().Selection().size(), 1u);
    EXPECT_EQ(Cur().Selection()[0], Cur().Objects()[1].get());
    ASSERT_EQ(Records(), records + 1);
    const Bytes& r = project.UndoLog().UndoRecords().front();
    uint32_t kind, rows;
    std::memcpy(&kind, r.data(), 4);
    std::memcpy(&rows, r.data() + 4, 4);
    EXPECT_EQ(kind, UNDO_PAGES_EDITED);
    EXPECT_EQ(rows, 3u);
}

TEST_F(Clipboard, ATextWithACharacterSelectionCopiesOnlyThatSelection) {
    auto* text = static_cast<CQRDObjectText*>(Cur().AddObject(std::make_unique<CQRDObjectText>()));
    text->SetPlainText("Hello");
    Cur().SelectOnly(text);
    text->BeginEdit(0, 0, false);
    text->MoveCaret(CARET_HOME, false);
    text->MoveCaret(CARET_RIGHT, false);
    text->MoveCaret(CARET_RIGHT, true);
    text->MoveCaret(CARET_RIGHT, true);  // "el"
    ASSERT_TRUE(Cur().CanCopy());
    QMimeData mime;
    ASSERT_TRUE(Cur().CopySelection(mime));
    const Bytes block = MimeBlock(mime, MIME_OBJECTS);
    ASSERT_EQ(block.size(), 4u + 4128u + 2u * 118u);
    Cur().EndTextEdit();
    Cur().ClearSelection();
    ASSERT_EQ(project.PasteObjects(mime), 1);
    EXPECT_EQ(Cur().Objects().back()->GetPlainText(), "el");
}

TEST_F(Clipboard, PlainTextBecomesATextOnEachPageWithoutLineFeeds) {
    QMimeData mime;
    mime.setText("ab\r\ncd\n");
    ASSERT_EQ(project.ExecCommand(&mime, CMD_PASTE), 1);
    ASSERT_EQ(Cur().Objects().size(), 1u);
    EXPECT_EQ(Cur().Objects()[0]->GetType(), OBJ_TEXT);
    EXPECT_EQ(Cur().Objects()[0]->GetPlainText(), "ab\rcd");
    QMimeData feeds;
    feeds.setText("\n\n");
    ExpectRefused(feeds);
}

TEST_F(Clipboard, PasteIntoTheTextUnderEdit) {
    auto* text = static_cast<CQRDObjectText*>(Cur().AddObject(std::make_unique<CQRDObjectText>()));
    text->SetPlainText("xy");
    Cur().SelectOnly(text);
    text->BeginEdit(0, 0, false);
    text->MoveCaret(CARET_END, false);
    QMimeData plain;
    plain.setText("1\n2");
    const size_t records = Records();
    ASSERT_EQ(project.ExecCommand(&plain, CMD_PASTE), 1);
    EXPECT_EQ(text->GetPlainText(), "xy12");
    // One copied text lends its look; the characters stay.
    CQRDObjectText look;
    look.SetPlainText("z");
    look.m_effect.nEdge = 7;
    look.m_attr.fill[UstAttr::EDGE].clrSolid = 0xFF123456u;
    CByteWriter state;
    look.SaveState(state);
    QMimeData one;
    SetMimeBlock(one, MIME_OBJECTS, CountedBlock(1, state.Bytes()));
    one.setText("ignored");
    ASSERT_EQ(project.ExecCommand(&one, CMD_PASTE), 1);
    EXPECT_EQ(text->GetPlainText(), "xy12");
    EXPECT_EQ(text->m_effect.nEdge, 7);
    EXPECT_EQ(text->m_attr.fill[UstAttr::EDGE].clrSolid, 0xFF123456u);
    EXPECT_EQ(Records(), records);  // nothing is pushed while the edit runs
    EXPECT_EQ(Cur().Objects().size(), 1u);
}

// A page record: the fixed 612 bytes, then the objects.
Bytes PageRecord(const QString& background, int32_t flag, uint32_t objects) {
    Bytes r;
    Append<uint32_t>(r, 0);
    Append<uint32_t>(r, objects);
    char16_t name[260] = {};
    std::memcpy(name, background.utf16(), static_cast<size_t>(background.size()) * 2);
    Append(r, name);
    Append<int32_t>(r, flag);
    Append<int32_t>(r, 0);
    Append<int32_t>(r, 2);
    Append<float>(r, 0.0f);
    const int32_t effect[11] = {5, 6, 1, 0, 2, 4, 0, 0, 0, 0, 0};
    Append(r, effect);
    const int32_t blink[3] = {1, 0x7F00FF00, 3}, typing[3] = {1, 1, 2};
    Append(r, blink);
    Append(r, typing);
    EXPECT_EQ(r.size(), 612u);
    return r;
}

TEST_F(Clipboard, APageRecordReadBackAndItsBackgroundLookedFor) {
    const QString source = QDir(dir.path()).filePath("elsewhere/");
    QDir().mkpath(source);
    SavePng(source + "found.png", 16, 9);
    Bytes block;
    Append<uint32_t>(block, 2);
    Bytes first = PageRecord("missing.png", 1, 1), second = PageRecord("found.png", 1, 0);
    CByteWriter box;
    Box(33)->SaveStateDeep(box);
    block.insert(block.end(), first.begin(), first.end());
    block.insert(block.end(), box.Bytes().begin(), box.Bytes().end());
    block.insert(block.end(), second.begin(), second.end());
    QMimeData mime;
    SetMimeBlock(mime, MIME_PAGES, block);
    SetMimeSourceFolder(mime, source);
    ASSERT_EQ(project.ExecCommand(&mime, CMD_PASTE), 1);
    ASSERT_EQ(project.PageCount(), 6);
    EXPECT_EQ(project.m_nCurPage, 1);  // behind the current one
    const CPageManager& a = *project.GetPage(1);
    const CPageManager& b = *project.GetPage(2);
    EXPECT_EQ(a.m_background.bPresent, 0);  // not found: no background
    EXPECT_EQ(a.m_effect.nInEffect, 5);
    EXPECT_EQ(a.m_effect.nInSpeed, 6);
    EXPECT_EQ(a.m_blink.crColor, 0x7F00FF00u);
    EXPECT_EQ(a.m_typing.nOrder, 1);
    ASSERT_EQ(a.Objects().size(), 1u);
    EXPECT_EQ(a.Objects()[0]->m_rcStored.left, 33);
    EXPECT_EQ(b.m_background.bPresent, 1);
    EXPECT_TRUE(QFileInfo::exists(project.ObjectFolder() + b.m_background.strFile));
    // Undo takes both pages away again.
    ASSERT_EQ(project.Undo(), 1);
    EXPECT_EQ(project.PageCount(), 4);
}

TEST_F(Clipboard, CopiedPagesWriteTheRecordTheyAreReadFrom) {
    Cur().AddObject(Box(12));
    Cur().m_effect.nOutSpeed = 9;
    QMimeData mime;
    ASSERT_EQ(project.CopyPages(0, mime), 1);
    const Bytes block = MimeBlock(mime, MIME_PAGES);
    CByteWriter box;
    Cur().Objects()[0]->SaveStateDeep(box);
    ASSERT_EQ(block.size(), 4u + 612u + box.Size());
    EXPECT_EQ(Cur().GetFlatSize(), 612u + box.Size());
    uint32_t speed;
    std::memcpy(&speed, block.data() + 4 + 544 + 20, 4);  // after the name and four words
    EXPECT_EQ(speed, 9u);
    ASSERT_EQ(project.PastePages(3, mime), 1);
    EXPECT_EQ(project.m_nCurPage, 4);
    EXPECT_EQ(Cur().m_effect.nOutSpeed, 9);
    EXPECT_EQ(Cur().Objects()[0]->m_rcStored, project.GetPage(0)->Objects()[0]->m_rcStored);
}

TEST_F(Clipboard, PastingIntoAnotherProjectCopiesItsMedia) {
    const QString file = SavePng(QDir(dir.path()).filePath("logo.png"), 20, 10);
    CQRDObjectPicture* picture = Cur().InsertPicture(file);
    ASSERT_NE(picture, nullptr);
    QMimeData mime;
    ASSERT_TRUE(Cur().CopySelection(mime));
    QTemporaryDir other;
    CFakeView otherView(64, 48);
    CProjectManager target(640, 480);
    target.SetObjectFolder(QDir(other.path()).filePath("Object/"));
    QDir().mkpath(target.ObjectFolder());
    target.AttachAll(&otherView);
    ASSERT_EQ(target.ExecCommand(&mime, CMD_PASTE), 1);
    ASSERT_EQ(target.GetCurPage()->Objects().size(), 1u);
    const auto& pasted = static_cast<const CQRDObjectPicture&>(*target.GetCurPage()->Objects()[0]);
    EXPECT_TRUE(QFileInfo(target.ObjectFolder() + pasted.m_strFile).isFile());
}

TEST_F(Clipboard, FilesBecomePicturesOnEveryTargetAndOthersAreLeftOut) {
    const QString png = SavePng(QDir(dir.path()).filePath("a.png"), 30, 20);
    const QString text = QDir(dir.path()).filePath("notes.txt");
    QFile(text).open(QIODevice::WriteOnly);
    const int two = 2;
    project.ExecCommand(&two, CMD_ADD_PAGE_TO_SELECTION);
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(png), QUrl::fromLocalFile(text),
                  QUrl::fromLocalFile(dir.path() + "/gone.png")});
    mime.setText(png);  // as file managers offer it
    ASSERT_EQ(project.ExecCommand(&mime, CMD_PASTE), 1);
    ASSERT_EQ(Cur().Objects().size(), 1u);
    EXPECT_EQ(Cur().Objects()[0]->GetType(), OBJ_PICTURE);
    EXPECT_EQ(project.GetPage(2)->Objects().size(), 1u);
    const UstPoint at{7, 9};
    ASSERT_EQ(project.PasteFiles({png}, &at), 1);
    EXPECT_EQ(Cur().Objects()[1]->m_rcView.left, 7);
    EXPECT_EQ(Cur().Objects()[1]->m_rcView.top, 9);
    QMimeData useless;
    useless.setUrls({QUrl::fromLocalFile(text), QUrl::fromLocalFile(dir.path() + "/gone.png")});
    ExpectRefused(useless);
}

TEST_F(Clipboard, DataThatCannotBeUsedAddsNothing) {
    CByteWriter box;
    Box(1)->SaveState(box);
    const Bytes state = box.Bytes();
    auto objects = [](const Bytes& b) {
        auto* mime = new QMimeData;
        SetMimeBlock(*mime, MIME_OBJECTS, b);
        return std::unique_ptr<QMimeData>(mime);
    };
    // More objects claimed than held.
    ExpectRefused(*objects(CountedBlock(2, state)));
    ExpectRefused(*objects(CountedBlock(0xFFFFFFFFu, state)));
    // A kind that does not exist.
    Bytes unknown = state;
    unknown[0] = 9;
    ExpectRefused(*objects(CountedBlock(1, unknown)));
    // A record cut short.
    ExpectRefused(*objects(CountedBlock(1, Bytes(state.begin(), state.end() - 5))));
    ExpectRefused(*objects(Bytes{1, 0}));
    // A text claiming more characters than there are bytes.
    CQRDObjectText text;
    text.SetPlainText("abc");
    CByteWriter textState;
    text.SaveState(textState);
    Bytes longer = textState.Bytes();
    longer[4] = 200;
    ExpectRefused(*objects(CountedBlock(1, longer)));
    // A page whose background name fills all 260 units with no terminator.
    Bytes page = PageRecord("", 1, 0);
    for (size_t i = 8; i < 8 + 520; i += 2)
        page[i] = 'x';
    QMimeData pages;
    SetMimeBlock(pages, MIME_PAGES, CountedBlock(1, page));
    ExpectRefused(pages);
    // Page counts beyond the bytes, and a page claiming an object it lacks.
    QMimeData claims;
    SetMimeBlock(claims, MIME_PAGES, CountedBlock(3, PageRecord("", 0, 0)));
    ExpectRefused(claims);
    QMimeData lacking;
    SetMimeBlock(lacking, MIME_PAGES, CountedBlock(1, PageRecord("", 0, 1)));
    ExpectRefused(lacking);
}

TEST_F(Clipboard, AThousandObjectsArePastedAsOneStep) {
    CByteWriter states;
    for (int i = 0; i < 1000; ++i)
        Box(i % 600)->SaveState(states);
    QMimeData mime;
    SetMimeBlock(mime, MIME_OBJECTS, CountedBlock(1000, states.Bytes()));
    const size_t records = Records();
    ASSERT_EQ(project.ExecCommand(&mime, CMD_PASTE), 1);
    EXPECT_EQ(Cur().Objects().size(), 1000u);
    EXPECT_EQ(Cur().Selection().size(), 1000u);
    EXPECT_EQ(Records(), records + 1);
    ASSERT_EQ(project.Undo(), 1);
    EXPECT_TRUE(Cur().Objects().empty());
}

TEST_F(Clipboard, CutObjectsLeaveThePageAndComeBackWithUndo) {
    Cur().SelectOnly(Cur().InsertNew(Box(4)));
    QMimeData mime;
    ASSERT_EQ(Cur().ExecCommand(&mime, CMD_CUT), 1);
    EXPECT_TRUE(Cur().Objects().empty());
    EXPECT_TRUE(mime.hasFormat(MIME_OBJECTS));
    ASSERT_EQ(project.Undo(), 1);
    EXPECT_EQ(Cur().Objects().size(), 1u);
    QMimeData nothing;
    Cur().ClearSelection();
    EXPECT_EQ(Cur().ExecCommand(&nothing, CMD_CUT), 0);
}

}  // namespace
}  // namespace orv
