// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard's lock keys, by the X server or by the keyboard's lamps.
#include "platform/desktop/modKeyState.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Indicator bits of XkbGetIndicatorState, X Keyboard Extension.
unsigned IndicatorState(void* display)
{
    using GetState = int (*)(void*, unsigned, unsigned*);
    static const auto getState = reinterpret_cast<GetState>(QLibrary::resolve(u"X11"_s, 6, "XkbGetIndicatorState"));
    constexpr unsigned CoreKeyboard = 0x100;
    unsigned state = 0;
    return getState != nullptr && getState(display, CoreKeyboard, &state) == 0 ? state : 0;
}

bool IsLampOn(const QString& lamp)
{
    const QDir lamps(u"/sys/class/leds"_s);
    for (const QString& name : lamps.entryList({u"*::"_s + lamp}, QDir::Dirs | QDir::System)) {
        QFile brightness(lamps.filePath(name + u"/brightness"_s));
        if (brightness.open(QIODevice::ReadOnly) && brightness.readAll().trimmed().toInt() > 0)
            return true;
    }
    return false;
}

} // namespace

bool IsLockOn(LockKey key)
{
    // Without a running server the interface exists but its display does not.
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr && x11->display() != nullptr)
        return (IndicatorState(x11->display()) & (key == LockKey::CapsLock ? 1u : 2u)) != 0;
    return IsLampOn(key == LockKey::CapsLock ? u"capslock"_s : u"numlock"_s);
}

} // namespace ob
