// SPDX-License-Identifier: GPL-3.0-or-later
// A run-time error with its line.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace ob::basic {

// What ended a program, or what its handler took.
class cRunError : public std::exception {
public:
    cRunError() = default;
    cRunError(int errorNumber, std::string errorText, std::uint32_t errorLine)
        : number(errorNumber), text(std::move(errorText)), line(errorLine)
    {
    }

    const char* what() const noexcept override { return text.c_str(); }

    int number = 0; // as Err gives it; 0 for none
    std::string text;
    std::uint32_t line = 0; // from 1
};

} // namespace ob::basic
