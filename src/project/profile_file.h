#pragma once
// Initialisation files in the classic section/key text format. The program's
// settings are whole binary records stored as one hexadecimal value per key,
// so that the files stay exchangeable with other installations.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orv {

// The value of key in section, or nothing when the file, section or key is
// missing or the file cannot be read. Section and key compare without case.
std::optional<std::string> ReadProfileString(const std::filesystem::path& file,
                                             std::string_view section, std::string_view key);

// Sets key in section, keeping every other line of the file. The file is
// replaced in one step, so a failure never leaves it half written.
bool WriteProfileString(const std::filesystem::path& file, std::string_view section,
                        std::string_view key, std::string_view value);

// Each byte as two upper-case hexadecimal digits, then the low 8 bits of the
// sum of all bytes as two more.
std::string EncodeProfileStruct(const void* data, size_t size);

// The reverse; fails on a wrong length, a digit that is not hexadecimal or a
// wrong checksum, and then leaves data as it was.
bool DecodeProfileStruct(std::string_view text, void* data, size_t size);

bool GetProfileStruct(const std::filesystem::path& file, std::string_view section,
                      std::string_view key, void* data, size_t size);
bool WriteProfileStruct(const std::filesystem::path& file, std::string_view section,
                        std::string_view key, const void* data, size_t size);

}  // namespace orv
