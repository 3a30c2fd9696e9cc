#include "transition_command.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QString>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "board/hd_extreme.h"
#include "board/test_board.h"
#include "contact_sheet.h"
#include "play_common.h"
#include "media/avi_player.h"
#include "playout/effect_table.h"
#include "playout/transition_driver.h"
#include "project/project_manager.h"
#include "project/settings_records.h"
#include "roll_command.h"
#include "samples/demo_page.h"

namespace orv::cli {

namespace {

constexpr int THUMB_WIDTH = 320;

struct UstTransitionArgs {
    std::string strProject, strSheet;
    int nPage = 0;
    int nIn = -1, nOut = -1, nSpeed = 4, nHold = 1;
    bool bFade = false;
    UstBoardOptions board;
};

int Usage(const std::string& why) {
    std::fprintf(stderr,
                 "orvantis-cli transition: %s\n"
                 "usage: orvantis-cli transition PROJECT PAGE --in N --out M [--speed S] "
                 "[--fade] [--hold FRAMES] [--mode MODE] [--sheet OUT.png] [--output DEST]\n",
                 why.c_str());
    return 2;
}

// The gallery's rows only: roll and crawl come with scroll pages.
std::string ReadOption(const std::string& name, const std::string& value, UstTransitionArgs& a) {
    if (name == "in" || name == "out") {
        int& effect = name == "in" ? a.nIn : a.nOut;
        return ReadNumber(value, GALLERY_FIRST_EFFECT, EFFECT_COUNT - 1, effect)
                   ? ""
                   : "--" + name + " takes an effect number from 2 to 34";
    }
    if (name == "speed")
        return ReadNumber(value, 1, SPEED_COUNT, a.nSpeed) ? "" : "--speed takes 1 to 10";
    if (name == "hold")
        return ReadNumber(value, 0, 1000, a.nHold) ? "" : "--hold takes 0 to 1000 frames";
    if (name == "sheet") {
        a.strSheet = value;
        return "";
    }
    std::string error;
    if (!ApplyBoardOption(name, value, a.board, error)) return error;
    return "";
}

std::string ReadArgs(int argc, char** argv, UstTransitionArgs& a) {
    if (argc < 4) return "the project and the page are missing";
    a.strProject = argv[2];
    if (!ReadNumber(argv[3], 1, 1 << 20, a.nPage)) return "the page number counts from 1";
    for (int i = 4; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--fade") {
            a.bFade = true;
            continue;
        }
        if (!arg.starts_with("--") || i + 1 >= argc) return "unexpected argument '" + arg + "'";
        const std::string error = ReadOption(arg.substr(2), argv[++i], a);
        if (!error.empty()) return error;
    }
    if (a.nIn < 0 || a.nOut < 0) return "--in and --out are needed";
    if (a.strSheet.empty() && !a.board.output) return "give --sheet OUT.png or --output DEST";
    return "";
}

// The page to play: the project's page, or the built-in sample page when
// the project is "demo".
struct UstSource {
    CProjectManager project;
    CPageManager* pPage = nullptr;
    int nWidth = DEMO_WIDTH, nHeight = DEMO_HEIGHT;
};

int LoadSource(const UstTransitionArgs& a, UstSource& source) {
    if (a.strProject == "demo") {
        if (a.nPage != 1) return Usage("the built-in sample is one page");
        return 0;
    }
    const QString path = QString::fromLocal8Bit(a.strProject.c_str());
    QString error;
    if (!source.project.LoadProject(path, &error)) {
        std::fprintf(stderr, "orvantis-cli: %s: %s\n", a.strProject.c_str(),
                     error.toLocal8Bit().constData());
        return 1;
    }
    source.pPage = source.project.GetPage(a.nPage - 1);
    if (!source.pPage)
        return Usage("the project has " + std::to_string(source.project.PageCount()) + " pages");
    source.nWidth = source.project.m_nWidth;
    source.nHeight = source.project.m_nHeight;
    return 0;
}

// The mode asked for, else the first standard one of the page's size, else
// 1080i59.94. A project's page is drawn at its own size: in a mode of
// another size it plays as the engine plays such a page, at that size from
// the corner of the frame. The sample page is a picture and is scaled.
void ChooseMode(UstTransitionArgs& a, const UstSource& source) {
    for (const char* name : {"1080i5994", "720p5994", "ntsc", "pal"}) {
        CfgVideo mode;
        if (a.board.mode || !ModeByShortName(name, mode)) continue;
        if (mode.nWidth == source.nWidth && mode.nHeight == source.nHeight) a.board.mode = mode;
    }
    if (!a.board.mode) {
        a.board.mode.emplace();
        ModeByShortName("1080i5994", *a.board.mode);
    }
    const CfgVideo& mode = *a.board.mode;
    if (source.pPage && (mode.nWidth != source.nWidth || mode.nHeight != source.nHeight))
        std::fprintf(stderr,
                     "orvantis-cli transition: the page is %d x %d and plays at that size in "
                     "the corner of the %d x %d frame\n",
                     source.nWidth, source.nHeight, mode.nWidth, mode.nHeight);
}

// The sample page scaled to the frame, premultiplied.
void DrawSample(CTransitionDriver& driver) {
    QImage page = RenderDemoPage();
    const int w = driver.Width(), h = driver.Height();
    if (page.width() != w || page.height() != h)
        page = page.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    page = page.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    std::vector<uint32_t> pixels(static_cast<size_t>(w) * h);
    for (int y = 0; y < h; ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(page.constScanLine(y));
        std::copy(row, row + w, pixels.begin() + static_cast<ptrdiff_t>(y) * w);
    }
    driver.SetPicture(pixels.data());
}

QString SheetTitle(const UstTransitionArgs& a, const CCanvasBoard& board, int frames) {
    const CfgVideo mode = RecordVideoMode(board.Record());
    return QString("%1 page %2   in: %3 (%4)   out: %5 (%6)   speed %7%8   %9   %10 frames")
        .arg(QFileInfo(QString::fromLocal8Bit(a.strProject.c_str())).fileName())
        .arg(a.nPage)
        .arg(EffectName(a.nIn, LANG_ENGLISH))
        .arg(a.nIn)
        .arg(EffectName(a.nOut, LANG_ENGLISH))
        .arg(a.nOut)
        .arg(a.nSpeed)
        .arg(a.bFade ? "   fade" : "")
        .arg(QString::fromStdString(ModeShortName(mode)))
        .arg(frames);
}

// The page in, held, and out, every frame the output sends collected on
// the way. Answers whether an output failed.
bool PlayStages(CCanvasBoard& board, CTransitionDriver& driver, const UstTransitionArgs& a,
                CFrameCollector& collector) {
    CDecklinkPipeline& pipe = *board.GetPipeline();
    const size_t failuresBefore = pipe.Failures().size();
    const int observer =
        pipe.AddFrameObserver([&](const uint32_t* frame, const CfgVideo& format, int level) {
            collector.Add(frame, format, level);
        });
    UstPageEffect request{a.nIn, a.nSpeed, 0, a.bFade, a.nOut, a.nSpeed, 0, a.bFade, 0, 0, 0};
    collector.SetStage("in");
    driver.TakeIn(RequestWords(request));
    collector.SetStage("on air");
    for (int i = 0; i < a.nHold; ++i)
        board.WaitFrame();
    collector.SetStage("out");
    driver.TakeOut(RequestWords(request));
    if (a.board.output) pipe.WaitFrames();  // the last frames reach the file
    pipe.RemoveFrameObserver(observer);
    return ReportFailures(pipe, failuresBefore);
}

}  // namespace

