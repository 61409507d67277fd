// SPDX-License-Identifier: GPL-3.0-or-later
// A run-time error of a program.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace ob::basic {

// Raised by an instruction or a routine of the library; the machine adds the line.
class RunError : public std::exception {
public:
    RunError() = default;
    RunError(int errorNumber, std::string errorText) : number(errorNumber), text(std::move(errorText)) {}

    const char* what() const noexcept override { return text.c_str(); }

    int number = 0;
    std::string text;
    std::uint32_t line = 0; // from 1
};

namespace run_errors {

inline RunError DivisionByZero()
{
    return {11, "Division by zero"};
}
inline RunError Overflow()
{
    return {6, "Overflow"};
}
inline RunError Subscript()
{
    return {9, "Subscript out of range"};
}
inline RunError NoRealValue()
{
    return {5, "Illegal function call"};
}
inline RunError OutOfMemory()
{
    return {7, "Out of memory"};
}
inline RunError ReturnWithoutGosub()
{
    return {3, "RETURN without GOSUB"};
}
inline RunError ResumeWithoutError()
{
    return {20, "RESUME without error"};
}

} // namespace run_errors

} // namespace ob::basic
