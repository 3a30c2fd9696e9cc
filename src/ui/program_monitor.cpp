#include "ui/program_monitor.h"

#include <QColorDialog>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QMenu>
#include <QPainter>
#include <QSettings>

#include <algorithm>
#include <cstring>

#include "board/decklink_pipeline.h"

namespace orv {

namespace {

constexpr int REFRESH_MS = 20;
constexpr int CHECKER = 16;
const QRgb CHECKER_LIGHT = qRgb(255, 255, 255), CHECKER_DARK = qRgb(204, 204, 204);
const QColor SURROUND(48, 48, 48);

}  // namespace

CProgramMonitor::CProgramMonitor(CDecklinkPipeline* pipeline, QWidget* parent)
    : QWidget(parent, Qt::Window), m_pPipeline(pipeline) {
    setObjectName("ProgramMonitor");
    setWindowTitle(tr("Program Monitor"));
    resize(640, 360);
    QSettings settings;
    m_eBackground = static_cast<EBackground>(
        std::clamp(settings.value("ProgramMonitor/Background", 0).toInt(), 0, 2));
    m_colour = QColor::fromRgba(settings.value("ProgramMonitor/Colour", 0xFF000000u).toUInt());
    m_strPicture = settings.value("ProgramMonitor/Picture").toString();
    m_picture = m_strPicture.isEmpty() ? QImage() : QImage(m_strPicture);
    if (m_eBackground == BACK_PICTURE && m_picture.isNull()) m_eBackground = BACK_CHECKER;
    // The playout thread never waits for the monitor: a frame that comes
    // while the last one is being taken is skipped.
    if (m_pPipeline)
        m_nObserver = m_pPipeline->AddFrameObserver(
            [shared = m_shared](const uint32_t* frame, const CfgVideo& format, int level) {
                std::unique_lock lock(shared->mutex, std::try_to_lock);
                if (!lock.owns_lock()) return;
                shared->frame.assign(frame,
                                     frame + static_cast<size_t>(format.nWidth) * format.nHeight);
                shared->nWidth = format.nWidth;
                shared->nHeight = format.nHeight;
                shared->nLevel = level;
                ++shared->nSequence;
            });
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (isVisible() && TakeFrame()) update();
    });
    m_timer.start(REFRESH_MS);
}

CProgramMonitor::~CProgramMonitor() {
    if (m_pPipeline) m_pPipeline->RemoveFrameObserver(m_nObserver);
}

bool CProgramMonitor::TakeFrame() {
    std::lock_guard lock(m_shared->mutex);
    if (m_shared->nSequence == m_nShown || m_shared->frame.empty()) return false;
    m_nShown = m_shared->nSequence;
    const int w = m_shared->nWidth, h = m_shared->nHeight;
    if (m_frame.width() != w || m_frame.height() != h)
        m_frame = QImage(w, h, QImage::Format_ARGB32_Premultiplied);
    std::memcpy(m_frame.bits(), m_shared->frame.data(), static_cast<size_t>(w) * h * 4);
    m_nLevel = m_shared->nLevel;
    return true;
}

QImage CProgramMonitor::Compose(const QImage& frame, int keyLevel, const QImage& background) {
    QImage out = background.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&out);
    painter.setOpacity(std::clamp(keyLevel, 0, 255) / 255.0);
    painter.drawImage(out.rect(), frame);
    return out;
}

QImage CProgramMonitor::Composed() const {
    return Compose(m_frame, m_nLevel, BackgroundFor(m_frame.size()));
}

QImage CProgramMonitor::BackgroundFor(QSize size) const {
    QImage back(size, QImage::Format_ARGB32_Premultiplied);
    if (m_eBackground == BACK_COLOUR) {
        back.fill(m_colour);
    } else if (m_eBackground == BACK_PICTURE && !m_picture.isNull()) {
        QPainter p(&back);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(back.rect(), m_picture);
    } else {
        for (int y = 0; y < size.height(); ++y) {
            auto* line = reinterpret_cast<QRgb*>(back.scanLine(y));
            for (int x = 0; x < size.width(); ++x)
                line[x] = ((x / CHECKER + y / CHECKER) & 1) ? CHECKER_DARK : CHECKER_LIGHT;
        }
    }
    return back;
}

void CProgramMonitor::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    Q_EMIT Hidden();
}

// The frame at its pixel aspect, as large as the window allows.
void CProgramMonitor::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), SURROUND);
    if (m_frame.isNull()) return;
    float ax = 1.0f, ay = 1.0f;
    PixelAspectFor(m_frame.height(), ax, ay);
    const QSizeF shown(m_frame.width() * ax, m_frame.height() * ay);
    const QSize fit = shown.scaled(size(), Qt::KeepAspectRatio).toSize();
    const QRect target(QPoint((width() - fit.width()) / 2, (height() - fit.height()) / 2), fit);
    painter.drawImage(target.topLeft(), BackgroundFor(target.size()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(m_nLevel / 255.0);
    painter.drawImage(target, m_frame);
}

void CProgramMonitor::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction(tr("Checkerboard"), this, [this] { SetBackground(BACK_CHECKER); });
    menu.addAction(tr("Colour..."), this, &CProgramMonitor::ChooseColour);
    menu.addAction(tr("Picture..."), this, &CProgramMonitor::ChoosePicture);
    menu.exec(event->globalPos());
}

void CProgramMonitor::SetBackground(EBackground kind, QColor colour, const QString& picture) {
    if (kind == BACK_COLOUR && colour.isValid()) m_colour = colour;
    if (kind == BACK_PICTURE) {
        QImage image(picture);
        if (image.isNull()) return;
        m_picture = image;
        m_strPicture = picture;
    }
    m_eBackground = kind;
    SaveBackground();
    update();
}

void CProgramMonitor::ChooseColour() {
    const QColor colour = QColorDialog::getColor(m_colour, this);
    if (colour.isValid()) SetBackground(BACK_COLOUR, colour);
}

void CProgramMonitor::ChoosePicture() {
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Monitor Background"), m_strPicture,
                                     tr("Pictures (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)"));
    if (!file.isEmpty()) SetBackground(BACK_PICTURE, {}, file);
}

void CProgramMonitor::SaveBackground() const {
    QSettings settings;
    settings.setValue("ProgramMonitor/Background", static_cast<int>(m_eBackground));
    settings.setValue("ProgramMonitor/Colour", static_cast<uint>(m_colour.rgba()));
    settings.setValue("ProgramMonitor/Picture", m_strPicture);
}

}  // namespace orv
