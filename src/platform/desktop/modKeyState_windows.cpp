// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard's lock keys, by the system's own routine.
#include "platform/desktop/modKeyState.h"

#include <windows.h>

namespace ob {

bool IsLockOn(LockKey key)
{
    return (GetKeyState(key == LockKey::NumLock ? VK_NUMLOCK : VK_CAPITAL) & 1) != 0;
}

} // namespace ob
