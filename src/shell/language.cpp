#include "shell/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "project/profile_file.h"
#include "project/settings_records.h"
#include "shell/settings_files.h"

namespace orv {

uint16_t LanguageFromLocale(const QLocale& locale) {
    return locale.language() == QLocale::Korean ? LANG_KOREAN : LANG_ENGLISH;
}

uint16_t ChooseLanguage(const std::filesystem::path& envIni, const QLocale& system) {
    UstEnv env;
    if (GetProfileStruct(envIni, ENV_SECTION, ENV_KEY, &env, sizeof env)) return env.nLanguage;
    return LanguageFromLocale(system);
}

bool InstallTranslation(uint16_t language, const QString& folder, QTranslator& translator,
                        QTranslator& toolkit) {
    if (language == LANG_KOREAN &&
        toolkit.load("qtbase_ko", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&toolkit);
    const QString name = language == LANG_KOREAN ? "orvantis_ko" : "orvantis_en";
    if (!translator.load(name, folder)) return false;
    return QCoreApplication::installTranslator(&translator);
}

}  // namespace orv
