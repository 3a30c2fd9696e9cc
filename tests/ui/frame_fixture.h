#pragma once
// A main frame in a home of its own: folders, settings files and the window
// layout all land in a temporary directory.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

#include "project/folders.h"
#include "ui/main_frame.h"

namespace orv::test {

class CFrameFixture : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_home.isValid());
        const std::filesystem::path home = m_home.path().toStdString();
        m_folders = ResolveFolders({"", "", home.string()}, home);
        CreateWellKnownFolders(m_folders);
        QCoreApplication::setOrganizationName("Tavrix");
        QCoreApplication::setApplicationName("Orvantis-HD");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home.path());
    }
    std::unique_ptr<CMainFrame> MakeFrame(uint16_t language) {
        auto frame = std::make_unique<CMainFrame>(m_folders, language);
        EXPECT_TRUE(frame->OnCreate());
        return frame;
    }
    QTemporaryDir m_home;
    UstFolders m_folders;
};

}  // namespace orv::test
