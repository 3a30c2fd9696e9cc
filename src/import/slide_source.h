#pragma once
// Slides as pictures. A presentation is turned into a PDF by LibreOffice
// running headless, and the PDF's pages are rendered by Poppler; a PDF is
// taken as it is. What the import needs is only each slide as a picture of
// a given size.

#include <QImage>
#include <QSizeF>
#include <QString>

#include <functional>
#include <memory>

namespace orv {

class CSlideRenderer {
public:
    virtual ~CSlideRenderer() = default;
    virtual int SlideCount() const = 0;
    // In points; empty for an index out of range.
    virtual QSizeF SlideSize(int index) const = 0;
    // The slide stretched over width x height, opaque; null on failure.
    virtual QImage Render(int index, int width, int height) const = 0;
};

// Null, with the reason, when the file is no PDF, is damaged or locked.
std::unique_ptr<CSlideRenderer> OpenPdfSlides(const QString& path, QString* error = nullptr);

// The LibreOffice program, or empty when it is not installed.
QString FindSoffice();

enum class EConvertResult { OK, NO_CONVERTER, FAILED, TIMED_OUT, CANCELLED };

// The presentation converted into a PDF inside `workFolder`, with a profile
// of its own there (so that several conversions may run at once, as any
// user). The converter is stopped, with all it started, when it outlives
// the time limit or `cancelled` answers true.
EConvertResult ConvertToPdf(const QString& source, const QString& workFolder, int timeoutMs,
                            QString* pdfPath, QString* error,
                            const std::function<bool()>& cancelled = {});

}  // namespace orv
