#include "playout/scroll_speed.h"

#include <algorithm>

#include "playout/effect_request.h"
#include "playout/effect_table.h"
#include "project/page_manager.h"

namespace orv {

namespace {

bool ChangeSpeed(CPageManager* page, int by) {
    if (!page || !page->IsScrollPage()) return false;
    int* request = RequestWords(page->m_effect);
    const int speed = LoadRequestWord(request, REQ_IN_SPEED);
    const int next = std::clamp(speed + by, 1, SPEED_COUNT);
    if (next == speed) return false;
    StoreRequestWord(request, REQ_IN_SPEED, next);
    return true;
}

}  // namespace

bool Faster(CPageManager* page) {
    return ChangeSpeed(page, 1);
}

bool Slower(CPageManager* page) {
    return ChangeSpeed(page, -1);
}

}  // namespace orv
