// Automation load: a 1920 x 1080 page with a running "h:mm:ss" clock and a
// template text on air at 1080i59.94 through a test board paced in real
// time, while one client sends 1,000 commands a second for 10 seconds to
// the line protocol over loopback (every tenth new data for the page on
// air, the others status requests), pipelined, reading its replies on a
// second thread. Prints the commands sent and answered (target: all), the
// output frames that came late, more than two frame periods after the one
// before (target: 0), and the slowest reply. The process exits with
// status 1 if a target is missed.
#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "bench_view.h"
#include "board/test_board.h"
#include "objects/tc_object.h"
#include "objects/text_object.h"
#include "playout/effect_table.h"
#include "project/page_manager.h"
#include "remote/control_server.h"
#include "remote/remote_play_host.h"

namespace {

using namespace orv;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int W = 1920, H = 1080, RATE = 1000, SECONDS = 10;
constexpr int COMMANDS = RATE * SECONDS;

bool g_missed = false;

int64_t NowNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
        .count();
}

void FillPage(CPageManager& page) {
    auto* text =
        static_cast<CQRDObjectText*>(page.AddObject(std::make_unique<CQRDObjectText>(&page)));
    page.Select(text);
    text->BeginEdit(100, 800, false);
    text->InsertString(QStringLiteral("{{name}} - {{title}}"));
    page.RedrawEditing({});
    text->EndEdit();
    UstDefaultAttr look = MakeDefaultDefaultAttr(u"DejaVu Sans");
    look.font.nSize = 72;
    const UstTCSetting clockSetting{1, 0, 5, 0, 0, 1};
    page.AddObject(std::make_unique<CQRDObjectTC>(&page, look, clockSetting, 1500.0f, 150.0f));
    page.m_effect = {EFFECT_CUT, 10, 0, 0, EFFECT_NONE, 10, 0, 0, 0, 0, 0};
}

// The gaps between the frames the output sends, from its own thread.
class CPaceWatch {
public:
    CPaceWatch(CTestBoard& board, double periodMs) : m_board(board), m_fPeriod(periodMs) {
        board.SetFrameHook([this](const uint32_t*, const CfgVideo&, int) { See(); });
    }
    ~CPaceWatch() { m_board.SetFrameHook({}); }
    int64_t Late() const { return m_nLate.load(); }
    int64_t Frames() const { return m_nFrames.load(); }
    double WorstGapMs() const { return m_fWorst.load(); }

private:
    void See() {
        const Clock::time_point now = Clock::now();
        if (m_nFrames.fetch_add(1) > 0) {
            const double gap = std::chrono::duration<double, std::milli>(now - m_last).count();
            m_fWorst.store(std::max(m_fWorst.load(), gap));
            if (gap > 2 * m_fPeriod) m_nLate.fetch_add(1);
        }
        m_last = now;
    }
    CTestBoard& m_board;
    double m_fPeriod;
    Clock::time_point m_last;
    std::atomic<int64_t> m_nFrames{0}, m_nLate{0};
    std::atomic<double> m_fWorst{0};
};

int Connect(quint16 port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (fd < 0 || ::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        if (fd >= 0) ::close(fd);
        return -1;
    }
    return fd;
}

// Counts the "RES n" lines and the slowest of them against when n was sent.
void ReadReplies(int fd, const std::vector<std::atomic<int64_t>>& sent, std::atomic<int>& answered,
                 double& slowestMs) {
    std::string buffer;
    char chunk[65536];
    while (answered.load() < COMMANDS) {
        const ssize_t n = ::recv(fd, chunk, sizeof chunk, 0);
        if (n <= 0) return;
        buffer.append(chunk, static_cast<size_t>(n));
        size_t start = 0, end = 0;
        while ((end = buffer.find("\r\n", start)) != std::string::npos) {
            const std::string line = buffer.substr(start, end - start);
            start = end + 2;
            if (line.rfind("RES ", 0) != 0) continue;
            const size_t id = std::stoul(line.substr(4));
            if (id < sent.size()) {
                const int64_t ns = NowNs() - sent[id].load();
                slowestMs = std::max(slowestMs, static_cast<double>(ns) / 1e6);
            }
            answered.fetch_add(1);
        }
        buffer.erase(0, start);
    }
}

