// SPDX-License-Identifier: GPL-3.0-or-later
// What all errors with a number have in common, whoever throws them.
#pragma once

#include <exception>

namespace ob {

// The number is the runtime's, as a user knows it; what() is the description in UTF-8. Whoever shows errors catches
// this, and nobody between turns one kind of error into another.
class NumberedError : public std::exception {
public:
    explicit NumberedError(int errorNumber) : number(errorNumber) {}

    int number;
};

} // namespace ob
