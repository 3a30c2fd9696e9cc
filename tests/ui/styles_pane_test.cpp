// The Styles pane on a live frame: a text style clicked onto the selected
// text and taken back by one undo, styles added from the selection and
// deleted, and the message of an add that fails.
#include <QListWidget>
#include <QPushButton>

#include "canvas_fixture.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/clipboard_formats.h"
#include "project/style_library.h"
#include "ui/style_gallery.h"
#include "ui/styles_pane.h"

namespace orv {
namespace {

class StylesPaneTest : public test::CanvasTest {
protected:
    CPageManager* Cur() { return doc->Project().GetCurPage(); }
    CStyleGallery* Gallery(int library) { return frame->StylesPane()->Gallery(library); }
    void ClickItem(int library, int index) {
        QListWidget* list = Gallery(library)->List();
        const QRect r = list->visualItemRect(list->item(index));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, r.center());
    }
    CQRDObjectText* TypeText() {
        CQRDObjectText* text = view->StartNewText({60, 80});
        QTest::keyClicks(view, "Ab");
        view->EndTextEdit();
        Cur()->SelectOnly(text);
        return text;
    }
    // Answers the message box that the command brings, and says what it said.
    QString Answer(const std::function<void()>& command) {
        QString said;
        QTimer::singleShot(50, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                said = box->text();
                box->close();
            }
        });
        command();
        return said;
    }
};

TEST_F(StylesPaneTest, ATextStyleClickedOntoTheSelectionIsOneUndo) {
    CQRDObjectText* text = TypeText();
    const uint32_t before = text->m_attr.fill[0].clrSolid;
    UstText style = TextStyleOf(text->Chars().front(), text->m_effect, text->m_attr);
    style.attr.fill[0].clrSolid = 0xFFFF00FF;
    style.character.clrFill = 0xFFFF00FF;
    style.effect.nEdge = 7;
    ASSERT_TRUE(frame->Styles().Text().Add(style));
    frame->StylesPane()->Refresh(frame->Styles());
    ASSERT_EQ(Gallery(STYLE_TEXT)->Count(), 1);

    const size_t undoBefore = doc->Project().UndoLog().UndoCount();
    ClickItem(STYLE_TEXT, 0);
    text = static_cast<CQRDObjectText*>(Cur()->Objects().front().get());
    EXPECT_EQ(+text->m_attr.fill[0].clrSolid, 0xFFFF00FFu);
    EXPECT_EQ(+text->m_effect.nEdge, 7);
    for (const UstCharAttr& c : text->Chars())
        EXPECT_EQ(uint32_t{c.clrFill}, 0xFFFF00FFu);
    EXPECT_EQ(doc->Project().UndoLog().UndoCount(), undoBefore + 1);

    view->EditCommand(CMD_UNDO);
    text = static_cast<CQRDObjectText*>(Cur()->Objects().front().get());
    EXPECT_EQ(+text->m_attr.fill[0].clrSolid, before);
    EXPECT_NE(+text->m_effect.nEdge, 7);
    EXPECT_NE(uint32_t{text->Chars().front().clrFill}, 0xFFFF00FFu);
}

TEST_F(StylesPaneTest, AddTakesTheSelectionsLookAndDeleteTakesItAway) {
    CQRDObjectText* text = TypeText();
    text->m_attr.fill[0].clrSolid = 0xFF00FFFF;
    Gallery(STYLE_TEXT)->AddButton()->click();
    ASSERT_EQ(Gallery(STYLE_TEXT)->Count(), 1);
    EXPECT_EQ(Gallery(STYLE_TEXT)->CurrentIndex(), 0);
    // On disk at once, as the next start will read it.
    CStyleLibraries again(m_folders, false);
    again.Load();
    ASSERT_EQ(again.Text().Count(), 1);
    EXPECT_EQ(+again.Text().Items()[0].attr.fill[0].clrSolid, 0xFF00FFFFu);
    EXPECT_TRUE(QFileInfo(again.Text().ThumbPath(0)).isFile());

    // A shape's style, then onto another shape.
    auto* a = static_cast<CQRDObjectShape*>(Cur()->InsertNew(std::make_unique<CQRDObjectShape>(
        nullptr, 1, UstRect{300, 20, 400, 120}, MakeDefaultAttr(), MakeDefaultEffect())));
    a->m_attr.fill[0].clrSolid = 0xFF102030;
    Cur()->SelectOnly(a);
    EXPECT_EQ(frame->StyleCommand(40047), 1);
    auto* b = static_cast<CQRDObjectShape*>(Cur()->InsertNew(std::make_unique<CQRDObjectShape>(
        nullptr, 1, UstRect{300, 200, 400, 300}, MakeDefaultAttr(), MakeDefaultEffect())));
    Cur()->SelectOnly(b);
    EXPECT_EQ(frame->StyleCommand(40042, 0), 1);
    EXPECT_EQ(+b->m_attr.fill[0].clrSolid, 0xFF102030u);

    Gallery(STYLE_TEXT)->SetCurrentIndex(0);
    Gallery(STYLE_TEXT)->DeleteButton()->click();
    EXPECT_EQ(Gallery(STYLE_TEXT)->Count(), 0);
    EXPECT_EQ(frame->Styles().Text().Count(), 0);
    EXPECT_FALSE(Gallery(STYLE_TEXT)->DeleteButton()->isEnabled());
}

TEST_F(StylesPaneTest, AnAddThatCannotBeWrittenSaysSo) {
    TypeText();
    const QString list = frame->Styles().Text().ListFile();
    QFile::remove(list);
    ASSERT_TRUE(QDir().mkdir(list));
    const QString said = Answer([&] { Gallery(STYLE_TEXT)->AddButton()->click(); });
    EXPECT_EQ(said, "Failed adding a style.");
    EXPECT_EQ(Gallery(STYLE_TEXT)->Count(), 0);
    EXPECT_EQ(QDir(frame->Styles().Text().Folder()).entryList(QDir::Files).size(), 0);
}

}  // namespace
}  // namespace orv
