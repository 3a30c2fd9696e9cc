// Data fields: placeholders found and filled by hand-made characters, and
// a template page taken to air on the test board, with and without data.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "project/csv_rows.h"
#include "project/page_data_file.h"
#include "remote_rig.h"

namespace orv {
namespace {

std::vector<UstCharAttr> Chars(const std::u32string& text, uint32_t colour = 0xFF000000u) {
    std::vector<UstCharAttr> chars;
    for (const char32_t c : text) {
        UstCharAttr a = NewCharAttr();
        a.nChar = c == U'\n' ? CHAR_LINE_END : static_cast<uint32_t>(c);
        a.clrFill = colour;
        chars.push_back(a);
    }
    return chars;
}

std::u32string Text(const std::vector<UstCharAttr>& chars) {
    std::u32string text;
    for (const UstCharAttr& c : chars)
        text += c.nChar == CHAR_LINE_END ? U'\n' : static_cast<char32_t>(c.nChar);
    return text;
}

TEST(Fields, FoundOnlyWhenWellFormed) {
    const auto spans = FindFields(Chars(U"a{{ name }}b{{x}}{{}}{{a\nb}}{{c{d}}{{{y}}"));
    ASSERT_EQ(spans.size(), 3u);
    EXPECT_EQ(spans[0].strName, QStringLiteral("name"));
    EXPECT_EQ(spans[0].nFrom, 1);
    EXPECT_EQ(spans[0].nTo, 11);
    EXPECT_EQ(spans[1].strName, QStringLiteral("x"));
    // "{{{y}}": the first brace is text, the field starts at the second.
    EXPECT_EQ(spans[2].strName, QStringLiteral("y"));
    EXPECT_EQ(spans[2].nFrom, 36);
    // A name longer than the limit is prose, not a field.
    EXPECT_TRUE(
        FindFields(Chars(U"{{" + std::u32string(FIELD_NAME_MAX + 1, U'n') + U"}}")).empty());
    EXPECT_EQ(FindFields(Chars(U"{{" + std::u32string(FIELD_NAME_MAX, U'n') + U"}}")).size(), 1u);
    EXPECT_TRUE(FindFields(Chars(U"{{open")).empty());
}

TEST(Fields, FilledWithTheLookOfTheFirstBrace) {
    std::vector<UstCharAttr> chars = Chars(U"x{{n}} {{m}}{{n}}y");
    chars[1].clrFill = 0xFFFF0000u;  // the first brace of the first field
    chars[2].clrFill = 0xFF00FF00u;
    const FieldValues values{{QStringLiteral("n"), QStringLiteral("ab")},
                             {QStringLiteral("other"), QStringLiteral("zz")}};
    const std::vector<UstCharAttr> filled = FillFields(chars, values);
    // m has no value: it goes, and nothing of its braces stays.
    EXPECT_EQ(Text(filled), U"xab aby");
    EXPECT_EQ(+filled[1].clrFill, 0xFFFF0000u);
    EXPECT_EQ(+filled[2].clrFill, 0xFFFF0000u);
    EXPECT_EQ(+filled[4].clrFill, 0xFF000000u);
    EXPECT_EQ(FieldNames(chars), (std::vector<QString>{QStringLiteral("n"), QStringLiteral("m")}));
}

TEST(Fields, ValueLineFeedsEndLinesAndControlsGo) {
    const FieldValues values{{QStringLiteral("v"), QString::fromUtf8("1\r\n2\t3\x01\xea\xb0\x80")}};
    EXPECT_EQ(Text(FillFields(Chars(U"{{v}}"), values)), U"1\n23\uAC00");
}

TEST(Fields, TemplateIsEmptyOnAirWithoutData) {
    test::UstFieldRig rig;
    rig.engine->SetPage(rig.pages[0].get());
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_TRUE(rig.AirIs(test::PAGE));
    // The page keeps what the operator typed.
    const auto& text = static_cast<const CQRDObjectText&>(*rig.pages[0]->Objects()[1]);
    EXPECT_EQ(text.GetPlainText(), QStringLiteral("{{name}}"));
}

TEST(Fields, TemplateShowsTheDataAsIfTyped) {
    test::UstFieldRig rig;
    rig.pages[0]->m_data.SetValues({{QStringLiteral("name"), QString::fromUtf8("Kim 김")}});
    rig.engine->SetPage(rig.pages[0].get());
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    const std::vector<uint32_t> expected = rig.Typed(QString::fromUtf8("Kim 김"));
    EXPECT_EQ(rig.Air(), expected);
    EXPECT_NE(expected, rig.Typed({}));
}

// New data on air: only the changed rectangle is written, after a frame,
// and the air is then the page as if typed with the new value.
TEST(Fields, UpdateOnAirWritesTheChangedRectangleOnly) {
    test::UstFieldRig rig;
    CPageManager* page = rig.pages[0].get();
    page->m_data.SetValues({{QStringLiteral("name"), QStringLiteral("AB")}});
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    ASSERT_EQ(rig.engine->PageOnAir(), page);
    const int64_t framesBefore = rig.board.WaitCount();
    page->m_data.SetValues({{QStringLiteral("name"), QStringLiteral("AC")}});
    rig.engine->RefreshOnAir();
    ASSERT_TRUE(rig.WaitRefresh(0));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("AC")));
    EXPECT_GT(rig.board.WaitCount(), framesBefore);
    const int64_t written = rig.engine->RefreshPixelsWritten();
    EXPECT_LT(written, int64_t{test::UstPlayRig::W} * test::UstPlayRig::H / 2);
    // The same data again changes nothing and writes nothing.
    rig.engine->RefreshOnAir();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(rig.engine->RefreshPixelsWritten(), written);
    // No take followed: the machine saw one in effect.
    EXPECT_EQ(rig.log.Count(PLAY_IN), 1);
}

