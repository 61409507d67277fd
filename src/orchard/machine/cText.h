// SPDX-License-Identifier: GPL-3.0-or-later
// A text of a running program: bytes that are shared, cut and added to without a copy where that can be.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace ob::basic {

// A slice of a counted buffer, or of bytes that outlive the program's run (literals). Copies share the bytes. For one
// thread. Bytes of zero are the empty text, so a block of zeros is a row of empty texts. Throws std::bad_alloc.
class cText {
public:
    cText() noexcept = default;
    explicit cText(std::string_view bytes);
    cText(const cText& other) noexcept : bytes(other.bytes), size(other.size), buffer(other.buffer) { Share(); }
    cText(cText&& other) noexcept
        : bytes(std::exchange(other.bytes, nullptr)), size(std::exchange(other.size, 0)),
          buffer(std::exchange(other.buffer, nullptr))
    {
    }
    cText& operator=(const cText& other) noexcept
    {
        cText(other).Swap(*this);
        return *this;
    }
    cText& operator=(cText&& other) noexcept
    {
        cText(std::move(other)).Swap(*this);
        return *this;
    }
    ~cText() { Release(); }

    // The bytes are not copied and must outlive the text and all that is made of it.
    static cText Literal(std::string_view literal) noexcept { return cText(literal.data(), literal.size(), nullptr); }

    // The text of one byte, without a buffer.
    static cText Character(std::uint8_t byte) noexcept;

    std::string_view View() const noexcept { return {bytes, size}; }
    std::size_t Size() const noexcept { return size; }

    // A part of the text, which must be within it. It shares the bytes unless it is so small a part that it would keep
    // far more memory than it needs.
    cText Slice(std::size_t start, std::size_t count) const;

    // The slice for a view into this text's bytes.
    cText Slice(std::string_view part) const
    {
        return part.empty() ? cText() : Slice(static_cast<std::size_t>(part.data() - bytes), part.size());
    }

    // Adds to the end, in place where this text ends where its buffer is filled to: adding to one text again and again
    // costs in proportion to what is added.
    void Append(std::string_view added);

    void Swap(cText& other) noexcept
    {
        std::swap(bytes, other.bytes);
        std::swap(size, other.size);
        std::swap(buffer, other.buffer);
    }

private:
    struct Buffer {
        std::size_t users;
        std::size_t filled;
        std::size_t capacity;
        char* Bytes() { return reinterpret_cast<char*>(this + 1); }
    };

    cText(const char* start, std::size_t count, Buffer* owner) noexcept : bytes(start), size(count), buffer(owner) {}

    static Buffer* NewBuffer(std::size_t capacity);
    void Share() const noexcept
    {
        if (buffer != nullptr)
            ++buffer->users;
    }
    void Release() noexcept
    {
        if (buffer != nullptr && --buffer->users == 0)
            Free();
    }
    void Free() noexcept;

    const char* bytes = nullptr;
    std::size_t size = 0;
    Buffer* buffer = nullptr;
};

} // namespace ob::basic
