// Animation frames at 1920 x 1080: 120 frames of a moving, partly
// transparent logo, made here. Prints frames per second on one core as a
// multiple of 30 for decoding ANI32 (target at least 4), decoding QRDANI
// (target at least 2) and encoding ANI32 to its file (target at least 1, so
// that a sequence converts in real time). The process exits with status 1
// if a target is missed.
#include <benchmark/benchmark.h>

#include "best_time.h"
#include "qrdani_encoder.h"

#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "media/ani32_codec.h"
#include "media/ani32_player.h"
#include "media/ani32_writer.h"
#include "media/qrdani_player.h"

namespace {

using namespace orv;

constexpr int W = 1920, H = 1080, FRAMES = 120;
constexpr size_t PIXELS = static_cast<size_t>(W) * H;
constexpr double ANI32_TARGET = 4, QRDANI_TARGET = 2, ENCODE_TARGET = 1;

// A 640 x 300 plate with a gradient and a ring cut out, soft edges 12
// pixels wide, alpha 220 inside; it crosses the frame and its colours turn.
void LogoFrame(int frame, std::vector<uint32_t>& out) {
    std::fill(out.begin(), out.end(), 0u);
    const int left = 100 + frame * 9, top = 200 + frame * 3, lw = 640, lh = 300;
    for (int y = 0; y < lh; ++y) {
        uint32_t* row = out.data() + static_cast<size_t>(top + y) * W + left;
        for (int x = 0; x < lw; ++x) {
            const int edge = std::min(std::min(x, lw - 1 - x), std::min(y, lh - 1 - y));
            const double dx = x - 470.0, dy = y - 150.0, r = std::sqrt(dx * dx + dy * dy);
            if (r > 60 && r < 100) continue;  // the ring shows what lies below
            const int alpha = edge >= 12 ? 220 : 220 * edge / 12;
            const auto red = static_cast<uint32_t>((x / 3 + frame * 2) & 255);
            const auto green = static_cast<uint32_t>((y * 255 / lh) & 255);
            const auto blue = static_cast<uint32_t>(x < 300 ? 200 : 40);
            row[x] = (static_cast<uint32_t>(alpha) << 24) | (red << 16) | (green << 8) | blue;
        }
    }
}

struct UstSamples {
    QTemporaryDir dir;
    QString ani32, qrdani;
    double encodeSeconds = 0;
};

// Writes both files; the ANI32 writing is timed, frame making is not.
void MakeSamples(UstSamples& s) {
    s.ani32 = s.dir.filePath("logo.ani32");
    s.qrdani = s.dir.filePath("logo.qrdani");
    std::vector<uint32_t> frame(PIXELS);
    std::vector<uint8_t> wide(PIXELS * 8);
    CAni32Writer writer;
    writer.Create(s.ani32, FRAMES, W, H);
    auto code = std::make_unique<CQrdHuffman>();
    std::vector<bench::Bytes> records;
    for (int i = 0; i < FRAMES; ++i) {
        LogoFrame(i, frame);
        const auto t0 = std::chrono::steady_clock::now();
        writer.WriteFrame(i, frame.data());
        s.encodeSeconds +=
            std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        // The picture, then its key: the alpha in every byte of a pixel.
        std::memcpy(wide.data(), frame.data(), PIXELS * 4);
        for (size_t p = 0; p < PIXELS; ++p)
            std::memset(wide.data() + PIXELS * 4 + p * 4, static_cast<int>(frame[p] >> 24), 4);
        records.push_back(bench::EncodeRecord(wide.data(), wide.size(), *code));
    }
    writer.Finish();
    std::ofstream out(s.qrdani.toStdString(), std::ios::binary);
    const UstAniFileHeader head{FRAMES, W, H};
    out.write(reinterpret_cast<const char*>(&head), sizeof head);
    uint32_t offset = sizeof head + FRAMES * 4 + 8;
    for (const bench::Bytes& r : records) {
        out.write(reinterpret_cast<const char*>(&offset), 4);
        offset += static_cast<uint32_t>(r.size());
    }
    out.write("\0\0\0\0\0\0\0\0", 8);
    for (const bench::Bytes& r : records)
        out.write(reinterpret_cast<const char*>(r.data()), static_cast<std::streamsize>(r.size()));
}

UstSamples& Samples() {
    static UstSamples samples;
    if (samples.ani32.isEmpty()) MakeSamples(samples);
    return samples;
}

// The last frame must come back as it was drawn, or the figure is no use.
bool DecodesExactly(MediaPlayer& player) {
    std::vector<uint32_t> want(PIXELS);
    LogoFrame(FRAMES - 1, want);
    const uint32_t* got = player.ReadFrame(FRAMES - 1);
    return got && std::equal(want.begin(), want.end(), got);
}

// Frames per second over all frames, the best of three passes, as a
// multiple of 30.
double DecodeRatio(MediaPlayer& player) {
    bool ok = DecodesExactly(player);
    const double seconds = BestSeconds(
        [&] {
            for (int i = 0; i < FRAMES; ++i)
                ok = player.ReadFrame(i) && ok;
        },
        3);
    return ok ? FRAMES / seconds / 30.0 : 0.0;
}

std::vector<std::string> g_misses;

void Report(benchmark::State& state, const char* name, double ratio, double target) {
    state.counters["x30fps"] = ratio;
    state.counters["target"] = target;
    if (ratio < target) g_misses.push_back(name);
}

template <typename Player>
void Decode(benchmark::State& state, const QString& file, const char* name, double target) {
    Player player(file.toStdString());
    player.Open();
    double ratio = 0;
    for (auto _ : state)
        ratio = DecodeRatio(player);
    Report(state, name, ratio, target);
}

void BM_DecodeAni32(benchmark::State& state) {
    Decode<ANI32Player>(state, Samples().ani32, "ANI32 decoding", ANI32_TARGET);
}
BENCHMARK(BM_DecodeAni32)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_DecodeQrdAni(benchmark::State& state) {
    Decode<QRDANIPlayer>(state, Samples().qrdani, "QRDANI decoding", QRDANI_TARGET);
}
BENCHMARK(BM_DecodeQrdAni)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_EncodeAni32(benchmark::State& state) {
    double ratio = 0;
    for (auto _ : state)
        ratio = FRAMES / Samples().encodeSeconds / 30.0;
    Report(state, "ANI32 encoding", ratio, ENCODE_TARGET);
}
BENCHMARK(BM_EncodeAni32)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    for (const std::string& m : g_misses)
        std::printf("MISSED TARGET: %s\n", m.c_str());
    return g_misses.empty() ? 0 : 1;
}
