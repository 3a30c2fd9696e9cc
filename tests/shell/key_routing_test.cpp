#include <gtest/gtest.h>

#include <QKeyEvent>

#include "shell/key_routing.h"

namespace orv {
namespace {

// X11 keysyms as a keyboard under Num Lock off/on produces them.
constexpr uint32_t KP_HOME = 0xff95, KP_PRIOR = 0xff9a, KP_LEFT = 0xff96, KP_INSERT = 0xff9e;
constexpr uint32_t KP_BEGIN = 0xff9d, KP_ENTER = 0xff8d, KP_5 = 0xffb5, KP_ADD = 0xffab;
constexpr uint32_t KP_MULTIPLY = 0xffaa, KP_DIVIDE = 0xffaf, KP_DECIMAL = 0xffae;
constexpr uint32_t KP_SUBTRACT = 0xffad;
constexpr uint32_t HOME = 0xff50, PRIOR = 0xff55, DEL = 0xffff, RETURN = 0xff0d;
constexpr uint32_t F8 = 0xffc5, F10 = 0xffc7, F11 = 0xffc8, F12 = 0xffc9, F5 = 0xffc2;
constexpr uint32_t DIGIT_5 = 0x35;

UstKeyInfo Key(uint32_t keysym, bool numLock = false) {
    UstKeyInfo k = KeyFromKeysym(keysym, 0, false);
    k.bNumLock = k.bNumLock || numLock;
    k.bSysKey = k.nVk == vk::F10;
    return k;
}

TEST(KeyTranslation, KeypadAgainstTheSeparateCluster) {
    struct Case {
        uint32_t keysym;
        int vk;
        bool extended;
    } cases[] = {
        {KP_HOME, vk::HOME, false},  {HOME, vk::HOME, true},         {KP_PRIOR, vk::PRIOR, false},
        {PRIOR, vk::PRIOR, true},    {KP_LEFT, vk::LEFT, false},     {KP_INSERT, vk::INSERT, false},
        {DEL, vk::DELETE_, true},    {KP_BEGIN, vk::CLEAR, false},   {KP_ENTER, vk::RETURN, true},
        {RETURN, vk::RETURN, false}, {KP_5, vk::NUMPAD0 + 5, false}, {KP_DIVIDE, vk::DIVIDE, false},
        {KP_ADD, vk::ADD, false},    {F12, vk::F12, false},          {DIGIT_5, 0, false},
    };
    for (const Case& c : cases) {
        const UstKeyInfo k = KeyFromKeysym(c.keysym, 0, false);
        EXPECT_EQ(k.nVk, c.vk) << std::hex << c.keysym;
        EXPECT_EQ(k.bExtended, c.extended) << std::hex << c.keysym;
    }
    EXPECT_TRUE(KeyFromKeysym(KP_5, 0, false).bNumLock);
}

TEST(KeyTranslation, WithoutKeysymsTheKeypadFlagDecides) {
    EXPECT_EQ(KeyFromKeysym(0, Qt::Key_5, true).nVk, vk::NUMPAD0 + 5);
    EXPECT_EQ(KeyFromKeysym(0, Qt::Key_5, false).nVk, 0);
    const UstKeyInfo home = KeyFromKeysym(0, Qt::Key_Home, true);
    EXPECT_EQ(home.nVk, vk::HOME);
    EXPECT_FALSE(home.bExtended);
    EXPECT_TRUE(KeyFromKeysym(0, Qt::Key_Home, false).bExtended);
    EXPECT_TRUE(KeyFromKeysym(0, Qt::Key_Enter, true).bExtended);
}

// X11 modifier bits: Mod1 is Alt, Mod2 is Num Lock.
constexpr quint32 X_MOD1_ALT = 0x08, X_MOD2_NUMLOCK = 0x10;

TEST(KeyTranslation, NumLockComesFromItsOwnModifierBit) {
    auto enter = [](Qt::KeyboardModifiers mods, quint32 native) {
        const QKeyEvent e(QEvent::KeyPress, Qt::Key_Enter, mods, 0, KP_ENTER, native);
        return TranslateKey(e);
    };
    const UstKeyInfo locked = enter(Qt::KeypadModifier, X_MOD2_NUMLOCK);
    EXPECT_TRUE(locked.bNumLock);
    EXPECT_FALSE(locked.bAlt);
    EXPECT_EQ(RouteKey(locked, 0), EKeyRoute::PASS);  // keypad Enter under Num Lock goes on
    const UstKeyInfo plain = enter(Qt::KeypadModifier, 0);
    EXPECT_FALSE(plain.bNumLock);
    EXPECT_EQ(RouteKey(plain, 0), EKeyRoute::TAKE);
    const UstKeyInfo alt = enter(Qt::KeypadModifier | Qt::AltModifier, X_MOD1_ALT);
    EXPECT_FALSE(alt.bNumLock);
    EXPECT_TRUE(alt.bAlt);
    EXPECT_TRUE(alt.bSysKey);
}

TEST(KeyRouting, TableOfCases) {
    using R = EKeyRoute;
    struct Case {
        const char* what;
        UstKeyInfo key;
        int state;
        R route;
    };
    UstKeyInfo ctrlF12 = Key(F12);
    ctrlF12.bCtrl = true;
    UstKeyInfo shiftKp5 = Key(KP_5);
    shiftKp5.bShift = true;
    UstKeyInfo altF8 = Key(F8);
    altF8.bAlt = altF8.bSysKey = true;
    UstKeyInfo altKp5 = Key(KP_5);
    altKp5.bAlt = altKp5.bSysKey = true;
    auto alt = [](uint32_t keysym) {
        UstKeyInfo k = Key(keysym);
        k.bAlt = k.bSysKey = true;
        return k;
    };
    const Case cases[] = {
        {"keypad 5 in edit", Key(KP_5), 0, R::TAKE},
        {"main 5 in edit", Key(DIGIT_5), 0, R::PASS},
        {"keypad Home, Num Lock off", Key(KP_HOME), 0, R::TAKE},
        {"cluster Home", Key(HOME), 0, R::PASS},
        {"cluster Delete", Key(DEL), 0, R::PASS},
        {"keypad Clear", Key(KP_BEGIN), 0, R::TAKE},
        {"keypad Enter, Num Lock off", Key(KP_ENTER), 0, R::TAKE},
        {"keypad Enter, Num Lock on", Key(KP_ENTER, true), 0, R::PASS},
        {"main Enter", Key(RETURN), 0, R::PASS},
        {"keypad / and .", Key(KP_DIVIDE), 1, R::TAKE},
        {"keypad .", Key(KP_DECIMAL), 0, R::TAKE},
        {"F12", Key(F12), 0, R::TAKE},
        {"F5 is not a play key", Key(F5), 0, R::PASS},
        {"Ctrl+F12 goes on", ctrlF12, 0, R::PASS},
        {"Shift+keypad 5 goes on", shiftKp5, 0, R::PASS},
        {"F8", Key(F8), 0, R::TAKE},
        {"F10 as a system key", Key(F10), 0, R::TAKE},
        {"Alt+F8 as a system key", altF8, 0, R::TAKE},
        {"Alt+keypad 5 goes on", altKp5, 0, R::PASS},
        {"Alt+F7 goes on", alt(F8 - 1), 0, R::PASS},
        {"Alt+F11 as a system key", alt(F11), 0, R::TAKE},
        {"Alt+F12 goes on", alt(F12), 0, R::PASS},
        {"on air: keypad 5 swallowed", Key(KP_5), 2, R::SWALLOW},
        {"on air: main 5 swallowed", Key(DIGIT_5), 2, R::SWALLOW},
        {"on air: keypad * taken", Key(KP_MULTIPLY), 2, R::TAKE},
        {"on air: keypad + taken", Key(KP_ADD), 2, R::TAKE},
        {"on air: keypad - taken", Key(KP_SUBTRACT), 2, R::TAKE},
        {"on air: F11 taken", Key(F11), 2, R::TAKE},
        {"on air: F12 taken", Key(F12), 2, R::TAKE},
        {"on air: F8 swallowed", Key(F8), 2, R::SWALLOW},
        {"on air: Ctrl+F12 goes on", ctrlF12, 2, R::PASS},
        {"play: keypad Home taken", Key(KP_HOME), 1, R::TAKE},
    };
    for (const Case& c : cases)
        EXPECT_EQ(RouteKey(c.key, c.state), c.route) << c.what;
}

TEST(CanvasHotKey, NothingActsWithoutABoard) {
    for (uint32_t ks : {KP_HOME, KP_ADD, F8, F12, KP_ENTER})
        EXPECT_EQ(CanvasHotKey(Key(ks), {}).action, EHotKey::NONE) << std::hex << ks;
}

TEST(CanvasHotKey, WithABoardAndAFittingPage) {
    const UstHotKeyContext idle{true, true, false, true};
    const UstHotKeyContext playing{true, true, true, true};
    EXPECT_EQ(CanvasHotKey(Key(KP_HOME), idle).action, EHotKey::MOVE_PAGE);
    EXPECT_EQ(CanvasHotKey(Key(KP_HOME), playing).action, EHotKey::PLAY);
    const UstHotKey f8 = CanvasHotKey(Key(F8), idle);
    EXPECT_EQ(f8.action, EHotKey::MOVE_PAGE);
    EXPECT_EQ(f8.nVk, vk::PRIOR);
    EXPECT_EQ(CanvasHotKey(Key(F10), playing).nVk, vk::RETURN);
    EXPECT_EQ(CanvasHotKey(Key(F11), playing).nVk, vk::MULTIPLY);
    EXPECT_EQ(CanvasHotKey(Key(KP_5), playing).action, EHotKey::NONE);
    EXPECT_EQ(CanvasHotKey(Key(KP_DIVIDE), playing).action, EHotKey::NONE);
    EXPECT_EQ(CanvasHotKey(Key(HOME), idle).action, EHotKey::NONE);
    EXPECT_EQ(CanvasHotKey(Key(KP_ADD), playing).action, EHotKey::PLAY);
    EXPECT_EQ(CanvasHotKey(Key(KP_ADD, true), playing).action, EHotKey::NONE);
    EXPECT_EQ(CanvasHotKey(Key(KP_ADD), {true, true, true, false}).action, EHotKey::NONE);
    EXPECT_EQ(CanvasHotKey(Key(KP_ENTER), playing).action, EHotKey::PLAY);
    EXPECT_EQ(CanvasHotKey(Key(KP_ENTER, true), playing).action, EHotKey::NONE);
    EXPECT_EQ(CanvasHotKey(Key(KP_HOME), {true, false, false, true}).action, EHotKey::NONE);
}

TEST(KeyRouter, TakesSwallowsOrPasses) {
    int state = 0, dispatched = 0;
    CKeyRouter router([&] { return state; }, [&](const UstKeyInfo&) { ++dispatched; });
    QObject target;
    QKeyEvent kp5(QEvent::KeyPress, Qt::Key_5, Qt::KeypadModifier, KP_5, KP_5, 0, "5");
    QKeyEvent main5(QEvent::KeyPress, Qt::Key_5, Qt::NoModifier, DIGIT_5, DIGIT_5, 0, "5");
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_5, Qt::KeypadModifier, KP_5, KP_5, 0, "5");
    EXPECT_TRUE(router.eventFilter(&target, &kp5));
    EXPECT_FALSE(router.eventFilter(&target, &main5));
    EXPECT_FALSE(router.eventFilter(&target, &release));
    EXPECT_EQ(dispatched, 1);
    state = 2;
    EXPECT_TRUE(router.eventFilter(&target, &main5));
    EXPECT_EQ(dispatched, 1);
    QKeyEvent over(QEvent::ShortcutOverride, Qt::Key_5, Qt::KeypadModifier, KP_5, KP_5, 0, "5");
    over.ignore();
    EXPECT_TRUE(router.eventFilter(&target, &over));
    EXPECT_TRUE(over.isAccepted());
    EXPECT_EQ(dispatched, 1);
}

}  // namespace
}  // namespace orv
