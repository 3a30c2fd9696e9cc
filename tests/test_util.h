#pragma once
// Helpers shared by the tests.

#include <QTemporaryDir>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace orv::test {

inline std::string ReadFile(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

inline void WriteFile(const std::filesystem::path& p, const std::string& text) {
    std::ofstream out(p, std::ios::binary);
    out << text;
}

inline std::filesystem::path TempPath(const QTemporaryDir& dir, const char* name) {
    return std::filesystem::path(dir.path().toStdString()) / name;
}

// A little-endian value read straight from a record's bytes at an offset, so
// that tests check the layout and not the field names.
template <typename T, typename R>
T At(const R& record, size_t offset) {
    T v;
    std::memcpy(&v, reinterpret_cast<const uint8_t*>(&record) + offset, sizeof v);
    return v;
}

}  // namespace orv::test
