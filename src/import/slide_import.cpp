#include "import/slide_import.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <memory>
#include <vector>

#include "import/slide_source.h"
#include "media/timestamp_name.h"
#include "project/project_manager.h"
#include "render/image_file.h"
#include "render/pixels.h"

namespace orv {

namespace {

class CNoProgress : public CSlideProgress {
public:
    void Stage(ESlideStage, int, int) override {}
    bool Cancelled() override { return false; }
};

UstSlideReport Failure(ESlideResult result, const QString& detail) {
    return {result, 0, detail};
}

// A prefix under which no picture of this import exists yet.
QString FreePrefix(const QString& folder) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (attempt > 0) QThread::msleep(1);
        const QString prefix = MakeTimestampName();
        if (!QFileInfo::exists(folder + prefix + QStringLiteral("1.BMP"))) return prefix;
    }
    return MakeTimestampName();
}

// Files and pages of an import not yet given to the project, taken away
// again unless the import is kept.
struct UstSlideWork {
    std::vector<QString> files;
    std::vector<std::unique_ptr<CPageManager>> pages;
    bool kept = false;
    ~UstSlideWork() {
        if (kept) return;
        for (const auto& page : pages)
            QFile::remove(page->ThumbPath());
        for (const QString& file : files)
            QFile::remove(file);
    }
};

UstSlideReport ReadSource(const QString& path, QTemporaryDir& work, CSlideProgress& progress,
                          int timeoutMs, std::unique_ptr<CSlideRenderer>* slides) {
    QString pdf = path, error;
    if (QFileInfo(path).suffix().compare(QStringLiteral("pdf"), Qt::CaseInsensitive) != 0) {
        const EConvertResult converted = ConvertToPdf(path, work.path(), timeoutMs, &pdf, &error,
                                                      [&progress] { return progress.Cancelled(); });
        switch (converted) {
            case EConvertResult::OK:
                break;
            case EConvertResult::NO_CONVERTER:
                return Failure(ESlideResult::NO_CONVERTER, error);
            case EConvertResult::TIMED_OUT:
                return Failure(ESlideResult::TIMED_OUT, error);
            case EConvertResult::CANCELLED:
                return Failure(ESlideResult::CANCELLED, {});
            case EConvertResult::FAILED:
                return Failure(ESlideResult::CANNOT_READ, error);
        }
    }
    *slides = OpenPdfSlides(pdf, &error);
    if (!*slides) return Failure(ESlideResult::CANNOT_READ, error);
    return {ESlideResult::DONE, 0, {}};
}

bool ExtractSlides(const CSlideRenderer& slides, const QString& folder, const QString& prefix,
                   int width, int height, CSlideProgress& progress, UstSlideWork& work) {
    const int count = slides.SlideCount();
    for (int i = 1; i <= count; ++i) {
        progress.Stage(ESlideStage::EXTRACTING, i, count);
        if (progress.Cancelled()) return false;
        const QImage image = slides.Render(i - 1, width, height);
        const QString file = folder + prefix + QString::number(i) + QStringLiteral(".BMP");
        if (image.isNull()) return false;
        work.files.push_back(file);
        if (!SaveBmp24(reinterpret_cast<const uint32_t*>(image.constBits()), width, height, 96.0,
                       96.0, file))
            return false;
    }
    return true;
}

}  // namespace

void SlideExportSize(bool wide, bool fitToSd, int slideWidth, int slideHeight, int* width,
                     int* height) {
    if (wide) {
        *width = slideWidth;
        *height = slideHeight;
        return;
    }
    *width = 640;
    *height = fitToSd || slideWidth <= 0 ? 480 : 640 * slideHeight / slideWidth;
}

UstSlideReport ImportPowerPoint(CProjectManager& project, const QString& path, bool bFitToSd,
                                CSlideProgress* progress, int timeoutMs) {
    CNoProgress none;
    CSlideProgress& report = progress ? *progress : none;
    const QString folder = project.ObjectFolder();
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return Failure(ESlideResult::CANNOT_WRITE, QStringLiteral("the project has no folder"));
    if (!QFileInfo(path).isFile())
        return Failure(ESlideResult::CANNOT_READ, QStringLiteral("no such file"));
    report.Stage(ESlideStage::LOADING, 0, 0);
    QTemporaryDir temp;
    if (!temp.isValid()) return Failure(ESlideResult::CANNOT_WRITE, temp.errorString());
    std::unique_ptr<CSlideRenderer> slides;
    const UstSlideReport read = ReadSource(path, temp, report, timeoutMs, &slides);
    if (read.result != ESlideResult::DONE) return read;
    const int count = slides->SlideCount();
    if (count <= 0) return Failure(ESlideResult::NO_SLIDES, {});
    const QSizeF points = slides->SlideSize(0);
    int width = 0, height = 0;
    SlideExportSize(project.m_bWide != 0, bFitToSd, RoundToInt(static_cast<float>(points.width())),
                    RoundToInt(static_cast<float>(points.height())), &width, &height);
    if (width <= 0 || height <= 0 || width > 8192 || height > 8192)
        return Failure(ESlideResult::CANNOT_READ, QStringLiteral("the slides have no usable size"));
    const QString prefix = FreePrefix(folder);
    UstSlideWork work;
    if (!ExtractSlides(*slides, folder, prefix, width, height, report, work))
        return report.Cancelled()
                   ? Failure(ESlideResult::CANCELLED, {})
                   : Failure(ESlideResult::CANNOT_WRITE, QStringLiteral("a slide was not stored"));
    for (int i = 1; i <= count; ++i) {
        report.Stage(ESlideStage::INSERTING, i, count);
        if (report.Cancelled()) return Failure(ESlideResult::CANCELLED, {});
        auto page = std::make_unique<CPageManager>(&project, project.m_pView);
        // The picture is in the folder already: taken by its name, not copied.
        page->TakeBackgroundFile(prefix + QString::number(i) + QStringLiteral(".BMP"));
        work.pages.push_back(std::move(page));
    }
    work.kept = true;
    project.AdoptPages(std::move(work.pages), true, -1);
    return {ESlideResult::DONE, count, {}};
}

}  // namespace orv
