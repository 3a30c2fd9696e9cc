#pragma once
// Reading and writing the two settings files. A damaged file gives the
// defaults and is left alone until the next proper exit writes it anew.

#include <filesystem>
#include <string>

#include "project/settings_records.h"

namespace orv {

enum class ELoadResult { READ, CREATED, DEFAULTS };

inline constexpr const char* ENV_SECTION = "QRD_ENV_INI";
inline constexpr const char* ENV_KEY = "env_ini";
inline constexpr const char* DATA_SECTION = "QRD_DATA_INI";
inline constexpr const char* DATA_KEY = "default attribute";

// Missing file: defaults, written at once. Present but unreadable: defaults,
// not written.
ELoadResult LoadEnv(const std::filesystem::path& file, UstEnv& env, uint16_t systemLanguage);
ELoadResult LoadDefaultAttr(const std::filesystem::path& file, UstDefaultAttr& attr,
                            const std::u16string& guiFace);

bool SaveEnv(const std::filesystem::path& file, const UstEnv& env);
bool SaveDefaultAttr(const std::filesystem::path& file, const UstDefaultAttr& attr);

}  // namespace orv
