// A Roll page cut into strips from its objects' live state: what the edit
// canvas shows of the page at zoom 100 and what the strips put on air agree
// row for row, for every kind of object; objects that lie off the page or
// have no size draw nothing; the state lives only for the run.
#include <gtest/gtest.h>

#include <algorithm>

#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "project/project_manager.h"
#include "render/tga_file.h"
#include "support/rect_object.h"
#include "support/text_host.h"

namespace orv {
namespace {

constexpr int W = 320, H = 180;

int CountNonZero(const std::vector<uint32_t>& bits) {
    return static_cast<int>(bits.size() -
                            static_cast<size_t>(std::count(bits.begin(), bits.end(), 0u)));
}

class PageScroll : public testing::Test {
protected:
    PageScroll() : view(W, H) {}
    void SetUp() override {
        project.AttachAll(&view);
        page = project.GetCurPage();
        view.env.nBackKind = BACK_COLOR;
        view.env.clrBack = 0;
        view.env.bSafety = 0;
        view.env.bGrid = 0;
    }
    // Text, a shape, a picture and a group, each across a strip's end.
    void AddEveryKind() {
        auto* text =
            static_cast<CQRDObjectText*>(page->AddObject(std::make_unique<CQRDObjectText>(page)));
        text->BeginEdit(20, 150, false);
        text->InsertString("Roll\rcredits");
        page->EndTextEdit();
        const UstAttr attr = MakeDefaultAttr();
        UstEffect effect = MakeDefaultEffect();
        effect.nShadowSoft = 4;
        page->AddShape(3, {40, 330, 200, 400}, attr, effect);
        auto picture = std::make_unique<CQRDObjectPicture>(page, "p.png", 2, 2, attr, effect);
        UstPixelImage source;
        source.bits.reset(new uint32_t[4]{0xFF00FF00u, 0x80800000u, 0xFF0000FFu, 0xFFFFFFFFu});
        source.width = source.height = 2;
        picture->SetSource(std::move(source));
        picture->m_rcStored = {100, 100, 300, 250};
        picture->UpdateView();
        page->AddObject(std::move(picture));
        page->AddShape(7, {10, 500, 300, 520}, attr, effect);
        page->SelectOnly(page->Objects().back().get());
        page->GroupSelection();
    }
    std::vector<uint32_t> Strip(int index) {
        std::vector<uint32_t> strip(static_cast<size_t>(W) * H, 0);
        page->DrawStrip(index, strip.data(), W, H);
        return strip;
    }
    std::vector<uint32_t> CanvasAt(int index) {
        page->SetScrollY(index * H);
        page->RenderCanvas();
        return view.canvas;
    }
    void BeginRun() {
        page->BeginScroll(W, H);
        std::vector<uint32_t> bits(static_cast<size_t>(W) * H, 0);
        page->DrawForPlay(bits.data(), nullptr, W, H);
        EXPECT_EQ(CountNonZero(bits), 0);  // strips come later
    }

    test::CFakeTextHost host;
    test::CFakeView view;
    CProjectManager project;
    CPageManager* page = nullptr;
};

TEST_F(PageScroll, RollStripsMatchTheEditCanvasRowForRow) {
    page->m_nPageType = 1;
    AddEveryKind();
    BeginRun();
    ASSERT_EQ(page->GetStripCount(nullptr, W, H), 3);
    for (int i = 0; i < 3; ++i) {
        const std::vector<uint32_t> strip = Strip(i);
        EXPECT_GT(CountNonZero(strip), 0) << i;
        EXPECT_TRUE(strip == CanvasAt(i)) << "strip " << i;
    }
    page->EndScroll();
    EXPECT_EQ(CountNonZero(Strip(1)), 0);  // the live state is gone
}

// Objects wholly before the page's first row or column, across the roll
// beyond its width, or without any size, leave every strip as it was.
TEST_F(PageScroll, ObjectsOffThePageOrOfNoSizeDrawNothing) {
    page->m_nPageType = 1;
    AddEveryKind();
    BeginRun();
    std::vector<std::vector<uint32_t>> before;
    for (int i = 0; i < 3; ++i)
        before.push_back(Strip(i));
    page->EndScroll();
    const UstAttr attr = MakeDefaultAttr();
    const UstEffect effect = MakeDefaultEffect();
    for (const UstRect& r :
         {UstRect{-5000, -5000, -4800, -4800}, UstRect{-300, 100, -40, 200},
          UstRect{5000, 50, 5200, 250}, UstRect{60, 60, 60, 60}, UstRect{60, 60, 200, 60}}) {
        auto shape = std::make_unique<CQRDObjectShape>(page, 3, r, attr, effect);
        shape->m_rcStored = r;
        page->AddObject(std::move(shape));
    }
    BeginRun();
    EXPECT_EQ(page->GetStripCount(nullptr, W, H), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(Strip(i) == before[static_cast<size_t>(i)]) << "strip " << i;
    page->EndScroll();
}

}  // namespace
}  // namespace orv
