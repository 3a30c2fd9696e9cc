#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstring>
#include <vector>

#include "media/ani32_player.h"
#include "media/ani32_writer.h"
#include "media/ani_check.h"
#include "media/media_factory.h"
#include "media/sequence_convert.h"
#include "media/sequence_files.h"
#include "render/tga_file.h"
#include "support/ani_bytes.h"
#include "test_util.h"

namespace orv {
namespace {

using test::Bytes;

Bytes FileBytes(const QString& path) {
    const std::string s = test::ReadFile(path.toStdString());
    return Bytes(s.begin(), s.end());
}

uint32_t Word(const Bytes& b, size_t offset) {
    uint32_t v = 0;
    std::memcpy(&v, b.data() + offset, 4);
    return v;
}

TEST(Ani32Writer, HeaderReservedAndFilledLast) {
    QTemporaryDir dir;
    const QString path = dir.filePath("one.ani32");
    CAni32Writer writer;
    ASSERT_TRUE(writer.Create(path, 1, 1, 1));
    const uint32_t pixel = 0x80402010u;
    ASSERT_TRUE(writer.WriteFrame(0, &pixel));
    ASSERT_TRUE(writer.Finish());
    // count 1, 1 x 1, offset 24 (12 + 4 + 8 reserved), the record, and
    // zeros to 4 * 1 + 20 + 256 = 280 bytes.
    Bytes expected = test::AniHeader(1, 1, 1, {24});
    test::Put32(expected, 5);
    expected.insert(expected.end(), {128, 0x10, 0x20, 0x40, 0x80});
    expected.resize(280, 0);
    EXPECT_EQ(FileBytes(path), expected);
}

TEST(Ani32Writer, FramesNeverWrittenKeepOffsetZero) {
    QTemporaryDir dir;
    const QString path = dir.filePath("gap.ani32");
    CAni32Writer writer;
    ASSERT_TRUE(writer.Create(path, 3, 2, 1));
    const uint32_t row[2] = {1, 2};
    EXPECT_TRUE(writer.WriteFrame(0, row));
    EXPECT_TRUE(writer.WriteFrame(2, row));
    EXPECT_FALSE(writer.WriteFrame(3, row));
    EXPECT_EQ(writer.FramesWritten(), 2);
    ASSERT_TRUE(writer.Finish());
    const Bytes b = FileBytes(path);
    EXPECT_EQ(Word(b, 12), 32u);           // 12 + 3 * 4 + 8
    EXPECT_EQ(Word(b, 16), 0u);            // frame 1
    EXPECT_EQ(Word(b, 20), 32u + 4 + 10);  // after frame 0's size and two packets
    CAni32Writer none;
    EXPECT_FALSE(none.Create(dir.filePath("z.ani32"), 0, 1, 1));
    EXPECT_FALSE(none.Create(dir.filePath("no/such/folder.ani32"), 1, 1, 1));
}

// Pictures whose every pixel tells its frame and place.
std::vector<uint32_t> Picture(int w, int h, int frame) {
    std::vector<uint32_t> p(static_cast<size_t>(w) * h);
    for (size_t i = 0; i < p.size(); ++i)
        p[i] = (static_cast<uint32_t>(frame * 60 + 15) << 24) | (static_cast<uint32_t>(i) << 8) |
               static_cast<uint32_t>(frame);
    return p;
}

void SavePng(const QString& path, const std::vector<uint32_t>& p, int w, int h) {
    QImage image(reinterpret_cast<const uchar*>(p.data()), w, h, w * 4, QImage::Format_ARGB32);
    ASSERT_TRUE(image.save(path));
}

class Recorder : public CConvertProgress {
public:
    void SetStatus(const QString& text) override { m_status << text; }
    void SetPosition(int percent) override { m_positions.push_back(percent); }
    QStringList m_status;
    std::vector<int> m_positions;
};

TEST(Sequence, AFrameOfAnotherSizeIsLeftOut) {
    QTemporaryDir dir;
    const QString folder = dir.path() + "/";
    SavePng(folder + "s1.png", Picture(3, 2, 0), 3, 2);
    SavePng(folder + "s2.png", Picture(4, 2, 1), 4, 2);
    ASSERT_TRUE(WriteTga32(Picture(3, 2, 2).data(), 3, 2, (folder + "s3.tga").toStdString()));
    Recorder progress;
    const QString name =
        ConvertSequenceToAni32({"s1.png", "s2.png", "s3.tga"}, folder, dir.path(), &progress);
    EXPECT_TRUE(QRegularExpression("^\\d{17}\\.ANI32$").match(name).hasMatch())
        << name.toStdString();
    const Bytes b = FileBytes(dir.filePath(name));
    ASSERT_GE(b.size(), 32u);
    EXPECT_EQ(Word(b, 0), 3u);  // the list's count, not the frames written
    EXPECT_EQ(Word(b, 4), 3u);
    EXPECT_EQ(Word(b, 8), 2u);
    EXPECT_EQ(Word(b, 12), 32u);
    EXPECT_EQ(Word(b, 16), 0u);
    EXPECT_EQ(Word(b, 24), 0u);  // the reserved bytes after the table
    EXPECT_EQ(Word(b, 28), 0u);
    EXPECT_EQ(progress.m_status, QStringList({"0 / 3", "1 / 3", "2 / 3"}));
    EXPECT_EQ(progress.m_positions, (std::vector<int>{0, 33, 66}));
    ANI32Player player(dir.filePath(name).toStdString());
    ASSERT_TRUE(player.Open());
    const uint32_t* f = player.ReadFrame(2);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 6), Picture(3, 2, 2));
    f = player.ReadFrame(0);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 6), Picture(3, 2, 0));
    EXPECT_EQ(player.ReadFrame(1), nullptr);
}

