// SPDX-License-Identifier: GPL-3.0-or-later
// What a program prints to a file or the console: texts and numbers, columns and line ends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "orchard/library/modNumbers.h"

namespace ob::basic {

class cOutput {
public:
    virtual ~cOutput() = default;

    void Text(std::string_view text)
    {
        if (text.size() > Capacity - used || used == 0)
            return Append(text);
        text.copy(buffer.get() + used, text.size());
        used += text.size();
    }

    void Number(double value)
    {
        NumberBuffer digits;
        Text(NumberText(value, digits));
    }

    // On to the next column of 14.
    void Comma();

    // On to a column from 1, in the next line if that is passed; the nearest column for a number that is none.
    void Tab(double column);

    // The end of a print statement, with and without the end of the line. What was printed shortly after the last bytes
    // went out may stay here until more comes, Flush, or the output is closed.
    void EndLine()
    {
        Text(lineEnd);
        EndStatement();
    }
    void EndStatement();

    // Sends all that waits. What could not be sent is dropped, and its error is thrown once.
    void Flush()
    {
        if (used > 0)
            SendAll();
    }

    // The cursor is at the start of a line, as after an input.
    void ResetColumn();

protected:
    enum class Promptness { AtOnce, Soon };

    explicit cOutput(std::string_view endOfLine) : lineEnd(endOfLine) {}
    void SetLineEnd(std::string_view endOfLine) { lineEnd = endOfLine; }
    void SetPromptness(Promptness wanted) { promptness = wanted; }

    // Before the first bytes after a Flush.
    virtual void StartWriting() = 0;
    // Throws cProgramError.
    virtual void Send(std::string_view bytes) = 0;

    std::size_t Waiting() const { return used; }

private:
    static constexpr std::size_t Capacity = std::size_t{1} << 16;

    void Append(std::string_view text);
    void SendAll();
    void SendNow(std::string_view bytes);
    void Spaces(std::size_t count);
    std::size_t Column();
    static std::size_t ColumnAfter(std::size_t column, std::string_view text);

    std::unique_ptr<char[]> buffer;
    std::size_t used = 0;
    std::size_t columnPlace = 0; // the place in the buffer to which the column is known
    std::size_t column = 0;      // there, from 0
    std::string_view lineEnd;
    Promptness promptness = Promptness::Soon;
    std::int64_t lastSent = 0; // in milliseconds
};

} // namespace ob::basic
