// Pictures, backgrounds and groups on a page: files copied into the object
// folder once, every kind of unusable file refused without a trace, the
// background's rules at insertion and activation, and grouping that stays
// flat.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "project/project_manager.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CFakeView;
using test::CRectObject;

constexpr uint32_t BACKDROP = 0xFF101010u;

class PagePictures : public testing::Test {
protected:
    PagePictures() : view(40, 20) {}
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        objects = QDir(dir.path()).filePath("Object");
        project.SetObjectFolder(objects);
        view.env.nBackKind = BACK_COLOR;
        view.env.clrBack = BACKDROP;
        view.env.bSafety = 0;
        project.AttachAll(&view);
        page = project.GetCurPage();
    }
    // A picture file of one colour in the test's folder.
    QString Picture(const QString& name, int w, int h, uint32_t argb) {
        QDir(dir.path()).mkpath("src");
        const QString path = QDir(dir.path()).filePath("src/" + name);
        QImage image(w, h, QImage::Format_ARGB32);
        image.fill(argb);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QString Bytes(const QString& name, const QByteArray& bytes) {
        const QString path = QDir(dir.path()).filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return path;
    }
    QStringList Copies() const { return QDir(objects).entryList(QDir::Files); }
    CRectObject* Add(UstRect r) {
        return static_cast<CRectObject*>(page->AddObject(std::make_unique<CRectObject>(r)));
    }
    // The canvas as it looks with nothing selected, so that no handle
    // stands over the pixel.
    uint32_t Seen(int x, int y) {
        const std::vector<CQRDObject*> selected = page->Selection();
        page->ClearSelection();
        page->RenderCanvas();
        const uint32_t p = view.At(x, y);
        for (CQRDObject* o : selected)
            page->Select(o);
        return p;
    }
    std::vector<CQRDObject*> Order() const {
        std::vector<CQRDObject*> out;
        for (const auto& o : page->Objects())
            out.push_back(o.get());
        return out;
    }

    QTemporaryDir dir;
    QString objects;
    CFakeView view;
    CProjectManager project;
    CPageManager* page = nullptr;
};

TEST_F(PagePictures, APictureIsCopiedOnceAndAClashGetsATimestampName) {
    const QString logo = Picture("logo.png", 12, 6, 0xFFFF0000u);
    EXPECT_EQ(page->ExecCommand(&logo, CMD_INSERT_PICTURE_FILE), 1);
    ASSERT_EQ(page->Objects().size(), 1u);
    auto* p = static_cast<CQRDObjectPicture*>(page->Objects()[0].get());
    EXPECT_EQ(p->m_strFile, "logo.png");
    EXPECT_EQ(p->m_rcStored, (UstRect{0, 0, 12, 6}));
    EXPECT_EQ(page->Selection(), (std::vector<CQRDObject*>{p}));
    EXPECT_EQ(Seen(11, 5), 0xFFFF0000u);
    EXPECT_EQ(project.m_bModified, 1);

    EXPECT_EQ(page->ExecCommand(&logo, CMD_INSERT_PICTURE), 1);  // the same source again
    EXPECT_EQ(Copies(), QStringList{"logo.png"});

    // Another file of the same name lands beside it under seventeen digits.
    QDir(dir.path()).mkpath("other");
    const QString other = QDir(dir.path()).filePath("other/logo.png");
    QImage blue(3, 3, QImage::Format_ARGB32);
    blue.fill(0xFF0000FFu);
    ASSERT_TRUE(blue.save(other));
    EXPECT_EQ(page->ExecCommand(&other, CMD_INSERT_PICTURE), 1);
    QStringList copies = Copies();
    ASSERT_EQ(copies.size(), 2);
    ASSERT_EQ(copies.removeAll("logo.png"), 1);
    const QString stamped = copies.value(0);
    EXPECT_TRUE(QRegularExpression("^\\d{17}\\.png$").match(stamped).hasMatch())
        << stamped.toStdString();
    EXPECT_EQ(static_cast<CQRDObjectPicture*>(page->Objects()[2].get())->m_strFile, stamped);
}

