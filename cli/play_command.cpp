#include "play_command.h"

#include <QDir>
#include <QGuiApplication>
#include <QString>

#include <poll.h>
#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "board/hd_extreme.h"
#include "media/avi_player.h"
#include "playout/effect_request.h"
#include "playout/play_engine.h"
#include "project/page_data_file.h"
#include "project/project_manager.h"
#include "remote/control_server.h"
#include "remote/remote_play_host.h"
#include "timer_commands.h"

namespace orv::cli {

namespace {

using Clock = std::chrono::steady_clock;

struct UstPlayArgs {
    std::string strProject;
    int nFirst = 1, nLast = 0;  // pages counted from 1; 0: the last one
    bool bAuto = false, bIgnoreDiscarded = false;
    int nRepeat = 1;
    UstBoardOptions board;
    // --control: the pages wait for the control server's commands.
    bool bControl = false;
    UstControlOptions control;
};

constexpr const char* USAGE =
    "usage: orvantis-cli play PROJECT [--pages A-B] [--auto] [--repeat N] "
    "[--ignore-discarded] [--mode MODE] [--queue N] [--control [ADDR:]PORT] --output "
    "(card|file:PATH.mkv|srt://HOST:PORT|null)\n"
    "with --control, ORVANTIS_CONTROL_TOKEN holds the token the clients must give\n"
    "standard input, one a line, for running timers: pause, resume, restart, set SECONDS\n";

// A whole number within [low, high], nothing around it.
bool ReadNumber(std::string_view text, int low, int high, int& out) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return false;
    if (value < low || value > high) return false;
    out = value;
    return true;
}

std::string ReadPages(const std::string& value, UstPlayArgs& a) {
    const size_t dash = value.find('-');
    const bool ok = dash == std::string::npos
                        ? ReadNumber(value, 1, 1 << 20, a.nFirst)
                        : ReadNumber(value.substr(0, dash), 1, 1 << 20, a.nFirst) &&
                              ReadNumber(value.substr(dash + 1), 1, 1 << 20, a.nLast);
    if (dash == std::string::npos) a.nLast = a.nFirst;
    return ok ? "" : "--pages takes A-B or A, pages counted from 1";
}

std::string ReadControl(const std::string& value, UstPlayArgs& a) {
    QString error;
    a.bControl = ReadControlArgument(QString::fromStdString(value), a.control, error);
    return a.bControl ? "" : error.toStdString();
}

std::string ReadArgs(int argc, char** argv, UstPlayArgs& a) {
    if (argc < 3) return "the project is missing";
    a.strProject = argv[2];
    for (int i = 3; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--auto" || arg == "--ignore-discarded") {
            (arg == "--auto" ? a.bAuto : a.bIgnoreDiscarded) = true;
            continue;
        }
        if (!arg.starts_with("--") || i + 1 >= argc) return "unexpected argument '" + arg + "'";
        const std::string name = arg.substr(2), value = argv[++i];
        std::string error;
        if (name == "pages")
            error = ReadPages(value, a);
        else if (name == "control")
            error = ReadControl(value, a);
        else if (name == "repeat")
            error = ReadNumber(value, 0, 10000, a.nRepeat) ? "" : "--repeat takes 0 to 10000";
        else
            ApplyBoardOption(name, value, a.board, error);
        if (!error.empty()) return error;
    }
    if (!a.board.output) return "--output is needed";
    return "";
}

// The mode of the project's frame size, 1080i59.94 when none has it.
CfgVideo ModeForFrame(int width, int height) {
    CfgVideo mode;
    for (const char* name : {"1080i5994", "720p5994", "ntsc", "pal"})
        if (ModeByShortName(name, mode) && mode.nWidth == width && mode.nHeight == height)
            return mode;
    ModeByShortName("1080i5994", mode);
    return mode;
}

const char* StateName(int state) {
    static const char* const NAMES[] = {"idle", "load", "in",   "on air", "blink",
                                        "live", "out",  "gone", "end"};
    return state >= 0 && state <= PLAY_END ? NAMES[state] : "?";
}

// What the engine tells, queued for the main thread with the time it came.
class CPlayReport : public IPlayHost {
public:
    struct UstEntry {
        double fSeconds;
        int nState, nParam;
    };
    explicit CPlayReport(Clock::time_point start) : m_start(start) {}
    void PostPlayState(int state, int param) override {
        const double seconds = std::chrono::duration<double>(Clock::now() - m_start).count();
        std::lock_guard lock(m_mutex);
        m_entries.push_back({seconds, state, param});
        m_cv.notify_all();
    }
    void SetPlayMode(int) override {}
    // The entries that came within `wait`, or before it.
    std::deque<UstEntry> Take(std::chrono::milliseconds wait) {
        std::unique_lock lock(m_mutex);
        m_cv.wait_for(lock, wait, [&] { return !m_entries.empty(); });
        return std::exchange(m_entries, {});
    }

private:
    Clock::time_point m_start;
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::deque<UstEntry> m_entries;
};

