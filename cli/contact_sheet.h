#pragma once
// A contact sheet of a transition: evenly spaced frames of the output, as
// small pictures over a checkerboard with the key level applied, each with
// its frame number, the stage it belongs to and the key level.

#include <QImage>
#include <QString>

#include <mutex>
#include <vector>

#include "board/video_modes.h"

namespace orv::cli {

struct UstSheetFrame {
    QImage thumb;  // premultiplied, as the output had it
    int nFrame = 0;
    int nKeyLevel = 255;
    const char* szStage = "";
};

// Collects a small copy of every frame the output sends; safe to feed from
// the playout thread while the stage changes on another.
class CFrameCollector {
public:
    explicit CFrameCollector(int thumbWidth) : m_nThumbWidth(thumbWidth) {}
    void SetStage(const char* stage);
    void Add(const uint32_t* frame, const CfgVideo& format, int keyLevel);
    std::vector<UstSheetFrame> Frames() const;

private:
    int m_nThumbWidth;
    mutable std::mutex m_mutex;
    const char* m_szStage = "";
    std::vector<UstSheetFrame> m_frames;
};

// `count` indices spread evenly from 0 to total - 1, first and last
// included; all of them when there are fewer.
std::vector<int> PickEvenly(int total, int count);

// The sheet: a title line, then the chosen frames in rows of `columns`.
QImage MakeContactSheet(const std::vector<UstSheetFrame>& frames, const QString& title, int count,
                        int columns);

}  // namespace orv::cli