TEST_F(PagePictures, UnusableFilesAreRefusedAndLeaveNoCopy) {
    QByteArray png;
    {
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        QImage image(64, 64, QImage::Format_ARGB32);
        image.fill(0xFF336699u);
        image.save(&buffer, "PNG");
    }
    // A PNG whose header promises 20,000 x 20,000 pixels.
    QByteArray giant = png;
    const char dims[] = {0, 0, 0x4E, 0x20, 0, 0, 0x4E, 0x20};
    giant.replace(16, 8, QByteArray(dims, 8));
    QByteArray tga(18, 0);
    tga[2] = 2;  // true colour, but 0 x 0 pixels of 7 bits
    tga[16] = 7;
    const QString files[] = {
        Bytes("half.png", png.left(png.size() / 2)),
        Bytes("text.jpg", "this is not a picture\n"),
        Bytes("bad.tga", tga),
        Bytes("giant.png", giant),
        Bytes("empty.png", {}),
        Bytes("notes.txt", "hello"),
        QDir(dir.path()).filePath("missing.png"),
    };
    for (const QString& f : files) {
        EXPECT_EQ(page->ExecCommand(&f, CMD_INSERT_PICTURE_FILE), 0) << f.toStdString();
        EXPECT_EQ(page->ExecCommand(&f, CMD_INSERT_BACKGROUND_FILE), 0) << f.toStdString();
    }
    EXPECT_TRUE(page->Objects().empty());
    EXPECT_TRUE(Copies().isEmpty());
    EXPECT_EQ(project.m_bModified, 0);
    EXPECT_EQ(page->m_background.bPresent, 0);
}

TEST_F(PagePictures, KeyingAlphaAndResetGoToTheOnePicture) {
    const QString file = Picture("k.png", 4, 4, 0xFF00FF00u);
    ASSERT_EQ(page->ExecCommand(&file, CMD_INSERT_PICTURE), 1);
    auto* p = static_cast<CQRDObjectPicture*>(page->Objects()[0].get());
    CRectObject* other = Add({20, 0, 30, 10});
    page->Select(other);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_START_KEYING), 0);  // two selected
    EXPECT_EQ(page->PickingPicture(), nullptr);
    page->SelectOnly(p);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_START_KEYING), 1);
    EXPECT_EQ(page->PickingPicture(), p);
    const uint32_t green = 0xFF00FF00u;
    EXPECT_EQ(page->ExecCommand(&green, CMD_KEY_COLOUR), 1);
    EXPECT_EQ(page->PickingPicture(), nullptr);
    EXPECT_EQ(Seen(1, 1), BACKDROP);  // keyed out down to the backdrop
    EXPECT_EQ(page->ExecCommand(&green, CMD_KEY_COLOUR), 0);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_RESET_KEY), 1);
    EXPECT_EQ(Seen(1, 1), green);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_RESET_KEY), 0);
    const int32_t alpha = 0;
    EXPECT_EQ(page->ExecCommand(&alpha, CMD_PICTURE_ALPHA), 1);
    EXPECT_EQ(Seen(1, 1), BACKDROP);
    page->SelectOnly(other);
    EXPECT_EQ(page->ExecCommand(&alpha, CMD_PICTURE_ALPHA), 0);
}

TEST_F(PagePictures, ABackgroundCoversOrBlendsAndLivesOnlyWhileActive) {
    const QString jpg = Picture("sky.png", 8, 4, 0x800000FFu);  // half transparent
    ASSERT_EQ(page->ExecCommand(&jpg, CMD_INSERT_BACKGROUND), 1);
    EXPECT_EQ(page->m_background.strFile, "sky.png");
    EXPECT_EQ(page->m_background.bPresent, 1);
    // Anything but a TGA covers the backdrop, its colours over black.
    EXPECT_EQ(view.At(5, 5), 0xFF000080u);
    page->Deactivate();
    EXPECT_FALSE(page->m_background.HasPixels());
    page->Activate(false);
    EXPECT_TRUE(page->m_background.HasPixels());

    // A TGA is blended over the backdrop: blue (255 * 128 + 16 * 127) / 255
    // = 135, red and green 16 * 127 / 255 = 7.
    QByteArray tga(18, 0);
    tga[2] = 2;
    tga[12] = 2;  // 2 x 1
    tga[14] = 1;
    tga[16] = 32;
    tga[17] = 8 | 0x20;
    tga.append(QByteArray::fromHex("FF000080FF000080"));  // blue, alpha 128
    const QString t = Bytes("glass.tga", tga);
    ASSERT_EQ(page->ExecCommand(&t, CMD_INSERT_BACKGROUND), 1);
    EXPECT_EQ(view.At(5, 5), 0xFF070787u);

    // The same page in a frame for play: the background covers the fill
    // and the key, premultiplied.
    std::vector<uint32_t> fill(4 * 2, 0), key(4 * 2, 0);
    page->DrawForPlay(fill.data(), key.data(), 4, 2);
    EXPECT_EQ(fill[0], 0x80000080u);
    EXPECT_EQ(key, fill);

    EXPECT_EQ(page->ExecCommand(nullptr, CMD_ERASE_BACKGROUND), 1);
    EXPECT_EQ(page->m_background.bPresent, 0);
    EXPECT_EQ(view.At(5, 5), BACKDROP);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_ERASE_BACKGROUND), 0);
}

