#include "play_common.h"

#include <cstdio>
#include <cstdlib>

#include "board/test_board.h"
#include "samples/demo_page.h"

namespace orv::cli {

namespace {

constexpr int SHEET_FRAMES = 24, SHEET_COLUMNS = 6;

}  // namespace

bool ReadNumber(const std::string& text, int low, int high, int& out) {
    char* end = nullptr;
    const long v = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || v < low || v > high) return false;
    out = static_cast<int>(v);
    return true;
}

std::unique_ptr<CCanvasBoard> MakePlayBoard(const UstBoardOptions& options) {
    if (options.output) return std::make_unique<IF_HDExtreme>(options);
    CfgVideo mode = options.mode.value_or(CfgVideo{});
    if (!options.mode) ModeByShortName("1080i5994", mode);
    return std::make_unique<CTestBoard>(mode, EPlayoutClock::FREE);
}

bool ReportFailures(CDecklinkPipeline& pipe, size_t before) {
    for (size_t i = before; i < pipe.Failures().size(); ++i)
        std::fprintf(stderr, "orvantis-cli transition: the output %s failed (%s)\n",
                     pipe.Failures()[i].strOutput.c_str(), pipe.Failures()[i].strReason.c_str());
    return pipe.Failures().size() > before;
}

bool SaveSheet(const std::vector<UstSheetFrame>& frames, const QString& title,
               const std::string& path) {
    const QImage sheet = MakeContactSheet(frames, title, SHEET_FRAMES, SHEET_COLUMNS);
    QString error;
    if (!SavePngFile(sheet, QString::fromLocal8Bit(path.c_str()), &error)) {
        std::fprintf(stderr, "orvantis-cli transition: %s\n", error.toLocal8Bit().constData());
        return false;
    }
    std::printf("Contact sheet written to %s\n", path.c_str());
    return true;
}

}  // namespace orv::cli
