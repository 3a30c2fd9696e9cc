#pragma once
// The output subcommands of orvantis-cli: the modes, a test card played to
// an output, and the frames of a file output unpacked to pictures.

namespace orv::cli {

int ListModes(int argc, char** argv);
int PlayTestCard(int argc, char** argv);
int UnpackFrames(int argc, char** argv);

}  // namespace orv::cli
