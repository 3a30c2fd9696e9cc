// A scripted editing session for the soak of projects on disk: it opens a
// project the way the editor does, then edits and saves it at random until
// it is killed. Every step it takes is written to a log and synchronised
// before the next one, so that whoever killed it knows which states the
// project may hold on disk: the one it opened, or the last one a save began.
//
//   orv_project_session PROJECT_FOLDER LOG_FILE SEED
//
// The state is a step counter kept in the first page's in-delay, with the
// page count beside it. Exit 3 means the project did not open.

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QThread>

#include <cstdio>
#include <random>

#include "project/page_manager.h"
#include "ui/zevrant_doc.h"

namespace {

using orv::CProjectManager;

class CSessionLog {
public:
    explicit CSessionLog(const char* path)
        : m_fd(::open(path, O_WRONLY | O_CREAT | O_APPEND, 0644)) {}
    ~CSessionLog() {
        if (m_fd >= 0) ::close(m_fd);
    }
    bool IsOpen() const { return m_fd >= 0; }
    void Write(const char* what, const CProjectManager& project) {
        const orv::CPageManager* first = project.GetPage(0);
        char line[96];
        const int n =
            std::snprintf(line, sizeof line, "%s %d %d\n", what,
                          first ? int(first->m_effect.nInDelay) : -1, project.PageCount());
        if (::write(m_fd, line, size_t(n)) != n) std::perror("log");
        ::fsync(m_fd);
    }

private:
    int m_fd;
};

// One edit: the counter on the first page moves on; now and then a page
// comes or goes so that the file changes size too.
void Edit(CProjectManager& project, std::mt19937& rng) {
    if (project.PageCount() == 0) project.ExecCommand(nullptr, orv::CMD_NEW_PAGE);
    const int first = 0;
    project.ExecCommand(&first, orv::CMD_GO_TO_PAGE);
    const int32_t next = project.GetPage(0)->m_effect.nInDelay + 1;
    project.SetPagesEffectValue(&next, 762);
    project.SetProjectModified();
    const int roll = int(rng() % 6);
    if (roll == 0 && project.PageCount() < 40) {
        project.ExecCommand(nullptr, orv::CMD_NEW_PAGE);
    } else if (roll == 1 && project.PageCount() > 1) {
        const int last = project.PageCount() - 1;
        project.ExecCommand(&last, orv::CMD_GO_TO_PAGE);
        project.ExecCommand(nullptr, orv::CMD_DELETE_PAGES);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s PROJECT_FOLDER LOG_FILE SEED\n", argv[0]);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    CSessionLog log(argv[2]);
    if (!log.IsOpen()) {
        std::perror(argv[2]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const orv::UstProjectPaths paths = orv::ProjectPathsFor(folder);
    QString error;
    // The first round starts from a new project, as the editor does on its first start.
    // A first round killed while it made the folder leaves it half made.
    if (!QFile::exists(paths.strProjectPath) && !QFile::exists(paths.strBackupPath)) {
        QDir(folder).removeRecursively();
        if (!orv::CreateProjectFolder(folder, 1920, 1080, &error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 3;
        }
    }
    orv::CZevrantDoc doc;
    QString notice;
    if (!doc.OpenDocument(folder, &error, &notice)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 3;
    }
    CProjectManager& project = doc.Project();
    log.Write(doc.m_bFromBackup ? "recovered" : "opened", project);
    // Saves are whole or absent: a working file found damaged is a fault.
    if (!notice.isEmpty()) log.Write("damaged", project);
    std::mt19937 rng(unsigned(std::atoi(argv[3])));
    for (int step = 0;; ++step) {
        Edit(project, rng);
        QThread::usleep(rng() % 20000);
        const int choice = int(rng() % 8);
        if (choice < 3) {
            log.Write("saving", project);
            const QString saved = choice == 0 ? doc.AutoSave() : doc.Save(&error);
            if (saved.isEmpty()) {
                std::fprintf(stderr, "save failed: %s\n", qPrintable(error));
                return 4;
            }
            log.Write("saved", project);
        } else if (choice == 3 && rng() % 40 == 0) {
            // Now and then the session ends cleanly, keeping its work.
            log.Write("closing", project);
            doc.CloseDocument(false, false, [] { return true; });
            log.Write("closed", project);
            return 0;
        }
    }
}
