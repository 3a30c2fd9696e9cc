#pragma once
// The project commands of orvantis-cli. Each takes the arguments behind its
// name and answers the process's exit code.

#include <QString>

#include <vector>

namespace orv::cli {

constexpr int EXIT_OK = 0;
constexpr int EXIT_FAILED = 1;  // a file that does not load or cannot be written
constexpr int EXIT_USAGE = 2;

int Info(const std::vector<QString>& args);       // [--json] PROJECT
int Resave(const std::vector<QString>& args);     // PROJECT OUT
int Render(const std::vector<QString>& args);     // PROJECT PAGE OUT.(png|tga)
int ExportAll(const std::vector<QString>& args);  // PROJECT DIR

}  // namespace orv::cli
