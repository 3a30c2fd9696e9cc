#pragma once
// What `orvantis-cli info` says about a loaded project: a readable listing,
// or one JSON object for scripts.

#include <string>

#include "project/project_manager.h"

namespace orv::cli {

// The header as the file holds it, then per page its type, effect settings,
// background and objects with kind, box and text; members of groups
// indented under them.
std::string DescribeProject(const CProjectManager& project, const UstProjectHeader& header);

// {"version": 1.3, "width": W, "height": H, "pages": [...]} on one line.
std::string DescribeProjectJson(const CProjectManager& project, const UstProjectHeader& header);

// The shortest decimal that reads back as the same float: 1.3, not 1.29999995.
std::string ShortFloat(float value);

// A string as JSON writes it, quotes included.
std::string JsonString(const QString& text);

}  // namespace orv::cli
