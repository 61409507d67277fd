// SPDX-License-Identifier: GPL-3.0-or-later
// Names of files between a program, which writes them in the code page, and the disk.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ob::basic {

// The characters of windows-1252 as UTF-8. The five codes without a character are control characters.
std::string Utf8OfAnsi(std::string_view text);

// UTF-8 in the code page; a text that is not UTF-8 or has other characters comes back as it is.
std::string AnsiOfUtf8(std::string_view text);

// Where a program's file is: a backslash is a folder on every system, and what there is in other capitals is found. For
// a file that is not there, the path at which it would be made. WrongFileName for an empty name or one with a NUL.
std::filesystem::path PathOfName(std::string_view name);

// The last part of a name, on the disk. Its capitals are the program's.
std::filesystem::path LastPart(std::string_view name);

// A path as a program reads it.
std::string NameOfPath(const std::filesystem::path& path);

// Whether a name fits a pattern of * and ?, without a difference between capitals and small letters. Nothing and *.*
// fit every name.
bool FitsPattern(std::string_view name, std::string_view pattern);

} // namespace ob::basic
