#include <gtest/gtest.h>

#include "project/project_manager.h"
#include "support/rect_object.h"

namespace orv {
namespace {

using test::CFakeView;
using test::CRectObject;

constexpr uint32_t RED = 0xFFFF0000u, BLACK = 0xFF000000u, GREEN = 0xFF00FF00u;

class PageTest : public testing::Test {
protected:
    explicit PageTest(int w = 40, int h = 20) : view(w, h) {}
    void SetUp() override {
        project.AttachAll(&view);
        page = project.GetCurPage();
    }
    CRectObject* Add(UstRect r, uint32_t colour = GREEN, bool rotates = false) {
        return static_cast<CRectObject*>(
            page->AddObject(std::make_unique<CRectObject>(r, colour, rotates)));
    }
    std::vector<CQRDObject*> Order() const {
        std::vector<CQRDObject*> out;
        for (const auto& o : page->Objects())
            out.push_back(o.get());
        return out;
    }
    CFakeView view;
    CProjectManager project;
    CPageManager* page = nullptr;
};

TEST_F(PageTest, DrawsBackdropThenObjectsThenGuides) {
    view.env.nBackKind = BACK_COLOR;
    view.env.clrBack = 0xFF101010u;
    view.env.bSafety = 0;
    CRectObject* obj = Add({0, 0, 30, 20});
    page->RenderCanvas();
    EXPECT_EQ(view.At(35, 2), 0xFF101010u);  // backdrop where nothing stands
    EXPECT_EQ(view.At(2, 2), GREEN);         // the object over it
    EXPECT_EQ(view.At(19, 2), RED);          // the centre cross over the object
    EXPECT_EQ(view.At(20, 2), BLACK);
    page->RenderCanvasExcept(obj);
    EXPECT_EQ(view.At(2, 2), 0xFF101010u);
}

TEST_F(PageTest, UnknownAndInapplicableCommandsChangeNothing) {
    const UstPoint d{1, 0};
    EXPECT_EQ(page->ExecCommand(&d, 901), 0);  // nothing selected
    EXPECT_EQ(page->ExecCommand(nullptr, 805), 0);
    EXPECT_EQ(page->ExecCommand(nullptr, 500), 0);
    EXPECT_EQ(page->ExecCommand(nullptr, 504), 0);
    EXPECT_EQ(page->ExecCommand(nullptr, 1500), 0);
    EXPECT_EQ(page->ExecCommand(&d, 12345), 0);
    EXPECT_EQ(page->m_bModified, 0);
    EXPECT_EQ(project.m_bModified, 0);
}

TEST_F(PageTest, AlignWithOneObject) {
    CRectObject* a = Add({3, 4, 13, 10});
    page->Select(a);
    for (uint32_t id : {500u, 501u, 502u, 503u})
        EXPECT_EQ(page->ExecCommand(nullptr, id), 0) << id;
    EXPECT_EQ(a->m_rcStored, (UstRect{3, 4, 13, 10}));
    EXPECT_EQ(page->ExecCommand(nullptr, 504), 1);
    EXPECT_EQ(a->m_rcStored, (UstRect{15, 7, 25, 13}));  // 40/2 - 10/2, 20/2 - 6/2
    EXPECT_EQ(page->ExecCommand(nullptr, 504), 0);       // nothing moved
    EXPECT_EQ(page->ExecCommand(nullptr, 505), 0);
    EXPECT_EQ(page->ExecCommand(nullptr, 507), 1);  // 11 % of a 1920 frame: 106
    EXPECT_EQ(a->m_rcStored.left, 106);
    EXPECT_EQ(page->ExecCommand(nullptr, 510), 1);
    EXPECT_EQ(a->m_rcStored.bottom, 20 - 106);
    EXPECT_EQ(project.m_bModified, 1);
}

TEST_F(PageTest, AlignToTheOutermostFirstWinningATie) {
    CRectObject* a = Add({0, 0, 10, 5});
    CRectObject* b = Add({5, 2, 20, 6});
    CRectObject* c = Add({2, 9, 20, 12});
    for (CQRDObject* o : {a, b, c})
        page->Select(o);
    EXPECT_EQ(page->ExecCommand(nullptr, 500), 1);
    EXPECT_EQ(a->m_rcStored, (UstRect{10, 0, 20, 5}));
    EXPECT_EQ(c->m_rcStored, (UstRect{2, 9, 20, 12}));
    EXPECT_EQ(page->ExecCommand(nullptr, 503), 1);
    EXPECT_EQ(a->m_rcStored, (UstRect{10, 7, 20, 12}));
    EXPECT_EQ(page->ExecCommand(nullptr, 501), 1);
    EXPECT_EQ(b->m_rcStored.left, 2);
}

TEST_F(PageTest, ZOrderWalks) {
    auto fresh = [this] {
        while (!page->Objects().empty()) {
            page->SelectOnly(page->Objects().front().get());
            page->DeleteSelection();
        }
        return std::vector<CQRDObject*>{Add({0, 0, 1, 1}), Add({0, 0, 1, 1}), Add({0, 0, 1, 1}),
                                        Add({0, 0, 1, 1})};
    };
    struct Case {
        uint32_t id;
        std::vector<int> selected, expected;
    } cases[] = {
        {1500, {1, 3}, {0, 2, 1, 3}}, {1500, {3, 1}, {0, 2, 1, 3}}, {1501, {1, 3}, {1, 3, 0, 2}},
        {1502, {0, 2}, {1, 0, 3, 2}}, {1502, {2, 3}, {0, 1, 3, 2}}, {1503, {1, 3}, {1, 0, 3, 2}},
        {1503, {0}, {0, 1, 2, 3}},
    };
    for (const Case& c : cases) {
        const auto objs = fresh();
        for (int i : c.selected)
            page->Select(objs[static_cast<size_t>(i)]);
        EXPECT_EQ(page->ExecCommand(nullptr, c.id), 1) << c.id;
        std::vector<CQRDObject*> expected;
        for (int i : c.expected)
            expected.push_back(objs[static_cast<size_t>(i)]);
        EXPECT_EQ(Order(), expected) << c.id;
    }
    const auto objs = fresh();
    for (CQRDObject* o : objs)
        page->Select(o);
    for (uint32_t id : {1500u, 1501u, 1502u, 1503u})
        EXPECT_EQ(page->ExecCommand(nullptr, id), 0);
    EXPECT_EQ(Order(), objs);
}

TEST_F(PageTest, NudgeMovesEverySelectedObjectLockedOrNot) {
    CRectObject* a = Add({0, 0, 5, 5});
    CRectObject* b = Add({10, 10, 15, 15});
    b->m_bLocked = 1;
    page->Select(a);
    page->Select(b);
    const UstPoint d{0, -10};
    EXPECT_EQ(page->ExecCommand(&d, 903), 1);
    EXPECT_EQ(a->m_rcStored.top, -10);
    EXPECT_EQ(b->m_rcStored.top, 0);
}

TEST_F(PageTest, DeleteTakesTheSelectionAndForgetsTheEditObject) {
    CRectObject* a = Add({0, 0, 5, 5});
    Add({10, 10, 15, 15});
    project.m_pEditObject = a;
    page->Select(a);
    EXPECT_EQ(page->ExecCommand(nullptr, 805), 1);
    EXPECT_EQ(page->Objects().size(), 1u);
    EXPECT_TRUE(page->Selection().empty());
    EXPECT_EQ(project.m_pEditObject, nullptr);
}

TEST_F(PageTest, PageTypeResetsEffectsAndRollToCutLosesObjects) {
    Add({0, 0, 5, 5});
    page->m_background.bPresent = 1;
    page->m_effect.nInSpeed = 9;
    uint32_t roll = 1, crawl = 2, cut = 0;
    EXPECT_EQ(page->ExecCommand(&roll, 736), 1);
    EXPECT_EQ(view.pageType, 1u);
    EXPECT_EQ(+page->m_effect.nInEffect, 0);
    EXPECT_EQ(+page->m_effect.nOutEffect, 0);
    EXPECT_EQ(+page->m_effect.nInSpeed, 9);
    EXPECT_EQ(page->m_background.bPresent, 0);
    EXPECT_EQ(page->Objects().size(), 1u);  // Cut to Roll keeps them
    EXPECT_EQ(page->ExecCommand(&crawl, 736), 1);
    EXPECT_EQ(+page->m_effect.nInEffect, 1);
    EXPECT_EQ(+page->m_effect.nOutEffect, 1);
    EXPECT_TRUE(page->Objects().empty());
    Add({0, 0, 5, 5});
    EXPECT_EQ(page->ExecCommand(&cut, 736), 1);
    EXPECT_EQ(+page->m_effect.nInEffect, 3);
    EXPECT_EQ(+page->m_effect.nOutEffect, 2);
    EXPECT_TRUE(page->Objects().empty());
    const uint32_t noSuchType = 3;
    EXPECT_EQ(page->ExecCommand(&noSuchType, 736), 0);
    EXPECT_EQ(view.pageType, 0u);
}

TEST_F(PageTest, EffectValuesSetToggleAndCopy) {
    const int32_t five = 5;
    EXPECT_EQ(page->SetEffectValue(&five, 768), 1);
    EXPECT_EQ(+page->m_effect.nInSpeed, 5);
    EXPECT_EQ(page->SetEffectValue(&five, 764), 1);
    EXPECT_EQ(page->SetEffectValue(&five, 800), 1);
    EXPECT_EQ(page->SetEffectValue(&five, 800), 1);
    EXPECT_EQ(+page->m_effect.bInFade, 1);
    EXPECT_EQ(+page->m_effect.bDiscard, 0);
    EXPECT_EQ(page->SetEffectValue(&five, 759), 0);
    EXPECT_EQ(page->SetEffectValue(&five, 801), 0);
    const UstPageBlink blink{1, 0xFF00FF00u, 2};
    EXPECT_EQ(page->SetEffectValue(&blink, 785), 1);
    EXPECT_EQ(+page->m_blink.crColor, 0xFF00FF00u);
    EXPECT_EQ(page->m_bModified, 1);
    EXPECT_EQ(+MakeDefaultPageEffect().nInEffect, 3);
    EXPECT_EQ(+MakeDefaultPageTyping().nSpeed, 4);
}

TEST_F(PageTest, HitTestHandleResults) {
    CQRDObject* hit = nullptr;
    EXPECT_EQ(page->HitTestHandles(5, 5, &hit), HIT_NONE_EMPTY);
    CRectObject* a = Add({2, 2, 12, 12}, GREEN, true);
    CRectObject* b = Add({20, 2, 36, 18});
    EXPECT_EQ(page->HitTestHandles(5, 5, &hit), HIT_NEWLY_SELECTED);
    EXPECT_EQ(hit, a);
    EXPECT_EQ(page->HitTestHandles(6, 6, &hit), HIT_SELECTED);
    EXPECT_EQ(page->HitTestHandles(12, 12, &hit), 4);  // handle 4 at the corner
    EXPECT_EQ(page->HitTestHandles(7, -23, &hit), HIT_ROTATE);
    EXPECT_EQ(page->HitTestHandles(28, 10, &hit), HIT_OTHER);
    EXPECT_EQ(page->Selection(), std::vector<CQRDObject*>{b});
    page->Select(a);
    EXPECT_EQ(page->HitTestHandles(12, 12, &hit), HIT_SIZE_MANY);
    EXPECT_EQ(page->HitTestHandles(28, 10, &hit), HIT_OTHER);
    EXPECT_EQ(page->Selection().size(), 2u);  // several stay selected
    EXPECT_EQ(page->HitTestHandles(15, 17, &hit), HIT_NONE_CLEARED);
    EXPECT_TRUE(page->Selection().empty());
}

TEST_F(PageTest, RollPageScrollNeverShrinks) {
    uint32_t roll = 1;
    page->ExecCommand(&roll, 736);                 // canvas height 20: half screens of 10
    EXPECT_EQ(page->ScrollToRect(0, 2, 5, 8), 0);  // visible already
    EXPECT_EQ(page->ScrollToRect(0, 60, 5, 68), 1);
    EXPECT_EQ(page->m_nScrollHalf, 5);
    EXPECT_EQ(page->m_nScrollHalves, 7);
    EXPECT_EQ(page->m_nScrollY, 50);
    EXPECT_EQ(view.lastTotal, 70);
    EXPECT_EQ(page->ScrollToRect(0, 1, 5, 4), 1);  // back up: the length stays
    EXPECT_EQ(page->m_nScrollHalf, 0);
    EXPECT_EQ(page->m_nScrollHalves, 7);
    EXPECT_EQ(page->m_nScrollY, 0);
    page->SetScrollY(25);
    EXPECT_EQ(page->m_nScrollHalf, 2);
    EXPECT_FLOAT_EQ(page->m_fScrollFrac, 0.5f);
    EXPECT_EQ(page->m_nScrollY, 25);
}

TEST_F(PageTest, StripCountOfScrollPages) {
    int pad = -1;
    EXPECT_EQ(page->GetStripCount(&pad, 1920, 1080), 0);  // empty
    Add({0, 0, 1920, 100});
    EXPECT_EQ(page->GetStripCount(&pad, 1920, 1080), 0);  // a Cut page has no strips
    uint32_t crawl = 2;
    page->ExecCommand(&crawl, 736);
    Add({0, 0, 1920, 100});
    EXPECT_EQ(page->GetStripCount(&pad, 1920, 1080), 2);  // exactly one frame wide
    EXPECT_EQ(pad, 2048 - 3840 % 2048);
    EXPECT_EQ(page->GetStripCount(&pad, 1024, 1080), 2);
    EXPECT_EQ(pad, 2048);  // a multiple of 2048 pads a whole 2048, not 0
    Add({0, 0, 1000, 100});
    EXPECT_EQ(page->GetStripCount(&pad, 1920, 1080), 2);
}

TEST_F(PageTest, PageTextJoinsTextObjectsWithoutEmptyLines) {
    auto text = [this](const char* s) {
        auto* o = Add({0, 0, 1, 1});
        o->m_nType = OBJ_TEXT;
        o->m_strText = s;
    };
    text("One");
    Add({0, 0, 1, 1});  // not text
    text("");
    text("Two\r\r\rThree");
    page->RebuildPageText(false);
    EXPECT_EQ(page->m_strPageText, "One\rTwo\rThree");
}

TEST_F(PageTest, ThumbnailIsScaledAndBottomRowFirst) {
    Add({0, 0, 1920, 540}, RED);  // top half of the frame
    page->UpdateThumbnail();
    const auto& bits = page->ThumbBits();
    ASSERT_EQ(bits.size(), 300u * 170u);
    EXPECT_EQ(bits[0], 0u);           // first row in memory is the bottom
    EXPECT_EQ(bits[169 * 300], RED);  // last row is the top
}

class HdPageTest : public PageTest {
protected:
    HdPageTest() : PageTest(1920, 1080) {}
};

TEST_F(HdPageTest, SafeAreaInsetOf58AtSixPercent) {
    view.env.nSafeInner = 30;
    page->RenderCanvas();
    EXPECT_EQ(view.At(58, 300), BLACK);
    EXPECT_EQ(view.At(59, 300), RED);
    EXPECT_EQ(view.At(300, 58), BLACK);  // the same inset top and bottom
    EXPECT_EQ(view.At(300, 1080 - 59), BLACK);
    EXPECT_NE(view.At(57, 300), BLACK);
}

}  // namespace
}  // namespace orv
