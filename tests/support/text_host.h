#pragma once
// A stand-in for the editor around a text under edit: default and working
// looks, and a record of what the text asked for. Pages reach it through
// their view or context.

#include "objects/text_object.h"
#include "render/fixed_string.h"

namespace orv::test {

class CFakeTextHost : public CTextEditHost {
public:
    CFakeTextHost() {
        defaults.attr = MakeDefaultAttr();
        defaults.effect = UstEffect{};
        defaults.font.nCharSet = 1;
        defaults.font.nSize = 72;
        QStringToFixed(QStringLiteral("DejaVu Sans"), &defaults.font.szFace);
        defaults.metric.nWidth = 100;
        defaults.attr.fill[UstAttr::BODY].nType = 0;
        defaults.attr.fill[UstAttr::BODY].clrSolid = 0xFFFFFFFFu;
        working = defaults;
    }
    const UstDefaultAttr& DefaultAttr() const override { return defaults; }
    UstDefaultAttr& WorkingAttr() override { return working; }
    void AttrChanged() override { ++attrChanges; }
    void SetCanvasMode(int m) override { mode = m; }
    void ShowCaret(const UstRect& r) override { caret = r; }
    void TextChanged(CQRDObjectText&, const UstRect&) override { ++changes; }
    void CompleteComposition() override { ++completions; }

    UstDefaultAttr defaults{}, working{};
    int attrChanges = 0, mode = 0, changes = 0, completions = 0;
    UstRect caret;
};

}  // namespace orv::test
