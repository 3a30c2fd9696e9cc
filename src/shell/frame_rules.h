#pragma once
// Decisions of the main frame that do not need a window: auto-save and the
// Options dialog's acceptance.

#include <functional>

#include <QString>

#include "project/settings_records.h"

namespace orv {

class CGBoard;

// Nothing is saved on air, and nothing when auto-save is off.
bool ShouldAutoSave(const UstEnv& env, int playState);

// The timer period; minutes outside 1 to 60 (a damaged record) are clamped.
int AutoSavePeriodMs(const UstEnv& env);

struct UstOptionsOutcome {
    bool bEditRejected = false;  // image backdrop without a usable file
    bool bEditTaken = false;     // the page must be redrawn
    bool bRestartTimer = false;
    bool bAskRestart = false;  // the language changed
};

// Takes the dialog's two copies into the frame's record. fileExists answers
// for the backdrop image path.
UstOptionsOutcome ApplyOptions(UstEnv& frame, const UstEnv& programCopy, const UstEnv& editCopy,
                               const std::function<bool(const QString&)>& fileExists);

// The status bar's field for the format: the board's mode name; without a
// board the project's old names, "NTSC 720 x 480" for a 640-wide frame and
// "HD 1920 x 1080" for a 1920-wide one, nothing for other widths.
QString StatusModeName(const CGBoard* board, int projectWidth);

}  // namespace orv
