#pragma once
// A small dialog for the effect sizes of the selection and new objects:
// edge, outline, their softness, and the shadow's kind, offset and softness.

#include <QDialog>

#include "render/attr_records.h"

class QComboBox;
class QSpinBox;

namespace orv {

class CDlgEffectSizes : public QDialog {
    Q_OBJECT
public:
    CDlgEffectSizes(const UstEffect& effect, QWidget* parent = nullptr);
    UstEffect Result() const;

    QSpinBox* m_pEdge;
    QSpinBox* m_pOutline;
    QSpinBox* m_pEdgeSoft;
    QComboBox* m_pShadowType;
    QSpinBox* m_pShadowX;
    QSpinBox* m_pShadowY;
    QSpinBox* m_pShadowSoft;

private:
    UstEffect m_effect;
};

}  // namespace orv
