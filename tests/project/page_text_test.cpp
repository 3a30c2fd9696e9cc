// The page's text commands: ending an edit, splitting, the text list and
// the look commands on the selected texts.
#include <gtest/gtest.h>

#include "project/project_manager.h"
#include "support/rect_object.h"
#include "support/text_host.h"

namespace orv {
namespace {

class PageText : public testing::Test {
protected:
    PageText() : view(400, 300) {}
    void SetUp() override {
        view.host = &host;
        project.AttachAll(&view);
        page = project.GetCurPage();
    }
    CQRDObjectText* AddText(const QString& s, int x = 20, int y = 150) {
        auto* text =
            static_cast<CQRDObjectText*>(page->AddObject(std::make_unique<CQRDObjectText>(page)));
        text->BeginEdit(x, y, false);
        text->InsertString(s);
        page->EndTextEdit();
        return text;
    }
    test::CFakeTextHost host;
    test::CFakeView view;
    CProjectManager project;
    CPageManager* page = nullptr;
};

TEST_F(PageText, EndingAnEditKeepsTextAndDropsBlankOnes) {
    CQRDObjectText* text = AddText("Hello\r");
    ASSERT_EQ(page->Objects().size(), 1u);
    EXPECT_EQ(text->GetPlainText(), "Hello");
    EXPECT_EQ(page->m_strPageText, "Hello");
    EXPECT_EQ(page->m_bModified, 1);
    AddText("  \r \r");
    EXPECT_EQ(page->Objects().size(), 1u);  // nothing but blanks: gone
    EXPECT_EQ(page->EditingText(), nullptr);
}

TEST_F(PageText, PageTextJoinsTextsAndSqueezesEmptyLines) {
    AddText("one\r\rtwo");
    AddText("three", 20, 250);
    page->RebuildPageText(true);
    EXPECT_EQ(page->m_strPageText, QString("one\rtwo\rthree"));
}

TEST_F(PageText, SplittingIntoLinesAndCharacters) {
    CQRDObjectText* text = AddText("ab\rc d");
    const UstTextLayout layout = text->StoredLayout();
    page->SelectOnly(text);
    ASSERT_EQ(page->ExecCommand(nullptr, CMD_SPLIT_LINES), 1);
    ASSERT_EQ(page->Objects().size(), 2u);
    EXPECT_EQ(page->Selection().size(), 2u);
    const auto* second = static_cast<const CQRDObjectText*>(page->Objects()[1].get());
    EXPECT_EQ(second->GetPlainText(), "c d");
    // Each piece stands where its first character stood.
    EXPECT_NEAR(second->StoredLayout().pos[0].x, layout.pos[3].x, 0.01);
    EXPECT_NEAR(second->StoredLayout().pos[0].y, layout.pos[3].y, 0.01);

    page->SelectOnly(page->Objects()[1].get());
    ASSERT_EQ(page->ExecCommand(nullptr, CMD_SPLIT_CHARS), 1);
    ASSERT_EQ(page->Objects().size(), 3u);  // "ab", "c", "d": the blank makes none
    EXPECT_EQ(static_cast<const CQRDObjectText*>(page->Objects()[2].get())->GetPlainText(), "d");
    page->SelectOnly(page->Objects()[2].get());
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_SPLIT_CHARS), 0);  // one character: nothing
    EXPECT_EQ(page->ExecCommand(nullptr, CMD_SPLIT_LINES), 0);  // one line: nothing
}

TEST_F(PageText, LookCommandsReachOnlySelectedTexts) {
    CQRDObjectText* a = AddText("a");
    CQRDObjectText* b = AddText("b", 200, 150);
    page->SelectOnly(a);
    page->m_bModified = 0;
    const int32_t size = 20;
    EXPECT_EQ(page->ExecCommand(&size, CMD_FONT_SIZE), 1);
    EXPECT_EQ(+a->Chars()[0].font.nSize, 20);
    EXPECT_EQ(+b->Chars()[0].font.nSize, 72);
    EXPECT_EQ(page->m_bModified, 1);
    EXPECT_EQ(page->ExecCommand(&size, CMD_FONT_SIZE), 0);  // no change, no tail
    page->ClearSelection();
    const uint32_t symbol = 'x';
    EXPECT_EQ(page->ExecCommand(&symbol, CMD_SYMBOL), 0);  // no text under edit
}

TEST_F(PageText, TypingRedrawsOnlyWhatChangedAndGetsTheSamePicture) {
    auto* text =
        static_cast<CQRDObjectText*>(page->AddObject(std::make_unique<CQRDObjectText>(page)));
    text->BeginEdit(10, 120, false);
    host.working.font.nSize = 24;
    text->InsertString("Left right\rsecond line");
    page->RedrawEditing({});
    for (int i = 0; i < 17; ++i)
        text->MoveCaret(CARET_LEFT, false);
    text->InsertString("WW");
    text->Backspace();
    text->MoveCaret(CARET_END, false);
    text->InsertChar(13);
    page->RedrawEditing({});  // the kept page, and the text only where it changed
    const std::vector<uint32_t> partial = view.canvas;
    page->RenderCanvasExcept(text);
    text->Draw();
    EXPECT_TRUE(partial == view.canvas);
    text->EndEdit();
}

}  // namespace
}  // namespace orv
