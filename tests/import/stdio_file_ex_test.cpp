// Reading text files: which encoding a file is taken in, and where lines end.
#include <gtest/gtest.h>

#include <QStringList>

#include "import/stdio_file_ex.h"
#include "import/text_import.h"
#include "test_util.h"

namespace orv {
namespace {

class TextFile : public testing::Test {
protected:
    QString Write(const std::string& bytes) {
        const auto path = test::TempPath(dir, "in.txt");
        test::WriteFile(path, bytes);
        return QString::fromStdString(path.string());
    }
    QStringList Lines(const std::string& bytes, CStdioFileEx* seen = nullptr) {
        CStdioFileEx local;
        CStdioFileEx& file = seen ? *seen : local;
        EXPECT_TRUE(file.Open(Write(bytes), FILE_MODE_READ | FILE_TYPE_TEXT));
        QStringList lines;
        QString line;
        while (file.ReadString(line))
            lines << line;
        return lines;
    }
    QTemporaryDir dir;
};

// "Ab" and a second line "c", in UTF-16 of either order with its mark.
const std::string WIDE_LE(
    "\xFF\xFE"
    "A\0b\0\r\0\n\0c\0",
    12);
const std::string WIDE_BE(
    "\xFE\xFF"
    "\0A\0b\0\r\0\n\0c",
    12);

TEST_F(TextFile, Utf16WithAMarkReadsLikeItsNarrowTwin) {
    const QStringList narrow = Lines("Ab\r\nc");
    EXPECT_EQ(narrow, QStringList({"Ab", "c"}));
    CStdioFileEx file;
    EXPECT_EQ(Lines(WIDE_LE, &file), narrow);
    EXPECT_TRUE(file.IsUnicode());
    EXPECT_EQ(file.m_nOpenFlags, FILE_TYPE_BINARY);  // text flag swapped for binary
    EXPECT_EQ(Lines(WIDE_BE), narrow);
    // Odd length: the half unit at the end is not read.
    EXPECT_EQ(Lines(WIDE_LE + "\x41"), narrow);
    EXPECT_EQ(Lines(std::string("\xFF\xFE\x41", 3)), QStringList());
}

TEST_F(TextFile, Utf8MarkStaysInTheFirstLine) {
    CStdioFileEx file;
    const QStringList lines = Lines("\xEF\xBB\xBFOne\ntwo\n", &file);
    EXPECT_TRUE(file.IsUtf8());
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], QString(QChar(0xFEFF)) + "One");
    EXPECT_EQ(lines[1], "two");
}

TEST_F(TextFile, UnmarkedKoreanReadsAsUtf8OrCp949) {
    // 사랑 in UTF-8, and 가한 in CP949, byte by byte.
    CStdioFileEx utf8;
    EXPECT_EQ(Lines("\xEC\x82\xAC\xEB\x9E\x91 love\n", &utf8),
              QStringList({QStringLiteral("사랑 love")}));
    EXPECT_TRUE(utf8.IsUtf8());
    CStdioFileEx cp949;
    EXPECT_EQ(Lines("\xB0\xA1\xC7\xD1 ok\r\n", &cp949), QStringList({QStringLiteral("가한 ok")}));
    EXPECT_FALSE(cp949.IsUtf8());
    // A byte CP949 has no character for is marked, and the rest still reads.
    EXPECT_EQ(Lines("\xFF"
                    "a\xB0\xA1"),
              QStringList({QStringLiteral("\uFFFDa가")}));
}

TEST_F(TextFile, LineEndsOfEverySystem) {
    EXPECT_EQ(Lines("a\r\nb\nc\r"), QStringList({"a", "b", "c"}));
    EXPECT_EQ(Lines("a\n\nb"), QStringList({"a", "", "b"}));
    EXPECT_EQ(Lines(""), QStringList());
    const std::string longLine(100000, 'x');
    const QStringList lines = Lines(longLine + "\ny");
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].size(), 100000);
}

TEST(Utf8Check, RejectsWhatIsNotUtf8) {
    const auto valid = [](const std::string& s) { return IsValidUtf8(s.data(), s.size()); };
    EXPECT_TRUE(valid("plain"));
    EXPECT_TRUE(valid("\xF4\x8F\xBF\xBF"));   // U+10FFFF
    EXPECT_FALSE(valid("\xC0\x80"));          // overlong zero
    EXPECT_FALSE(valid("\xE0\x9F\xBF"));      // overlong three bytes
    EXPECT_FALSE(valid("\xED\xA0\x80"));      // a surrogate
    EXPECT_FALSE(valid("\xF4\x90\x80\x80"));  // past U+10FFFF
    EXPECT_FALSE(valid("\xEC\x82"));          // cut short
    EXPECT_FALSE(valid("\xEC\x82\x41"));      // a lead without its followers
}

TEST_F(TextFile, WholeFilesAsTheDialogShowsThem) {
    QString text;
    ASSERT_TRUE(ReadTextFile(Write("  one\r\ntwo\n\n"), text));
    EXPECT_EQ(text, "one\r\ntwo");
    ASSERT_TRUE(ReadTextFile(Write(""), text));
    EXPECT_TRUE(text.isEmpty());
    QString error;
    text = "kept";
    EXPECT_FALSE(ReadTextFile(Write(std::string("\x7F"
                                                "ELF\0\0\x01",
                                                7)),
                              text, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(text, "kept");
    EXPECT_FALSE(ReadTextFile(dir.path() + "/missing.txt", text, &error));
}

}  // namespace
}  // namespace orv
