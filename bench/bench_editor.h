#pragma once
// An editor main window over one empty project, shown at the given size,
// its settings and folders in a scratch home, for the benchmarks of the
// editor's own widgets.

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <filesystem>

#include "project/folders.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

class CBenchEditor {
public:
    CBenchEditor(int width, int height) : m_folders(ScratchFolders(m_home)), m_frame(m_folders, 9) {
        m_frame.OnCreate();
        view = m_frame.AddProjectWindow(new orv::CZevrantDoc(&m_frame));
        m_frame.resize(width, height);
        m_frame.show();
        QApplication::processEvents();
    }
    ~CBenchEditor() { m_frame.hide(); }
    orv::CMainFrame& Frame() { return m_frame; }

    orv::CZevrantView* view = nullptr;

private:
    // Made before the window reads its settings: the folders exist and the
    // settings file is the scratch home's.
    static orv::UstFolders ScratchFolders(const QTemporaryDir& home) {
        const std::filesystem::path root = home.path().toStdString();
        const orv::UstFolders folders = orv::ResolveFolders({"", "", root.string()}, root);
        orv::CreateWellKnownFolders(folders);
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
        return folders;
    }

    QTemporaryDir m_home;
    orv::UstFolders m_folders;
    orv::CMainFrame m_frame;
};
