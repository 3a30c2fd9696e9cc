#include "ui/retr_text_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>

#include "project/page_manager.h"

namespace orv {

namespace {

// The preview lays out only the head of a long text: the first page is what
// it shows.
constexpr int PREVIEW_CHARS = 4000;

}  // namespace

CStaticView::CStaticView(QWidget* parent) : QWidget(parent) {
    setMinimumSize(320, 180);
}

void CStaticView::SetImage(const QImage& frame, const UstTextImport& values) {
    m_image = frame;
    m_values = values;
    update();
}

void CStaticView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(144, 153, 174));
    if (m_image.isNull()) return;
    QSize fit = m_image.size().scaled(size(), Qt::KeepAspectRatio);
    const QRect target(QPoint((width() - fit.width()) / 2, (height() - fit.height()) / 2), fit);
    p.fillRect(target, Qt::black);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(target, m_image);
    const double sx = double(target.width()) / m_image.width();
    const double sy = double(target.height()) / m_image.height();
    p.setPen(QPen(QColor(255, 200, 0), 1, Qt::DashLine));
    const auto x = [&](double v) { return target.left() + v * sx; };
    p.drawLine(QPointF(x(m_values.fLeft), target.top()),
               QPointF(x(m_values.fLeft), target.bottom()));
    p.drawLine(QPointF(x(m_values.nRight), target.top()),
               QPointF(x(m_values.nRight), target.bottom()));
    const double y = target.top() + m_values.fTop * sy;
    p.drawLine(QPointF(target.left(), y), QPointF(target.right(), y));
}

CDlgRetrText::CDlgRetrText(const UstDefaultAttr& look, int frameWidth, int frameHeight,
                           QWidget* parent)
    : QDialog(parent), m_look(look), m_nWidth(frameWidth), m_nHeight(frameHeight) {
    setWindowTitle(tr("Import Text File"));
    m_surface = QImage(frameWidth, frameHeight, QImage::Format_ARGB32_Premultiplied);
    m_previewTimer.setSingleShot(true);
    m_previewTimer.setInterval(120);
    connect(&m_previewTimer, &QTimer::timeout, this, &CDlgRetrText::UpdatePreview);
    BuildControls();
    UpdatePreview();
}

QSlider* CDlgRetrText::MakeSlider(Qt::Orientation orientation, int maximum, int value, int id) {
    auto* slider = new QSlider(orientation);
    slider->setObjectName(QStringLiteral("slider%1").arg(id));
    slider->setRange(0, maximum);
    slider->setValue(value);
    connect(slider, &QSlider::valueChanged, this, [this] { m_previewTimer.start(); });
    return slider;
}

void CDlgRetrText::BuildControls() {
    const UstTextImport defaults = DefaultTextImport(m_nWidth, m_nHeight);
    auto* grid = new QGridLayout(this);
    m_pPreview = new CStaticView;
    m_fLeft = defaults.fLeft;
    m_fTop = defaults.fTop;
    m_pBaseline = MakeSlider(Qt::Vertical, m_nHeight, static_cast<int>(m_fTop), 1049);
    m_pBaseline->setInvertedAppearance(true);  // top of the slider is the top of the frame
    m_pLeft = MakeSlider(Qt::Horizontal, m_nWidth, static_cast<int>(m_fLeft), 1050);
    connect(m_pBaseline, &QSlider::valueChanged, this, [this](int v) { m_fTop = float(v); });
    connect(m_pLeft, &QSlider::valueChanged, this, [this](int v) { m_fLeft = float(v); });
    m_pRight = MakeSlider(Qt::Horizontal, m_nWidth, defaults.nRight, 1053);
    grid->addWidget(m_pPreview, 0, 0, 1, 2);
    grid->addWidget(m_pBaseline, 0, 2);
    grid->addWidget(new QLabel(tr("Left margin:")), 1, 0);
    grid->addWidget(m_pLeft, 1, 1);
    grid->addWidget(new QLabel(tr("Right margin:")), 2, 0);
    grid->addWidget(m_pRight, 2, 1);
    m_pLines = new QComboBox;
    for (int n = 1; n <= 10; ++n)
        m_pLines->addItem(QString::number(n), n);
    m_pLines->setCurrentIndex(DEFAULT_LINES_ROW);
    connect(m_pLines, &QComboBox::currentIndexChanged, this, [this] { m_previewTimer.start(); });
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Lines Per Page:")));
    row->addWidget(m_pLines);
    auto* open = new QPushButton(tr("Open..."));
    connect(open, &QPushButton::clicked, this, &CDlgRetrText::ChooseFile);
    row->addWidget(open);
    m_pAppend = new QCheckBox(tr("Append Pages"));
    row->addWidget(m_pAppend);
    row->addStretch();
    grid->addLayout(row, 3, 0, 1, 3);
    m_pEdit = new QPlainTextEdit;
    m_pEdit->setMinimumHeight(140);
    connect(m_pEdit, &QPlainTextEdit::textChanged, this, [this] { m_previewTimer.start(); });
    grid->addWidget(m_pEdit, 4, 0, 1, 3);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(tr("Insert"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    grid->addWidget(buttons, 5, 0, 1, 3);
}

UstTextImport CDlgRetrText::Values() const {
    UstTextImport values;
    // The edit box ends lines with a line feed alone; the import takes them.
    values.text = m_pEdit->toPlainText();
    values.fLeft = m_fLeft;
    values.fTop = m_fTop;
    values.nRight = m_pRight->value();
    values.nLinesPerPage = m_pLines->currentData().toInt();
    values.bAppend = m_pAppend->isChecked() ? 1 : 0;
    return values;
}

void CDlgRetrText::SetText(const QString& text) {
    m_pEdit->setPlainText(text);
    UpdatePreview();
}

bool CDlgRetrText::OpenFile(const QString& path) {
    QString text;
    if (!ReadTextFile(path, text)) return false;
    SetText(text);
    return true;
}

void CDlgRetrText::ChooseFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open"), {}, tr("Text File (*.txt)"));
    if (!path.isEmpty()) OpenFile(path);
}

void CDlgRetrText::UpdatePreview() {
    m_previewTimer.stop();
    UstTextImport values = Values();
    values.text = values.text.left(PREVIEW_CHARS);
    m_surface.fill(0);
    std::vector<UstCharPiece> pieces = TextImportPieces(values, m_look);
    if (!pieces.empty() && !pieces.front().empty()) {
        CPageManager page;
        auto text = std::make_unique<CQRDObjectText>(&page);
        text->m_attr = m_look.attr;
        text->m_effect = m_look.effect;
        text->SetChars(std::move(pieces.front()));
        text->SetOrigin(values.fLeft, values.fTop);
        page.AddObject(std::move(text));
        page.DrawToImage(reinterpret_cast<uint32_t*>(m_surface.bits()), m_nWidth, m_nHeight);
    }
    m_pPreview->SetImage(m_surface, values);
}

}  // namespace orv
