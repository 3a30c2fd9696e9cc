#pragma once
// orvantis-cli transition ... --roll: a Roll or Crawl page through its
// passes, as a contact sheet of its frames or played in real time to an
// output, with the Faster and Slower keys pressed at chosen frames.

namespace orv::cli {

int PlayRoll(int argc, char** argv);

}  // namespace orv::cli
