#include "shell/settings_files.h"

#include <system_error>

#include "project/profile_file.h"

namespace orv {

namespace {

template <typename Record, typename MakeDefaults>
ELoadResult LoadRecord(const std::filesystem::path& file, const char* section, const char* key,
                       Record& rec, MakeDefaults makeDefaults) {
    std::error_code ec;
    if (!std::filesystem::exists(file, ec)) {
        rec = makeDefaults();
        WriteProfileStruct(file, section, key, &rec, sizeof rec);
        return ELoadResult::CREATED;
    }
    Record read;
    if (GetProfileStruct(file, section, key, &read, sizeof read)) {
        rec = read;
        return ELoadResult::READ;
    }
    rec = makeDefaults();
    return ELoadResult::DEFAULTS;
}

}  // namespace

ELoadResult LoadEnv(const std::filesystem::path& file, UstEnv& env, uint16_t systemLanguage) {
    return LoadRecord(file, ENV_SECTION, ENV_KEY, env,
                      [&] { return MakeDefaultEnv(systemLanguage); });
}

ELoadResult LoadDefaultAttr(const std::filesystem::path& file, UstDefaultAttr& attr,
                            const std::u16string& guiFace) {
    return LoadRecord(file, DATA_SECTION, DATA_KEY, attr,
                      [&] { return MakeDefaultDefaultAttr(guiFace); });
}

bool SaveEnv(const std::filesystem::path& file, const UstEnv& env) {
    return WriteProfileStruct(file, ENV_SECTION, ENV_KEY, &env, sizeof env);
}

bool SaveDefaultAttr(const std::filesystem::path& file, const UstDefaultAttr& attr) {
    return WriteProfileStruct(file, DATA_SECTION, DATA_KEY, &attr, sizeof attr);
}

}  // namespace orv
