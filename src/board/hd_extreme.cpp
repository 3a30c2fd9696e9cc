#include "board/hd_extreme.h"

#include <cstdlib>
#include <cstring>

#include "project/profile_file.h"

namespace orv {

namespace {

constexpr const char* OUTPUT_SECTION = "QRD_BOARD_OUTPUT";
constexpr int MODE_BYTES = 24;  // width, height, duration, the row's two words
constexpr int MIN_QUEUE = 2, MAX_QUEUE = 16;

}  // namespace

bool ApplyBoardOption(std::string_view name, std::string_view value, UstBoardOptions& options,
                      std::string& error) {
    if (name == "output") {
        UstOutputChoice choice;
        if (!ParseOutputChoice(value, choice))
            return error = "unknown output '" + std::string(value) +
                           "' (card, null, monitor, file:PATH.mkv or srt://HOST:PORT)",
                   false;
        options.output = choice;
    } else if (name == "mode") {
        CfgVideo mode;
        if (!ModeByShortName(value, mode))
            return error = "unknown mode '" + std::string(value) +
                           "' (ntsc, pal, 720p50, 1080i5994, 1080p25, ...)",
                   false;
        options.mode = mode;
    } else if (name == "queue") {
        const int n = std::atoi(std::string(value).c_str());
        if (n < MIN_QUEUE || n > MAX_QUEUE)
            return error = "the queue takes " + std::to_string(MIN_QUEUE) + " to " +
                           std::to_string(MAX_QUEUE) + " frames",
                   false;
        options.queueFrames = n;
    } else {
        return error = "unknown option '" + std::string(name) + "'", false;
    }
    return true;
}

UstOutputSettings LoadOutputSettings(const std::filesystem::path& file) {
    UstOutputSettings settings;
    if (const auto text = ReadProfileString(file, OUTPUT_SECTION, "Output"))
        ParseOutputChoice(*text, settings.output);
    if (const auto queue = ReadProfileString(file, OUTPUT_SECTION, "Queue")) {
        const int n = std::atoi(queue->c_str());
        if (n >= MIN_QUEUE && n <= MAX_QUEUE) settings.nQueueFrames = n;
    }
    return settings;
}

bool SaveOutputSettings(const std::filesystem::path& file, const UstOutputSettings& settings) {
    return WriteProfileString(file, OUTPUT_SECTION, "Output",
                              FormatOutputChoice(settings.output)) &&
           WriteProfileString(file, OUTPUT_SECTION, "Queue", std::to_string(settings.nQueueFrames));
}

IF_HDExtreme::IF_HDExtreme(UstBoardOptions options) : m_Options(std::move(options)) {
    Open();
}

IF_HDExtreme::~IF_HDExtreme() {
    Close();
}

void IF_HDExtreme::Open() {
    if (!AllocateCanvas()) return;
    m_bOpened = 1;
    m_Record = DefaultBoardRecord();
    if (!m_Options.iniFile.empty()) {
        LoadBoardRecord(m_Options.iniFile, m_Record);
        m_Saved = LoadOutputSettings(m_Options.iniFile);
    }
    m_FileRecord = m_Record;
    if (m_Options.mode) ApplyVideoMode(m_Record, *m_Options.mode);
    UstPipelineSetup setup;
    setup.output = m_Options.output.value_or(m_Saved.output);
    setup.bReportMissingCard = m_Options.output.has_value();
    setup.nQueueFrames = m_Options.queueFrames.value_or(m_Saved.nQueueFrames);
    m_Pipeline.Open(m_pCanvas, &m_Record, setup);
}

// The mode given on the command line is for this run: unless the dialog
// chose another since, the mode read from the file is what goes back.
void IF_HDExtreme::Close() {
    if (m_bOpened) {
        m_Pipeline.Close();
        m_bOpened = 0;
        if (!m_Options.iniFile.empty()) {
            UstBoardRecord out = m_Record;
            if (m_Options.mode && SameVideoMode(RecordVideoMode(out), *m_Options.mode))
                std::memcpy(&out, &m_FileRecord, MODE_BYTES);
            SaveBoardRecord(m_Options.iniFile, out);
            SaveOutputSettings(m_Options.iniFile, m_Saved);
        }
    }
    FreeCanvas();
}

int IF_HDExtreme::ShowConfigDialog() {
    return m_fnConfigDialog ? m_fnConfigDialog(*this) : 0;
}

void IF_HDExtreme::SetOutput(const UstOutputChoice& output) {
    m_Saved.output = output;
    UstPipelineSetup setup = m_Pipeline.Setup();
    setup.output = output;
    setup.bReportMissingCard = true;
    m_Pipeline.SetSetup(setup);
    m_Pipeline.Rebuild();
}

UstOutputChoice IF_HDExtreme::Output() const {
    return m_Pipeline.Setup().output;
}

}  // namespace orv
