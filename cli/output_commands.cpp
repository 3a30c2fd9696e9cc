#include "output_commands.h"

#include <QDir>
#include <QImage>
#include <QString>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "board/gst_output.h"
#include "board/hd_extreme.h"
#include "board/test_card.h"
#include "samples/demo_page.h"

namespace orv::cli {

namespace {

constexpr int BOX = 64;      // the moving box, in pixels
constexpr int BOX_STEP = 8;  // its move each field

void PrintFailures(const CDecklinkPipeline& pipe, size_t from) {
    const auto failures = pipe.Failures();
    for (size_t i = from; i < failures.size(); ++i)
        std::fprintf(stderr,
                     "orvantis-cli: the output %s failed (%s); frames go to the "
                     "clock-paced output\n",
                     failures[i].strOutput.c_str(), failures[i].strReason.c_str());
}

bool ReadOptions(int argc, char** argv, UstBoardOptions& options, int& frames) {
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        if (!arg.starts_with("--") || i + 1 >= argc) {
            std::fprintf(stderr, "orvantis-cli output: unexpected argument '%s'\n", argv[i]);
            return false;
        }
        const std::string name = arg.substr(2), value = argv[++i];
        if (name == "frames") {
            frames = std::atoi(value.c_str());
            if (frames < 1)
                return std::fprintf(stderr, "orvantis-cli output: bad --frames\n"), false;
            continue;
        }
        std::string error;
        if (!ApplyBoardOption(name, value, options, error)) {
            std::fprintf(stderr, "orvantis-cli output: %s\n", error.c_str());
            return false;
        }
    }
    return true;
}

}  // namespace

int ListModes(int, char**) {
    const std::vector<UstCardInfo> cards = DiscoverCards();
    for (const UstCardInfo& card : cards)
        std::printf("Card %d: %s\n", card.nDevice, card.strName.toLocal8Bit().constData());
    std::printf(cards.empty() ? "No output card answered: the standard modes\n" : "Modes\n");
    for (const CfgVideo& m : cards.empty() ? StandardVideoModes() : cards.front().modes)
        std::printf("  %-10s %-26s %4d x %-4d\n", ModeShortName(m).c_str(),
                    VideoRowText(m).toLocal8Bit().constData(), m.nWidth, m.nHeight);
    return 0;
}

// A moving box on the test card, two moments a frame on interlaced modes:
// what an output shows, at the output's own pace.
int PlayTestCard(int argc, char** argv) {
    UstBoardOptions options;
    options.output = UstOutputChoice{EOutputKind::CLOCK, {}};
    int frames = 250;
    if (!ReadOptions(argc, argv, options, frames)) return 2;
    IF_HDExtreme board(options);
    CDecklinkPipeline& pipe = *board.GetPipeline();
    const UstSize size = board.GetFrameSize(0);
    const std::vector<uint32_t> card = MakeTestCard(size.cx, size.cy);
    uint32_t* canvas = board.GetChannelCanvas(0);
    board.CopyRect(0, 0, canvas, size.cx, 0, 0, size.cx, size.cy, card.data());
    std::printf("Playing %d frames of %s (%s) to %s\n", frames,
                ModeShortName(RecordVideoMode(board.Record())).c_str(),
                VideoRowText(RecordVideoMode(board.Record())).toLocal8Bit().constData(),
                pipe.RunningOutput().c_str());
    const size_t atStart = pipe.Failures().size();
    PrintFailures(pipe, 0);
    const int fields = pipe.IsInterlaced() + 1;
    const int travel = std::max(1, size.cx - BOX);
    const int boxY = size.cy / 3 - BOX / 2;
    int x = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int f = 0; f < frames; ++f) {
        board.WaitFrame();
        for (int field = 0; field < fields; ++field) {
            board.CopyRect(x, boxY, canvas, size.cx, x, boxY, BOX, BOX, card.data());
            x = (x + BOX_STEP) % travel;
            board.FillRect(x, boxY, canvas, BOX, BOX, 0xFFFFFFFFu);
            if (field + 1 < fields) pipe.CaptureField();
        }
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    PrintFailures(pipe, atStart);
    const bool failed = !pipe.Failures().empty();
    board.Close();
    std::printf("%d frames in %.2f s (%.2f frames a second)%s\n", frames, seconds, frames / seconds,
                failed ? ", output failed" : "");
    return failed ? 1 : 0;
}

int UnpackFrames(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "orvantis-cli frames: FILE.mkv and DIR are needed\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[3]);
    if (!QDir().mkpath(dir)) {
        std::fprintf(stderr, "orvantis-cli frames: cannot make %s\n", argv[3]);
        return 1;
    }
    int count = 0;
    QString error;
    std::string readError;
    const bool read = ReadVideoFile(
        argv[2],
        [&](const uint32_t* frame, int w, int h) {
            const QImage image(reinterpret_cast<const uchar*>(frame), w, h, w * 4,
                               QImage::Format_ARGB32_Premultiplied);
            const QString name = QString("%1/frame_%2.png").arg(dir).arg(count, 5, 10, QChar('0'));
            ++count;
            return SavePngFile(image, name, &error);
        },
        readError);
    if (!read || !error.isEmpty()) {
        std::fprintf(stderr, "orvantis-cli frames: %s\n",
                     read ? error.toLocal8Bit().constData() : readError.c_str());
        return 1;
    }
    std::printf("%d frames written to %s\n", count, argv[3]);
    return count > 0 ? 0 : 1;
}

}  // namespace orv::cli
