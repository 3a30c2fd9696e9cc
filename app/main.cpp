#include <QApplication>
#include <QDir>

#include "shell/app_object.h"
#include "ui/app_host.h"

int main(int argc, char** argv) {
    QApplication qapp(argc, argv);
    orv::CZevrantApp app;
    orv::CAppHost host(app, QApplication::arguments());
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