TEST(Fields, RefreshAfterEraseLeavesTheAirEmpty) {
    test::UstFieldRig rig;
    CPageManager* page = rig.pages[0].get();
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    rig.engine->Key(PLAYKEY_ERASE);
    EXPECT_EQ(rig.engine->PageOnAir(), nullptr);
    page->m_data.SetValues({{QStringLiteral("name"), QStringLiteral("X")}});
    rig.engine->RefreshOnAir();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(rig.engine->RefreshPixelsWritten(), 0);
    EXPECT_TRUE(rig.AirIs(0u));
}

TEST(PageDataFile, WrittenBesideTheProjectAndReadBack) {
    QTemporaryDir dir;
    CPageManager a, b, c;
    b.m_data.SetValues({{QStringLiteral("name"), QString::fromUtf8("김 \"x\"\n")}});
    b.m_data.SetUpdateMode(DATA_UPDATE_RETAKE);
    ASSERT_TRUE(SavePageData(dir.path(), {&a, &b, &c}));
    CPageManager a2, b2, c2;
    ASSERT_TRUE(LoadPageData(dir.path(), {&a2, &b2, &c2}));
    EXPECT_TRUE(a2.m_data.Values().empty());
    EXPECT_EQ(b2.m_data.Values(), b.m_data.Values());
    EXPECT_EQ(b2.m_data.UpdateMode(), DATA_UPDATE_RETAKE);
    EXPECT_EQ(c2.m_data.UpdateMode(), DATA_UPDATE_RECT);
    // No file: nothing to read and nothing wrong.
    QTemporaryDir empty;
    EXPECT_TRUE(LoadPageData(empty.path(), {&a2}));
}

// A damaged file is never overwritten by the next save: it goes aside under
// a name of its own, the earlier ones kept.
TEST(PageDataFile, DamageLeavesThePagesAsTheyWereAndTheFileAside) {
    QTemporaryDir dir;
    CPageManager page;
    page.m_data.SetValues({{QStringLiteral("k"), QStringLiteral("kept")}});
    const auto write = [&](const char* bytes) {
        QFile f(dir.filePath(PAGE_DATA_FILE));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    };
    const auto read = [&](const char* name) {
        QFile f(dir.filePath(QString::fromLatin1(name)));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(missing)");
    };
    const char* const damaged[] = {"{\"pages\": [", "[]",
                                   "{\"pages\": [{\"page\": 2, \"data\": {}}]}",
                                   "{\"pages\": [{\"page\": 1, \"data\": {\"k\": 5}}]}"};
    const char* const kept[] = {"data.json.damaged", "data.json.damaged.2", "data.json.damaged.3",
                                "data.json.damaged.4"};
    for (int i = 0; i < 4; ++i) {
        write(damaged[i]);
        QString error;
        EXPECT_FALSE(LoadPageData(dir.path(), {&page}, &error)) << damaged[i];
        EXPECT_TRUE(error.endsWith(QString::fromLatin1(kept[i]))) << error.toStdString();
        EXPECT_EQ(page.m_data.Values().at(QStringLiteral("k")), QStringLiteral("kept"));
        EXPECT_FALSE(QFile::exists(dir.filePath(PAGE_DATA_FILE)));
    }
    ASSERT_TRUE(SavePageData(dir.path(), {&page}));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(read(kept[i]), QByteArray(damaged[i])) << kept[i];
    EXPECT_TRUE(LoadPageData(dir.path(), {&page}));
}

