// SPDX-License-Identifier: GPL-3.0-or-later
// What a program reads from a file or the console: lines, items and bytes out of a buffer.
//
// A line ends with CR LF, LF or CR. All views are good until the next call.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace ob::basic {

class cInput {
public:
    virtual ~cInput() = default;

    // Whether nothing is left to read; waits for a device.
    bool IsAtEnd();

    // The next line without its end. InputPastEnd when nothing is left, here and below.
    std::string_view Line();

    // The next item of the line; the last one takes the line's end with it.
    std::string_view Item();

    // So many bytes, or the fewer that are left.
    std::string_view Bytes(std::size_t count);

    // Up to a delimiter, which is passed over, or to the end.
    std::string_view UpTo(std::string_view delimiter);

protected:
    // Before each of the above.
    virtual void StartReading() = 0;
    // Fills a part of the room and gives its size; 0 is the end.
    virtual std::size_t Receive(std::span<char> room) = 0;

    // Bytes in the buffer that are not read yet, and that were read and are still there.
    std::size_t Unread() const { return filled - at; }
    std::size_t AlreadyRead() const { return at; }

    // Moves to a place in the buffer.
    void MoveTo(std::size_t place);
    void DropBuffer();

private:
    // The next place of a byte, found once however often it is asked for.
    struct Mark {
        std::size_t place = 0; // no such byte from the reading place to here
        bool isThere = false;
    };
    struct LinePlace {
        std::size_t length = 0;
        std::size_t withEnd = 0;
    };

    bool More();
    void NeedMore();
    std::size_t Find(Mark& mark, char byte) const;
    LinePlace FindLine();
    std::string_view Take(std::size_t length, std::size_t passed);

    std::unique_ptr<char[]> buffer;
    std::size_t capacity = 0;
    std::size_t at = 0;
    std::size_t filled = 0;
    Mark lineFeed;
    Mark carriageReturn;
};

} // namespace ob::basic
