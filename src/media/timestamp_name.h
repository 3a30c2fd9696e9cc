#pragma once
// Seventeen digits of local time to the millisecond: the names of media
// copies, converted animations, thumbnails and style files.

#include <QDateTime>
#include <QString>

namespace orv {

QString TimestampName(const QDateTime& when);
QString MakeTimestampName();  // of now
// A timestamp name with the suffix that is free in the folder, after up to
// five tries a millisecond apart; empty when none was free.
QString FreeTimestampName(const QString& folder, const QString& suffix);

}  // namespace orv
