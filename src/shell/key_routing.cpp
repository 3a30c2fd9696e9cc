#include "shell/key_routing.h"

#include <QKeyEvent>

namespace orv {

namespace {

// X11 keysyms of the keys that matter here.
constexpr uint32_t XK_KP_ENTER = 0xff8d, XK_KP_HOME = 0xff95, XK_KP_DELETE = 0xff9f;
constexpr uint32_t XK_KP_BEGIN = 0xff9d;
constexpr uint32_t XK_KP_MULTIPLY = 0xffaa, XK_KP_DIVIDE = 0xffaf;
constexpr uint32_t XK_KP_0 = 0xffb0, XK_KP_9 = 0xffb9;
constexpr uint32_t XK_RETURN = 0xff0d, XK_HOME = 0xff50, XK_NEXT_ = 0xff57;
constexpr uint32_t XK_INSERT = 0xff63, XK_DELETE = 0xffff;
constexpr uint32_t XK_F1 = 0xffbe, XK_F12 = 0xffc9;
constexpr unsigned X11_MOD2_NUMLOCK = 0x10;

// Home, Left, Up, Right, Down, Prior, Next, End: the order of both the keypad
// keysyms (0xff95...) and the separate cluster (0xff50...).
constexpr int NAV_ORDER[8] = {vk::HOME, vk::LEFT,  vk::UP,   vk::RIGHT,
                              vk::DOWN, vk::PRIOR, vk::NEXT, vk::END};

int KeypadOperator(uint32_t keysym) {
    switch (keysym) {
        case 0xffaa:
            return vk::MULTIPLY;
        case 0xffab:
            return vk::ADD;
        case 0xffac:
            return vk::SEPARATOR;
        case 0xffad:
            return vk::SUBTRACT;
        case 0xffae:
            return vk::DECIMAL;
        case 0xffaf:
            return vk::DIVIDE;
        default:
            return 0;
    }
}

UstKeyInfo FromKeysym(uint32_t ks) {
    UstKeyInfo k;
    if (ks >= XK_KP_0 && ks <= XK_KP_9) {
        k.nVk = vk::NUMPAD0 + static_cast<int>(ks - XK_KP_0);
        k.bNumLock = true;  // keypad digits only come with Num Lock on
    } else if (ks >= XK_KP_MULTIPLY && ks <= XK_KP_DIVIDE) {
        k.nVk = KeypadOperator(ks);
    } else if (ks >= XK_KP_HOME && ks < XK_KP_HOME + 8) {
        k.nVk = NAV_ORDER[ks - XK_KP_HOME];
    } else if (ks == XK_KP_BEGIN) {
        k.nVk = vk::CLEAR;
    } else if (ks == XK_KP_BEGIN + 1) {
        k.nVk = vk::INSERT;
    } else if (ks == XK_KP_DELETE) {
        k.nVk = vk::DELETE_;
    } else if (ks == XK_KP_ENTER) {
        k.nVk = vk::RETURN;
        k.bExtended = true;
    } else if (ks >= XK_HOME && ks <= XK_NEXT_) {
        k.nVk = NAV_ORDER[ks - XK_HOME];
        k.bExtended = true;
    } else if (ks == XK_INSERT || ks == XK_DELETE) {
        k.nVk = ks == XK_INSERT ? vk::INSERT : vk::DELETE_;
        k.bExtended = true;
    } else if (ks == XK_RETURN) {
        k.nVk = vk::RETURN;
    } else if (ks >= XK_F1 && ks <= XK_F12) {
        k.nVk = vk::F1 + static_cast<int>(ks - XK_F1);
    }
    return k;
}

int NavFromQt(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Home:
            return vk::HOME;
        case Qt::Key_Left:
            return vk::LEFT;
        case Qt::Key_Up:
            return vk::UP;
        case Qt::Key_Right:
            return vk::RIGHT;
        case Qt::Key_Down:
            return vk::DOWN;
        case Qt::Key_PageUp:
            return vk::PRIOR;
        case Qt::Key_PageDown:
            return vk::NEXT;
        case Qt::Key_End:
            return vk::END;
        case Qt::Key_Insert:
            return vk::INSERT;
        case Qt::Key_Delete:
            return vk::DELETE_;
        default:
            return 0;
    }
}

int KeypadFromQt(int qtKey) {
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return vk::NUMPAD0 + (qtKey - Qt::Key_0);
    switch (qtKey) {
        case Qt::Key_Asterisk:
            return vk::MULTIPLY;
        case Qt::Key_Plus:
            return vk::ADD;
        case Qt::Key_Minus:
            return vk::SUBTRACT;
        case Qt::Key_Period:
            return vk::DECIMAL;
        case Qt::Key_Slash:
            return vk::DIVIDE;
        case Qt::Key_Clear:
            return vk::CLEAR;
        default:
            return 0;
    }
}

// Without a keysym the Qt key and its keypad flag tell almost as much; the
// Num Lock state is then unknown and taken as off.
UstKeyInfo FromQtKey(int qtKey, bool keypad) {
    UstKeyInfo k;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) {
        k.nVk = vk::F1 + (qtKey - Qt::Key_F1);
    } else if (qtKey == Qt::Key_Enter || qtKey == Qt::Key_Return) {
        k.nVk = vk::RETURN;
        k.bExtended = keypad || qtKey == Qt::Key_Enter;
    } else if (int nav = NavFromQt(qtKey)) {
        k.nVk = nav;
        k.bExtended = !keypad;
    } else if (keypad) {
        k.nVk = KeypadFromQt(qtKey);
        k.bNumLock = k.nVk >= vk::NUMPAD0 && k.nVk <= vk::NUMPAD9;
    }
    return k;
}

