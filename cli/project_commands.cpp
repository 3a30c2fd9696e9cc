#include "project_commands.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <cstdio>

#include "project_report.h"
#include "render/tga_file.h"
#include "samples/demo_page.h"

namespace orv::cli {

namespace {

std::string Local(const QString& text) {
    return text.toLocal8Bit().toStdString();
}

int Usage(const char* command, const std::string& why) {
    std::fprintf(stderr, "orvantis-cli %s: %s (see orvantis-cli --help)\n", command, why.c_str());
    return EXIT_USAGE;
}

// Every failure after the arguments made sense: one line naming the file.
int Failure(const QString& file, const QString& why) {
    std::fprintf(stderr, "orvantis-cli: %s: %s\n", Local(file).c_str(), Local(why).c_str());
    return EXIT_FAILED;
}

bool Load(CProjectManager& project, const QString& path, int* exitCode) {
    QString error;
    if (project.LoadProject(path, &error)) return true;
    *exitCode = Failure(path, error);
    return false;
}

UstProjectHeader HeaderOf(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.read(PROJECT_HEADER_AREA);
    CByteReader in(bytes.constData(), static_cast<size_t>(bytes.size()));
    return ReadProjectHeader(in);  // the load has read it already
}

// The page drawn at the project's frame size, premultiplied, with the
// transparency the page leaves.
QImage DrawPage(CPageManager& page, const CProjectManager& project) {
    QImage image(project.m_nWidth, project.m_nHeight, QImage::Format_ARGB32_Premultiplied);
    page.DrawToImage(reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height());
    return image;
}

bool WriteImage(const QImage& image, const QString& path, QString* error) {
    if (!path.endsWith(".tga", Qt::CaseInsensitive)) return SavePngFile(image, path, error);
    // As the editor exports a page: the premultiplied frame as it is.
    if (WriteTga32(reinterpret_cast<const uint32_t*>(image.constBits()), image.width(),
                   image.height(), QFile::encodeName(path).toStdString()))
        return true;
    *error = QStringLiteral("cannot write '%1'").arg(path);
    return false;
}

bool IsImageName(const QString& path) {
    return path.endsWith(".png", Qt::CaseInsensitive) || path.endsWith(".tga", Qt::CaseInsensitive);
}

}  // namespace

int Info(const std::vector<QString>& args) {
    const bool json = !args.empty() && args.front() == "--json";
    const size_t files = args.size() - (json ? 1 : 0);
    if (files != 1)
        return Usage("info", files ? "one project file only" : "the project file is missing");
    const QString path = args.back();
    CProjectManager project;
    int code = EXIT_OK;
    if (!Load(project, path, &code)) return code;
    const UstProjectHeader header = HeaderOf(path);
    const std::string text =
        json ? DescribeProjectJson(project, header) : DescribeProject(project, header);
    std::fputs(text.c_str(), stdout);
    return EXIT_OK;
}

int Resave(const std::vector<QString>& args) {
    if (args.size() != 2) return Usage("resave", "give the project file and the output file");
    const QString& in = args[0];
    const QString& out = args[1];
    CProjectManager project;
    int code = EXIT_OK;
    if (!Load(project, in, &code)) return code;
    // The save writes into the file without cutting it, so the output starts
    // as a copy: bytes the save does not reach stay as the input had them.
    const bool same = QFileInfo(in).canonicalFilePath() == QFileInfo(out).canonicalFilePath();
    if (!same) {
        QFile::remove(out);
        if (!QFile::copy(in, out)) return Failure(out, QStringLiteral("cannot be written"));
    }
    QString error;
    if (!project.SaveProject(out, &error)) return Failure(out, error);
    return EXIT_OK;
}

int Render(const std::vector<QString>& args) {
    if (args.size() != 3)
        return Usage("render", "give the project file, a page number and OUT.png or OUT.tga");
    bool ok = false;
    const int number = args[1].toInt(&ok);
    if (!ok || number < 1) return Usage("render", "the page number counts from 1");
    if (!IsImageName(args[2])) return Usage("render", "the output must end in .png or .tga");
    CProjectManager project;
    int code = EXIT_OK;
    if (!Load(project, args[0], &code)) return code;
    CPageManager* page = project.GetPage(number - 1);
    if (!page)
        return Usage("render", "the project has " + std::to_string(project.PageCount()) + " pages");
    QString error;
    if (!WriteImage(DrawPage(*page, project), args[2], &error)) return Failure(args[2], error);
    return EXIT_OK;
}

int ExportAll(const std::vector<QString>& args) {
    if (args.size() != 2) return Usage("export-all", "give the project file and a folder");
    CProjectManager project;
    int code = EXIT_OK;
    if (!Load(project, args[0], &code)) return code;
    const QDir dir(args[1]);
    if (!dir.exists() && !QDir().mkpath(args[1]))
        return Failure(args[1], QStringLiteral("the folder cannot be made"));
    for (int i = 0; i < project.PageCount(); ++i) {
        const QString path = dir.filePath(QString::asprintf("page%03d.png", i + 1));
        QString error;
        if (!WriteImage(DrawPage(*project.GetPage(i), project), path, &error))
            return Failure(path, error);
    }
    std::printf("%d pages written to %s\n", project.PageCount(), Local(args[1]).c_str());
    return EXIT_OK;
}

}  // namespace orv::cli
