#include "import/slide_source.h"

#include <poppler-qt6.h>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <signal.h>
#include <unistd.h>

namespace orv {

namespace {

class CPdfSlides : public CSlideRenderer {
public:
    explicit CPdfSlides(std::unique_ptr<Poppler::Document> doc) : m_doc(std::move(doc)) {
        m_doc->setRenderHint(Poppler::Document::Antialiasing);
        m_doc->setRenderHint(Poppler::Document::TextAntialiasing);
    }
    int SlideCount() const override { return m_doc->numPages(); }
    QSizeF SlideSize(int index) const override {
        const std::unique_ptr<Poppler::Page> page = m_doc->page(index);
        return page ? page->pageSizeF() : QSizeF();
    }
    QImage Render(int index, int width, int height) const override {
        const std::unique_ptr<Poppler::Page> page = m_doc->page(index);
        if (!page || width <= 0 || height <= 0) return {};
        const QSizeF points = page->pageSizeF();
        if (points.width() <= 0 || points.height() <= 0) return {};
        const double xRes = 72.0 * width / points.width();
        const double yRes = 72.0 * height / points.height();
        QImage image = page->renderToImage(xRes, yRes, 0, 0, width, height);
        if (image.isNull()) return {};
        // A page drawn with its own transparency would lose it in a BMP.
        QImage opaque(width, height, QImage::Format_ARGB32);
        opaque.fill(Qt::white);
        QPainter painter(&opaque);
        painter.drawImage(QRect(0, 0, width, height), image);
        painter.end();
        return opaque;
    }

private:
    std::unique_ptr<Poppler::Document> m_doc;
};

// The converter and everything it started, in the group it leads.
void KillGroup(QProcess& process) {
    const qint64 pid = process.processId();
    if (pid > 0) ::kill(-static_cast<pid_t>(pid), SIGKILL);
    process.kill();
    process.waitForFinished(3000);
}

}  // namespace

std::unique_ptr<CSlideRenderer> OpenPdfSlides(const QString& path, QString* error) {
    std::unique_ptr<Poppler::Document> doc = Poppler::Document::load(path);
    if (!doc) {
        if (error) *error = QStringLiteral("not a readable PDF");
        return nullptr;
    }
    if (doc->isLocked()) {
        if (error) *error = QStringLiteral("the file is protected by a password");
        return nullptr;
    }
    return std::make_unique<CPdfSlides>(std::move(doc));
}

QString FindSoffice() {
    for (const char* name : {"soffice", "libreoffice"}) {
        const QString found = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!found.isEmpty()) return found;
    }
    return {};
}

EConvertResult ConvertToPdf(const QString& source, const QString& workFolder, int timeoutMs,
                            QString* pdfPath, QString* error,
                            const std::function<bool()>& cancelled) {
    const QString program = FindSoffice();
    if (program.isEmpty()) return EConvertResult::NO_CONVERTER;
    const QString profile = QDir(workFolder).filePath(QStringLiteral("profile"));
    const QStringList args = {
        QStringLiteral("-env:UserInstallation=") + QUrl::fromLocalFile(profile).toString(),
        QStringLiteral("--headless"),
        QStringLiteral("--norestore"),
        QStringLiteral("--convert-to"),
        QStringLiteral("pdf"),
        QStringLiteral("--outdir"),
        workFolder,
        source};
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setChildProcessModifier([] { ::setsid(); });
    process.start(program, args);
    if (!process.waitForStarted(10000)) {
        if (error) *error = process.errorString();
        return EConvertResult::NO_CONVERTER;
    }
    QElapsedTimer clock;
    clock.start();
    while (!process.waitForFinished(100)) {
        if (cancelled && cancelled()) {
            KillGroup(process);
            return EConvertResult::CANCELLED;
        }
        if (clock.elapsed() > timeoutMs) {
            KillGroup(process);
            if (error) *error = QStringLiteral("LibreOffice did not finish in time");
            return EConvertResult::TIMED_OUT;
        }
    }
    const QString pdf =
        QDir(workFolder).filePath(QFileInfo(source).completeBaseName() + QStringLiteral(".pdf"));
    if (process.exitStatus() != QProcess::NormalExit || !QFileInfo::exists(pdf)) {
        if (error)
            *error = QStringLiteral("LibreOffice could not convert the file: ") +
                     QString::fromLocal8Bit(process.readAll()).trimmed();
        return EConvertResult::FAILED;
    }
    *pdfPath = pdf;
    return EConvertResult::OK;
}

}  // namespace orv