TEST(Sequence, OneFileMakesOneFrame) {
    QTemporaryDir dir;
    SavePng(dir.filePath("only.png"), Picture(2, 2, 3), 2, 2);
    const UstSequenceReport r =
        WriteSequenceAni32({dir.filePath("only.png")}, "", dir.filePath("o.ani32"), nullptr);
    EXPECT_EQ(r.result, ESequenceResult::WRITTEN);
    EXPECT_EQ(r.nWritten, 1);
    auto player = CreateMediaPlayer(dir.filePath("o.ani32"));
    ASSERT_TRUE(player);
    EXPECT_EQ(player->GetInfo()->nFrames, 1);
    const uint32_t* f = player->ReadFrame(0);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(f, f + 4), Picture(2, 2, 3));
}

TEST(Sequence, NoSizeOrNoFileLeavesNothing) {
    QTemporaryDir dir;
    test::WriteFile(test::TempPath(dir, "bad.png"), "not a picture");
    EXPECT_EQ(
        WriteSequenceAni32({"bad.png"}, dir.path() + "/", dir.filePath("x.ani32"), nullptr).result,
        ESequenceResult::NO_SIZE);
    EXPECT_FALSE(QFile::exists(dir.filePath("x.ani32")));
    EXPECT_EQ(ConvertSequenceToAni32({}, dir.path() + "/", dir.path(), nullptr), QString());
    SavePng(dir.filePath("a.png"), Picture(2, 2, 0), 2, 2);
    EXPECT_EQ(
        WriteSequenceAni32({"a.png"}, dir.path() + "/", dir.filePath("no/x.ani32"), nullptr).result,
        ESequenceResult::CANNOT_CREATE);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList({"a.png", "bad.png"}));
}

TEST(SequenceFiles, PlayOrderByTheNumberInTheName) {
    EXPECT_EQ(SortByNumber({"f10.png", "x.png", "f9.png", "f1.tga", "g9.png"}),
              QStringList({"f1.tga", "f9.png", "g9.png", "f10.png", "x.png"}));
    EXPECT_EQ(SequenceNumber("logo12_0005.png"), 5);
    EXPECT_EQ(SequenceNumber("a/b7/take.png"), -1);
    EXPECT_TRUE(IsSequenceImage("x.Tga"));
    EXPECT_FALSE(IsSequenceImage("x.jpg"));
    QTemporaryDir dir;
    for (const char* name :
         {"f1.png", "f10.png", "f9.png", "g2.png", "f3.tga", "f4_b.png", "notes.txt", "f.png"})
        test::WriteFile(test::TempPath(dir, name), "");
    EXPECT_EQ(SequenceAround(dir.filePath("f9.png")), QStringList({"f1.png", "f9.png", "f10.png"}));
    EXPECT_EQ(SequenceAround(dir.filePath("f.png")), QStringList({"f.png"}));
    EXPECT_EQ(SequenceInFolder(dir.path()), QStringList({"f1.png", "g2.png", "f3.tga", "f4_b.png",
                                                         "f9.png", "f10.png", "f.png"}));
}

TEST(AniCheck, EachFrameRecordIsJudged) {
    QTemporaryDir dir;
    // Seven frames of 1 x 1, the first record at 12 + 28 + 8: good, shares
    // it, skipped, in the table, starts inside the first record, past the
    // end, and a record cut by the end.
    Bytes b = test::AniHeader(7, 1, 1, {48, 48, 0, 20, 50, 500, 57});
    test::Put32(b, 5);
    b.insert(b.end(), {128, 1, 2, 3, 4});
    test::Put32(b, 50);  // at 57, runs past the end
    test::WriteFile(test::TempPath(dir, "c.ani32"), std::string(b.begin(), b.end()));
    const UstAniFileCheck c = CheckAnimationFile(dir.filePath("c.ani32"));
    ASSERT_TRUE(c.bReadable);
    EXPECT_EQ(c.nFrames, 7u);
    EXPECT_EQ(c.records, (std::vector<EFrameRecord>{EFrameRecord::GOOD, EFrameRecord::GOOD,
                                                    EFrameRecord::SKIPPED, EFrameRecord::IN_HEADER,
                                                    EFrameRecord::OVERLAPS, EFrameRecord::PAST_END,
                                                    EFrameRecord::CUT_SHORT}));
    b.resize(30);  // the table passes the end
    test::WriteFile(test::TempPath(dir, "d.ani32"), std::string(b.begin(), b.end()));
    EXPECT_FALSE(CheckAnimationFile(dir.filePath("d.ani32")).bReadable);
    EXPECT_FALSE(CheckAnimationFile(dir.filePath("c.avi")).bReadable);
}

}  // namespace
}  // namespace orv
