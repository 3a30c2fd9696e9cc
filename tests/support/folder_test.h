#pragma once
// A test with a temporary folder of its own and its files by name.

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "test_util.h"

namespace orv::test {

class CFolderTest : public ::testing::Test {
protected:
    QString Path(const QString& name) const { return QDir(dir.path()).filePath(name); }
    void Write(const QString& name, const std::string& bytes) const {
        WriteFile(Path(name).toStdString(), bytes);
    }
    std::string Read(const QString& name) const { return ReadFile(Path(name).toStdString()); }
    QStringList Files() const { return QDir(dir.path()).entryList(QDir::Files, QDir::Name); }
    QTemporaryDir dir;
};

}  // namespace orv::test