bool IsKeypadAlways(int v) {
    return v == vk::CLEAR || (v >= vk::NUMPAD0 && v <= vk::NUMPAD9) || v == vk::MULTIPLY ||
           v == vk::ADD || v == vk::SUBTRACT || v == vk::DECIMAL || v == vk::DIVIDE;
}

bool IsNavigation(int v) {
    return (v >= vk::PRIOR && v <= vk::DOWN) || v == vk::INSERT || v == vk::DELETE_;
}

bool TakenFromKeypad(const UstKeyInfo& k) {
    if (IsKeypadAlways(k.nVk)) return true;
    if (IsNavigation(k.nVk)) return !k.bExtended;
    if (k.nVk == vk::RETURN) return k.bExtended && !k.bNumLock;
    return false;
}

}  // namespace

UstKeyInfo KeyFromKeysym(uint32_t keysym, int qtKey, bool keypad) {
    UstKeyInfo k = keysym ? FromKeysym(keysym) : UstKeyInfo{};
    if (k.nVk == 0) k = FromQtKey(qtKey, keypad);
    return k;
}

UstKeyInfo TranslateKey(const QKeyEvent& event) {
    const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
    UstKeyInfo k = KeyFromKeysym(event.nativeVirtualKey(), event.key(), keypad);
    if (event.nativeModifiers() & X11_MOD2_NUMLOCK) k.bNumLock = true;
    k.bCtrl = event.modifiers().testFlag(Qt::ControlModifier);
    k.bShift = event.modifiers().testFlag(Qt::ShiftModifier);
    k.bAlt = event.modifiers().testFlag(Qt::AltModifier);
    k.bSysKey = k.bAlt || k.nVk == vk::F10;
    return k;
}

EKeyRoute RouteKey(const UstKeyInfo& k, int playState) {
    if (!k.bSysKey) {
        if (k.bCtrl || k.bShift || k.bAlt) return EKeyRoute::PASS;
        if (k.nVk == vk::F12) return EKeyRoute::TAKE;
        const bool keptOnAir =
            k.nVk == vk::MULTIPLY || k.nVk == vk::ADD || k.nVk == vk::SUBTRACT || k.nVk == vk::F11;
        if (playState == 2 && !keptOnAir) return EKeyRoute::SWALLOW;
        if (TakenFromKeypad(k)) return EKeyRoute::TAKE;
    }
    if (k.nVk >= vk::F8 && k.nVk <= vk::F11) return EKeyRoute::TAKE;
    return EKeyRoute::PASS;
}

UstHotKey CanvasHotKey(const UstKeyInfo& k, const UstHotKeyContext& ctx) {
    int v = k.nVk;
    bool extended = k.bExtended;
    switch (v) {
        case vk::F8:
            v = vk::PRIOR;
            extended = false;
            break;
        case vk::F9:
            v = vk::NEXT;
            extended = false;
            break;
        case vk::F10:
            v = vk::RETURN;
            extended = false;
            break;
        case vk::F11:
            v = vk::MULTIPLY;
            break;
        default:
            break;
    }
    const bool fromF10 = k.nVk == vk::F10;
    bool acts = true;
    if (IsKeypadAlways(v) && v != vk::MULTIPLY && v != vk::ADD && v != vk::SUBTRACT) acts = false;
    if ((v == vk::MULTIPLY || v == vk::ADD || v == vk::SUBTRACT) && k.nVk != vk::F11)
        acts = ctx.bKeyDown && !k.bNumLock;
    if (v >= vk::PRIOR && v <= vk::HOME) acts = !extended;
    if (v == vk::RETURN && !fromF10) acts = extended && !k.bNumLock;
    if (!acts || !ctx.bHasBoard || !ctx.bPageFitsCard) return {};
    const bool pageMove = v >= vk::PRIOR && v <= vk::HOME;
    if (pageMove && !ctx.bPlaying) return {EHotKey::MOVE_PAGE, v};
    return {EHotKey::PLAY, v};
}

CKeyRouter::CKeyRouter(std::function<int()> playState,
                       std::function<void(const UstKeyInfo&)> dispatch, QObject* parent)
    : QObject(parent), m_fnPlayState(std::move(playState)), m_fnDispatch(std::move(dispatch)) {}

bool CKeyRouter::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const UstKeyInfo info = TranslateKey(*key);
    const EKeyRoute route = RouteKey(info, m_fnPlayState ? m_fnPlayState() : 0);
    if (route == EKeyRoute::PASS) return false;
    if (type == QEvent::ShortcutOverride) {
        // Claim the key so that no shortcut fires; the key press follows.
        event->accept();
        return true;
    }
    if (route == EKeyRoute::TAKE && m_fnDispatch) m_fnDispatch(info);
    return true;
}

}  // namespace orv
