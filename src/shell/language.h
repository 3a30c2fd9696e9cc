#pragma once
// The interface language: English (9) or Korean (18), fixed at start.

#include <cstdint>
#include <filesystem>

class QLocale;
class QString;
class QTranslator;

namespace orv {

// Korean gives 18; every other language gives 9.
uint16_t LanguageFromLocale(const QLocale& locale);

// The language stored in the settings file, or the system's when the file
// cannot be read.
uint16_t ChooseLanguage(const std::filesystem::path& envIni, const QLocale& system);

// Loads the matching translation from folder (orvantis_en.qm,
// orvantis_ko.qm) into translator and installs it; the toolkit's own texts
// (standard buttons, file dialogs) go into toolkit.
bool InstallTranslation(uint16_t language, const QString& folder, QTranslator& translator,
                        QTranslator& toolkit);

}  // namespace orv
