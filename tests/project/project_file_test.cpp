// Project files on disk: the header, the page list at its offset, what a
// save leaves of an older file, thumbnail files, and objects that cannot
// come back after loading.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "objects/shape_object.h"
#include "project/archive.h"
#include "project/project_manager.h"
#include "project/thumb_file.h"
#include "support/byte_builder.h"
#include "support/rect_object.h"
#include "support/sample_projects.h"
#include "test_util.h"

namespace orv {
namespace {

using test::At;
using test::CBytes;

std::string Bytes(const QString& path) {
    return test::ReadFile(path.toStdString());
}

void Overwrite(const QString& path, qint64 at, const std::string& bytes) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    f.seek(at);
    f.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

// A plain green rectangle, no edge, outline or shadow.
std::unique_ptr<CQRDObject> GreenBox(const UstRect& r) {
    UstAttr attr = MakeDefaultAttr();
    attr.fill[UstAttr::BODY].clrSolid = 0xFF00FF00u;
    return std::make_unique<CQRDObjectShape>(nullptr, 0, r, attr, UstEffect{});
}

class ProjectFile : public testing::Test {
protected:
    QString Folder(const char* name, CProjectManager& project) {
        return test::MakeProjectFolder(dir.filePath(name), project);
    }
    QTemporaryDir dir;
};

TEST_F(ProjectFile, ANewFileIsAHeaderAndZerosAndIsNeverMadeTwice) {
    const QString path = dir.filePath("new.qrdprj");
    ASSERT_TRUE(CreateProjectFile(path, 640, 480));
    const std::string b = Bytes(path);
    ASSERT_EQ(b.size(), 4096u);
    EXPECT_EQ(b.substr(0, 4), std::string("\x66\x66\xA6\x3F", 4));
    EXPECT_EQ(b.substr(16, 4), std::string("\xFF\xFE\xFF\x00", 4));
    EXPECT_EQ(At<int32_t>(b[0], 20), 640);
    EXPECT_EQ(At<int32_t>(b[0], 24), 480);
    EXPECT_EQ(b.substr(4, 12), std::string(12, '\0'));
    EXPECT_EQ(b.substr(28), std::string(4096 - 28, '\0'));
    QString error;
    EXPECT_FALSE(CreateProjectFile(path, 1920, 1080, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(Bytes(path), b);
}

TEST_F(ProjectFile, NoPagesWritesCountZeroAndAnEmptyName) {
    CProjectManager project;
    const QString path = Folder("empty", project);
    Overwrite(path, 40, std::string(88, '\xAB'));  // between header and list
    ASSERT_EQ(project.SaveProject(path), 1);
    const std::string b = Bytes(path);
    EXPECT_EQ(At<uint32_t>(b[0], 12), 0u);
    EXPECT_EQ(b.substr(16, 4), std::string("\xFF\xFE\xFF\x00", 4));
    EXPECT_EQ(At<int32_t>(b[0], 20), 1920);
    EXPECT_EQ(At<int32_t>(b[0], 24), 1080);
    EXPECT_EQ(b.substr(28, 12), std::string(12, '\0'));
    EXPECT_EQ(b.substr(40, 88), std::string(88, '\xAB'));  // left as the file had it
    EXPECT_EQ(At<uint16_t>(b[0], 128), 0);
    EXPECT_EQ(b.size(), 4096u);

    CProjectManager back;
    ASSERT_EQ(back.LoadProject(path), 1);
    EXPECT_EQ(back.PageCount(), 0);
    test::CFakeView view(64, 36);
    back.AttachAll(&view);
    EXPECT_EQ(back.PageCount(), 1);
    EXPECT_EQ(back.m_nCurPage, 0);
}

TEST_F(ProjectFile, AShorterSaveLeavesTheOldTailAndStillLoads) {
    CProjectManager big;
    const QString path = Folder("tail", big);
    for (int i = 0; i < 3; ++i)
        big.InsertPage(i - 1)->AddObject(std::make_unique<CQRDObjectAni>(
            nullptr, QString("clip%1.ani").arg(i), UstRect{0, 0, 100, 100}));
    ASSERT_EQ(big.SaveProject(path), 1);
    const std::string before = Bytes(path);

    CProjectManager small;
    small.SetFolder(big.Folder());
    small.InsertPage(-1);
    ASSERT_EQ(small.SaveProject(path), 1);
    const std::string after = Bytes(path);
    ASSERT_EQ(after.size(), before.size());
    CByteWriter header;
    CArchiveOut list;
    small.Serialize(header, list);
    const size_t listEnd = 128 + list.Bytes().Size();
    ASSERT_LT(listEnd, before.size());
    const std::vector<uint8_t>& written = list.Bytes().Bytes();
    EXPECT_EQ(after.substr(128, listEnd - 128), std::string(written.begin(), written.end()));
    EXPECT_EQ(after.substr(listEnd), before.substr(listEnd));
    CProjectManager back;
    ASSERT_EQ(back.LoadProject(path), 1);
    EXPECT_EQ(back.PageCount(), 1);
    EXPECT_EQ(back.GetPage(0)->m_strThumbFile, small.GetPage(0)->m_strThumbFile);
}

TEST_F(ProjectFile, AFirstNameTooLongForTheHeaderIsLeftOut) {
    CProjectManager project;
    const QString path = Folder("longname", project);
    project.InsertPage(-1)->m_strThumbFile = QString(51, u'n');  // 16 + 4 + 102 + 8 > 128
    ASSERT_EQ(project.SaveProject(path), 1);
    const std::string b = Bytes(path);
    EXPECT_EQ(b.substr(16, 4), std::string("\xFF\xFE\xFF\x00", 4));
    EXPECT_EQ(At<int32_t>(b[0], 20), 1920);
    CProjectManager back;
    ASSERT_EQ(back.LoadProject(path), 1);
    EXPECT_EQ(back.GetPage(0)->m_strThumbFile, QString(51, u'n'));  // the page keeps it
    project.GetPage(0)->m_strThumbFile = QString(50, u'n');         // 16 + 4 + 100 + 8 fits
    ASSERT_EQ(project.SaveProject(path), 1);
    EXPECT_EQ(At<uint8_t>(Bytes(path)[0], 19), 50);
}

TEST_F(ProjectFile, SavingNeedsTheFileToExist) {
    CProjectManager project;
    project.InsertPage(-1);
    const QString path = dir.filePath("missing/project.qrdprj");
    QString error;
    EXPECT_EQ(project.SaveProject(path, &error), 0);
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ProjectFile, EverySampleReadsAndWritesToTheSameBytes) {
    const std::vector<QString> files = test::WriteSampleProjects(dir.filePath("samples"));
    ASSERT_EQ(files.size(), 7u);
    for (const QString& file : files) {
        CProjectManager project;
        QString error;
        ASSERT_EQ(project.LoadProject(file, &error), 1) << error.toStdString();
        const QString copy = file + ".copy";
        ASSERT_TRUE(QFile::copy(file, copy));
        ASSERT_EQ(project.SaveProject(copy), 1);
        EXPECT_EQ(Bytes(copy), Bytes(file)) << file.toStdString();
    }
}

TEST_F(ProjectFile, OpeningInTheEditorAtAnyZoomLeavesTheBytesAsTheyWere) {
    const std::vector<QString> files = test::WriteSampleProjects(dir.filePath("samples"));
    for (const QString& file : files) {
        CProjectManager project;
        ASSERT_EQ(project.LoadProject(file), 1);
        test::CFakeView view(903, 508);
        view.zoom = 47.03f;
        project.AttachAll(&view);
        for (int i = project.PageCount() - 1; i >= 0; --i)
            project.GoToPage(i);
        for (const auto& page : project.Pages())
            page->m_bModified = 0;  // nothing was edited; the empty project's new page aside
        const QString copy = file + ".copy";
        ASSERT_TRUE(QFile::copy(file, copy));
        ASSERT_EQ(project.SaveProject(copy), 1);
        if (file.contains("empty")) continue;
        EXPECT_EQ(Bytes(copy), Bytes(file)) << file.toStdString();
    }
}

TEST_F(ProjectFile, AnAnimationWhoseFileIsGoneLeavesItsPageOnActivation) {
    const std::vector<QString> files = test::WriteSampleProjects(dir.filePath("samples"));
    const QString demo = files[1];
    const auto animations = [](const CProjectManager& p) {
        int n = 0;
        for (const auto& o : p.GetPage(0)->Objects())
            n += o->GetType() == OBJ_ANIMATION;
        return n;
    };
    test::CFakeView view(192, 108);
    CProjectManager kept;
    ASSERT_EQ(kept.LoadProject(demo), 1);
    kept.AttachAll(&view);
    EXPECT_EQ(animations(kept), 1);
    EXPECT_EQ(kept.m_bModified, 0);

    ASSERT_TRUE(QFile::remove(QFileInfo(demo).absolutePath() + "/Object/spin.ani"));
    CProjectManager gone;
    ASSERT_EQ(gone.LoadProject(demo), 1);
    EXPECT_EQ(animations(gone), 1);  // loading alone keeps it: the file still holds it
    gone.AttachAll(&view);
    EXPECT_EQ(animations(gone), 0);
    EXPECT_EQ(gone.GetPage(0)->m_bModified, 1);
    EXPECT_EQ(gone.m_bModified, 1);
}

TEST_F(ProjectFile, AnAnimationInsideAGroupLeavesTheGroup) {
    CProjectManager project;
    const QString path = Folder("grouped", project);
    CPageManager* page = project.InsertPage(-1);
    auto group = std::make_unique<CQRDObjectGroup>(page);
    auto inner = std::make_unique<CQRDObjectGroup>(page);
    inner->AddMember(std::make_unique<CQRDObjectAni>(page, "gone.ani", UstRect{0, 0, 50, 50}));
    inner->AddMember(GreenBox({100, 100, 200, 150}));
    inner->RebuildRect();
    group->AddMember(std::move(inner));
    group->RebuildRect();
    page->AddObject(std::move(group));
    ASSERT_EQ(project.SaveProject(path), 1);
    CProjectManager back;
    ASSERT_EQ(back.LoadProject(path), 1);
    test::CFakeView view(192, 108);
    back.AttachAll(&view);
    const auto& outer = static_cast<const CQRDObjectGroup&>(*back.GetPage(0)->Objects()[0]);
    const auto& members = static_cast<const CQRDObjectGroup&>(*outer.Members()[0]).Members();
    ASSERT_EQ(members.size(), 1u);
    EXPECT_EQ(members[0]->GetType(), OBJ_SHAPE);
    EXPECT_EQ(outer.m_rcStored, (UstRect{100, 100, 200, 150}));
    EXPECT_EQ(back.m_bModified, 1);
}

TEST_F(ProjectFile, ThumbnailFilesAreMadeWithThePageAndFilledInPlace) {
    CProjectManager project;
    const QString path = Folder("thumbs", project);
    CPageManager* first = project.InsertPage(-1);
    CPageManager* second = project.InsertPage(0);
    const QRegularExpression name("^\\d{17}\\.page$");
    EXPECT_TRUE(name.match(first->m_strThumbFile).hasMatch())
        << first->m_strThumbFile.toStdString();
    EXPECT_NE(first->m_strThumbFile, second->m_strThumbFile);
    const QString file = project.DataFolder() + first->m_strThumbFile;
    const std::string made = Bytes(file);
    ASSERT_EQ(made.size(), 54u + 300 * 170 * 4);
    EXPECT_EQ(made.substr(0, 2), "BM");
    EXPECT_EQ(At<uint32_t>(made[0], 10), 54u);
    EXPECT_EQ(At<int32_t>(made[0], 18), 300);
    EXPECT_EQ(At<int32_t>(made[0], 22), 170);
    EXPECT_EQ(At<uint16_t>(made[0], 28), 32);
    EXPECT_EQ(made.substr(54), std::string(300 * 170 * 4, '\0'));

    // The writer keeps the header as the file has it and only puts pixels.
    Overwrite(file, 6, "\x34\x12");
    const QString secondFile = project.DataFolder() + second->m_strThumbFile;
    Overwrite(secondFile, 54, "old!");
    first->AddObject(GreenBox({0, 0, 1920, 1080}));
    first->UpdateThumbnail();
    first->SetModified(true);
    ASSERT_EQ(project.SaveProject(path), 1);
    EXPECT_EQ(first->m_bModified, 0);
    const std::string saved = Bytes(file);
    ASSERT_EQ(saved.size(), made.size());
    EXPECT_EQ(At<uint16_t>(saved[0], 6), 0x1234);
    EXPECT_EQ(At<uint32_t>(saved[0], 54 + 4 * (85 * 300 + 150)), 0xFF00FF00u);
    EXPECT_EQ(Bytes(secondFile).substr(54, 4), "old!");  // not changed, not written
    // The header names the first page's file.
    const std::string header = Bytes(path);
    EXPECT_EQ(At<uint8_t>(header[0], 19), 22);
    EXPECT_EQ(QString::fromUtf16(reinterpret_cast<const char16_t*>(header.data() + 20), 22),
              first->m_strThumbFile);
}

TEST_F(ProjectFile, LoadingReadsEachPagesThumbnail) {
    CProjectManager project;
    const QString path = Folder("read", project);
    CPageManager* page = project.InsertPage(-1);
    project.InsertPage(0);
    page->AddObject(GreenBox({0, 0, 960, 1080}));
    ASSERT_TRUE(test::SaveWithThumbnails(project, path));
    QFile::remove(project.DataFolder() + project.GetPage(1)->m_strThumbFile);
    CProjectManager back;
    ASSERT_EQ(back.LoadProject(path), 1);
    EXPECT_EQ(back.GetPage(0)->ThumbBits(), page->ThumbBits());
    EXPECT_TRUE(back.GetPage(1)->ThumbBits().empty());  // its file is gone: blank
}

CBytes Bmp(int32_t width, int32_t height, uint16_t bits, uint32_t compression, size_t pixels) {
    CBytes b;
    b.Ascii("BM").U32(static_cast<uint32_t>(54 + pixels * 4)).U32(0).U32(54);
    b.U32(40).I32(width).I32(height).U16(1).U16(bits).U32(compression);
    b.U32(static_cast<uint32_t>(pixels * 4)).Zeros(16);
    for (size_t i = 0; i < pixels; ++i)
        b.U32(static_cast<uint32_t>(i));
    return b;
}

TEST_F(ProjectFile, ThumbnailReaderTakesOnlyThumbnails) {
    const auto read = [&](const CBytes& b) {
        const QString path = dir.filePath("t.page");
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(reinterpret_cast<const char*>(b.data.data()), static_cast<qint64>(b.Size()));
        f.close();
        return ReadThumbFile(path, 300, 170);
    };
    const std::vector<uint32_t> good = read(Bmp(300, 170, 32, 0, 300 * 170));
    ASSERT_EQ(good.size(), 300u * 170);
    EXPECT_EQ(good[12345], 12345u);
    EXPECT_TRUE(read(Bmp(299, 170, 32, 0, 299 * 170)).empty());
    EXPECT_TRUE(read(Bmp(300, 170, 24, 0, 300 * 170)).empty());
    EXPECT_TRUE(read(Bmp(300, 170, 32, 3, 300 * 170)).empty());
    EXPECT_TRUE(read(Bmp(300, 170, 32, 0, 300 * 170 - 1)).empty());
    CBytes notBmp = Bmp(300, 170, 32, 0, 300 * 170);
    notBmp.data[0] = 'X';
    EXPECT_TRUE(read(notBmp).empty());
    EXPECT_TRUE(ReadThumbFile(dir.filePath("none.page"), 300, 170).empty());
    EXPECT_FALSE(WriteThumbPixels(dir.filePath("none.page"), good));
    EXPECT_FALSE(QFile::exists(dir.filePath("none.page")));
    EXPECT_EQ(TimestampName(QDateTime(QDate(2024, 3, 9), QTime(7, 5, 4, 32))), "20240309070504032");
}

TEST_F(ProjectFile, AStandardDefinitionProjectHasTallerThumbnails) {
    const std::vector<QString> files = test::WriteSampleProjects(dir.filePath("samples"));
    CProjectManager sd;
    ASSERT_EQ(sd.LoadProject(files[3]), 1);
    EXPECT_EQ(sd.m_nWidth, 640);
    EXPECT_EQ(sd.m_nHeight, 480);
    EXPECT_EQ(sd.m_nThumbHeight, 225);
    EXPECT_EQ(sd.m_bWide, 0);
    EXPECT_EQ(sd.GetPage(0)->ThumbBits().size(), 300u * 225);
}

}  // namespace
}  // namespace orv
