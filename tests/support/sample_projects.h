#pragma once
// Small projects on disk made the way the editor makes them, for the tests,
// the command-line checks and the seeds of the project reader's fuzzer.

#include <QString>

#include <vector>

#include "project/project_manager.h"

namespace orv::test {

// A project folder with Data/, Object/ and a new project file, and a project
// in memory that lives there. The project file's path, empty on failure.
QString MakeProjectFolder(const QString& folder, CProjectManager& project);

// Every page's thumbnail made and marked for storing, then the save.
bool SaveWithThumbnails(CProjectManager& project, const QString& file);

// The samples, one folder each under root: "empty" (no page), "demo" (the
// sample page with a timer, an animation and a background), "pages" (Cut,
// Roll and Crawl pages), "sd" (a 640 x 480 project), "play" (three SD
// pages of one colour each), "live" (two SD pages with a blinking badge,
// an animated logo and typed lines) and "timers" (a clock and a
// countdown). Their files' paths.
std::vector<QString> WriteSampleProjects(const QString& root);

}  // namespace orv::test
