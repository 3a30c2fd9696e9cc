#pragma once
// Media that pages use are copied into the project's object folder, so that
// a project folder carries everything it shows. A source is copied into one
// folder once; a different file of the same name gets a timestamp name.

#include <QString>
#include <QStringList>

#include <vector>

#include "media/timestamp_name.h"

namespace orv {

// What this run of the program copied where: each row is a source followed
// by every copy made of it. Not part of any file.
class CFileLinkTable {
public:
    // The copy of the source inside the folder, or empty.
    QString CopyIn(const QString& source, const QString& folder) const;
    void Record(const QString& source, const QString& copy);

private:
    std::vector<QStringList> m_rows;
};

// Puts the source into the folder unless it is there already, and gives
// the name it has there. False, with nothing recorded, when the copy fails.
bool CopyToObjectFolder(const QString& source, QString& outName, const QString& objectFolder,
                        CFileLinkTable& links);

}  // namespace orv
