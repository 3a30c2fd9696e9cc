// Rows 0 and 1: pages longer than the screen, moved through the canvas in
// strips. Run has made the strip count and started the strip thread; the
// passes themselves come with the strips.
#include "playout/effect_decklink.h"

namespace orv {

void EffectDecklink::RollEffect(int*, int, const int*) {
    EndWorker(WORKER_STRIP);
}

void EffectDecklink::CrawlEffect(int*, int, const int*) {
    EndWorker(WORKER_STRIP);
}

}  // namespace orv
