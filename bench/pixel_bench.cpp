// Pixel operations on full 1920 x 1080 frames, each reported as a ratio to a
// memcpy of the same bytes measured in the same run. Targets:
//   FillPixels          <= 1.5
//   DrawCheckerPixels   <= 2.0 (drawn on every canvas rebuild)
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "render/pixels.h"

namespace {

constexpr int W = 1920, H = 1080;
constexpr size_t N = static_cast<size_t>(W) * H;

template <typename F>
double SecondsPerRun(F&& f, int runs) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < runs; ++i)
        f();
    const std::chrono::duration<double> d = std::chrono::steady_clock::now() - start;
    return d.count() / runs;
}

void BM_Ratios(benchmark::State& state) {
    std::vector<uint32_t> a(N, 1), b(N, 2);
    double copy = 0, fill = 0, checker = 0;
    for (auto _ : state) {
        copy = SecondsPerRun([&] { std::memcpy(b.data(), a.data(), N * 4); }, 20);
        benchmark::DoNotOptimize(b.data());
        fill = SecondsPerRun([&] { orv::FillPixels(0xFF102030u, b.data(), W, H); }, 20);
        benchmark::DoNotOptimize(b.data());
        checker = SecondsPerRun([&] { orv::DrawCheckerPixels(b.data(), W, H, 15); }, 20);
        benchmark::DoNotOptimize(b.data());
    }
    state.counters["fill/memcpy"] = fill / copy;
    state.counters["checker/memcpy"] = checker / copy;
}
BENCHMARK(BM_Ratios)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
