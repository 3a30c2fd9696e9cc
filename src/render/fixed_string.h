#pragma once
// Fixed-size, zero-terminated UTF-16 text fields of packed records.

#include <QString>

#include <cstddef>

namespace orv {

// Fixed-size, zero-terminated UTF-16 fields as strings, and back (cut to fit).
// The fields sit at any byte offset inside packed records, so they are
// reached through byte copies, never through a char16_t reference.
QString FixedToQString(const void* field, size_t capacity);
void QStringToFixed(const QString& text, void* field, size_t capacity);

template <size_t N>
QString FixedToQString(const char16_t (*field)[N]) {
    return FixedToQString(static_cast<const void*>(field), N);
}
template <size_t N>
void QStringToFixed(const QString& text, char16_t (*field)[N]) {
    QStringToFixed(text, static_cast<void*>(field), N);
}

}  // namespace orv
