// Drawing shapes on the canvas with the mouse, and editing a shape's
// control point, as a user does it.
#include <gtest/gtest.h>

#include <QMenuBar>
#include <QTest>

#include "canvas_fixture.h"
#include "objects/shape_object.h"
#include "render/shape_path.h"
#include "ui/effect_dialog.h"

#include <QComboBox>
#include <QSpinBox>

namespace orv {
namespace {

using test::CanvasTest;

class ShapeCanvasTest : public CanvasTest {
protected:
    void Choose(int kind) {
        auto* action = frame->findChild<QAction*>(QString("shape%1").arg(kind));
        ASSERT_NE(action, nullptr);
        action->trigger();
        ASSERT_EQ(frame->m_nCanvasMode, MODE_SHAPE);
    }
    CQRDObjectShape* Only() const {
        if (page->Objects().size() != 1) return nullptr;
        return dynamic_cast<CQRDObjectShape*>(page->Objects().front().get());
    }
};

TEST_F(ShapeCanvasTest, ACircleIsDrawnSquareAndSelected) {
    Choose(SHAPE_CIRCLE);
    Drag(At(40, 30), At(140, 70));
    CQRDObjectShape* circle = Only();
    ASSERT_NE(circle, nullptr);
    EXPECT_EQ(circle->m_nKind, SHAPE_CIRCLE);
    EXPECT_EQ(circle->m_rcView.Width(), 100);
    EXPECT_EQ(circle->m_rcView.Height(), 100);
    EXPECT_EQ(page->Selection(), std::vector<CQRDObject*>{circle});
    EXPECT_EQ(frame->m_nCanvasMode, MODE_SELECT);
    EXPECT_EQ(page->m_bModified, 1);
    // It is on the page image in the working face colour.
    const uint32_t face = frame->m_WorkAttr.attr.fill[UstAttr::BODY].clrSolid;
    const int w = view->FitWidth();
    const uint32_t centre = view->Surface()[static_cast<size_t>(80) * w + 90];
    if (frame->m_WorkAttr.attr.fill[UstAttr::BODY].nType == 0) {
        EXPECT_EQ(centre, face);
    }
}

TEST_F(ShapeCanvasTest, AClickWithoutMovingMakesNothing) {
    Choose(0);
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, At(50, 50));
    EXPECT_TRUE(page->Objects().empty());
    EXPECT_EQ(frame->m_nCanvasMode, MODE_SELECT);
}

TEST_F(ShapeCanvasTest, EditShapeDragsTheYellowHandleAndResizingCarriesIt) {
    Choose(11);  // an arrow: handle at half the width, a quarter of the height
    Drag(At(40, 40), At(240, 120));
    CQRDObjectShape* arrow = Only();
    ASSERT_NE(arrow, nullptr);
    const QPointF before = arrow->ControlPoint();
    auto* edit = frame->findChild<QAction*>("cmd8001");
    ASSERT_NE(edit, nullptr);
    edit->trigger();
    EXPECT_TRUE(arrow->Editing());
    const QPointF handle = arrow->ControlHandleCentre();
    ASSERT_NEAR(handle.x(), 140, 1);
    Drag(At(140, 60), At(180, 70));
    EXPECT_NEAR(arrow->ControlPoint().x(), before.x() + 40 * 100.0 / zoom, 2);
    EXPECT_NEAR(arrow->ControlPoint().y(), before.y() + 10 * 100.0 / zoom, 2);
    // A click elsewhere drops the selection, and the edit with it.
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier,
                      At(view->FitWidth() - 5, view->FitHeight() - 5));
    EXPECT_FALSE(arrow->Editing());
}

TEST_F(ShapeCanvasTest, TheEffectsDialogReadsBackItsRanges) {
    UstEffect e{};
    e.nEdge = 99;  // beyond the range: shown and read back as 30
    e.nShadowType = 1;
    CDlgEffectSizes dlg(e);
    dlg.m_pShadowX->setValue(-7);
    const UstEffect out = dlg.Result();
    EXPECT_EQ(out.nEdge, 30);
    EXPECT_EQ(out.nShadowType, 1);
    EXPECT_EQ(out.nShadowX, -7);
}

}  // namespace
}  // namespace orv
