#pragma once

#include <QDialog>

#include <map>

#include "render/attr_records.h"

class QColorDialog;
class QComboBox;
class QLabel;
class QSpinBox;

namespace orv {

class CGradientCtrl;

// The "Gradient" dialog: a colour chooser over the gradient bar, the kind,
// the angle and the alpha of the selected stop, with the old and new look.
class CDlgGradient : public QDialog {
    Q_OBJECT
public:
    CDlgGradient(const UstFill& fill, QWidget* parent = nullptr);
    // The stops read back: the start colour at 0, the pegs in order, the end
    // colour at 1, each joined with its alpha.
    UstFill Result() const;
    CGradientCtrl* Bar() const { return m_pBar; }

private:
    void OnSelection(int index);
    void OnColour(const QColor& colour);
    void OnPegAdded(int index);
    void ShowSwatches();
    uint8_t AlphaOf(int index) const;

    UstFill m_fill;
    CGradientCtrl* m_pBar;
    QColorDialog* m_pColours;
    QComboBox* m_pKind;
    QSpinBox* m_pAngle;
    QSpinBox* m_pAlpha;
    QLabel* m_pOld;
    QLabel* m_pNew;
    std::map<uint32_t, uint8_t> m_alpha;  // by peg id
};

// 0xAARRGGBB and the gradient's 0x00BBGGRR order.
uint32_t ToColorRef(uint32_t argb);
uint32_t FromColorRef(uint32_t colorref, uint8_t alpha);

}  // namespace orv
