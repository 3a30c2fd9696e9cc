// Writes the sample projects into a folder: for the command-line checks
// and as seeds of the project reader's fuzzer.
#include <QCoreApplication>

#include <cstdio>

#include "support/sample_projects.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_sample_projects FOLDER\n");
        return 2;
    }
    QCoreApplication app(argc, argv);
    const auto files = orv::test::WriteSampleProjects(QString::fromLocal8Bit(argv[1]));
    for (const QString& f : files)
        std::printf("%s\n", f.toLocal8Bit().constData());
    return files.empty() ? 1 : 0;
}
