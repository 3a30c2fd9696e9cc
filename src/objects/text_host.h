#pragma once
// What a text under edit needs from the application around it: the look new
// characters take, the canvas mode, the caret, and the redraws. The editor
// implements it once; tests use a stand-in.

#include "render/geometry.h"
#include "render/text_records.h"

namespace orv {

class CQRDObjectText;

enum ECanvasMode : int { MODE_SELECT = 0, MODE_ROTATE = 1, MODE_TEXT = 2, MODE_SHAPE = 3 };

class CTextEditHost {
public:
    virtual ~CTextEditHost() = default;
    virtual const UstDefaultAttr& DefaultAttr() const = 0;
    // What the ribbon shows and typing uses.
    virtual UstDefaultAttr& WorkingAttr() = 0;
    virtual void AttrChanged() = 0;
    virtual void SetCanvasMode(int mode) = 0;
    // The caret in canvas pixels; an empty rectangle hides it.
    virtual void ShowCaret(const UstRect& canvasRect) = 0;
    // The text changed under edit: draw the page from what it keeps, the
    // text on top, and show the union of before and the text's area now.
    virtual void TextChanged(CQRDObjectText& text, const UstRect& windowBefore) = 0;
    // The input method should finish the composition it runs.
    virtual void CompleteComposition() = 0;
};

}  // namespace orv
