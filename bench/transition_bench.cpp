// Every row of the gallery in and out at speed 10 and speed 1 on 1080i59.94
// through the test board, with the key fading. Targets:
//   the largest time of one sub-step, as a ratio to memcpy of a frame  <= 1.5
//     where a routine writes a whole frame's worth at once (the cut family,
//     the first half of a checkerboard, the last step of a box)        <= 2.0
//   the frames each phase took, against the count that the step arithmetic
//   gives                                                          equal
// Each sub-step's time is the median of its times over a few runs, and the
// baseline the median of cold copies (from memory, as on air, where the
// renderer's work runs between two frames) timed in turns with those runs:
// a moment taken by another process moves neither, and a machine whose
// speed changes during the benchmark moves both alike.
// Counters per row: "ratio" and "whole" (the sub-steps allowed 2.0),
// "frames" and "expected", and "memcpy_ms", the baseline. The process exits with status 1 if
// a figure misses its target.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "board/test_board.h"
#include "playout/effect_table.h"
#include "playout/transition_driver.h"
#include "project/settings_records.h"

namespace {

using namespace orv;

constexpr int W = 1920, H = 1080;
constexpr size_t N = static_cast<size_t>(W) * H;
constexpr double TARGET = 1.5, WHOLE_TARGET = 2.0;

std::vector<std::string> g_misses;

// Fills the caches with something else, read only: what was there before
// is gone, and nothing of it is left to write back.
void EvictCaches() {
    static std::vector<uint8_t> evict(size_t{128} << 20, 1);
    unsigned sum = 0;
    for (size_t k = 0; k < evict.size(); k += 64)
        sum += evict[k];
    benchmark::DoNotOptimize(sum);
}

// One memcpy of a frame, from memory. The caches are emptied before it, so
// that it pays for no one's write-backs, and after it, so that the run that
// follows does not pay for the 8 MB it leaves there to be written back.
double ColdFrameCopySeconds() {
    static std::vector<uint32_t> from(N, 0x80402010u), to(N);
    EvictCaches();
    const auto start = std::chrono::steady_clock::now();
    std::memcpy(to.data(), from.data(), N * 4);
    benchmark::DoNotOptimize(to.data());
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EvictCaches();
    return seconds;
}

// The frames that the step arithmetic gives for one phase, two sub-steps a
// frame: a routine's frames, the last capture, and after an out effect the
// four frames before the key goes back to full.
int ExpectedFrames(int number, int speed, int phase) {
    const UstEffectRow& row = *FindEffectRow(number);
    const int tail = 1 + (phase == 2 ? 4 : 0);
    if (row.eFamily == EEffectFamily::CUT || row.eFamily == EEffectFamily::FADE) {
        const int level = speed * 255 / 100;  // trunc(speed x 2.55)
        const int fade = (255 + level - 1) / level;
        return phase == 0 ? 1 + fade + tail : fade + 5 + tail;  // the erase waits 1 + 4
    }
    static constexpr int SPOKES[] = {1, 2, 3, 4, 8};
    int total = 0;
    switch (row.eFamily) {
        case EEffectFamily::DISSOLVE:
            total = 60 * 34;
            break;
        case EEffectFamily::PUSH:
            total = number == 7 || number == 8 ? W : H;
            break;
        case EEffectFamily::BLINDS:
            total = number == 10 ? H / 6 : W / 6;
            break;
        case EEffectFamily::CHECKERBOARD:
            total = W / 16;
            break;
        case EEffectFamily::COMB:
            total = number == 15 ? H : W;
            break;
        case EEffectFamily::RANDOM_BARS:
            total = number == 16 ? H : W;
            break;
        case EEffectFamily::WIPE:
            total = number == 18 || number == 21 ? H : W;
            break;
        case EEffectFamily::BOX:
        case EEffectFamily::PLUS:
            total = H / 2;
            break;
        case EEffectFamily::WEDGE:
            total = W + H;
            break;
        case EEffectFamily::WHEEL: {
            const int s = SPOKES[number - 26];
            total = 2 * (W + H) / s + (2 * (W + H) % s ? 1 : 0);
            break;
        }
        case EEffectFamily::SPLIT:
            total = number <= 32 ? H / 2 : W / 2;
            break;
        default:
            break;
    }
    const int step = row.steps[static_cast<size_t>(speed - 1)];
    const int subSteps = (total + step - 1) / step;
    const int last = row.eFamily == EEffectFamily::CHECKERBOARD && phase == 2 ? 1 : 0;
    return (subSteps + 1) / 2 + last + tail;
}

// Which sub-steps write a whole frame's worth: all of the cut family's, the
// checkerboard's same-parity cells (the first in, the last out), the last
// step of a box.
bool WritesWhole(int number, int phase, size_t index, size_t count) {
    const EEffectFamily f = FindEffectRow(number)->eFamily;
    if (f == EEffectFamily::CUT || f == EEffectFamily::FADE) return true;
    if (f == EEffectFamily::CHECKERBOARD) return phase == 0 ? index == 0 : index + 1 == count;
    return f == EEffectFamily::BOX && index + 1 == count;
}

double Median(std::vector<double> v) {
    std::nth_element(v.begin(), v.begin() + static_cast<ptrdiff_t>(v.size() / 2), v.end());
    return v[v.size() / 2];
}

// Each sub-step's times over the runs, by its index, in seconds.
struct UstPhaseFigures {
    std::vector<std::vector<double>> times;
    int nFrames = 0;
};

void Keep(UstPhaseFigures& figures, const UstStepStats& stats, int frames) {
    figures.times.resize(std::max(figures.times.size(), stats.subStepTimes.size()));
    for (size_t i = 0; i < stats.subStepTimes.size(); ++i)
        figures.times[i].push_back(static_cast<double>(stats.subStepTimes[i]) * 1e-9);
    figures.nFrames = frames;
}

void BM_Row(benchmark::State& state) {
    const int number = static_cast<int>(state.range(0));
    const int speed = static_cast<int>(state.range(1));
    CfgVideo mode;
    ModeByShortName("1080i5994", mode);
    CTestBoard board(mode, EPlayoutClock::FREE);
    CTransitionDriver driver(board);
    std::fill_n(driver.BufferA(), N, 0xC0804020u);
    driver.Engine().Stats().bKeepTimes = true;
    UstPageEffect request{number, speed, 0, 1, number, speed, 0, 1, 0, 0, 0};
    UstPhaseFigures in, out;
    const int runs = speed == 10 ? 7 : 5;
    std::vector<double> copies;
    for (auto _ : state) {
        for (int run = 0; run < runs; ++run) {
            for (int i = 0; i < 5; ++i)
                copies.push_back(ColdFrameCopySeconds());
            int64_t ticks = board.FramesTicked();
            driver.TakeIn(RequestWords(request));
            Keep(in, driver.Engine().Stats(), static_cast<int>(board.FramesTicked() - ticks));
            ticks = board.FramesTicked();
            driver.TakeOut(RequestWords(request));
            Keep(out, driver.Engine().Stats(), static_cast<int>(board.FramesTicked() - ticks));
        }
    }
    const double baseline = Median(copies);
    double ratio = 0, whole = 0;
    for (const auto& [phase, figures] : {std::pair{0, &in}, std::pair{2, &out}})
        for (size_t i = 0; i < figures->times.size(); ++i) {
            const double r = Median(figures->times[i]) / baseline;
            double& into = WritesWhole(number, phase, i, figures->times.size()) ? whole : ratio;
            into = std::max(into, r);
        }
    const int frames = in.nFrames + out.nFrames;
    const int expected = ExpectedFrames(number, speed, 0) + ExpectedFrames(number, speed, 2);
    state.SetLabel(EffectName(number, LANG_ENGLISH).toStdString());
    state.counters["ratio"] = ratio;
    state.counters["whole"] = whole;
    state.counters["frames"] = frames;
    state.counters["expected"] = expected;
    state.counters["memcpy_ms"] = baseline * 1e3;
    const std::string name = "row " + std::to_string(number) + " speed " + std::to_string(speed);
    if (ratio > TARGET) g_misses.push_back(name + ": sub-step ratio");
    if (whole > WHOLE_TARGET) g_misses.push_back(name + ": whole-frame sub-step ratio");
    if (frames != expected) g_misses.push_back(name + ": frames");
}

BENCHMARK(BM_Row)
    ->ArgsProduct({benchmark::CreateDenseRange(GALLERY_FIRST_EFFECT, EFFECT_COUNT - 1, 1), {10, 1}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::printf("targets: ratio %.1f, whole %.1f, of a cold memcpy of a 1920 x 1080 frame\n",
                TARGET, WHOLE_TARGET);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    for (const std::string& miss : g_misses)
        std::printf("MISSED TARGET: %s\n", miss.c_str());
    return g_misses.empty() ? 0 : 1;
}
