#pragma once
// What the commands that play pages through the engine share: reading a
// number, the board they play to, the output's failures and the contact
// sheet at the end.

#include <QString>

#include <memory>
#include <string>
#include <vector>

#include "board/canvas_board.h"
#include "board/hd_extreme.h"
#include "contact_sheet.h"

namespace orv::cli {

// A whole decimal number from low to high.
bool ReadNumber(const std::string& text, int low, int high, int& out);

// A card or file output plays at the output's pace; a sheet alone needs no
// clock and runs through the test board as fast as it can draw.
std::unique_ptr<CCanvasBoard> MakePlayBoard(const UstBoardOptions& options);

// Names on stderr each output that failed since `before`; true if any did.
bool ReportFailures(CDecklinkPipeline& pipe, size_t before);

// The sheet of 24 frames in rows of 6 to `path`; false, with the reason on
// stderr, when it cannot be written.
bool SaveSheet(const std::vector<UstSheetFrame>& frames, const QString& title,
               const std::string& path);

}  // namespace orv::cli
