// SPDX-License-Identifier: GPL-3.0-or-later
// The errors of a running program: their numbers, as Err gives them, and their texts, as Err$ gives them.
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace ob::basic {

enum class ErrorNumber {
    ReturnWithoutGosub = 3,
    OutOfData = 4,
    OutOfRange = 5,
    Overflow = 6,
    OutOfMemory = 7,
    IndexOutside = 9,
    DivisionByZero = 11,
    WrongType = 13,
    ResumeWithoutError = 20,
    NotOpen = 52,
    FileNotFound = 53,
    WrongFileMode = 54,
    AlreadyOpen = 55,
    DeviceFailed = 57,
    FileExists = 58,
    WrongRecordLength = 59,
    DiskFull = 61,
    InputPastEnd = 62,
    WrongRecord = 63,
    WrongFileName = 64,
    TooManyFiles = 67,
    PermissionDenied = 70,
    FolderExpected = 75,
    FolderNotFound = 76,
    InUse = 77,
    IsFolder = 78,
    FolderNotEmpty = 79,
    NotADate = 100,
    WrongTemplate = 101,
    WrongExpression = 102,
    UnknownCommand = 103,
    UnknownRoutine = 104,
    NoSuchHardware = 105,
    StartFailed = 106,
    WrongPicture = 107,
    UnknownName = 108,
};

// What Err$ begins with; "Unknown error" for a number that is none of these.
std::string_view ErrorText(ErrorNumber number);

// A run-time error, thrown where it is found and caught by the machine, which knows the line.
class cProgramError : public std::exception {
public:
    explicit cProgramError(ErrorNumber errorNumber, std::string_view detail = {});

    ErrorNumber Number() const { return number; }
    // The error's text, and after ": " what it is about.
    const std::string& Text() const { return text; }
    const char* what() const noexcept override { return text.c_str(); }

private:
    ErrorNumber number;
    std::string text;
};

// Out of line, so that the routines that check stay small.
[[noreturn]] void Fail(ErrorNumber number, std::string_view detail = {});

} // namespace ob::basic
