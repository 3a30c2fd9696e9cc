#include <gtest/gtest.h>

#include "project/profile_file.h"
#include "test_util.h"

namespace orv {
namespace {

using test::ReadFile;
using test::TempPath;
using test::WriteFile;

TEST(ProfileStruct, EncodesUpperCaseHexWithByteSumChecksum) {
    const uint8_t rec[3] = {0x01, 0xAB, 0xFF};  // sum 0x1AB: checksum AB
    EXPECT_EQ(EncodeProfileStruct(rec, 3), "01ABFFAB");
    const uint8_t zeros[2] = {0, 0};
    EXPECT_EQ(EncodeProfileStruct(zeros, 2), "000000");
}

TEST(ProfileStruct, DecodeRejectsDamageAndKeepsTheRecord) {
    uint8_t rec[3] = {9, 9, 9};
    const uint8_t untouched[3] = {9, 9, 9};
    for (const char* bad : {"01ABFFAC", "01ABFFA", "01ABFFAB0", "01ABZZAB", "", "01 ABFFAB"}) {
        EXPECT_FALSE(DecodeProfileStruct(bad, rec, 3)) << bad;
        EXPECT_EQ(std::memcmp(rec, untouched, 3), 0) << bad;
    }
    ASSERT_TRUE(DecodeProfileStruct("01abffab", rec, 3));
    EXPECT_EQ(rec[1], 0xAB);
}

TEST(ProfileFile, ReadsHandWrittenFilesWithoutCaseOrSpacing) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "a.ini");
    WriteFile(file,
              "; comment\r\n[Other]\r\nkey=1\r\n\r\n[qrd_env_ini]\r\n  ENV_INI = 010203 \r\n");
    EXPECT_EQ(ReadProfileString(file, "QRD_ENV_INI", "env_ini"), "010203");
    EXPECT_EQ(ReadProfileString(file, "Other", "key"), "1");
    EXPECT_FALSE(ReadProfileString(file, "Other", "env_ini"));
    EXPECT_FALSE(ReadProfileString(TempPath(dir, "none.ini"), "Other", "key"));
    uint8_t rec[2];
    EXPECT_TRUE(GetProfileStruct(file, "QRD_ENV_INI", "env_ini", rec, 2));
    EXPECT_FALSE(GetProfileStruct(file, "QRD_ENV_INI", "env_ini", rec, 3));
}

TEST(ProfileFile, AByteOrderMarkBeforeTheFirstSectionIsSkipped) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "bom.ini");
    WriteFile(file, "\xEF\xBB\xBF[QRD_ENV_INI]\r\nenv_ini=0102\r\n");
    EXPECT_EQ(ReadProfileString(file, "QRD_ENV_INI", "env_ini"), "0102");
}

TEST(ProfileFile, WritingKeepsOtherSectionsAndReplacesTheKey) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "b.ini");
    WriteFile(file, "[A]\nx=1\n\n[B]\ny=2\n");
    ASSERT_TRUE(WriteProfileString(file, "A", "z", "3"));
    ASSERT_TRUE(WriteProfileString(file, "B", "Y", "4"));
    ASSERT_TRUE(WriteProfileString(file, "C", "w", "5"));
    EXPECT_EQ(ReadFile(file), "[A]\r\nx=1\r\nz=3\r\n\r\n[B]\r\nY=4\r\n[C]\r\nw=5\r\n");
}

TEST(ProfileFile, NewFileHoldsOneSectionAndOneLine) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "c.ini");
    const uint8_t rec[2] = {0x10, 0x20};
    ASSERT_TRUE(WriteProfileStruct(file, "QRD_DATA_INI", "default attribute", rec, 2));
    EXPECT_EQ(ReadFile(file), "[QRD_DATA_INI]\r\ndefault attribute=102030\r\n");
}

TEST(ProfileFile, FailedWriteReportsAndLeavesNothingBehind) {
    QTemporaryDir dir;
    const auto missing = TempPath(dir, "no/such/folder/e.ini");
    EXPECT_FALSE(WriteProfileString(missing, "A", "x", "1"));
    EXPECT_FALSE(std::filesystem::exists(missing.parent_path()));
    const auto folder = TempPath(dir, "f.ini");  // a folder where the file belongs
    std::filesystem::create_directory(folder);
    WriteFile(folder / "inside", "kept");
    EXPECT_FALSE(WriteProfileString(folder, "A", "x", "1"));
    EXPECT_EQ(ReadFile(folder / "inside"), "kept");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path().toStdString()),
                            std::filesystem::directory_iterator()),
              1);  // no temporary file left beside it
}

}  // namespace
}  // namespace orv