TEST(CsvRows, QuotesLineEndsAndShortRows) {
    std::vector<FieldValues> rows;
    QString error;
    ASSERT_TRUE(
        ParseCsvRows("\xEF\xBB\xBFname, title\r\n\"Kim, J\",\"say \"\"hi\"\"\"\n\n"
                     "Lee\nPark,Boss,extra\n\"two\nlines\",x",
                     rows, &error))
        << error.toStdString();
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0].at(QStringLiteral("name")), QStringLiteral("Kim, J"));
    EXPECT_EQ(rows[0].at(QStringLiteral("title")), QStringLiteral("say \"hi\""));
    EXPECT_EQ(rows[1].at(QStringLiteral("title")), QString());  // a short row
    EXPECT_EQ(rows[2].size(), 2u);                              // the extra value goes
    EXPECT_EQ(rows[3].at(QStringLiteral("name")), QStringLiteral("two\nlines"));
    EXPECT_FALSE(ParseCsvRows("name\n\"open", rows, &error));
    EXPECT_FALSE(ParseCsvRows("", rows, &error));
    EXPECT_FALSE(ParseCsvRows(",\n1", rows, &error));
}

// A lower third of five names is one page and one CSV: each take shows the
// next row, and the sixth the first again.
TEST(CsvRows, RunStepsThroughTheRows) {
    test::UstFieldRig rig;
    std::vector<FieldValues> rows;
    ASSERT_TRUE(ParseCsvRows("name\nAhn\nBaek\nCho\nDo\nEom\n", rows, nullptr));
    CPageManager* page = rig.pages[0].get();
    page->m_data.SetRows(rows, QStringLiteral("names.csv"));
    const char* const names[] = {"Ahn", "Baek", "Cho", "Do", "Eom", "Ahn"};
    for (int take = 0; take < 6; ++take) {
        rig.engine->SetPage(page);
        rig.engine->Key(PLAYKEY_RUN);
        ASSERT_TRUE(rig.Settle({PLAY_ON, 0}, take + 1));
        EXPECT_EQ(rig.Air(), rig.Typed(QString::fromLatin1(names[take]))) << take;
        EXPECT_EQ(page->m_data.RowIndex(), take % 5);
    }
    // A retake for new data shows the same row again.
    page->m_data.HoldRow();
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}, 7));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Ahn")));
}

TEST(CsvRows, NamedInTheDataFileBesideTheProject) {
    QTemporaryDir dir;
    QFile csv(dir.filePath("names.csv"));
    ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write("name\nAhn\nBaek\n");
    csv.close();
    QFile data(dir.filePath(PAGE_DATA_FILE));
    ASSERT_TRUE(data.open(QIODevice::WriteOnly));
    data.write("{\"pages\": [{\"page\": 1, \"csv\": \"names.csv\"}]}");
    data.close();
    CPageManager page;
    ASSERT_TRUE(LoadPageData(dir.path(), {&page}));
    EXPECT_EQ(page.m_data.RowCount(), 2);
    EXPECT_EQ(page.m_data.CsvName(), QStringLiteral("names.csv"));
    // Only a plain name beside the project is followed.
    ASSERT_TRUE(data.open(QIODevice::WriteOnly | QIODevice::Truncate));
    data.write("{\"pages\": [{\"page\": 1, \"csv\": \"../names.csv\"}]}");
    data.close();
    EXPECT_FALSE(LoadPageData(dir.path(), {&page}));
}

}  // namespace
}  // namespace orv
