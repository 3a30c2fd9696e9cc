#pragma once
// Built-in pages longer than the screen, for the command line and the roll
// benchmark: end credits, screen after screen of styled names in columns,
// which roll up a Roll page or, laid side by side, crawl along a Crawl page.

#include <memory>
#include <vector>

#include "objects/qrd_object.h"

namespace orv {

struct UstCreditsPlan {
    int nScreens = 6;     // frames' worth of page along the movement
    int nColumns = 2;     // blocks across each screen
    int nLines = 8;       // lines in each block
    int nSize = 48;       // points
    bool bCrawl = false;  // screens side by side instead of one below the other
};

// The page's objects at full scale, on no page, for a w x h frame: one text
// per block, white with a black edge and a soft shadow, every line its own.
std::vector<std::unique_ptr<CQRDObject>> BuildCredits(const UstCreditsPlan& plan, int w, int h);

}  // namespace orv
