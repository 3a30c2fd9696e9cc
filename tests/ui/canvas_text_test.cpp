// Typing on the canvas: a double click starts a text, keys and the input
// method's events reach it, and the end of the edit leaves it on the page.
#include <gtest/gtest.h>

#include <QInputMethodEvent>

#include "canvas_fixture.h"
#include "objects/text_object.h"

namespace orv {
namespace {

using test::CanvasTest;

void Compose(QWidget* view, const QString& preedit, const QString& commit = {}) {
    QList<QInputMethodEvent::Attribute> attributes;
    attributes << QInputMethodEvent::Attribute(QInputMethodEvent::Cursor,
                                               static_cast<int>(preedit.size()), 1);
    QInputMethodEvent event(preedit, attributes);
    if (!commit.isEmpty()) event.setCommitString(commit);
    QApplication::sendEvent(view, &event);
}

TEST_F(CanvasTest, DoubleClickTypingAndTheInputMethodMakeAText) {
    QTest::mouseDClick(view, Qt::LeftButton, Qt::NoModifier, At(60, 120));
    CQRDObjectText* text = view->EditedText();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(frame->m_nCanvasMode, MODE_TEXT);
    EXPECT_FALSE(view->CaretRect().isEmpty());
    EXPECT_TRUE(static_cast<QWidget*>(view)->inputMethodQuery(Qt::ImEnabled).toBool());
    QTest::keyClicks(view, "Hi");
    QTest::keyClick(view, Qt::Key_Return);
    // Hangul through the input method: jamo, syllable, confirmed.
    Compose(view, QStringLiteral("ㅎ"));
    Compose(view, QStringLiteral("한"));
    EXPECT_EQ(text->m_nCompLen, 1);
    Compose(view, QStringLiteral("ㄱ"), QStringLiteral("한"));
    Compose(view, QString(), QStringLiteral("글"));
    EXPECT_EQ(text->m_nCompLen, 0);
    EXPECT_EQ(text->GetPlainText(), QStringLiteral("Hi\r한글"));
    EXPECT_EQ(text->m_nCaret, 5);
    QTest::keyClick(view, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_TRUE(text->HasSelection());
    QTest::keyClick(view, Qt::Key_Backspace);
    EXPECT_EQ(text->GetPlainText(), QStringLiteral("Hi\r한"));
    const QRect caret = view->CaretRect();
    QTest::keyClick(view, Qt::Key_Up);
    EXPECT_LT(view->CaretRect().top(), caret.top());
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(view->EditedText(), nullptr);
    EXPECT_EQ(frame->m_nCanvasMode, MODE_SELECT);
    EXPECT_TRUE(view->CaretRect().isEmpty());
    ASSERT_EQ(page->Objects().size(), 1u);
    EXPECT_EQ(page->m_strPageText, QStringLiteral("Hi\r한"));
    // The characters are on the canvas: something other than the backdrop
    // inside the text's rectangle.
    const UstRect r = text->ScrolledViewRect();
    int inked = 0;
    for (int y = r.top; y < r.bottom; ++y)
        for (int x = r.left; x < r.right; ++x)
            inked += view->Surface()[y * view->FitWidth() + x] == 0xFFFFFFFFu;
    EXPECT_GT(inked, 20);
}

TEST_F(CanvasTest, EnterEditsTheSelectedTextAndAClickOutsideEnds) {
    QTest::mouseDClick(view, Qt::LeftButton, Qt::NoModifier, At(60, 120));
    QTest::keyClicks(view, "abc");
    const QPoint away = At(view->FitWidth() - 10, 10);
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, away);
    EXPECT_EQ(view->EditedText(), nullptr);
    CQRDObjectText* text = static_cast<CQRDObjectText*>(page->Objects().front().get());
    page->SelectOnly(text);
    QTest::keyClick(view, Qt::Key_Return);
    ASSERT_EQ(view->EditedText(), text);
    EXPECT_EQ(text->m_nCaret, 0);
    QTest::keyClick(view, Qt::Key_End);
    QTest::keyClicks(view, "d");
    EXPECT_EQ(text->GetPlainText(), "abcd");
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, away);
    EXPECT_EQ(view->EditedText(), nullptr);
    // A click in text mode starts a new text; left empty, it never stays.
    frame->m_nCanvasMode = MODE_TEXT;
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, away);
    ASSERT_NE(view->EditedText(), nullptr);
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(page->Objects().size(), 1u);
}

}  // namespace
}  // namespace orv