TEST_F(PagePictures, TheBackgroundsFailureRules) {
    const QString good = Picture("good.png", 2, 2, 0xFF00FF00u);
    ASSERT_EQ(page->ExecCommand(&good, CMD_INSERT_BACKGROUND), 1);
    // Not a picture type: pixels go, name and flag stay for the next time.
    const QString notes = Bytes("notes.txt", "hello");
    EXPECT_EQ(page->ExecCommand(&notes, CMD_INSERT_BACKGROUND), 0);
    EXPECT_FALSE(page->m_background.HasPixels());
    EXPECT_EQ(page->m_background.strFile, "good.png");
    EXPECT_EQ(page->m_background.bPresent, 1);
    page->Activate(false);
    EXPECT_TRUE(page->m_background.HasPixels());
    // A picture type that does not decode: name and flag cleared.
    const QString cut = Bytes("cut.png", "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(page->ExecCommand(&cut, CMD_INSERT_BACKGROUND), 0);
    EXPECT_EQ(page->m_background.bPresent, 0);
    EXPECT_TRUE(page->m_background.strFile.isEmpty());

    // A file gone by the next activation clears them quietly.
    ASSERT_EQ(page->ExecCommand(&good, CMD_INSERT_BACKGROUND), 1);
    page->Deactivate();
    ASSERT_TRUE(QFile::remove(QDir(objects).filePath("good.png")));
    project.m_bModified = 0;
    page->Activate(false);
    EXPECT_EQ(page->m_background.bPresent, 0);
    EXPECT_EQ(view.At(5, 5), BACKDROP);
    EXPECT_EQ(project.m_bModified, 1);

    // Roll and crawl pages have none.
    ASSERT_EQ(page->ExecCommand(&good, CMD_INSERT_BACKGROUND), 1);
    const uint32_t roll = 1;
    page->ExecCommand(&roll, CMD_PAGE_TYPE);
    EXPECT_EQ(page->m_background.bPresent, 0);
    EXPECT_EQ(page->ExecCommand(&good, CMD_INSERT_BACKGROUND), 0);
}

TEST_F(PagePictures, GroupingASelectionHoldingAGroupYieldsOneFlatGroup) {
    CRectObject* a = Add({0, 0, 4, 4});
    CRectObject* b = Add({5, 0, 9, 4});
    CRectObject* c = Add({10, 0, 14, 4});
    CRectObject* d = Add({15, 0, 19, 4});
    page->Select(c);
    page->Select(a);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_GROUP), 1);
    ASSERT_EQ(page->Objects().size(), 3u);
    auto* first = static_cast<CQRDObjectGroup*>(page->Objects().back().get());
    EXPECT_EQ(first->Members()[0].get(), a);  // z-order, not selection order
    EXPECT_EQ(first->Members()[1].get(), c);
    EXPECT_EQ(first->m_rcView, (UstRect{0, 0, 14, 4}));

    page->SelectOnly(d);
    page->Select(first);
    page->Select(b);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_GROUP), 1);
    ASSERT_EQ(page->Objects().size(), 1u);
    auto* flat = static_cast<CQRDObjectGroup*>(page->Objects()[0].get());
    std::vector<CQRDObject*> members;
    for (const auto& m : flat->Members()) {
        EXPECT_NE(m->GetType(), OBJ_GROUP);
        members.push_back(m.get());
    }
    EXPECT_EQ(members, (std::vector<CQRDObject*>{b, d, a, c}));
    EXPECT_EQ(page->Selection(), (std::vector<CQRDObject*>{flat}));

    // Ungroup gives back the members in their order, selected, on top.
    CRectObject* e = Add({0, 10, 4, 14});
    page->SelectOnly(flat);
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_UNGROUP), 1);
    EXPECT_EQ(Order(), (std::vector<CQRDObject*>{e, b, d, a, c}));
    EXPECT_EQ(page->Selection(), (std::vector<CQRDObject*>{b, d, a, c}));
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_UNGROUP), 0);  // the head is no group
}

TEST_F(PagePictures, AGroupMovesAndTakesCommandsForItsMembers) {
    CRectObject* a = Add({0, 0, 4, 4});
    CRectObject* b = Add({10, 10, 14, 14});
    page->Select(a);
    page->Select(b);
    ASSERT_EQ(page->ExecCommand(nullptr, CMD_GROUP), 1);
    const UstPoint right{3, 0};
    EXPECT_EQ(page->ExecCommand(&right, CMD_NUDGE_RIGHT), 1);
    EXPECT_EQ(a->m_rcStored, (UstRect{3, 0, 7, 4}));
    EXPECT_EQ(b->m_rcStored, (UstRect{13, 10, 17, 14}));
    EXPECT_EQ(page->HitTestObject(10, 5), page->Objects()[0].get());  // between members
    EXPECT_EQ(Seen(15, 12), 0xFFFF0000u);                             // members drawn
}

}  // namespace
}  // namespace orv
