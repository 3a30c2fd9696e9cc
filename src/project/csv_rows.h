#pragma once
// Rows of field values from a CSV file: the header names the fields, every
// row after it is one take. Commas, double quotes around a value with
// doubled quotes inside, CR LF or LF line ends, a UTF-8 byte order mark.

#include <QByteArray>
#include <QString>

#include <vector>

#include "objects/text_fields.h"

namespace orv {

constexpr qint64 CSV_MAX_BYTES = 16 << 20;

// False with a message on an unclosed quote or a header without names;
// short rows leave their missing fields empty, long ones lose the extra.
bool ParseCsvRows(const QByteArray& bytes, std::vector<FieldValues>& rows, QString* error);
bool ReadCsvRows(const QString& path, std::vector<FieldValues>& rows, QString* error);

}  // namespace orv
