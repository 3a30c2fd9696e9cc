#pragma once
// A slide show turned into pages: each slide becomes a plain BMP in the
// project's Object/ folder and the background of a page of its own. Nothing
// in the project changes unless every slide made it.

#include <QString>

#include <cstdint>

namespace orv {

class CProjectManager;

enum class ESlideStage { LOADING, EXTRACTING, INSERTING };

// The window around a long import: where it stands, and the Cancel.
class CSlideProgress {
public:
    virtual ~CSlideProgress() = default;
    // `index` counts from 1; LOADING has neither index nor count.
    virtual void Stage(ESlideStage stage, int index, int count) = 0;
    virtual bool Cancelled() = 0;
};

enum class ESlideResult {
    DONE,
    NO_SLIDES,     // nothing to import: no page was made
    NO_CONVERTER,  // LibreOffice is not installed
    CANNOT_READ,   // damaged, protected, or not a presentation
    TIMED_OUT,     // the converter did not finish in time
    CANNOT_WRITE,  // the project has no folder, or a picture could not be stored
    CANCELLED
};

struct UstSlideReport {
    ESlideResult result = ESlideResult::NO_SLIDES;
    int nPages = 0;
    QString strDetail;  // the reason, for the log or the command line
};

// The Debian package that brings the converter.
inline constexpr const char* SLIDE_CONVERTER_PACKAGE = "libreoffice-impress-nogui";

// How long the converter may take before it is stopped.
constexpr int SLIDE_CONVERT_TIMEOUT_MS = 180000;

// The export size of a slide of w x h points: in a 16:9 project its own
// size; in a 4:3 one 640 wide, and 480 high when fitted to the frame, else
// in the slide's proportions.
void SlideExportSize(bool wide, bool fitToSd, int slideWidth, int slideHeight, int* width,
                     int* height);

// PPTX, PPT, ODP or any file LibreOffice presents; a PDF directly. The
// project gets one page per slide at its end, and its undo log is emptied.
UstSlideReport ImportPowerPoint(CProjectManager& project, const QString& path, bool bFitToSd,
                                CSlideProgress* progress = nullptr,
                                int timeoutMs = SLIDE_CONVERT_TIMEOUT_MS);

}  // namespace orv
