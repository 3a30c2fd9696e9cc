#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include "objects/tc_object.h"
#include "project/profile_file.h"
#include "shell/language.h"
#include "shell/settings_files.h"
#include "test_util.h"

namespace orv {
namespace {

using test::ReadFile;
using test::TempPath;
using test::WriteFile;

std::string EnvLine(const UstEnv& e) {
    return "[QRD_ENV_INI]\r\nenv_ini=" + EncodeProfileStruct(&e, sizeof e) + "\r\n";
}

TEST(LoadEnv, MissingFileGivesDefaultsAndWritesThem) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "qrdenv.ini");
    UstEnv env;
    EXPECT_EQ(LoadEnv(file, env, 18), ELoadResult::CREATED);
    EXPECT_EQ(+env.nLanguage, 18);
    const UstEnv defaults = MakeDefaultEnv(18);
    EXPECT_EQ(std::memcmp(&env, &defaults, sizeof env), 0);
    EXPECT_EQ(ReadFile(file), EnvLine(defaults));
}

TEST(LoadEnv, DamagedFileGivesDefaultsAndIsLeftAlone) {
    UstEnv stored = MakeDefaultEnv(18);
    stored.nGridStep = 33;
    const std::string good = EnvLine(stored);
    std::string wrongSum = good;
    wrongSum[wrongSum.size() - 3] = wrongSum[wrongSum.size() - 3] == '0' ? '1' : '0';
    std::string cut = good;
    cut.erase(cut.size() - 3, 1);  // one digit short
    const std::string wrongSize = "[QRD_ENV_INI]\r\nenv_ini=0000\r\n";
    const std::string garbage = "\x01\x02 not an ini file \xff";
    for (const std::string& bad : {wrongSum, cut, wrongSize, garbage}) {
        QTemporaryDir dir;
        const auto file = TempPath(dir, "qrdenv.ini");
        WriteFile(file, bad);
        UstEnv env;
        EXPECT_EQ(LoadEnv(file, env, 9), ELoadResult::DEFAULTS);
        EXPECT_EQ(+env.nGridStep, 10u);
        EXPECT_EQ(+env.nLanguage, 9);
        EXPECT_EQ(ReadFile(file), bad);
    }
}

TEST(LoadEnv, ReadsWhatSaveEnvWrote) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "qrdenv.ini");
    UstEnv saved = MakeDefaultEnv(9);
    saved.nAutoSaveMin = 42;
    QStringToFixed(QString::fromUtf16(u"/그림/배경.png"), &saved.szBackImage);
    ASSERT_TRUE(SaveEnv(file, saved));
    UstEnv env;
    EXPECT_EQ(LoadEnv(file, env, 18), ELoadResult::READ);
    EXPECT_EQ(std::memcmp(&env, &saved, sizeof env), 0);
}

TEST(LoadDefaultAttr, MissingThenSavedThenRead) {
    QTemporaryDir dir;
    const auto file = TempPath(dir, "qrddata.ini");
    UstDefaultAttr attr;
    EXPECT_EQ(LoadDefaultAttr(file, attr, u"DejaVu Sans"), ELoadResult::CREATED);
    const std::string text = ReadFile(file);
    EXPECT_EQ(text.find("[QRD_DATA_INI]\r\ndefault attribute="), 0u);
    EXPECT_EQ(text.size(), std::string("[QRD_DATA_INI]\r\ndefault attribute=\r\n").size() + 8326);
    attr.effect.nEdge = 7;
    ASSERT_TRUE(SaveDefaultAttr(file, attr));
    UstDefaultAttr again;
    EXPECT_EQ(LoadDefaultAttr(file, again, u"Other"), ELoadResult::READ);
    EXPECT_EQ(+again.effect.nEdge, 7);
}

TEST(Language, FromLocaleThenFromTheSettingsFile) {
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale korean(QLocale::Korean, QLocale::SouthKorea);
    EXPECT_EQ(LanguageFromLocale(german), 9);
    EXPECT_EQ(LanguageFromLocale(korean), 18);
    EXPECT_EQ(LanguageFromLocale(QLocale(QLocale::English, QLocale::UnitedStates)), 9);

    QTemporaryDir dir;
    const auto file = TempPath(dir, "qrdenv.ini");
    // No file on a German system: English, and the file is written with 9.
    EXPECT_EQ(ChooseLanguage(file, german), 9);
    UstEnv env;
    LoadEnv(file, env, LanguageFromLocale(german));
    UstEnv written;
    ASSERT_TRUE(GetProfileStruct(file, ENV_SECTION, ENV_KEY, &written, sizeof written));
    EXPECT_EQ(+written.nLanguage, 9);
    // The stored language wins over the system's.
    EXPECT_EQ(ChooseLanguage(file, korean), 9);
    // A file cut by one digit reads as failed: the system's language is used.
    std::string text = ReadFile(file);
    text.erase(text.size() - 3, 1);
    WriteFile(file, text);
    EXPECT_EQ(ChooseLanguage(file, korean), 18);
}

TEST(Language, TheChosenTranslationIsInstalled) {
    const char* frame = "orv::CMainFrame";
    {
        QTranslator translator, toolkit;
        ASSERT_TRUE(InstallTranslation(18, ":/i18n", translator, toolkit));
        EXPECT_EQ(QCoreApplication::translate(frame, "Initializing..."),
                  QString::fromUtf8("초기화 중..."));
    }  // a translator leaves the application when it goes
    QTranslator translator, toolkit;
    ASSERT_TRUE(InstallTranslation(9, ":/i18n", translator, toolkit));
    EXPECT_EQ(QCoreApplication::translate(frame, "Initializing..."), "Initializing...");
}

// Clocks take their names from the interface, whatever locales the system has.
TEST(Language, ClocksNameDaysAndHalvesInTheInterfacesLanguage) {
    std::tm saturday{};
    saturday.tm_mon = 10;
    saturday.tm_mday = 15;
    saturday.tm_wday = 6;
    saturday.tm_hour = 21;
    const UstTCSetting date{1, 0, 6, 0, 0, 0}, evening{1, 0, 1, 0, 0, 0};
    {
        QTranslator translator, toolkit;
        ASSERT_TRUE(InstallTranslation(18, ":/i18n", translator, toolkit));
        const UstClockNames names = InterfaceClockNames();
        EXPECT_EQ(FormatClock(date, saturday, names), QString::fromUtf8("11.15(토)"));
        EXPECT_EQ(FormatClock(evening, saturday, names), QString::fromUtf8("9:00 오후"));
    }
    QTranslator translator, toolkit;
    ASSERT_TRUE(InstallTranslation(9, ":/i18n", translator, toolkit));
    EXPECT_EQ(FormatClock(date, saturday, InterfaceClockNames()), "11.15(Saturday)");
    EXPECT_EQ(FormatClock(evening, saturday, InterfaceClockNames()), "9:00 PM");
}

}  // namespace
}  // namespace orv
