#pragma once
// Data fields: a text whose characters hold `{{name}}` is a template. The
// editor shows it as typed; on air each placeholder gives way to the value
// of its name in the page's data, or to nothing when there is none, so that
// a lower third never goes out with braces in it.

#include <QString>

#include <map>
#include <vector>

#include "render/text_records.h"

namespace orv {

using FieldValues = std::map<QString, QString>;

// Names longer than this are not fields: "{{" followed by a paragraph is
// more likely prose than a template.
constexpr int FIELD_NAME_MAX = 64;

struct UstFieldSpan {
    int nFrom = 0, nTo = 0;  // the placeholder's characters, braces included
    QString strName;         // trimmed of blanks
};

// Every well-formed placeholder, head to tail.
std::vector<UstFieldSpan> FindFields(const std::vector<UstCharAttr>& chars);
// The distinct names, in the order they first appear.
std::vector<QString> FieldNames(const std::vector<UstCharAttr>& chars);
// The characters with each placeholder replaced by its value. The value's
// characters take the look of the placeholder's first brace; a line feed
// in a value ends a line. The new characters still have to be measured.
std::vector<UstCharAttr> FillFields(const std::vector<UstCharAttr>& chars,
                                    const FieldValues& values);

}  // namespace orv
