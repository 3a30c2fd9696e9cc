#include <QCoreApplication>
#include <QString>

#include <cstdio>
#include <cstring>
#include <vector>

#include "import_commands.h"
#include "media/avi_player.h"
#include "media_commands.h"
#include "orv_version.h"
#include "output_commands.h"
#include "play_command.h"
#include "project_commands.h"
#include "samples/demo_page.h"
#include "transition_command.h"

namespace {

const char* const HELP =
    "Usage: orvantis-cli [--help] [--version]\n"
    "       orvantis-cli demo OUT.png\n"
    "       orvantis-cli modes\n"
    "       orvantis-cli output [--output DEST] [--mode MODE] [--frames N] [--queue N]\n"
    "       orvantis-cli frames FILE.mkv DIR\n"
    "       orvantis-cli info [--json] PROJECT\n"
    "       orvantis-cli resave PROJECT OUT\n"
    "       orvantis-cli render PROJECT PAGE OUT.png|OUT.tga\n"
    "       orvantis-cli export-all PROJECT DIR\n"
    "       orvantis-cli seq2ani OUT.ani32 FILES...|FOLDER\n"
    "       orvantis-cli ani-info FILE\n"
    "       orvantis-cli ani-frame FILE N OUT.png\n"
    "       orvantis-cli transition PROJECT PAGE --in N --out M [options]\n"
    "       orvantis-cli transition PROJECT PAGE --roll [options]\n"
    "       orvantis-cli play PROJECT [options] --output DEST\n"
    "       orvantis-cli import-text PROJECT FILE [--lines N] [--append]\n"
    "       orvantis-cli import-slides PROJECT FILE\n"
    "\n"
    "The headless companion of the Orvantis-HD editor. PROJECT is a project\n"
    "file (project.qrdprj); its Data and Object folders lie beside it.\n"
    "\n"
    "  --help        show this text\n"
    "  --version     show the version\n"
    "  demo OUT.png  render the built-in sample page at 1920 x 1080 and save it\n"
    "                as a PNG; what the page leaves empty stays transparent\n"
    "  modes         list the output card's modes, or the standard ones without a\n"
    "                card, with the short names that --mode takes\n"
    "  output        play a test card with a moving box to an output, paced by it,\n"
    "                for N frames (250); exits 1 if the output failed\n"
    "      --output DEST  null (the default: the clock alone), card,\n"
    "                     file:PATH.mkv (lossless FFV1, fill and key in BGRA) or\n"
    "                     srt://HOST:PORT (H.264 in MPEG-TS, fill over black)\n"
    "      --mode MODE    ntsc, pal, 720p50, 720p5994, 720p60, 1080i50, 1080i5994,\n"
    "                     1080p2398, 1080p24, 1080p25, 1080p2997, 1080p30, 1080p50,\n"
    "                     1080p5994, 1080p60 (default 1080i5994)\n"
    "      --queue N      frames the output may hold before the playout waits (3)\n"
    "  frames FILE.mkv DIR\n"
    "                write each frame of a file output to DIR as a PNG with its key\n"
    "  info          the header, and per page its type, effect settings and\n"
    "                objects with their kind, box and text; --json prints one\n"
    "                JSON object instead\n"
    "  resave        load the project and save it as OUT\n"
    "  render        draw page PAGE (counted from 1) at the frame size, as it\n"
    "                goes to air, with its transparency\n"
    "  export-all    every page as DIR/page001.png, page002.png, ...\n"
    "  seq2ani       convert TGA or PNG pictures to an ANI32 animation: the\n"
    "                files in the order given, or the pictures of a folder in\n"
    "                the order of the number in their names; pictures of\n"
    "                another size than the first are left out\n"
    "  ani-info      frame count, size and rate of an ANI32, QRDANI or video\n"
    "                file, and for the first two each frame's offset checked\n"
    "  ani-frame     frame N (counted from 0) of an animation or video as a PNG\n"
    "\n"
    "  transition PROJECT PAGE --in N --out M\n"
    "                take page PAGE on air and off again with the transitions N and\n"
    "                M (2 to 34, as the gallery numbers them from \"No transition\");\n"
    "                PROJECT 'demo' stands for the built-in sample page, PAGE 1\n"
    "      --speed S      1 to 10, for both (4)\n"
    "      --fade         the key fades with both\n"
    "      --hold N       frames on air between the two (1)\n"
    "      --mode MODE    as for output (by default the mode of the project's\n"
    "                     frame size, 1080i5994 for 1920 x 1080)\n"
    "      --sheet OUT.png  a contact sheet of 24 evenly spaced frames, each with\n"
    "                     its number, stage and key level\n"
    "      --output DEST  play in real time to an output, as for output\n"
    "  transition PROJECT PAGE --roll\n"
    "                roll or crawl a Roll or Crawl page of a project through its\n"
    "                passes; 'demo 1' is built-in end credits that roll, 'demo 2'\n"
    "                the same crawling\n"
    "      --speed S      1 to 10 (the page's own)\n"
    "      --repeat N     passes after the first (the page's own)\n"
    "      --delay S      seconds between passes (the page's own)\n"
    "      --faster F, --slower F   press Faster (+) or Slower (-) at output\n"
    "                     frame F; each may be given several times\n"
    "      --mode, --sheet, --output  as above\n"
    "\n"
    "  play PROJECT --output DEST\n"
    "                take the project's pages to an output through the play engine,\n"
    "                one line per state (seconds, page, state); SIGINT or SIGTERM\n"
    "                stops the page on air and closes the output cleanly\n"
    "      --pages A-B    the pages to play, counted from 1 (all); an end before\n"
    "                     the start plays the start page alone\n"
    "      --auto         the automatic list: each page held for its in delay,\n"
    "                     the output left empty for its out delay; without it the\n"
    "                     pages are stepped by Run after the same delays\n"
    "      --repeat N     passes over the pages with --auto, 0 without end (1)\n"
    "      --ignore-discarded  play the pages marked as discarded too\n"
    "      --mode MODE    as for output (by default the mode of the project's\n"
    "                     frame size)\n"
    "      --output DEST  card, file:PATH.mkv, srt://HOST:PORT or null, as for\n"
    "                     output\n"
    "      --control [ADDR:]PORT  take commands from the control server's line\n"
    "                     protocol instead (127.0.0.1 unless an address is given;\n"
    "                     any other address needs ORVANTIS_CONTROL_TOKEN); runs\n"
    "                     until SIGINT or SIGTERM\n"
    "\n"
    "  import-text PROJECT FILE\n"
    "                make pages of a text file and save the project: a line that\n"
    "                holds only // ends a page, else the text is wrapped at the\n"
    "                margins and cut every N lines; UTF-8, UTF-16 with a mark or\n"
    "                CP949; the pages go behind the first page\n"
    "      --lines N      lines per page, 1 to 100 (2)\n"
    "      --append       the pages go at the end of the project\n"
    "  import-slides PROJECT FILE\n"
    "                one page per slide of a presentation (PPTX, PPT, ODP, through\n"
    "                LibreOffice) or of a PDF, the slide as the page's background\n"
    "                in the Object folder, at the end of the project\n"
    "\n"
    "info, resave, render, export-all, seq2ani, ani-info, ani-frame, transition,\n"
    "import-text and import-slides exit with 0 when done, 1 when a file does not\n"
    "load, is damaged, makes no pages or cannot be written (one line on stderr\n"
    "names the file and the reason), and 2 on bad usage. play exits with 0 when\n"
    "its list is used up or a signal stopped it, 1 when the project does not load\n"
    "or an output failed, 2 on bad usage.\n";

int Demo(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "orvantis-cli demo: the output file is missing\n\n%s", HELP);
        return 2;
    }
    if (argc > 3) {
        std::fprintf(stderr, "orvantis-cli demo: unexpected argument '%s'\n\n%s", argv[3], HELP);
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[2]);
    QString error;
    if (!orv::SavePngFile(orv::RenderDemoPage(), path, &error)) {
        std::fprintf(stderr, "orvantis-cli demo: %s\n", error.toLocal8Bit().constData());
        return 1;
    }
    std::printf("Sample page (%d x %d) written to %s\n", orv::DEMO_WIDTH, orv::DEMO_HEIGHT,
                argv[2]);
    return 0;
}

