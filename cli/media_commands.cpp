#include "media_commands.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>

#include <unistd.h>
#include <cstdio>

#include "media/ani_check.h"
#include "media/avi_player.h"
#include "media/media_factory.h"
#include "media/sequence_convert.h"
#include "media/sequence_files.h"

namespace orv::cli {

namespace {

constexpr int DONE = 0, FAILED = 1, USAGE = 2;

QByteArray Local(const QString& s) {
    return s.toLocal8Bit();
}

// One line on the terminal, rewritten in place as the frames go by.
class CTerminalProgress : public CConvertProgress {
public:
    CTerminalProgress() : m_bTerminal(isatty(fileno(stderr)) != 0) {}
    ~CTerminalProgress() override {
        if (m_bShown) std::fputc('\n', stderr);
    }
    void SetStatus(const QString& text) override {
        if (!m_bTerminal) return;
        std::fprintf(stderr, "\rConverting... %s", Local(text).constData());
        std::fflush(stderr);
        m_bShown = true;
    }
    void SetPosition(int) override {}

private:
    bool m_bTerminal;
    bool m_bShown = false;
};

}  // namespace

int SequenceToAni(const std::vector<QString>& args) {
    if (args.size() < 2) {
        std::fprintf(stderr, "orvantis-cli seq2ani: give the output file and the pictures\n");
        return USAGE;
    }
    QStringList files;
    QString folder;
    if (args.size() == 2 && QFileInfo(args[1]).isDir()) {
        folder = QDir(args[1]).path() + "/";
        files = SequenceInFolder(folder);
    } else {
        for (size_t i = 1; i < args.size(); ++i)
            files.append(args[i]);
    }
    UstSequenceReport report;
    {
        CTerminalProgress progress;
        report = WriteSequenceAni32(files, folder, args[0], &progress);
    }
    if (report.result != ESequenceResult::WRITTEN) {
        const char* why = report.result == ESequenceResult::CANNOT_CREATE
                              ? "the output cannot be written"
                              : "the first picture cannot be read";
        std::fprintf(stderr,
                     "orvantis-cli seq2ani: Failed converting TGA(PNG) sequence files to "
                     "animation file. (%s: %s)\n",
                     why, Local(files.isEmpty() ? args[0] : folder + files.first()).constData());
        return FAILED;
    }
    std::printf("%s: %d frame%s of %d x %d", Local(args[0]).constData(), report.nFrames,
                report.nFrames == 1 ? "" : "s", report.nWidth, report.nHeight);
    if (report.nWritten < report.nFrames)
        std::printf(", %d left out (another size, or unreadable)",
                    report.nFrames - report.nWritten);
    std::printf("\n");
    return DONE;
}

namespace {

std::unique_ptr<MediaPlayer> OpenSource(const char* verb, const QString& file) {
    auto player = CreateMediaPlayer(file);
    if (!player)
        std::fprintf(stderr, "orvantis-cli %s: %s: not an animation or video file that opens\n",
                     verb, Local(file).constData());
    return player;
}

int PrintRecords(const UstAniFileCheck& check) {
    int damaged = 0, skipped = 0;
    for (size_t i = 0; i < check.records.size(); ++i) {
        const EFrameRecord r = check.records[i];
        if (r == EFrameRecord::GOOD) continue;
        r == EFrameRecord::SKIPPED ? ++skipped : ++damaged;
        std::printf("frame %zu: %s\n", i, FrameRecordText(r));
    }
    std::printf("offsets: %zu good, %d skipped, %d damaged\n",
                check.records.size() - static_cast<size_t>(damaged + skipped), skipped, damaged);
    return damaged ? FAILED : DONE;
}

}  // namespace

int AniInfo(const std::vector<QString>& args) {
    if (args.size() != 1) {
        std::fprintf(stderr, "orvantis-cli ani-info: give one animation file\n");
        return USAGE;
    }
    const int type = GetMediaType(args[0]);
    if (type == MEDIA_ANI32 || type == MEDIA_QRDANI) {
        const UstAniFileCheck check = CheckAnimationFile(args[0]);
        if (!check.bReadable) {
            std::fprintf(stderr, "orvantis-cli ani-info: %s: no readable header and offset table\n",
                         Local(args[0]).constData());
            return FAILED;
        }
        std::printf("format: %s\nframes: %u\nsize: %u x %u\nfps: 30\nfile: %llu bytes\n",
                    type == MEDIA_ANI32 ? "ANI32" : "QRDANI", check.nFrames, check.nWidth,
                    check.nHeight, static_cast<unsigned long long>(check.nFileSize));
        const int result = PrintRecords(check);
        if (!CreateMediaPlayer(args[0])) {
            std::printf("the file does not open as a frame source\n");
            return FAILED;
        }
        return result;
    }
    auto player = OpenSource("ani-info", args[0]);
    if (!player) return FAILED;
    const UstMediaInfo* info = player->GetInfo();
    std::printf("format: video\nframes: %d\nsize: %d x %d\nfps: %d\n", info->nFrames, info->nWidth,
                info->nHeight, info->nFps);
    return DONE;
}

int AniFrame(const std::vector<QString>& args) {
    bool number = false;
    const int index = args.size() == 3 ? args[1].toInt(&number) : 0;
    if (!number) {
        std::fprintf(stderr, "orvantis-cli ani-frame: give the file, a frame number and OUT.png\n");
        return USAGE;
    }
    auto player = OpenSource("ani-frame", args[0]);
    if (!player) return FAILED;
    const UstMediaInfo* info = player->GetInfo();
    const uint32_t* frame = player->ReadFrame(index);
    if (!frame) {
        std::fprintf(stderr, "orvantis-cli ani-frame: frame %d of %d cannot be read\n", index,
                     info->nFrames);
        return FAILED;
    }
    const QImage image(reinterpret_cast<const uchar*>(frame), info->nWidth, info->nHeight,
                       info->nWidth * 4, QImage::Format_ARGB32);
    if (!image.save(args[2], "PNG")) {
        std::fprintf(stderr, "orvantis-cli ani-frame: %s cannot be written\n",
                     Local(args[2]).constData());
        return FAILED;
    }
    std::printf("frame %d of %d (%d x %d) written to %s\n", index, info->nFrames, info->nWidth,
                info->nHeight, Local(args[2]).constData());
    return DONE;
}

}  // namespace orv::cli
