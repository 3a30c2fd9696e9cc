#pragma once
// The operator's Faster (+) and Slower (-) keys. They act on a Roll or Crawl
// page only and change the page's own request, which the roll reads again
// on every sub-step: the page speeds up or slows down while it moves, and
// keeps the new speed for its next run.

namespace orv {

class CPageManager;

// One step up, at most 10; one step down, at least 1. True when the speed
// changed. Safe while the page rolls on the drawing thread.
bool Faster(CPageManager* page);
bool Slower(CPageManager* page);

}  // namespace orv
