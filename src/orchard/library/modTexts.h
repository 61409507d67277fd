// SPDX-License-Identifier: GPL-3.0-or-later
// Functions of texts. Positions count from 1 and are cut toward zero; a result that is a piece of an argument is a view
// into it.
#pragma once

#include <string>
#include <string_view>

namespace ob::basic {

// Nothing for a count below 1 except the error OutOfRange for a negative one; the whole text for a count beyond it.
std::string_view Left(std::string_view text, double count);
std::string_view Right(std::string_view text, double count);

// From a position on, where one below 1 is 1; empty beyond the end.
std::string_view Mid(std::string_view text, double from);
std::string_view Mid(std::string_view text, double from, double count);

// The position of a text in another from a position on; 0 where it is not found or empty. Takes linear time.
double Instr(std::string_view text, std::string_view sought, double from = 1);

// Without the spaces at both ends.
std::string_view Trim(std::string_view text);

// In the capitals or small letters of the code page windows-1252.
char LowerCharacter(char c);
char UpperCharacter(char c);
std::string Lower(std::string_view text);
std::string Upper(std::string_view text);

// Less than 0, 0 or more than 0, without a difference between capitals and small letters.
int CompareIgnoringCase(std::string_view left, std::string_view right);

// The word of a number. Spaces in a row are one delimiter; any other delimiter splits wherever the whole of it is
// found. An empty delimiter is a space. Empty below 1 and beyond the last.
std::string_view Word(std::string_view text, double number, std::string_view delimiter = " ");

// OutOfRange for a negative count, and outside 0 to 255 for a character.
std::string Space(double count);
char Chr(double code);
inline double Asc(std::string_view text)
{
    return text.empty() ? 0 : static_cast<unsigned char>(text.front());
}

} // namespace ob::basic
