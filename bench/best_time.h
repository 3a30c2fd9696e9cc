#pragma once
// The best of several timed runs: what an operation costs when nothing else
// gets in its way.

#include <algorithm>
#include <chrono>
#include <functional>

inline double BestSeconds(const std::function<void()>& f, int runs = 30) {
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        const auto t0 = std::chrono::steady_clock::now();
        f();
        const std::chrono::duration<double> d = std::chrono::steady_clock::now() - t0;
        best = std::min(best, d.count());
    }
    return best;
}
