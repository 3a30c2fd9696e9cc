// Find with its history, and Move to Page: the history's limits and what it
// reads from settings it did not write, searching up and down without
// wrapping round, the match as the only selection, and texts no search
// can use.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>

#include "canvas_fixture.h"
#include "ui/combo_history.h"
#include "ui/dlg_find.h"
#include "ui/dlg_jump.h"

namespace orv {
namespace {

class FindTest : public test::CanvasTest {
protected:
    CProjectManager& Project() { return doc->Project(); }
    CQRDObject* AddText(int pageIndex, const QString& words) {
        CPageManager* p = Project().GetPage(pageIndex);
        auto* text =
            static_cast<CQRDObjectText*>(p->AddObject(std::make_unique<CQRDObjectText>(p)));
        text->SetPlainText(words);
        return text;
    }
    // Three pages: "Hello World" and "other" on page 1, nothing on page 2,
    // "hello again" and "World Cup" on page 3.
    void MakeShow() {
        view->ProjectCommand(CMD_NEW_PAGE);
        view->ProjectCommand(CMD_NEW_PAGE);
        m_texts = {AddText(0, "Hello World"), AddText(0, "other"), AddText(2, "hello again"),
                   AddText(2, "World Cup")};
        view->GoToPage(0);
    }
    // One "Find Next", with the message box it may bring answered.
    QString FindNext(CDlgFind& dlg, const QString& text, bool down, bool matchCase = false) {
        dlg.m_pText->setEditText(text);
        (down ? dlg.m_pDown : dlg.m_pUp)->setChecked(true);
        dlg.m_pMatchCase->setChecked(matchCase);
        QString said;
        QTimer poll;
        poll.setInterval(5);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                said = box->text();
                box->close();
            }
        });
        poll.start();
        dlg.FindNext();
        return said;
    }
    std::vector<CQRDObject*> Only(CQRDObject* o) { return {o}; }

    std::vector<CQRDObject*> m_texts;
};

TEST_F(FindTest, TheHistoryKeepsTenNewestFirstWithoutRepeats) {
    CComboHistory box;
    box.Init("FindTest", "Text");
    for (int i = 1; i <= 10; ++i)
        box.AddEntry(QString("entry %1").arg(i));
    ASSERT_EQ(box.count(), 10);
    box.AddEntry("entry 11");
    EXPECT_EQ(box.count(), 10);
    EXPECT_EQ(box.itemText(0), "entry 11");
    EXPECT_EQ(box.findText("entry 1"), -1);  // the oldest went
    box.AddEntry("  entry 5 ");
    EXPECT_EQ(box.count(), 10);
    EXPECT_EQ(box.itemText(0), "entry 5");
    EXPECT_EQ(box.Entries().count("entry 5"), 1);
    box.AddEntry("   ");
    EXPECT_EQ(box.itemText(0), "entry 5");
    box.setEditText("typed");
    box.Save();
    QSettings settings;
    EXPECT_EQ(settings.value("FindTest/Text0").toString(), "entry 5");
    EXPECT_EQ(settings.value("FindTest/Text9").toString(), "entry 2");
    EXPECT_EQ(settings.value("FindTest/Text").toString(), "typed");
    CComboHistory again;
    again.Init("FindTest", "Text");
    EXPECT_EQ(again.Entries(), box.Entries());
    EXPECT_EQ(again.currentText(), "typed");
    // Without a prefix the last value is under "Last"; fewer entries drop
    // the keys that are left over.
    CComboHistory plain;
    plain.Init("FindTest2", "");
    plain.AddEntry("a");
    plain.Save();
    EXPECT_EQ(settings.value("FindTest2/0").toString(), "a");
    EXPECT_TRUE(settings.contains("FindTest2/Last"));
    again.clear();
    again.AddEntry("only");
    again.Save();
    EXPECT_FALSE(settings.contains("FindTest/Text1"));
}

TEST_F(FindTest, AHistoryOfFiftyOrOfJunkReadsWhatItCan) {
    QSettings settings;
    for (int i = 0; i < 50; ++i)
        settings.setValue(QString("Fifty/%1").arg(i), QString("text %1").arg(i));
    settings.setValue("Junk/0", QByteArray("\x00\xFF\x01", 3));
    settings.setValue("Junk/Last", QStringList{"a", "b"});
    settings.setValue("Gap/0", "first");
    settings.setValue("Gap/2", "after the gap");
    settings.sync();
    CComboHistory fifty, junk, gap;
    fifty.Init("Fifty", "");
    junk.Init("Junk", "");
    gap.Init("Gap", "");
    EXPECT_EQ(fifty.count(), 10);
    EXPECT_EQ(fifty.itemText(9), "text 9");
    EXPECT_EQ(junk.count(), 0);
    EXPECT_TRUE(junk.currentText().isEmpty());
    EXPECT_EQ(gap.Entries(), QStringList{"first"});
    // An empty section keeps nothing.
    CComboHistory none;
    none.Init("", "");
    none.AddEntry("x");
    none.Save();
    EXPECT_FALSE(settings.contains("0"));
}

