#include "import_commands.h"

#include <QElapsedTimer>

#include <cstdio>
#include <string>

#include "import/slide_import.h"
#include "import/text_import.h"
#include "project/project_manager.h"
#include "project/settings_records.h"
#include "project_commands.h"
#include "render/font_service.h"

namespace orv::cli {

namespace {

std::string Local(const QString& text) {
    return text.toLocal8Bit().toStdString();
}

int Usage(const char* command, const char* why) {
    std::fprintf(stderr, "orvantis-cli %s: %s (see orvantis-cli --help)\n", command, why);
    return EXIT_USAGE;
}

int Failure(const QString& file, const QString& why) {
    std::fprintf(stderr, "orvantis-cli: %s: %s\n", Local(file).c_str(), Local(why).c_str());
    return EXIT_FAILED;
}

struct UstTextArgs {
    QString project, file;
    int lines = 2;
    bool append = false;
};

// Null on success, else what is wrong with the arguments.
const char* ParseTextArgs(const std::vector<QString>& args, UstTextArgs& out) {
    std::vector<QString> files;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--append") {
            out.append = true;
        } else if (args[i] == "--lines") {
            bool ok = false;
            out.lines = i + 1 < args.size() ? args[++i].toInt(&ok) : 0;
            if (!ok || out.lines < 1 || out.lines > 100) return "--lines takes 1 to 100";
        } else if (args[i].startsWith("--")) {
            return "unknown option";
        } else {
            files.push_back(args[i]);
        }
    }
    if (files.size() != 2) return "give the project file and the text file";
    out.project = files[0];
    out.file = files[1];
    return nullptr;
}

bool LoadAndFolder(CProjectManager& project, const QString& path, int* code) {
    QString error;
    if (project.LoadProject(path, &error)) return true;
    *code = Failure(path, error);
    return false;
}

int Save(CProjectManager& project, const QString& path) {
    QString error;
    return project.SaveProject(path, &error) ? EXIT_OK : Failure(path, error);
}

QString SlideFailure(const UstSlideReport& report) {
    switch (report.result) {
        case ESlideResult::NO_CONVERTER:
            return QStringLiteral("LibreOffice is not installed; install the package %1")
                .arg(QString::fromLatin1(SLIDE_CONVERTER_PACKAGE));
        case ESlideResult::TIMED_OUT:
            return QStringLiteral("LibreOffice did not finish in time");
        default:
            return report.strDetail.isEmpty() ? QStringLiteral("the slides could not be imported")
                                              : report.strDetail;
    }
}

}  // namespace

int ImportText(const std::vector<QString>& args) {
    UstTextArgs a;
    if (const char* why = ParseTextArgs(args, a)) return Usage("import-text", why);
    QString text, error;
    if (!ReadTextFile(a.file, text, &error)) return Failure(a.file, error);
    CProjectManager project;
    int code = EXIT_OK;
    if (!LoadAndFolder(project, a.project, &code)) return code;
    UstTextImport values = DefaultTextImport(project.m_nWidth, project.m_nHeight);
    values.text = text;
    values.nLinesPerPage = a.lines;
    values.bAppend = a.append;
    const UstDefaultAttr look = MakeDefaultDefaultAttr(DefaultGuiFaceName());
    const int made = InsertTextPages(project, look, values);
    if (made == 0) return Failure(a.file, QStringLiteral("the text makes no pages"));
    if ((code = Save(project, a.project)) != EXIT_OK) return code;
    std::printf("%d pages imported, %d in the project\n", made, project.PageCount());
    return EXIT_OK;
}

int ImportSlides(const std::vector<QString>& args) {
    if (args.size() != 2) return Usage("import-slides", "give the project file and the slide show");
    CProjectManager project;
    int code = EXIT_OK;
    if (!LoadAndFolder(project, args[0], &code)) return code;
    QElapsedTimer clock;
    clock.start();
    const UstSlideReport report = ImportPowerPoint(project, args[1], true);
    if (report.result == ESlideResult::NO_SLIDES)
        return Failure(args[1], QStringLiteral("the presentation has no slides"));
    if (report.result != ESlideResult::DONE) return Failure(args[1], SlideFailure(report));
    if ((code = Save(project, args[0])) != EXIT_OK) return code;
    std::printf("%d slides imported in %.1f s, %d pages in the project\n", report.nPages,
                static_cast<double>(clock.elapsed()) / 1000.0, project.PageCount());
    return EXIT_OK;
}

}  // namespace orv::cli
