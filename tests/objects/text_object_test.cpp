// The text object under edit: typing, deleting, the caret and selection, the
// input method, its state forms, and the commands that change its look.
#include <gtest/gtest.h>

#include <random>

#include "../support/rect_object.h"
#include "../support/text_host.h"
#include "objects/text_object.h"
#include "render/fixed_string.h"

namespace orv {
namespace {

// A page with a canvas the text can draw on.
class CCanvasContext : public test::CFakeContext {
public:
    CCanvasContext() : bits(static_cast<size_t>(width) * height, 0) {}
    uint32_t* GetCanvasBits() override { return bits.data(); }
    std::vector<uint32_t> bits;
};

class TextEdit : public testing::Test {
protected:
    void SetUp() override {
        page.host = &host;
        text = std::make_unique<CQRDObjectText>(&page);
    }
    void TearDown() override {
        if (text->IsEditing()) text->EndEdit();
    }
    void Type(const QString& s) { text->InsertString(s); }
    QString Plain() const { return text->GetPlainText(); }
    // A text "ab\rcd\ref" under edit at (100, 200).
    void ThreeLines() {
        text->BeginEdit(100, 200, false);
        Type("ab\rcd\ref");
    }

    test::CFakeTextHost host;
    CCanvasContext page;
    std::unique_ptr<CQRDObjectText> text;
};

TEST_F(TextEdit, TypingInsertsAtTheCaretWithTheWorkingLook) {
    text->BeginEdit(100, 200, false);
    EXPECT_EQ(host.mode, MODE_TEXT);
    EXPECT_TRUE(text->IsEditing());
    EXPECT_GT(host.caret.Height(), 0);  // an empty text shows its caret at the click
    host.working.attr.fill[UstAttr::BODY].clrSolid = 0xFF00FF00u;
    Type("Hi");
    text->MoveCaret(CARET_LEFT, false);
    Type("!");
    EXPECT_EQ(Plain(), "H!i");
    EXPECT_EQ(text->m_nCaret, 2);
    EXPECT_EQ(+text->Chars()[0].clrFill, 0xFF00FF00u);
    EXPECT_EQ(+text->Chars()[0].bBlink, 0u);
    EXPECT_GT(+text->Chars()[0].nAdvance, 0);
}

TEST_F(TextEdit, SymbolFacesDoNotCarryIntoTyping) {
    QStringToFixed(QStringLiteral("Wingdings"), &host.working.font.szFace);
    host.working.font.nSize = 40;
    text->BeginEdit(0, 100, false);
    Type("a");
    const UstCharAttr& c = text->Chars()[0];
    EXPECT_EQ(FixedToQString(&c.font.szFace), "DejaVu Sans");
    EXPECT_EQ(+c.font.nSize, 72);  // the default block, not the working one
}

TEST_F(TextEdit, SymbolCodesFixTheirFonts) {
    text->BeginEdit(0, 100, false);
    text->InsertSymbol(0x41, 2712);
    const UstCharAttr& w = text->Chars()[0];
    EXPECT_EQ(FixedToQString(&w.font.szFace), "Wingdings");
    EXPECT_EQ(+w.font.nCharSet, 2);
    EXPECT_EQ(+w.font.nPitchFamily, 2);
    const uint32_t arg = 0xAC00u | (2702u << 16);
    EXPECT_TRUE(text->Execute(&arg, CMD_SYMBOL));
    const UstCharAttr& h = text->Chars()[1];
    EXPECT_EQ(+h.font.nCharSet, 129);
    // The brush-script face is not on this system: an installed Hangul face
    // of the same style stands in.
    EXPECT_NE(FixedToQString(&h.font.szFace), QStringLiteral("궁서"));
    EXPECT_FALSE(FixedToQString(&h.font.szFace).isEmpty());
    // The ends of the Hangul ranges, and the codes between and beside them.
    for (uint32_t code : {2706u, 2708u, 2710u}) {
        text->InsertSymbol(0xAC00, code);
        EXPECT_EQ(+text->Chars().back().font.nCharSet, 129) << code;
    }
    for (uint32_t code : {2701u, 2707u, 2715u}) {
        text->InsertSymbol(0x41, code);
        EXPECT_EQ(FixedToQString(&text->Chars().back().font.szFace), "DejaVu Sans") << code;
    }
}

TEST_F(TextEdit, EndingTheEditTrimsLineEndsAndBlankTextsAreFound) {
    text->BeginEdit(0, 100, false);
    Type("ab\r\r");
    EXPECT_TRUE(text->EndEdit());
    EXPECT_EQ(Plain(), "ab");
    EXPECT_FALSE(text->IsBlank());
    EXPECT_EQ(host.mode, MODE_SELECT);
    EXPECT_EQ(host.caret, UstRect{});

    CQRDObjectText only(&page);
    only.BeginEdit(0, 100, false);
    only.InsertString("\r\r\r");
    only.EndEdit();
    EXPECT_EQ(only.CharCount(), 1);  // the first one always stays
    EXPECT_TRUE(only.IsBlank());
}

TEST_F(TextEdit, BackspaceAndDelete) {
    text->BeginEdit(0, 100, false);
    text->Backspace();  // at index 0: nothing
    Type("x");
    text->Backspace();
    EXPECT_EQ(text->CharCount(), 0);
    EXPECT_EQ(text->m_nCaret, 0);
    EXPECT_TRUE(text->IsEditing());
    Type("abcd");
    text->MoveCaret(CARET_HOME, false);
    text->DeleteForward();
    EXPECT_EQ(Plain(), "bcd");
    text->MoveCaret(CARET_RIGHT, true);
    text->MoveCaret(CARET_RIGHT, true);
    text->Backspace();  // with a selection: the selection goes
    EXPECT_EQ(Plain(), "d");
    EXPECT_EQ(text->m_nCaret, 0);
    Type("abc");  // "abcd", the caret after "c"
    text->MoveCaret(CARET_LEFT, false);
    text->Backspace();  // inside the word: "b" goes and the caret follows it back
    EXPECT_EQ(Plain(), "acd");
    EXPECT_EQ(text->m_nCaret, 1);
    Type("X");
    EXPECT_EQ(Plain(), "aXcd");
}

TEST_F(TextEdit, CaretWalksLinesHomeAndEnd) {
    ThreeLines();
    EXPECT_EQ(text->Layout().nLines, 3);
    EXPECT_EQ(text->m_nCaret, 8);
    text->MoveCaret(CARET_UP, false);
    EXPECT_EQ(text->m_nCaret, 5);  // after "cd": the nearest x on the line above
    EXPECT_EQ(text->m_nAnchor, 8);
    text->MoveCaret(CARET_HOME, false);
    EXPECT_EQ(text->m_nCaret, 3);
    text->MoveCaret(CARET_UP, false);
    EXPECT_EQ(text->m_nCaret, 0);
    text->MoveCaret(CARET_UP, false);  // no line above
    EXPECT_EQ(text->m_nCaret, 0);
    text->MoveCaret(CARET_END, false);
    EXPECT_EQ(text->m_nCaret, 2);  // on the line end
    text->MoveCaret(CARET_DOWN, false);
    text->MoveCaret(CARET_DOWN, false);
    EXPECT_EQ(text->m_nCaret, 8);  // the end of the text counts on the last line
    text->MoveCaret(CARET_RIGHT, false);
    EXPECT_EQ(text->m_nCaret, 8);
}

TEST_F(TextEdit, ShiftMovesTheSelectionEndThatFollowsTheCaret) {
    ThreeLines();
    text->MoveCaret(CARET_HOME, false);  // 6
    text->MoveCaret(CARET_LEFT, true);   // selects 5..6
    EXPECT_EQ(text->m_nSelStart, 5);
    EXPECT_EQ(text->m_nSelEnd, 6);
    text->MoveCaret(CARET_UP, true);  // the start follows: 2..6
    EXPECT_EQ(text->m_nSelStart, 2);
    EXPECT_EQ(text->m_nSelEnd, 6);
    EXPECT_EQ(text->m_arrSelRect.size(), 2u);  // one bar per line touched
    text->MoveCaret(CARET_RIGHT, true);
    EXPECT_EQ(text->m_nSelStart, 3);
    text->MoveCaret(CARET_RIGHT, false);
    EXPECT_FALSE(text->HasSelection());
    EXPECT_TRUE(text->m_arrSelRect.empty());
}

TEST_F(TextEdit, HitTestingByLinesAndHalves) {
    ThreeLines();
    const UstRect r = text->m_rcView;
    const UstTextLayout& l = text->Layout();
    EXPECT_EQ(text->HitCharIndex(r.left + 5, r.top - 10), 0);       // above
    EXPECT_EQ(text->HitCharIndex(r.left + 5, r.bottom + 50), 8);    // below
    EXPECT_EQ(text->HitCharIndex(r.left - 40, r.top + 5), 0);       // left of line one
    EXPECT_EQ(text->HitCharIndex(r.right + 300, r.top + 5), 2);     // right of a line: its end
    EXPECT_EQ(text->HitCharIndex(r.right + 300, r.bottom - 5), 8);  // right of the last line
    const int secondLine = static_cast<int>(r.top + l.lineHeight[0] + 5);
    const UstCharAttr& c = text->Chars()[3];
    const auto left = static_cast<int>(l.pos[3].x);
    EXPECT_EQ(text->HitCharIndex(left + 1, secondLine), 3);
    EXPECT_EQ(text->HitCharIndex(left + c.nBoxWidth - 1, secondLine), 4);
}

TEST_F(TextEdit, MouseDragSelectsAndAClickOutsideIsRefused) {
    ThreeLines();
    const UstRect r = text->m_rcView;
    ASSERT_TRUE(text->MouseDown(r.left + 1, r.top + 5));
    EXPECT_EQ(text->m_nCaret, 0);
    text->MouseMove(r.right + 300, r.bottom - 5);
    text->MouseUp();
    EXPECT_EQ(text->m_nSelStart, 0);
    EXPECT_EQ(text->m_nSelEnd, 8);
    EXPECT_FALSE(text->MouseDown(r.right + 200, r.bottom + 200));
}

TEST_F(TextEdit, HangulComposesAndConfirms) {
    text->BeginEdit(0, 100, false);
    Type("A");
    text->ImeStart();
    for (const char16_t* step : {u"ㅎ", u"하", u"한"})
        text->ImeComposition(QString::fromUtf16(step), 1);
    EXPECT_EQ(text->m_nCompLen, 1);
    EXPECT_EQ(text->m_nCaret, 1);  // the caret does not move while composing
    text->ImeResult(QStringLiteral("한"));
    text->ImeComposition(QStringLiteral("그"), 1);
    text->ImeComposition(QStringLiteral("글"), 1);
    text->ImeResult(QStringLiteral("글"));
    text->ImeEnd();
    EXPECT_EQ(Plain(), QStringLiteral("A한글"));
    EXPECT_EQ(text->m_nCompLen, 0);
    EXPECT_EQ(text->m_nCaret, 3);
    EXPECT_EQ(text->m_nImeState & IME_COMPOSING, 0u);
    // A face without Hangul gives way to one that has it.
    EXPECT_NE(FixedToQString(&text->Chars()[1].font.szFace), "DejaVu Sans");
}

TEST_F(TextEdit, CancelledCompositionLeavesNothingAndIdeographicSpaceIsDropped) {
    text->BeginEdit(0, 100, false);
    text->ImeComposition(QStringLiteral("가"), 1);
    text->ImeComposition(QString(), 0);
    text->ImeEnd();
    EXPECT_EQ(text->CharCount(), 0);
    text->ImeResult(QStringLiteral("가\u3000"));
    text->ImeResult(QStringLiteral("\u3000"));  // alone it stays
    EXPECT_EQ(Plain(), QStringLiteral("가\u3000"));
}

TEST_F(TextEdit, SelectionPacksAloneAndPastesIntoAnEditedText) {
    ThreeLines();
    text->MoveCaret(CARET_HOME, false);
    text->MoveCaret(CARET_RIGHT, true);
    text->MoveCaret(CARET_RIGHT, true);  // "ef"
    ASSERT_EQ(text->GetStateSize(), 4128u + 2 * 118u);
    CByteWriter out;
    text->SaveState(out);
    ASSERT_EQ(out.Size(), text->GetStateSize());

    CQRDObjectText copy(&page);
    CByteReader in(out.Bytes());
    ASSERT_TRUE(copy.LoadState(in, 1));
    EXPECT_EQ(copy.GetPlainText(), "ef");

    // Into the text under edit the characters go in at the caret, with
    // their own look.
    text->MoveCaret(CARET_UP, false);
    text->MoveCaret(CARET_HOME, false);
    host.working.font.nSize = 20;
    CByteReader again(out.Bytes());
    ASSERT_TRUE(text->LoadState(again, 1));
    EXPECT_EQ(Plain(), "ab\refcd\ref");
    EXPECT_EQ(+text->Chars()[3].font.nSize, 72);
}

TEST_F(TextEdit, ArchiveKeepsEverythingAndReplacesMissingFaces) {
    ThreeLines();
    text->EndEdit();
    text->m_nAngle = 30;
    std::vector<UstCharAttr> chars = text->Chars();
    QStringToFixed(QStringLiteral("Face Nobody Has"), &chars[0].font.szFace);
    chars[0].nAdvance = 999;
    // Saved where the locale puts a Korean family's own name first: the
    // face is installed under that name too, and stays.
    QStringToFixed(QStringLiteral("은 돋움"), &chars[3].font.szFace);
    text->SetChars(chars);
    CByteWriter out;
    text->Serialize(out);
    EXPECT_EQ(out.Size(), 24u + 4 + 4 + 8 + 4 + 68 + 4008 + 8 * 118u);

    CQRDObjectText back(&page);
    CByteReader in(out.Bytes());
    ASSERT_TRUE(back.Deserialize(in));
    EXPECT_EQ(back.GetPlainText(), "ab\rcd\ref");
    EXPECT_EQ(back.m_nAngle, 30);
    EXPECT_FLOAT_EQ(back.m_fStoreX, text->m_fStoreX);
    EXPECT_EQ(FixedToQString(&back.Chars()[0].font.szFace), "DejaVu Sans");
    EXPECT_EQ(FixedToQString(&back.Chars()[3].font.szFace), QStringLiteral("은 돋움"));
    EXPECT_NE(+back.Chars()[0].nAdvance, 999);  // measured again
    EXPECT_EQ(std::memcmp(&back.Chars()[1], &text->Chars()[1], sizeof(UstCharAttr)), 0);
    CByteReader cut(out.Bytes().data(), out.Size() - 50);
    CQRDObjectText broken(&page);
    EXPECT_THROW(broken.Deserialize(cut), std::exception);
}

TEST_F(TextEdit, TypingRendersOnlyTheNewCharacter) {
    text->BeginEdit(100, 300, false);
    Type(QString(60, QChar('w')) + "\r" + QString(60, QChar('m')));
    text->Draw();
    text->m_nRendered = 0;
    for (int i = 0; i < 30; ++i)
        text->MoveCaret(CARET_LEFT, false);
    Type("x");
    text->Draw();
    EXPECT_EQ(text->m_nRendered, 1);
    // The characters behind it moved with their blocks.
    const UstFES& moved = text->Glyphs()[100];
    EXPECT_EQ(moved.faceX, static_cast<int>(std::lround(text->Layout().pos[100].x)));
}

TEST_F(TextEdit, ColourOfASelectionTouchesOnlyItsLayers) {
    ThreeLines();
    text->Draw();
    const auto untouched = text->Glyphs()[0].pLayer[UstFES::FACE];
    text->MoveCaret(CARET_LEFT, true);
    text->MoveCaret(CARET_LEFT, true);  // "ef"
    UstFill red = host.working.attr.fill[UstAttr::BODY];
    red.nType = 0;
    red.clrSolid = 0xFFFF0000u;
    ASSERT_TRUE(text->Execute(&red, CMD_BODY_PAINT));
    EXPECT_EQ(+text->Chars()[6].clrFill, 0xFFFF0000u);
    EXPECT_EQ(+text->Chars()[0].clrFill, 0xFFFFFFFFu);
    EXPECT_EQ(text->Glyphs()[0].pLayer[UstFES::FACE], untouched);
    EXPECT_FALSE(text->Glyphs()[6].Rendered());
    // A gradient is the whole object's: every layer goes.
    UstFill gradient = red;
    gradient.nType = 1;
    text->Execute(&gradient, CMD_BODY_PAINT);
    EXPECT_FALSE(text->Glyphs()[0].Rendered());
}

TEST_F(TextEdit, MetricCommandsOnTheRange) {
    ThreeLines();
    text->EndEdit();
    const float bottomBefore = text->Layout().pos[6].y;
    const int32_t size = 36;
    EXPECT_TRUE(text->Execute(&size, CMD_FONT_SIZE));
    EXPECT_FALSE(text->Execute(&size, CMD_FONT_SIZE));  // nothing to change
    EXPECT_LT(text->Layout().pos[6].y, bottomBefore);
    const int advance = text->Chars()[0].nAdvance;
    const int32_t spacing = 20;
    ASSERT_TRUE(text->Execute(&spacing, CMD_TEXT_SPACING));
    EXPECT_EQ(+text->Chars()[0].nAdvance, advance);  // no re-measuring for spacing
    EXPECT_NEAR(text->Layout().pos[1].x - text->Layout().pos[0].x,
                advance + 20 + text->Chars()[1].nOriginX - text->Chars()[0].nOriginX, 0.01);
    const int32_t angle = 0;
    EXPECT_FALSE(text->Execute(&angle, CMD_ROTATION));
    UstEffect effect{};
    effect.nEdge = 2;
    text->Draw();
    ASSERT_TRUE(text->Execute(&effect, 225));
    EXPECT_FALSE(text->Glyphs()[0].Rendered());
}

TEST_F(TextEdit, AStyleWithAMissingFaceChangesOnlySizeAndColour) {
    text->BeginEdit(0, 100, false);
    Type("ab");
    text->EndEdit();
    UstText style{};
    style.character = text->Chars()[0];
    style.character.font.nSize = 30;
    style.character.clrFill = 0xFF123456u;
    QStringToFixed(QStringLiteral("Not Installed Anywhere"), &style.character.font.szFace);
    style.effect.nOutline = 3;
    ASSERT_TRUE(text->Execute(&style, CMD_TEXT_STYLE));
    EXPECT_EQ(+text->Chars()[1].font.nSize, 30);
    EXPECT_EQ(+text->Chars()[1].clrFill, 0xFF123456u);
    EXPECT_EQ(FixedToQString(&text->Chars()[1].font.szFace), "DejaVu Sans");
    EXPECT_EQ(+text->m_effect.nOutline, 3);
    QStringToFixed(QStringLiteral("DejaVu Serif"), &style.character.font.szFace);
    text->Execute(&style, CMD_TEXT_STYLE);
    EXPECT_EQ(FixedToQString(&text->Chars()[1].font.szFace), "DejaVu Serif");
}

TEST_F(TextEdit, SizingByHandlesFitsTheText) {
    text->BeginEdit(0, 200, false);
    Type("Wide");
    text->EndEdit();
    const UstRect before = text->m_rcView;
    UstRect taller = before;
    taller.bottom = before.top + 2 * before.Height();
    text->FitToRect(before, taller);
    // Twice the height doubles the size; the width stays, so the letters
    // are drawn at half their width.
    EXPECT_EQ(+text->Chars()[0].font.nSize, 144);
    EXPECT_NEAR(+text->Chars()[0].metric.nWidth, 50, 3);
    EXPECT_NEAR(text->m_rcView.Width(), before.Width(), before.Width() / 10);
    UstRect narrow = text->m_rcView;
    narrow.right = narrow.left + narrow.Width() / 2;
    const UstRect wide = text->m_rcView;
    text->FitToRect(wide, narrow);
    EXPECT_EQ(+text->Chars()[0].font.nSize, 144);
    EXPECT_NEAR(+text->Chars()[0].metric.nWidth, 25, 3);
    EXPECT_NEAR(text->m_rcView.Width(), narrow.Width(), narrow.Width() / 10);
}

TEST_F(TextEdit, JunkSizesAndLongTextsStayWhole) {
    text->BeginEdit(0, 500, false);
    std::mt19937 rng(3);
    QString junk;
    for (int i = 0; i < 2000; ++i)
        junk += QChar(static_cast<char16_t>(rng() & 0xFFFF));
    junk += QChar(0);
    Type(junk);
    for (const UstCharAttr& c : text->Chars()) {
        EXPECT_TRUE(+c.nChar >= 32 || +c.nChar == 13) << +c.nChar;
        EXPECT_FALSE(+c.nChar >= 0xD800 && +c.nChar <= 0xDFFF);
    }
    text->MoveCaret(CARET_END, true);
    text->DeleteSelection();
    host.working.font.nSize = 1001;
    Type("Big");
    host.working.font.nSize = 1;
    Type("tiny");
    text->Draw();
    EXPECT_EQ(text->CharCount() >= 7, true);
    const int32_t size = 5000;  // out of range: held to the largest size
    text->Execute(&size, CMD_FONT_SIZE);
    EXPECT_EQ(+text->Chars().back().font.nSize, 1001);

    CQRDObjectText big(&page);
    big.BeginEdit(0, 100, false);
    big.InsertString(QString(10000, QChar('e')));
    EXPECT_EQ(big.CharCount(), 10000);
    big.Draw();
    big.InsertChar('!');
    EXPECT_EQ(big.CharCount(), 10001);
}

// Blink goes to the selected characters, or to all when none are. The
// blink's second picture leaves the blinking ones out, or shows them flat
// in the colour; the other line stays as on air.
TEST_F(TextEdit, BlinkingCharactersLeaveTheSecondPictureOrTakeItsColour) {
    ThreeLines();
    text->EndEdit();
    EXPECT_FALSE(text->GetBlink());
    text->m_nSelStart = 3;
    text->m_nSelEnd = 5;
    text->SetBlink(1);
    text->m_nSelStart = text->m_nSelEnd = -1;
    EXPECT_TRUE(text->GetBlink());
    for (int i = 0; i < text->CharCount(); ++i) {
        const uint32_t blink = text->Chars()[static_cast<size_t>(i)].bBlink;
        EXPECT_EQ(blink, i == 3 || i == 4 ? 1u : 0u) << i;
    }
    const int w = page.width, h = page.height;
    std::vector<uint32_t> air(static_cast<size_t>(w) * h), out(air.size()), tinted(air.size());
    text->DrawForPlay(air.data(), w, h);
    text->PrepareBlinkFrame(out.data(), w, h, 0, 0xFF00FF00u);
    text->PrepareBlinkFrame(tinted.data(), w, h, 1, 0xFF00FF00u);
    const auto rowsOf = [&](int index) {
        const UstFES& g = text->Glyphs()[static_cast<size_t>(index)];
        return std::pair{g.rcStroke.top, g.rcStroke.bottom};
    };
    const auto [top1, bottom1] = rowsOf(0);
    const auto [top2, bottom2] = rowsOf(3);
    ASSERT_LT(bottom1, top2);
    int seen = 0, inked = 0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const size_t i = static_cast<size_t>(y) * w + x;
            if (y >= top1 && y < bottom1) {
                EXPECT_EQ(out[i], air[i]);
            }
            if (y >= top2 && y < bottom2 && air[i] >> 24 == 0xFF) {
                ++seen;
                EXPECT_EQ(out[i], 0u);
                EXPECT_EQ(tinted[i], 0xFF00FF00u);
            }
            inked += tinted[i] != 0;
        }
    EXPECT_GT(seen, 20);
    EXPECT_GT(inked, seen);
    text->SetBlink(0);
    EXPECT_FALSE(text->GetBlink());
}

}  // namespace
}  // namespace orv
