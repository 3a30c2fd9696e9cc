#pragma once
// The play keys work wherever the focus is: the numeric keypad and F8 to F12
// are taken before any widget sees them. Keys are described by the classic
// virtual-key numbers so that the routing rules read the same everywhere.

#include <cstdint>
#include <functional>

#include <QObject>

class QKeyEvent;

namespace orv {

namespace vk {
constexpr int CLEAR = 12, RETURN = 13;
constexpr int PRIOR = 33, NEXT = 34, END = 35, HOME = 36;
constexpr int LEFT = 37, UP = 38, RIGHT = 39, DOWN = 40, INSERT = 45, DELETE_ = 46;
constexpr int NUMPAD0 = 96, NUMPAD9 = 105;
constexpr int MULTIPLY = 106, ADD = 107, SEPARATOR = 108, SUBTRACT = 109, DECIMAL = 110,
              DIVIDE = 111;
constexpr int F1 = 112, F8 = 119, F9 = 120, F10 = 121, F11 = 122, F12 = 123;
}  // namespace vk

struct UstKeyInfo {
    int nVk = 0;             // virtual-key number, 0 when the key has none we care for
    bool bExtended = false;  // the separate cluster, or keypad Enter
    bool bNumLock = false;
    bool bCtrl = false, bShift = false, bAlt = false;
    bool bSysKey = false;  // the system-key form: Alt held, or F10
};

// A key from its X11 keysym; qtKey and keypad serve where the platform gives
// no keysym (offscreen, some Wayland set-ups).
UstKeyInfo KeyFromKeysym(uint32_t keysym, int qtKey, bool keypad);
UstKeyInfo TranslateKey(const QKeyEvent& event);

enum class EKeyRoute { PASS, TAKE, SWALLOW };

// PASS: the key goes on to the widgets. TAKE: it goes to the frame's key
// dispatcher. SWALLOW: it is finished with and goes nowhere.
EKeyRoute RouteKey(const UstKeyInfo& key, int playState);

// What the canvas makes of a key in edit state.
enum class EHotKey { NONE, PLAY, MOVE_PAGE };
struct UstHotKeyContext {
    bool bHasBoard = false;
    bool bPageFitsCard = false;  // the page's format matches the card's mode
    bool bPlaying = false;
    bool bKeyDown = true;  // the key is really down now
};
struct UstHotKey {
    EHotKey action = EHotKey::NONE;
    int nVk = 0;  // the key as play control sees it (F8 becomes Page Up, ...)
};
UstHotKey CanvasHotKey(const UstKeyInfo& key, const UstHotKeyContext& ctx);

// Application-wide filter applying RouteKey; taken keys go to the dispatcher.
class CKeyRouter : public QObject {
    Q_OBJECT
public:
    CKeyRouter(std::function<int()> playState, std::function<void(const UstKeyInfo&)> dispatch,
               QObject* parent = nullptr);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<int()> m_fnPlayState;
    std::function<void(const UstKeyInfo&)> m_fnDispatch;
};

}  // namespace orv
