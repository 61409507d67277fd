// SPDX-License-Identifier: GPL-3.0-or-later
// The run-time errors of the imaging library: thrown where they are raised, caught where errors are shown.
#pragma once

#include "imaging/cNumberedError.h"

#include <string>
#include <utility>

namespace ob {

class ImagingError : public NumberedError {
public:
    ImagingError(int errorNumber, std::string errorSource, std::string errorDescription)
        : NumberedError(errorNumber), source(std::move(errorSource)), description(std::move(errorDescription))
    {
    }
    const char* what() const noexcept override { return description.c_str(); }

    std::string source;
    std::string description;
};

[[noreturn]] inline void RaiseOutOfMemory()
{
    throw ImagingError(7, {}, "Out of memory");
}

// An index outside an array, a pixel outside a picture, a negative size.
[[noreturn]] inline void RaiseSubscriptError()
{
    throw ImagingError(9, {}, "Subscript out of range");
}

[[noreturn]] inline void RaiseObjectNotSet()
{
    throw ImagingError(91, {}, "Object variable or With block variable not set");
}

} // namespace ob
