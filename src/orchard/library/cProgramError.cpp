// SPDX-License-Identifier: GPL-3.0-or-later
// The table of run-time errors.
#include "orchard/library/cProgramError.h"

#include <algorithm>
#include <array>

namespace ob::basic {

namespace {

struct Row {
    ErrorNumber number;
    std::string_view text;
};

constexpr std::array rows = {
    Row{ErrorNumber::ReturnWithoutGosub, "Return without gosub"},
    Row{ErrorNumber::OutOfData, "No data left to read"},
    Row{ErrorNumber::OutOfRange, "Argument out of range"},
    Row{ErrorNumber::Overflow, "Result too large for a number"},
    Row{ErrorNumber::OutOfMemory, "Out of memory"},
    Row{ErrorNumber::IndexOutside, "Index outside the array"},
    Row{ErrorNumber::DivisionByZero, "Division by zero"},
    Row{ErrorNumber::WrongType, "Number and text mixed up"},
    Row{ErrorNumber::ResumeWithoutError, "Resume without an error"},
    Row{ErrorNumber::NotOpen, "Handle is not open"},
    Row{ErrorNumber::FileNotFound, "File not found"},
    Row{ErrorNumber::WrongFileMode, "File is not open for this"},
    Row{ErrorNumber::AlreadyOpen, "Handle is already open"},
    Row{ErrorNumber::DeviceFailed, "Device failed"},
    Row{ErrorNumber::FileExists, "File already exists"},
    Row{ErrorNumber::WrongRecordLength, "Wrong length of record or fields"},
    Row{ErrorNumber::DiskFull, "Disk full"},
    Row{ErrorNumber::InputPastEnd, "Input past the end"},
    Row{ErrorNumber::WrongRecord, "No such record"},
    Row{ErrorNumber::WrongFileName, "Not a name for a file"},
    Row{ErrorNumber::TooManyFiles, "Too many files are open"},
    Row{ErrorNumber::PermissionDenied, "Permission denied"},
    Row{ErrorNumber::FolderExpected, "Not a folder"},
    Row{ErrorNumber::FolderNotFound, "Folder not found"},
    Row{ErrorNumber::InUse, "In use by another program"},
    Row{ErrorNumber::IsFolder, "A folder, not a file"},
    Row{ErrorNumber::FolderNotEmpty, "Folder is not empty"},
    Row{ErrorNumber::NotADate, "Not a date"},
    Row{ErrorNumber::WrongTemplate, "Not a template of # and a point"},
    Row{ErrorNumber::WrongExpression, "Not an expression"},
    Row{ErrorNumber::UnknownCommand, "Unknown command"},
    Row{ErrorNumber::UnknownRoutine, "Unknown routine of a library"},
    Row{ErrorNumber::NoSuchHardware, "No such hardware"},
    Row{ErrorNumber::StartFailed, "Program could not be started"},
    Row{ErrorNumber::WrongPicture, "Not a picture that can be read"},
    Row{ErrorNumber::UnknownName, "Unknown name"},
};

} // namespace

std::string_view ErrorText(ErrorNumber number)
{
    const auto* row = std::find_if(rows.begin(), rows.end(), [number](const Row& one) { return one.number == number; });
    return row == rows.end() ? "Unknown error" : row->text;
}

cProgramError::cProgramError(ErrorNumber errorNumber, std::string_view detail)
    : number(errorNumber), text(ErrorText(errorNumber))
{
    if (!detail.empty())
        text.append(": ").append(detail);
}

void Fail(ErrorNumber number, std::string_view detail)
{
    throw cProgramError(number, detail);
}

} // namespace ob::basic
