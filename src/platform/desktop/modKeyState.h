// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard's lock keys.
#pragma once

namespace ob {

enum class LockKey { NumLock, CapsLock };

// Whether the lock is on; off where the system does not report it.
bool IsLockOn(LockKey key);

} // namespace ob
