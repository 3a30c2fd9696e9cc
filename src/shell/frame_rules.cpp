#include "shell/frame_rules.h"

#include "board/gboard.h"

#include <algorithm>
#include <cstring>

namespace orv {

bool ShouldAutoSave(const UstEnv& env, int playState) {
    return env.bAutoSave && playState == 0;
}

int AutoSavePeriodMs(const UstEnv& env) {
    const uint32_t stored = env.nAutoSaveMin;  // a copy: the record is packed
    const uint32_t minutes = std::clamp<uint32_t>(stored, 1, 60);
    return static_cast<int>(minutes) * 60000;
}

UstOptionsOutcome ApplyOptions(UstEnv& frame, const UstEnv& programCopy, const UstEnv& editCopy,
                               const std::function<bool(const QString&)>& fileExists) {
    UstOptionsOutcome out;
    if (std::memcmp(&editCopy, &frame, sizeof(UstEnv)) != 0) {
        const QString image = FixedToQString(&editCopy.szBackImage);
        if (editCopy.nBackKind == BACK_IMAGE && (image.isEmpty() || !fileExists(image))) {
            out.bEditRejected = true;
        } else {
            frame = editCopy;
            out.bEditTaken = true;
        }
    }
    frame.bPreviewLeft = programCopy.bPreviewLeft;
    frame.bAutoSave = programCopy.bAutoSave;
    if (programCopy.nAutoSaveMin != frame.nAutoSaveMin) {
        frame.nAutoSaveMin = programCopy.nAutoSaveMin;
        out.bRestartTimer = true;
    }
    if (programCopy.nLanguage != frame.nLanguage) {
        frame.nLanguage = programCopy.nLanguage;
        out.bAskRestart = true;
    }
    return out;
}

QString StatusModeName(const CGBoard* board, int projectWidth) {
    if (board) return board->GetModeName();
    if (projectWidth == 640) return "NTSC 720 x 480";
    if (projectWidth == 1920) return "HD 1920 x 1080";
    return {};
}

}  // namespace orv
