// Text into pages: cleaning, the two ways of cutting, where the pages go and
// what the project looks like afterwards.
#include <gtest/gtest.h>

#include "import/text_import.h"
#include "project/project_manager.h"
#include "support/looks.h"
#include "support/rect_object.h"

namespace orv {
namespace {

class TextImport : public testing::Test {
protected:
    TextImport() : view(480, 270), look(test::MakeLook("DejaVu Sans", 72)) {}
    void SetUp() override { project.AttachAll(&view); }
    // The pages' texts from `first` on, as their page text shows them.
    QStringList Texts(int first = 0) const {
        QStringList texts;
        for (int i = first; i < project.PageCount(); ++i)
            texts << project.GetPage(i)->m_strPageText;
        return texts;
    }
    int Import(const QString& text, int lines = 2, bool append = true) {
        UstTextImport values = DefaultTextImport(1920, 1080);
        values.text = text;
        values.nLinesPerPage = lines;
        values.bAppend = append;
        return InsertTextPages(project, look, values);
    }
    test::CFakeView view;
    CProjectManager project;
    UstDefaultAttr look;
};

TEST(TextImportValues, DefaultsAtOpening) {
    const UstTextImport hd = DefaultTextImport(1920, 1080);
    EXPECT_FLOAT_EQ(hd.fLeft, 192.0f);
    EXPECT_EQ(hd.nRight, 1728);
    EXPECT_FLOAT_EQ(hd.fTop, 993.6f);
    EXPECT_EQ(hd.nLinesPerPage, 2);
    EXPECT_EQ(hd.bAppend, 0);
    EXPECT_EQ(DefaultTextImport(725, 486).nRight, 653);  // 652.5 rounds away from zero
}

TEST(TextImportCleaning, StepsInTheirOrder) {
    EXPECT_EQ(CleanImportText("  a\r\n\r\n\r\nb \n"), "a\rb");
    EXPECT_EQ(CleanImportText("one    two"), "one two");
    // Tabs become blanks only after blanks were squeezed: a tab pair stays.
    EXPECT_EQ(CleanImportText("a\t\tb"), "a  b");
    EXPECT_EQ(CleanImportText(QString("a") + QChar(0) + QChar(7) + "b"), "ab");
    EXPECT_TRUE(IsExplicitText("A\r//\rB"));
    EXPECT_FALSE(IsExplicitText("http://x\rB//"));
}

TEST_F(TextImport, SlashLinesMakeExplicitPages) {
    ASSERT_EQ(project.PageCount(), 1);
    EXPECT_EQ(Import("A\r\n//\r\nB"), 2);
    const QStringList texts = Texts(1);
    ASSERT_EQ(texts.size(), 2);
    EXPECT_EQ(texts[0].trimmed(), "A");
    EXPECT_EQ(texts[1], "B");
    for (const QString& t : texts)
        EXPECT_FALSE(t.contains("//"));
    // Marks with nothing between them make empty pages, without a text.
    EXPECT_EQ(Import("//\n//\n//"), 4);
    for (int i = 3; i < project.PageCount(); ++i)
        EXPECT_TRUE(project.GetPage(i)->Objects().empty());
}

TEST_F(TextImport, AutomaticModeKeepsInnerSlashesAndSqueezesBlanks) {
    EXPECT_EQ(Import("see http://a.b  now\nsecond   line\nthird", 2), 2);
    EXPECT_EQ(Texts(1), QStringList({"see http://a.b now\rsecond line", "third"}));
}

TEST_F(TextImport, OneLinePerPageAfterWrapping) {
    const QString words =
        "Amazing grace how sweet the sound that saved a wretch like me I once was "
        "lost but now am found was blind but now I see";
    const int made = Import(words, 1);
    ASSERT_GT(made, 2);  // one line at size 72 cannot hold it
    QStringList joined;
    const UstTextImport values = DefaultTextImport(1920, 1080);
    for (int i = 1; i < project.PageCount(); ++i) {
        const CPageManager* page = project.GetPage(i);
        ASSERT_EQ(page->Objects().size(), 1u);
        const auto* text = static_cast<const CQRDObjectText*>(page->Objects()[0].get());
        EXPECT_FALSE(text->GetPlainText().contains(QChar(13)));
        UstRect box;
        text->StoredLayout(&box);
        EXPECT_LE(box.right, values.nRight);
        EXPECT_GE(box.left, static_cast<int>(values.fLeft) - 8);
        joined << text->GetPlainText();
    }
    EXPECT_EQ(joined.join(' '), words);  // no word lost or cut
}

TEST_F(TextImport, AWordLongerThanALineIsCut) {
    const QString word(60, QChar('W'));
    ASSERT_GT(Import(word, 1), 1);
    EXPECT_EQ(Texts(1).join(""), word);
}

TEST_F(TextImport, PlacementAndTheUndoLog) {
    project.ExecCommand(nullptr, CMD_NEW_PAGE);
    project.ExecCommand(nullptr, CMD_NEW_PAGE);  // three pages
    const int current = 1;
    project.GoToPage(current);
    ASSERT_TRUE(project.CanUndo());
    Import("x\ny\nz", 1, false);
    EXPECT_FALSE(project.CanUndo());  // an import cannot be undone
    EXPECT_EQ(project.PageCount(), 6);
    EXPECT_EQ(project.m_nCurPage, current);
    EXPECT_EQ(Texts(2).mid(0, 3), QStringList({"x", "y", "z"}));
    Import("end", 1, true);
    EXPECT_EQ(Texts().last(), "end");
    EXPECT_EQ(project.m_bModified, 1);
}

TEST_F(TextImport, NothingToImportLeavesTheProjectAlone) {
    project.ExecCommand(nullptr, CMD_NEW_PAGE);
    EXPECT_EQ(Import(" \r\n\t\n"), 0);
    EXPECT_EQ(Import(""), 0);
    EXPECT_EQ(project.PageCount(), 2);
    EXPECT_TRUE(project.CanUndo());
}

TEST_F(TextImport, HangulLinesKeepTheirCharactersAndGetAFaceThatHasThem) {
    ASSERT_EQ(Import(QStringLiteral("주 하나님 지으신 모든 세계\nHow great thou art"), 2), 1);
    const auto* text = static_cast<const CQRDObjectText*>(project.GetPage(1)->Objects()[0].get());
    EXPECT_EQ(text->GetPlainText(),
              QStringLiteral("주 하나님 지으신 모든 세계\rHow great thou art"));
    const UstCharAttr& hangul = text->Chars()[0];
    EXPECT_GT(int{hangul.nBoxWidth}, 0);
    EXPECT_NE(FixedToQString(&hangul.font.szFace), "DejaVu Sans");
    EXPECT_EQ(FixedToQString(&text->Chars().back().font.szFace), "DejaVu Sans");
}

}  // namespace
}  // namespace orv
