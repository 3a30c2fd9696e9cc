#pragma once
// orvantis-cli play: a project's pages to an output with no window, by the
// list machine or the automatic loop of the play engine.

namespace orv::cli {

int PlayProject(int argc, char** argv);

}  // namespace orv::cli
