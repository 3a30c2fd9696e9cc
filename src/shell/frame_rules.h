#pragma once
// Decisions of the main frame that do not need a window: auto-save and the
// Options dialog's acceptance.

#include <functional>

#include <QString>

#include "project/settings_records.h"

namespace orv {

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

}  // namespace orv