TEST_F(FindTest, DownFindsOnLaterPagesAndUpOnPageOneDoesNotWrap) {
    MakeShow();
    CDlgFind dlg(view, frame.get());
    EXPECT_EQ(FindNext(dlg, "cup", false), "'cup' can not be found.");
    EXPECT_EQ(Project().m_nCurPage, 0);
    EXPECT_EQ(FindNext(dlg, "cup", true), "");
    EXPECT_EQ(Project().m_nCurPage, 2);
    EXPECT_EQ(Project().GetCurPage()->Selection(), Only(m_texts[3]));
    // From there down again: nothing after it, and no wrapping round.
    EXPECT_EQ(FindNext(dlg, "cup", true), "'cup' can not be found.");
    EXPECT_EQ(Project().m_nCurPage, 2);
    EXPECT_EQ(dlg.m_pText->itemText(0), "cup");
    EXPECT_EQ(dlg.m_pText->count(), 1);
}

TEST_F(FindTest, EachFindNextGoesOnBehindTheLastMatchAndCaseCounts) {
    MakeShow();
    CDlgFind dlg(view, frame.get());
    EXPECT_EQ(FindNext(dlg, "hello", true), "");
    EXPECT_EQ(Project().GetCurPage()->Selection(), Only(m_texts[0]));
    EXPECT_EQ(FindNext(dlg, "hello", true), "");
    EXPECT_EQ(Project().m_nCurPage, 2);
    EXPECT_EQ(Project().GetCurPage()->Selection(), Only(m_texts[2]));
    view->GoToPage(0);
    EXPECT_EQ(FindNext(dlg, "hello", true, true), "");
    EXPECT_EQ(Project().GetCurPage()->Selection(), Only(m_texts[2]));  // not "Hello World"
    EXPECT_EQ(FindNext(dlg, "World", true, true), "");
    EXPECT_EQ(Project().GetCurPage()->Selection(), Only(m_texts[3]));
    EXPECT_EQ(FindNext(dlg, "world", true, true), "'world' can not be found.");
    // Up from the last page runs to the first.
    EXPECT_EQ(FindNext(dlg, "other", false), "");
    EXPECT_EQ(Project().m_nCurPage, 0);
    EXPECT_EQ(Project().GetCurPage()->Selection(), Only(m_texts[1]));
}

TEST_F(FindTest, LongBlankAndEmptyTextsAreHandledWithoutHarm) {
    MakeShow();
    CDlgFind dlg(view, frame.get());
    EXPECT_EQ(FindNext(dlg, "", true), "");  // nothing happens
    EXPECT_EQ(dlg.m_pText->count(), 0);
    const QString essay(10'000, QChar('x'));
    const QString said = FindNext(dlg, essay, true);
    EXPECT_TRUE(said.startsWith("'xxxx"));
    EXPECT_TRUE(said.endsWith("' can not be found."));
    EXPECT_LT(said.size(), 200);
    EXPECT_EQ(dlg.m_pText->itemText(0).size(), 10'000);
    EXPECT_EQ(FindNext(dlg, "   ", true), "'   ' can not be found.");
    EXPECT_EQ(dlg.m_pText->itemText(0).size(), 10'000);  // blank: not kept
    EXPECT_EQ(FindNext(dlg, " ", true), "");             // "Hello World" has one
}

TEST_F(FindTest, OpeningFindEndsTheEditAndClearsTheSelection) {
    MakeShow();
    Project().GetCurPage()->SelectOnly(m_texts[1]);
    CDlgFind dlg(view, frame.get());
    EXPECT_TRUE(Project().GetCurPage()->Selection().empty());
}

TEST_F(FindTest, MoveToPageTakesAListedOrTypedNumber) {
    CDlgJump jump(5, 1);
    EXPECT_EQ(jump.windowTitle(), "Move to Page");
    EXPECT_EQ(jump.PageIndex(), 1);
    for (const auto& [typed, index] : std::vector<std::pair<QString, int>>{
             {"5", 4}, {" 3 ", 2}, {"0", -1}, {"6", -1}, {"abc", -1}, {"", -1}, {"-2", -1}}) {
        jump.m_pPage->setEditText(typed);
        EXPECT_EQ(jump.PageIndex(), index) << typed.toStdString();
        EXPECT_EQ(jump.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled(),
                  index >= 0);
    }
    CDlgJump empty(0, -1);
    EXPECT_EQ(empty.PageIndex(), -1);

    MakeShow();
    QTimer::singleShot(0, [] {
        auto* dlg = qobject_cast<CDlgJump*>(QApplication::activeModalWidget());
        ASSERT_NE(dlg, nullptr);
        dlg->m_pPage->setEditText("3");
        dlg->accept();
    });
    frame->ShowJump();
    EXPECT_EQ(Project().m_nCurPage, 2);
}

}  // namespace
}  // namespace orv
