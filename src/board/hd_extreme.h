#pragma once
// The board over an output card: opens at construction, reads board.ini,
// runs the pipeline on the card when one answers and on the clock when none
// does, and writes board.ini back when it closes.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "board/canvas_board.h"

namespace orv {

struct UstBoardOptions {
    std::filesystem::path iniFile;  // empty: defaults, nothing written
    // From the command line, for this run only: they are not written back.
    std::optional<UstOutputChoice> output;
    std::optional<CfgVideo> mode;
    std::optional<int> queueFrames;
};

// An output option of the command line, "output", "mode" or "queue", with
// its value; false with a reason when the value is not understood.
bool ApplyBoardOption(std::string_view name, std::string_view value, UstBoardOptions& options,
                      std::string& error);

// The output as chosen in the configuration, kept in board.ini beside the
// record under a section of its own.
struct UstOutputSettings {
    UstOutputChoice output;
    int nQueueFrames = 3;
};
UstOutputSettings LoadOutputSettings(const std::filesystem::path& file);
bool SaveOutputSettings(const std::filesystem::path& file, const UstOutputSettings& settings);

class IF_HDExtreme : public CCanvasBoard {
public:
    using ConfigDialog = std::function<int(IF_HDExtreme&)>;

    explicit IF_HDExtreme(UstBoardOptions options);
    ~IF_HDExtreme() override;

    void Open() override;
    void Close() override;
    int GetBoardType() const override { return 6; }
    int ShowConfigDialog() override;

    // The dialog lives in the user interface, which hands it in here.
    void SetConfigDialog(ConfigDialog dialog) { m_fnConfigDialog = std::move(dialog); }
    // A new output takes effect at once and is kept in board.ini.
    void SetOutput(const UstOutputChoice& output);
    UstOutputChoice Output() const;
    const UstOutputSettings& SavedOutput() const { return m_Saved; }

private:
    UstBoardOptions m_Options;
    UstOutputSettings m_Saved;
    UstBoardRecord m_FileRecord;  // the mode as read, when the command line changed it
    ConfigDialog m_fnConfigDialog;
};

}  // namespace orv
