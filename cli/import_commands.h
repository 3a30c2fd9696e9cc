#pragma once
// Text files and slide shows turned into pages of a project, headless, for
// playout servers that are fed by a newsroom.

#include <QString>

#include <vector>

namespace orv::cli {

int ImportText(const std::vector<QString>& args);    // PROJECT FILE [--lines N] [--append]
int ImportSlides(const std::vector<QString>& args);  // PROJECT FILE

}  // namespace orv::cli
