#pragma once
// The animation commands of orvantis-cli. Each takes the arguments behind
// its name and answers the process's exit code: 0 done, 1 a file that does
// not load, is damaged or cannot be written, 2 bad usage.

#include <QString>

#include <vector>

namespace orv::cli {

int SequenceToAni(const std::vector<QString>& args);  // OUT.ani32 FILES... | FOLDER
int AniInfo(const std::vector<QString>& args);        // FILE
int AniFrame(const std::vector<QString>& args);       // FILE N OUT.png

}  // namespace orv::cli