// SIGINT and SIGTERM are read from a descriptor rather than caught, so the
// request to stop is an ordinary event of the main loop. Blocked before any
// thread starts, so that every thread inherits the mask.
class CStopSignals {
public:
    CStopSignals() {
        sigemptyset(&m_set);
        sigaddset(&m_set, SIGINT);
        sigaddset(&m_set, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &m_set, nullptr);
        m_fd = signalfd(-1, &m_set, SFD_NONBLOCK | SFD_CLOEXEC);
    }
    ~CStopSignals() {
        if (m_fd >= 0) close(m_fd);
    }
    CStopSignals(const CStopSignals&) = delete;
    CStopSignals& operator=(const CStopSignals&) = delete;
    bool Requested() {
        if (m_bRequested || m_fd < 0) return m_bRequested;
        pollfd p{m_fd, POLLIN, 0};
        m_bRequested = poll(&p, 1, 0) > 0;
        return m_bRequested;
    }

private:
    sigset_t m_set;
    int m_fd = -1;
    bool m_bRequested = false;
};

class CPlayRun {
public:
    CPlayRun(const UstPlayArgs& a, CProjectManager& project, CStopSignals& signals)
        : m_args(a), m_project(project), m_signals(signals), m_report(Clock::now()) {}

    // 0 when the list is used up or the run was stopped by a signal.
    int Run();

private:
    bool PrepareList();
    // Prints what came; false when the engine said the list is done.
    bool Print(std::chrono::milliseconds wait);
    // The timer commands that came on the standard input.
    void ReadCommands();
    // Waits in pieces, printing; false when a signal came.
    bool Hold(int seconds);
    void PlayManually();
    void PlayAutomatically();
    // Commands from the network instead of the delays; false when the
    // server cannot start.
    bool ServeControl();

    const UstPlayArgs& m_args;
    CProjectManager& m_project;
    CStopSignals& m_signals;
    CPlayReport m_report;
    CRemotePlayHost m_host{&m_report};
    UstPlayList m_list;
    std::unique_ptr<CPlayEngine> m_engine;
    CLineReader m_input{STDIN_FILENO};
    int m_nPosts = 0, m_nLoaded = -1;
    bool m_bDone = false;
};

bool CPlayRun::PrepareList() {
    const int count = m_project.PageCount();
    // An end before the start is set to the start, as Run does in the list pane.
    const bool backwards = m_args.nLast && m_args.nLast < m_args.nFirst;
    const int first = std::min(m_args.nFirst, count);
    const int last = backwards ? first : std::min(m_args.nLast ? m_args.nLast : count, count);
    if (backwards)
        std::fprintf(stderr,
                     "orvantis-cli play: the last page comes before the first; page %d plays "
                     "alone\n",
                     first);
    if (count == 0) {
        std::fprintf(stderr, "orvantis-cli play: the project has no page\n");
        return false;
    }
    // The list machine has no range: it plays to the end of its list.
    const int listed = m_args.bAuto ? count : last;
    for (int i = 0; i < listed; ++i)
        m_list.m_pPages.push_back(m_project.GetPage(i));
    m_list.m_nMode = m_args.bAuto ? PLAYLIST_AUTO : PLAYLIST_MANUAL;
    m_list.m_nStart = first - 1;
    m_list.m_nEnd = last - 1;
    m_list.m_nCurrent = first - 1;
    m_list.m_nRepeat = m_args.nRepeat;
    m_list.m_bIgnoreDiscard = m_args.bIgnoreDiscarded;
    return true;
}

void CPlayRun::ReadCommands() {
    std::string line;
    while (m_engine && m_input.Next(line)) {
        UstTimerControl control;
        bool none = false;
        if (!ParseTimerCommand(line, control, none))
            std::fprintf(stderr, "orvantis-cli play: not a timer command: %s\n", line.c_str());
        else if (!none)
            m_engine->TimerControl(control);
    }
}

bool CPlayRun::Print(std::chrono::milliseconds wait) {
    ReadCommands();
    for (const CPlayReport::UstEntry& e : m_report.Take(wait)) {
        ++m_nPosts;
        if (e.nState == PLAY_LOAD) m_nLoaded = e.nParam;
        if (e.nState == PLAY_IDLE)
            std::printf("%9.3f s  page -  %s\n", e.fSeconds, StateName(e.nState));
        else
            std::printf("%9.3f s  page %d  %s\n", e.fSeconds, e.nParam + 1, StateName(e.nState));
        if (m_args.bAuto && e.nState == PLAY_IDLE && e.nParam == 0) m_bDone = true;
    }
    std::fflush(stdout);
    return !m_bDone;
}

bool CPlayRun::Hold(int seconds) {
    const auto until = Clock::now() + std::chrono::seconds(std::max(seconds, 0));
    do {
        if (m_signals.Requested()) return false;
        Print(std::chrono::milliseconds(CPlayEngine::DELAY_PIECE_MS));
    } while (Clock::now() < until);
    return true;
}

