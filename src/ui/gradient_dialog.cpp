#include "ui/gradient_dialog.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

#include "ui/gradient_ctrl.h"

namespace orv {

uint32_t ToColorRef(uint32_t argb) {
    return ((argb >> 16) & 255) | (argb & 0xFF00u) | ((argb & 255) << 16);
}

uint32_t FromColorRef(uint32_t c, uint8_t alpha) {
    return static_cast<uint32_t>(alpha) << 24 | (c & 255) << 16 | (c & 0xFF00u) | ((c >> 16) & 255);
}

CDlgGradient::CDlgGradient(const UstFill& fill, QWidget* parent)
    : QDialog(parent), m_fill(fill), m_pBar(new CGradientCtrl(this)) {
    setWindowTitle(tr("Gradient"));
    m_pColours = new QColorDialog(this);
    m_pColours->setWindowFlags(Qt::Widget);
    m_pColours->setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog);
    m_pKind = new QComboBox(this);
    m_pKind->addItems({tr("Linear"), tr("Path")});
    m_pKind->setCurrentIndex(fill.nGradientKind == 1 ? 1 : 0);
    m_pAngle = new QSpinBox(this);
    m_pAngle->setRange(0, 360);
    m_pAngle->setValue(std::clamp<int>(fill.nAngle, 0, 360));
    m_pAlpha = new QSpinBox(this);
    m_pAlpha->setRange(0, 255);
    m_pOld = new QLabel(tr("Old"), this);
    m_pNew = new QLabel(tr("New"), this);
    for (QLabel* swatch : {m_pOld, m_pNew}) {
        swatch->setMinimumSize(60, 24);
        swatch->setAlignment(Qt::AlignCenter);
    }
    // The first and last stops become the start and end pegs, the others pegs.
    const int count = std::clamp<int>(fill.nStops, 0, 16);
    CGradient& g = m_pBar->Gradient();
    if (count >= 1) {
        g.m_startPeg.colour = ToColorRef(fill.clrStop[0]);
        m_alpha[g.m_startPeg.id] = static_cast<uint8_t>(fill.clrStop[0] >> 24);
    }
    if (count >= 2) {
        g.m_endPeg.colour = ToColorRef(fill.clrStop[count - 1]);
        m_alpha[g.m_endPeg.id] = static_cast<uint8_t>(fill.clrStop[count - 1] >> 24);
    }
    for (int i = 1; i + 1 < count; ++i) {
        const float pos = fill.fPos[i];
        const int index = g.AddPeg(ToColorRef(fill.clrStop[i]), pos);
        if (index >= 0) m_alpha[g.GetPeg(index).id] = static_cast<uint8_t>(fill.clrStop[i] >> 24);
    }
    auto* options = new QFormLayout;
    options->addRow(tr("Gradient type"), m_pKind);
    options->addRow(tr("Angle"), m_pAngle);
    options->addRow(tr("Alpha"), m_pAlpha);
    auto* swatches = new QHBoxLayout;
    swatches->addWidget(m_pOld);
    swatches->addWidget(m_pNew);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pColours);
    layout->addWidget(m_pBar);
    layout->addLayout(options);
    layout->addLayout(swatches);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_pBar, &CGradientCtrl::SelectionChanged, this, &CDlgGradient::OnSelection);
    connect(m_pBar, &CGradientCtrl::PegAdded, this, &CDlgGradient::OnPegAdded);
    connect(m_pBar, &CGradientCtrl::PegsChanged, this, &CDlgGradient::ShowSwatches);
    connect(m_pColours, &QColorDialog::currentColorChanged, this, &CDlgGradient::OnColour);
    connect(m_pAlpha, &QSpinBox::valueChanged, this, [this](int a) {
        const int index = m_pBar->Selected();
        if (index != CGradient::PEG_NONE)
            m_alpha[m_pBar->Gradient().GetPeg(index).id] = static_cast<uint8_t>(a);
        ShowSwatches();
    });
    m_pBar->SetSelected(CGradient::PEG_START);
    ShowSwatches();
}

uint8_t CDlgGradient::AlphaOf(int index) const {
    const auto it = m_alpha.find(m_pBar->Gradient().GetPeg(index).id);
    return it == m_alpha.end() ? 255 : it->second;
}

void CDlgGradient::OnSelection(int index) {
    if (index == CGradient::PEG_NONE) return;
    const uint32_t c = m_pBar->Gradient().GetPeg(index).colour;
    const QSignalBlocker block(m_pColours);
    m_pColours->setCurrentColor(QColor(c & 255, (c >> 8) & 255, (c >> 16) & 255));
    m_pAlpha->setValue(AlphaOf(index));
}

void CDlgGradient::OnColour(const QColor& colour) {
    const uint32_t c =
        static_cast<uint32_t>(colour.red()) | colour.green() << 8 | colour.blue() << 16;
    m_pBar->SetCurrentColour(c);
    const int index = m_pBar->Selected();
    if (index == CGradient::PEG_NONE) return;
    const CPeg& peg = m_pBar->Gradient().GetPeg(index);
    m_pBar->Gradient().SetPeg(index, c, peg.position);
    m_pBar->update();
    ShowSwatches();
}

// A new stop takes the alpha of the stop before it.
void CDlgGradient::OnPegAdded(int index) {
    const CGradient& g = m_pBar->Gradient();
    m_alpha[g.GetPeg(index).id] = AlphaOf(index > 0 ? index - 1 : CGradient::PEG_START);
}

void CDlgGradient::ShowSwatches() {
    auto paint = [](QLabel* label, const UstFill& f) {
        QString style = "background: qlineargradient(x1:0, y1:0, x2:1, y2:0";
        for (int i = 0; i < std::clamp<int>(f.nStops, 0, 16); ++i)
            style += QString(", stop:%1 %2")
                         .arg(f.fPos[i])
                         .arg(QColor::fromRgba(f.clrStop[i]).name(QColor::HexArgb));
        label->setStyleSheet(style + ");");
    };
    paint(m_pOld, m_fill);
    paint(m_pNew, Result());
}

UstFill CDlgGradient::Result() const {
    UstFill f = m_fill;
    const CGradient& g = m_pBar->Gradient();
    int n = 0;
    auto put = [&](int index, float pos) {
        f.fPos[n] = pos;
        f.clrStop[n] = FromColorRef(g.GetPeg(index).colour, AlphaOf(index));
        ++n;
    };
    put(CGradient::PEG_START, 0.0f);
    for (int i = 0; i < g.PegCount(); ++i)
        put(i, g.GetPeg(i).position);
    put(CGradient::PEG_END, 1.0f);
    f.nStops = static_cast<int16_t>(n);
    f.nAngle = static_cast<int16_t>(m_pAngle->value());
    f.nGradientKind = static_cast<uint32_t>(m_pKind->currentIndex());
    f.nType = 1;
    return f;
}

}  // namespace orv