int PlayTransition(int argc, char** argv) {
    for (int i = 4; i < argc; ++i)
        if (std::string(argv[i]) == "--roll") return PlayRoll(argc, argv);
    UstTransitionArgs a;
    const std::string error = ReadArgs(argc, argv, a);
    if (!error.empty()) return Usage(error);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArgc = 1;
    QGuiApplication app(qtArgc, argv);
    QuietMediaDiagnostics();
    UstSource source;
    if (const int code = LoadSource(a, source)) return code;
    ChooseMode(a, source);
    std::unique_ptr<CCanvasBoard> board = MakePlayBoard(a.board);
    const UstSize frame = board->GetFrameSize(0);
    CTransitionDriver driver(*board, source.pPage ? source.nWidth : frame.cx,
                             source.pPage ? source.nHeight : frame.cy);
    if (source.pPage)
        driver.RenderPage(*source.pPage);
    else
        DrawSample(driver);
    CFrameCollector collector(THUMB_WIDTH);
    const bool failed = PlayStages(*board, driver, a, collector);
    board->Close();
    const std::vector<UstSheetFrame> frames = collector.Frames();
    std::printf("%d frames: in %s, out %s at speed %d\n", static_cast<int>(frames.size()),
                EffectName(a.nIn, LANG_ENGLISH).toUtf8().constData(),
                EffectName(a.nOut, LANG_ENGLISH).toUtf8().constData(), a.nSpeed);
    if (!a.strSheet.empty() &&
        !SaveSheet(frames, SheetTitle(a, *board, static_cast<int>(frames.size())), a.strSheet))
        return 1;
    return failed ? 1 : 0;
}

}  // namespace orv::cli
