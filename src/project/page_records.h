#pragma once
// The page's play settings: archived as raw bytes with the page.

#include <cstdint>

namespace orv {

#pragma pack(push, 1)

struct UstPageEffect {
    int32_t nInEffect;  // in-transition number
    int32_t nInSpeed;   // 1 to 10
    int32_t nInDelay;   // seconds
    int32_t bInFade;
    int32_t nOutEffect;  // out-transition number
    int32_t nOutSpeed;
    int32_t nOutDelay;
    int32_t bOutFade;
    int32_t nRepeat;       // Roll and Crawl repeat count
    int32_t nScrollDelay;  // Roll and Crawl delay
    int32_t bDiscard;      // skipped in play-out
};
static_assert(sizeof(UstPageEffect) == 44);

struct UstPageBlink {
    int32_t nMode;     // 0 the object shows and hides, 1 by colour
    uint32_t crColor;  // ARGB
    int32_t nSpeed;
};
static_assert(sizeof(UstPageBlink) == 12);

struct UstPageTyping {
    int32_t nMode;   // 0 manual, 1 automatic
    int32_t nOrder;  // 0 character by character, 1 line by line
    int32_t nSpeed;  // index into the delay list
};
static_assert(sizeof(UstPageTyping) == 12);

#pragma pack(pop)

constexpr int32_t BLINK_SPEED_MIN = 1, BLINK_SPEED_MAX = 10;

// The page commands of blinking and typing: on or off for the selection (a
// 32-bit flag), and the page's record.
enum ELiveCommand : uint32_t {
    CMD_BLINK = 784,
    CMD_BLINK_PROPERTIES = 785,
    CMD_TYPING = 786,
    CMD_TYPING_PROPERTIES = 787
};

// The typing delays the page's record indexes, in milliseconds.
constexpr int TYPING_DELAYS_MS[] = {30, 50, 80, 100, 150, 200, 300, 500, 800, 1000};
constexpr int TYPING_DELAY_COUNT = static_cast<int>(sizeof TYPING_DELAYS_MS / sizeof(int));
inline int TypingDelayMs(int index) {
    return TYPING_DELAYS_MS[index < 0                     ? 0
                            : index >= TYPING_DELAY_COUNT ? TYPING_DELAY_COUNT - 1
                                                          : index];
}

inline UstPageEffect MakeDefaultPageEffect() {
    return {3, 4, 1, 0, 2, 4, 0, 0, 0, 0, 0};
}
inline UstPageBlink MakeDefaultPageBlink() {
    return {0, 0xFFFF0000u, 4};
}
inline UstPageTyping MakeDefaultPageTyping() {
    return {0, 0, 4};
}

}  // namespace orv
