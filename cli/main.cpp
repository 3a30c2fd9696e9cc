#include <cstdio>
#include <cstring>

namespace {

const char* const HELP =
    "Usage: orvantis-cli [--help] [--version]\n"
    "\n"
    "The headless companion of the Orvantis-HD editor. It will render pages to\n"
    "images, report on and re-save projects, convert image sequences to ANI32\n"
    "and play a page to an output, as those parts of the system arrive.\n"
    "\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--version") == 0) {
            std::printf("orvantis-cli 1.62\n");
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
