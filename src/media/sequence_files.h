#pragma once
// Numbered sequences of TGA or PNG files: which files belong together and
// in which order they play.

#include <QString>
#include <QStringList>

namespace orv {

// TGA or PNG, by extension in any case.
bool IsSequenceImage(const QString& file);
// The number in a file name: its last run of digits before the extension,
// or -1 when it has none.
qint64 SequenceNumber(const QString& file);
// By that number; equal numbers, and names without one (last), by name.
QStringList SortByNumber(QStringList files);
// The TGA and PNG files of a folder, names only, in play order.
QStringList SequenceInFolder(const QString& folder);
// The names of the files in the folder of one file that differ from it
// only in their number, in play order; the file alone when it has none.
QStringList SequenceAround(const QString& file);

}  // namespace orv
