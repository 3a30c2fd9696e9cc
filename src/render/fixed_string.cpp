#include "render/fixed_string.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace orv {

QString FixedToQString(const void* field, size_t capacity) {
    std::u16string units(capacity, u'\0');
    std::memcpy(units.data(), field, capacity * sizeof(char16_t));
    const size_t n = units.find(u'\0');
    return QString::fromStdU16String(n == std::u16string::npos ? units : units.substr(0, n));
}

void QStringToFixed(const QString& text, void* field, size_t capacity) {
    std::u16string units(capacity, u'\0');
    if (capacity > 0) {
        size_t n = std::min(static_cast<size_t>(text.size()), capacity - 1);
        // Never leave half of a surrogate pair at the end.
        if (n > 0 && QChar::isHighSurrogate(text.at(static_cast<qsizetype>(n - 1)).unicode())) --n;
        for (size_t i = 0; i < n; ++i)
            units[i] = text.at(static_cast<qsizetype>(i)).unicode();
    }
    std::memcpy(field, units.data(), capacity * sizeof(char16_t));
}

}  // namespace orv
