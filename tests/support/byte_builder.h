#pragma once
// Bytes put together by hand, little-endian, for tests that check file
// layouts without going through the code's own writers.

#include <QString>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace orv::test {

class CBytes {
public:
    CBytes& U8(uint8_t v) { return Raw(&v, 1); }
    CBytes& U16(uint16_t v) { return Raw(&v, 2); }
    CBytes& U32(uint32_t v) { return Raw(&v, 4); }
    CBytes& I32(int32_t v) { return Raw(&v, 4); }
    CBytes& F32(float v) { return Raw(&v, 4); }
    CBytes& Raw(const void* p, size_t n) {
        const auto* b = static_cast<const uint8_t*>(p);
        data.insert(data.end(), b, b + n);
        return *this;
    }
    template <typename T>
    CBytes& Record(const T& record) {
        return Raw(&record, sizeof record);
    }
    CBytes& Ascii(const std::string& s) { return Raw(s.data(), s.size()); }
    // The tagged 16-bit form with a one-byte length (under 255 characters).
    CBytes& Wide(const QString& s) {
        U8(0xFF).U16(0xFFFE).U8(static_cast<uint8_t>(s.size()));
        return Raw(s.utf16(), static_cast<size_t>(s.size()) * 2);
    }
    // A new class record: tag, schema 0, name.
    CBytes& NewClass(const std::string& name, uint16_t schema = 0) {
        U16(0xFFFF).U16(schema).U16(static_cast<uint16_t>(name.size()));
        return Ascii(name);
    }
    // The twelve bytes every page and object body opens with.
    CBytes& Version(uint32_t hasOldRect = 0) { return F32(1.3f).F32(0.0f).U32(hasOldRect); }
    CBytes& Zeros(size_t n) {
        data.insert(data.end(), n, 0);
        return *this;
    }
    // Pads with zeros up to the offset.
    CBytes& PadTo(size_t offset) {
        if (data.size() < offset) Zeros(offset - data.size());
        return *this;
    }
    size_t Size() const { return data.size(); }
    std::string Str() const { return std::string(data.begin(), data.end()); }

    std::vector<uint8_t> data;
};

}  // namespace orv::test