void BM_CommandsWhileOnAir(benchmark::State& state) {
    CBenchView view;
    CPageManager page(nullptr, &view);
    FillPage(page);
    CfgVideo mode;
    ModeByShortName("1080i5994", mode);
    CTestBoard board(mode, EPlayoutClock::THREAD);
    CRemotePlayHost host(nullptr);
    CPlayEngine engine(0, &board, {W, H}, {300, 170}, &host);
    CControlCore core(engine, QStringLiteral("Bench"), {&page}, nullptr);
    host.SetCore(&core);
    CControlServer server(core);
    UstControlOptions options;
    options.nLinePort = 0;
    options.bHttp = false;
    QString error;
    if (!server.Start(options, error)) {
        std::printf("the server did not start: %s\n", error.toLocal8Bit().constData());
        g_missed = true;
        return;
    }
    int answeredAll = 0;
    int64_t late = 0, frames = 0;
    double slowest = 0, worstGap = 0;
    for (auto _ : state) {
        const FieldValues first{{QStringLiteral("name"), QStringLiteral("Kim")}};
        core.Take("1", &first, true);
        std::this_thread::sleep_for(500ms);  // the cut is on air
        const int fd = Connect(server.LinePort());
        if (fd < 0) break;
        std::vector<std::atomic<int64_t>> sent(COMMANDS);  // when each went, in ns
        std::atomic<int> answered{0};
        std::thread reader([&] { ReadReplies(fd, sent, answered, slowest); });
        CPaceWatch pace(board, static_cast<double>(mode.Duration()) / 10000.0);  // 100 ns units
        const Clock::time_point start = Clock::now();
        for (int i = 0; i < COMMANDS; ++i) {
            std::this_thread::sleep_until(start + std::chrono::microseconds(1000000LL * i / RATE));
            const std::string line = i % 10 == 0 ? "REQ " + std::to_string(i) +
                                                       " CG 1 UPDATE 1 \"{\\\"name\\\":\\\"Name " +
                                                       std::to_string(i) + "\\\"}\"\r\n"
                                                 : "REQ " + std::to_string(i) + " INFO\r\n";
            sent[static_cast<size_t>(i)].store(NowNs());
            if (::send(fd, line.data(), line.size(), MSG_NOSIGNAL) !=
                static_cast<ssize_t>(line.size()))
                break;
        }
        // Every reply within two seconds of the last command.
        const Clock::time_point until = Clock::now() + 2s;
        while (answered.load() < COMMANDS && Clock::now() < until)
            std::this_thread::sleep_for(10ms);
        ::shutdown(fd, SHUT_RDWR);
        reader.join();
        ::close(fd);
        answeredAll = answered.load();
        late = pace.Late();
        frames = pace.Frames();
        worstGap = pace.WorstGapMs();
        engine.Key(PLAYKEY_ERASE);
    }
    server.Stop();
    host.SetCore(nullptr);
    state.counters["sent"] = COMMANDS;
    state.counters["answered"] = answeredAll;
    state.counters["frames"] = static_cast<double>(frames);
    state.counters["late_frames"] = static_cast<double>(late);
    state.counters["worst_gap_ms"] = worstGap;
    state.counters["slowest_reply_ms"] = slowest;
    if (answeredAll != COMMANDS || late != 0 || frames == 0) g_missed = true;
}
BENCHMARK(BM_CommandsWhileOnAir)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (g_missed)
        std::printf(
            "MISSED TARGET: every command answered and no output frame late while "
            "1,000 commands a second came for 10 seconds\n");
    return g_missed ? 1 : 0;
}
