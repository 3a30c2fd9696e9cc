#include "roll_command.h"

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
#include "playout/effect_table.h"
#include "playout/scroll_speed.h"
#include "playout/transition_driver.h"
#include "project/project_manager.h"
#include "samples/demo_credits.h"
#include "samples/demo_page.h"

namespace orv::cli {

namespace {

constexpr int THUMB_WIDTH = 320;

struct UstRollArgs {
    std::string strProject, strSheet;
    int nPage = 0;
    int nSpeed = -1, nRepeat = -1, nDelay = -1;
    std::vector<int> faster, slower;  // output frames at which the key is pressed
    UstBoardOptions board;
};

int Usage(const std::string& why) {
    std::fprintf(stderr,
                 "orvantis-cli transition --roll: %s\n"
                 "usage: orvantis-cli transition PROJECT PAGE --roll [--speed S] [--repeat N] "
                 "[--delay SECONDS] [--faster FRAME]... [--slower FRAME]... [--mode MODE] "
                 "[--sheet OUT.png] [--output DEST]\n",
                 why.c_str());
    return 2;
}

std::string ReadOption(const std::string& name, const std::string& value, UstRollArgs& a) {
    int n = 0;
    if (name == "speed")
        return ReadNumber(value, 1, SPEED_COUNT, a.nSpeed) ? "" : "--speed takes 1 to 10";
    if (name == "repeat")
        return ReadNumber(value, 0, 1000, a.nRepeat) ? "" : "--repeat takes 0 to 1000";
    if (name == "delay")
        return ReadNumber(value, 0, 3600, a.nDelay) ? "" : "--delay takes 0 to 3600 seconds";
    if (name == "faster" || name == "slower") {
        if (!ReadNumber(value, 1, 1 << 24, n)) return "--" + name + " takes a frame number";
        (name == "faster" ? a.faster : a.slower).push_back(n);
        return "";
    }
    if (name == "sheet") {
        a.strSheet = value;
        return "";
    }
    std::string error;
    if (!ApplyBoardOption(name, value, a.board, error)) return error;
    return "";
}

std::string ReadArgs(int argc, char** argv, UstRollArgs& a) {
    if (argc < 4) return "the project and the page are missing";
    a.strProject = argv[2];
    if (!ReadNumber(argv[3], 1, 1 << 20, a.nPage)) return "the page number counts from 1";
    for (int i = 4; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--roll") continue;
        if (!arg.starts_with("--") || i + 1 >= argc) return "unexpected argument '" + arg + "'";
        const std::string error = ReadOption(arg.substr(2), argv[++i], a);
        if (!error.empty()) return error;
    }
    if (a.strSheet.empty() && !a.board.output) return "give --sheet OUT.png or --output DEST";
    return "";
}

// The page to roll: a Roll or Crawl page of a project, or a built-in one,
// 'demo 1' end credits that roll and 'demo 2' the same crawling.
CPageManager* TakePage(const UstRollArgs& a, CProjectManager& project, CPageManager& demo, int w,
                       int h) {
    if (a.strProject == "demo" && (a.nPage == 1 || a.nPage == 2)) {
        UstCreditsPlan plan;
        plan.bCrawl = a.nPage == 2;
        demo.m_nPageType = plan.bCrawl ? 2 : 1;
        demo.m_effect.nInEffect = demo.m_effect.nOutEffect =
            plan.bCrawl ? EFFECT_CRAWL : EFFECT_ROLL;
        demo.m_effect.nInSpeed = 6;
        for (auto& o : BuildCredits(plan, w, h))
            demo.AddObject(std::move(o));
        return &demo;
    }
    QString error;
    if (!project.LoadProject(QString::fromLocal8Bit(a.strProject.c_str()), &error)) {
        std::fprintf(stderr, "orvantis-cli: %s: %s\n", a.strProject.c_str(),
                     error.toLocal8Bit().constData());
        return nullptr;
    }
    CPageManager* page = a.nPage <= project.PageCount() ? project.GetPage(a.nPage - 1) : nullptr;
    if (!page || !page->IsScrollPage()) {
        std::fprintf(stderr, "orvantis-cli: %s: page %d is not a Roll or Crawl page\n",
                     a.strProject.c_str(), a.nPage);
        return nullptr;
    }
    return page;
}

// The keys pressed at their frames, from the thread that sends the frames
// out, as the operator's keys come from another thread than the drawing.
void PressKeys(const UstRollArgs& a, CPageManager* page, int frame) {
    for (int f : a.faster)
        if (f == frame) Faster(page);
    for (int f : a.slower)
        if (f == frame) Slower(page);
}

QString SheetTitle(const UstRollArgs& a, const CPageManager& page, const CCanvasBoard& board,
                   int speed, int frames) {
    const CfgVideo mode = RecordVideoMode(board.Record());
    return QString("%1 page %2   %3   speed %4%5   %6   %7 frames")
        .arg(QString::fromStdString(a.strProject))
        .arg(a.nPage)
        .arg(page.m_nPageType == 2 ? "crawl" : "roll")
        .arg(speed)
        .arg(a.faster.empty() && a.slower.empty() ? "" : " (keys pressed)")
        .arg(QString::fromStdString(ModeShortName(mode)))
        .arg(frames);
}

}  // namespace

int PlayRoll(int argc, char** argv) {
    UstRollArgs a;
    const std::string error = ReadArgs(argc, argv, a);
    if (!error.empty()) return Usage(error);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArgc = 1;
    QGuiApplication app(qtArgc, argv);
    std::unique_ptr<CCanvasBoard> board = MakePlayBoard(a.board);
    const UstSize size = board->GetFrameSize(0);
    CProjectManager project;
    CPageManager demo;
    CPageManager* page = TakePage(a, project, demo, size.cx, size.cy);
    if (!page) return 1;
    if (a.nSpeed > 0) page->m_effect.nInSpeed = a.nSpeed;
    if (a.nRepeat >= 0) page->m_effect.nRepeat = a.nRepeat;
    if (a.nDelay >= 0) page->m_effect.nScrollDelay = a.nDelay;
    const int speed = page->m_effect.nInSpeed;
    CFrameCollector collector(THUMB_WIDTH);
    collector.SetStage(page->m_nPageType == 2 ? "crawl" : "roll");
    CDecklinkPipeline& pipe = *board->GetPipeline();
    const size_t failuresBefore = pipe.Failures().size();
    std::atomic<int> frame{0};
    const int observer =
        pipe.AddFrameObserver([&](const uint32_t* pixels, const CfgVideo& format, int level) {
            collector.Add(pixels, format, level);
            PressKeys(a, page, ++frame);
        });
    CTransitionDriver driver(*board);
    driver.PlayScroll(*page);
    if (a.board.output) pipe.WaitFrames();
    pipe.RemoveFrameObserver(observer);
    const std::vector<UstSheetFrame> frames = collector.Frames();
    const bool failed = ReportFailures(pipe, failuresBefore);
    board->Close();
    const UstStepStats& stats = driver.Engine().Stats();
    std::printf("%d frames: %s of %d strips at speed %d, ending at speed %d; %d strips late\n",
                static_cast<int>(frames.size()), page->m_nPageType == 2 ? "crawl" : "roll",
                driver.Engine().m_nStrips - 1, speed, page->m_effect.nInSpeed, stats.nLateStrips);
    if (a.strSheet.empty()) return failed ? 1 : 0;
    const QString title = SheetTitle(a, *page, *board, speed, static_cast<int>(frames.size()));
    if (!SaveSheet(frames, title, a.strSheet)) return 1;
    return failed ? 1 : 0;
}

}  // namespace orv::cli
