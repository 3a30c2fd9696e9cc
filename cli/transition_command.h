#pragma once
// orvantis-cli transition: a page in and out through the transition engine,
// as a contact sheet of its frames or played in real time to an output.

namespace orv::cli {

int PlayTransition(int argc, char** argv);

}  // namespace orv::cli