struct UstCommand {
    const char* name;
    int (*run)(const std::vector<QString>&);
};

constexpr UstCommand FILE_COMMANDS[] = {
    {"info", orv::cli::Info},
    {"resave", orv::cli::Resave},
    {"render", orv::cli::Render},
    {"export-all", orv::cli::ExportAll},
    {"seq2ani", orv::cli::SequenceToAni},
    {"ani-info", orv::cli::AniInfo},
    {"ani-frame", orv::cli::AniFrame},
    {"import-text", orv::cli::ImportText},
    {"import-slides", orv::cli::ImportSlides},
};

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 2 && std::strcmp(argv[1], "demo") == 0) return Demo(argc, argv);
    for (const UstCommand& c : FILE_COMMANDS) {
        if (argc < 2 || std::strcmp(argv[1], c.name) != 0) continue;
        // Image plug-ins for pictures and backgrounds are found through it.
        QCoreApplication app(argc, argv);
        orv::QuietMediaDiagnostics();
        std::vector<QString> args;
        for (int i = 2; i < argc; ++i)
            args.push_back(QString::fromLocal8Bit(argv[i]));
        return c.run(args);
    }
    if (argc >= 2 && std::strcmp(argv[1], "modes") == 0) return orv::cli::ListModes(argc, argv);
    if (argc >= 2 && std::strcmp(argv[1], "output") == 0) return orv::cli::PlayTestCard(argc, argv);
    if (argc >= 2 && std::strcmp(argv[1], "frames") == 0) return orv::cli::UnpackFrames(argc, argv);
    if (argc >= 2 && std::strcmp(argv[1], "transition") == 0)
        return orv::cli::PlayTransition(argc, argv);
    if (argc >= 2 && std::strcmp(argv[1], "play") == 0) return orv::cli::PlayProject(argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--version") == 0) {
            std::printf("orvantis-cli %s\n", orv::VERSION_TEXT);
            return 0;
        }
        if (std::strcmp(argv[i], "--help") != 0 && std::strcmp(argv[i], "-h") != 0) {
            std::fprintf(stderr, "orvantis-cli: unknown argument '%s'\n\n%s", argv[i], HELP);
            return 2;
        }
    }
    std::fputs(HELP, stdout);
    return 0;
}
