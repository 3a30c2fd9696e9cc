#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include <cstdio>
#include <optional>

#include "remote/control_server.h"
#include "shell/app_object.h"
#include "ui/app_host.h"

namespace {

// The output options, for this run only: board.ini keeps what the
// Hardware Configuration dialog chose.
bool ReadCommandLine(const QStringList& arguments, orv::UstBoardOptions& options,
                     QStringList& projects, std::optional<orv::UstControlOptions>& control) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Orvantis-HD, the broadcast character generator.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {"output", "Where frames go: card, null, monitor, file:PATH.mkv or srt://HOST:PORT.",
         "output"},
        {"mode",
         "Video mode: ntsc, pal, 720p50, 720p5994, 720p60, 1080i50, 1080i5994, "
         "1080p2398, 1080p24, 1080p25, 1080p2997, 1080p30, 1080p50, 1080p5994, 1080p60.",
         "mode"},
        {"queue", "Frames the output may hold before the playout waits (2 to 16).", "frames"},
        {"control",
         "Take commands from automation in play mode on [ADDR:]PORT (HTTP on PORT+1), "
         "whatever Options say; any address but loopback needs ORVANTIS_CONTROL_TOKEN.",
         "[addr:]port"},
    });
    parser.addPositionalArgument("project", "A project to open: its folder or its project.qrdprj.",
                                 "[project]");
    parser.process(arguments);
    projects = parser.positionalArguments();
    if (parser.isSet("control")) {
        QString error;
        control.emplace();
        if (!orv::ReadControlArgument(parser.value("control"), *control, error)) {
            std::fprintf(stderr, "orvantis: %s\n", error.toLocal8Bit().constData());
            return false;
        }
    }
    for (const char* name : {"output", "mode", "queue"}) {
        if (!parser.isSet(name)) continue;
        std::string error;
        if (!orv::ApplyBoardOption(name, parser.value(name).toStdString(), options, error)) {
            std::fprintf(stderr, "orvantis: %s\n", error.c_str());
            return false;
        }
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication qapp(argc, argv);
    QApplication::setApplicationVersion(orv::VERSION_TEXT);
    orv::UstBoardOptions options;
    QStringList projects;
    std::optional<orv::UstControlOptions> control;
    if (!ReadCommandLine(QApplication::arguments(), options, projects, control)) return 2;
    orv::CZevrantApp app;
    app.SetBoardOptions(options);
    orv::CAppHost host(app, projects);
    if (control) host.SetControlOverride(*control);
    const std::filesystem::path programFolder =
        QDir(QApplication::applicationDirPath()).absolutePath().toStdString();
    switch (app.InitInstance(host, programFolder)) {
        case orv::EStartResult::ALREADY_RUNNING:
            return 0;
        case orv::EStartResult::FAILED:
            return 1;
        case orv::EStartResult::STARTED:
            break;
    }
    const int code = QApplication::exec();
    host.DestroyMainFrame();
    app.ExitInstance();
    return code;
}
