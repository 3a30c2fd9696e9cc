#pragma once
// The outputs that GStreamer drives: the card, a lossless file and an SRT
// stream, each behind an appsrc fed by the playout thread; the discovery of
// cards and their modes; and the reading back of a file output.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QString>

#include "board/output_sink.h"

namespace orv {

// Initialises GStreamer once for the process; false with a reason when the
// library cannot start.
bool InitGStreamer(std::string* error = nullptr);

struct UstCardSetup {
    int nDevice = 0;   // the card's device number
    int nKeyMode = 1;  // 0 internal, 1 external
};

// kind is CARD, FILE or SRT; the frames lent out at a time are queueFrames,
// the room the output has before the playout thread waits.
std::unique_ptr<COutputSink> MakeGstSink(const UstOutputChoice& choice, const UstCardSetup& card,
                                         int queueFrames);

struct UstCardInfo {
    QString strName;
    int nDevice = 0;
    std::vector<CfgVideo> modes;  // in the card's order, at most 1920 x 1080
};

// The output cards that answer, through the device monitor. Empty when there
// is none or GStreamer cannot start.
std::vector<UstCardInfo> DiscoverCards();

// Calls each(frame, width, height) for every frame of a file written by the
// file output, as BGRA, until it returns false. False with a reason when the
// file cannot be read.
bool ReadVideoFile(const std::string& path,
                   const std::function<bool(const uint32_t*, int, int)>& each, std::string& error);

}  // namespace orv