// Run pressed as an operator would: each time the machine rests, after the
// page's own delay on air, or the one after it left.
void CPlayRun::PlayManually() {
    while (!m_signals.Requested()) {
        const int postsBefore = m_nPosts;
        m_engine->Key(PLAYKEY_RUN);
        while (m_nPosts == postsBefore || m_engine->IsLocked()) {
            if (m_signals.Requested()) return;
            Print(std::chrono::milliseconds(CPlayEngine::DELAY_PIECE_MS));
        }
        Print(std::chrono::milliseconds(0));
        const int state = m_engine->State();
        if (state == PLAY_END || state == PLAY_IDLE) break;
        CPageManager* page = m_list.m_pPages[static_cast<size_t>(std::max(m_nLoaded, 0))];
        const int field = state == PLAY_LOAD ? REQ_OUT_DELAY : REQ_IN_DELAY;
        if (!Hold(LoadRequestWord(RequestWords(page->m_effect), field))) return;
    }
    m_bDone = true;
}

void CPlayRun::PlayAutomatically() {
    m_engine->Key(PLAYKEY_RUN);
    while (Print(std::chrono::milliseconds(CPlayEngine::DELAY_PIECE_MS)))
        if (m_signals.Requested()) return;
}

bool CPlayRun::ServeControl() {
    std::vector<CPageManager*> pages;
    for (int i = 0; i < m_project.PageCount(); ++i)
        pages.push_back(m_project.GetPage(i));
    QString error;
    // A damaged data file is left as it is, not overwritten at the end.
    const bool loaded = LoadPageData(m_project.Folder(), pages, &error);
    if (!loaded) std::fprintf(stderr, "orvantis-cli play: %s\n", error.toLocal8Bit().constData());
    CControlCore core(*m_engine, QDir(m_project.Folder()).dirName(), pages, &m_list);
    CControlServer server(core);
    m_host.SetCore(&core);
    if (!server.Start(m_args.control, error)) {
        m_host.SetCore(nullptr);
        std::fprintf(stderr, "orvantis-cli play: %s\n", error.toLocal8Bit().constData());
        return false;
    }
    std::printf("control: lines on %s port %u, HTTP on port %u\n",
                m_args.control.address.toString().toLocal8Bit().constData(),
                unsigned{server.LinePort()}, unsigned{server.HttpPort()});
    std::fflush(stdout);
    while (!m_signals.Requested())
        Print(std::chrono::milliseconds(CPlayEngine::DELAY_PIECE_MS));
    server.Stop();
    m_host.SetCore(nullptr);
    // What automation sent stays for the next run, beside the project.
    if (loaded && !SavePageData(m_project.Folder(), pages, &error))
        std::fprintf(stderr, "orvantis-cli play: %s\n", error.toLocal8Bit().constData());
    return true;
}

int CPlayRun::Run() {
    if (!PrepareList()) return 1;
    UstBoardOptions options = m_args.board;
    if (!options.mode) options.mode = ModeForFrame(m_project.m_nWidth, m_project.m_nHeight);
    IF_HDExtreme board(options);
    CDecklinkPipeline& pipe = *board.GetPipeline();
    m_engine = std::make_unique<CPlayEngine>(
        0, &board, UstSize{m_project.m_nWidth, m_project.m_nHeight}, UstSize{0, 0}, &m_host);
    m_engine->SetPlayList(&m_list);
    bool served = true;
    if (m_args.bControl)
        served = ServeControl();
    else if (m_args.bAuto)
        PlayAutomatically();
    else
        PlayManually();
    if (!m_bDone) {
        std::printf("stopped\n");
        m_engine->Key(PLAYKEY_STOP);
    }
    m_engine.reset();
    Print(std::chrono::milliseconds(0));
    pipe.WaitFrames();  // the last frames reach the file
    board.Close();
    bool failed = false;
    for (const UstOutputFailure& f : pipe.Failures()) {
        std::fprintf(stderr, "orvantis-cli play: the output %s failed (%s)\n", f.strOutput.c_str(),
                     f.strReason.c_str());
        failed = true;
    }
    return failed || !served ? 1 : 0;
}

}  // namespace

int PlayProject(int argc, char** argv) {
    UstPlayArgs a;
    const std::string error = ReadArgs(argc, argv, a);
    if (!error.empty()) {
        std::fprintf(stderr, "orvantis-cli play: %s\n%s", error.c_str(), USAGE);
        return 2;
    }
    CStopSignals signals;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArgc = 1;
    QGuiApplication app(qtArgc, argv);
    QuietMediaDiagnostics();
    CProjectManager project;
    QString loadError;
    if (!project.LoadProject(QString::fromLocal8Bit(a.strProject.c_str()), &loadError)) {
        std::fprintf(stderr, "orvantis-cli play: %s: %s\n", a.strProject.c_str(),
                     loadError.toLocal8Bit().constData());
        return 1;
    }
    CPlayRun run(a, project, signals);
    return run.Run();
}

}  // namespace orv::cli
