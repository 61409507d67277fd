// SPDX-License-Identifier: GPL-3.0-or-later
// The vector instructions that are used where the processor has them, which is determined at run time.
#pragma once

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define OB_X86 1
#include <immintrin.h>
#define OB_TARGET(features) __attribute__((target(features)))
#else
#define OB_TARGET(features)
#endif

namespace ob {

// Switched off by tests to run what other processors run.
inline bool vectorInstructionsAllowed = true;

inline bool HasAvx2()
{
#ifdef OB_X86
    static const bool has = __builtin_cpu_supports("avx2");
    return has && vectorInstructionsAllowed;
#else
    return false;
#endif
}

} // namespace ob
