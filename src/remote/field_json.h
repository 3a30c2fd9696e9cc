#pragma once
// Field values as clients send them: one JSON object of names and values.

#include <QJsonObject>

#include <string>

#include "objects/text_fields.h"

namespace orv {

// JSON text into field values: an object whose values are strings,
// numbers, booleans or null (an empty value). False with a message for
// anything else, nesting included.
bool ParseFieldJson(const std::string& json, FieldValues& out, std::string& error);
// The same for an object already read.
bool FieldsFromJson(const QJsonObject& object, FieldValues& out, std::string& error);

}  // namespace orv
