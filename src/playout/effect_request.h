#pragma once
// The play request of a page as the engine sees it: the eleven words of its
// UstPageEffect. The user interface changes words while the engine runs (the
// speed of a roll, a setting edited in the ribbon), so both sides go through
// these loads and stores: single aligned words, never torn, with no order
// between them.

#include <atomic>
#include <cstdint>

#include "project/page_records.h"

namespace orv {

enum ERequestField : int {
    REQ_IN_EFFECT = 0,
    REQ_IN_SPEED = 1,
    REQ_IN_DELAY = 2,
    REQ_IN_FADE = 3,
    REQ_OUT_EFFECT = 4,
    REQ_OUT_SPEED = 5,
    REQ_OUT_DELAY = 6,
    REQ_OUT_FADE = 7,
    REQ_REPEAT = 8,
    REQ_SCROLL_DELAY = 9,
    REQ_DISCARD = 10,
    REQ_WORDS = 11
};

// The record is eleven 32-bit words and every holder keeps it on a word
// boundary.
inline int* RequestWords(UstPageEffect& effect) {
    return reinterpret_cast<int*>(&effect);
}

inline int LoadRequestWord(int* request, int field) {
    return std::atomic_ref<int>(request[field]).load(std::memory_order_relaxed);
}

inline void StoreRequestWord(int* request, int field, int value) {
    std::atomic_ref<int>(request[field]).store(value, std::memory_order_relaxed);
}

// The four fields of one phase: 0 reads the in fields, any other phase the
// out fields.
struct UstPhaseRequest {
    int nEffect = 0;
    int nSpeed = 1;
    int nDelay = 0;
    int bFade = 0;
};

inline UstPhaseRequest ReadPhaseRequest(int* request, int phase) {
    const int base = phase == 0 ? REQ_IN_EFFECT : REQ_OUT_EFFECT;
    return {LoadRequestWord(request, base), LoadRequestWord(request, base + 1),
            LoadRequestWord(request, base + 2), LoadRequestWord(request, base + 3)};
}

}  // namespace orv
