// SPDX-License-Identifier: GPL-3.0-or-later
// Writes metafiles record by record, as drawing programs do.
#pragma once

#include <QByteArray>

#include <bit>
#include <cstdint>
#include <initializer_list>

namespace ob {

inline QByteArray Word(int number)
{
    const auto bits = static_cast<std::uint16_t>(number);
    return QByteArray(1, static_cast<char>(bits & 0xFF)) + static_cast<char>(bits >> 8);
}

inline QByteArray Long(std::int64_t number)
{
    const auto bits = static_cast<std::uint32_t>(number);
    return Word(static_cast<int>(bits & 0xFFFF)) + Word(static_cast<int>(bits >> 16));
}

inline QByteArray Single(float number)
{
    return Long(std::bit_cast<std::uint32_t>(number));
}

inline QByteArray Words(std::initializer_list<int> numbers)
{
    QByteArray bytes;
    for (const int number : numbers)
        bytes += Word(number);
    return bytes;
}

inline QByteArray Longs(std::initializer_list<std::int64_t> numbers)
{
    QByteArray bytes;
    for (const std::int64_t number : numbers)
        bytes += Long(number);
    return bytes;
}

// A bitmap of two lines of two pixels, 24 bits: red and green above, blue and white below.
inline QByteArray SmallDib()
{
    const QByteArray header = Longs({40, 2, 2}) + Words({1, 24}) + Longs({0, 0, 0, 0, 0, 0});
    const QByteArray below = QByteArray::fromHex("ff0000ffffff0000");
    const QByteArray above = QByteArray::fromHex("0000ff00ff000000");
    return header + below + above;
}
constexpr int SmallDibHeader = 40;
constexpr int SmallDibPixels = 16;

// A file of 16-bit records.
class WmfBytes {
public:
    WmfBytes& Add(int function, const QByteArray& parameters = {})
    {
        const QByteArray even = parameters.size() % 2 == 0 ? parameters : parameters + '\0';
        records += Long(even.size() / 2 + 3) + Word(function) + even;
        return *this;
    }
    WmfBytes& Raw(const QByteArray& bytes)
    {
        records += bytes;
        return *this;
    }

    QByteArray Plain() const { return Head() + records + Long(3) + Word(0); }

    // With the header of its size; the place of the picture in logical units, and how many of them per inch.
    QByteArray Placeable(int left, int top, int right, int bottom, int inch) const
    {
        return Long(0x9AC6CDD7) + Words({0, left, top, right, bottom, inch, 0, 0, 0}) + Plain();
    }

private:
    QByteArray Head() const
    {
        return Words({1, 9, 0x300}) + Long((records.size() + 24) / 2) + Word(16) + Long(100) + Word(0);
    }

    QByteArray records;
};

// A file of 32-bit records for a device of 1000 x 1000 pixels on 264.58 mm, which is 96 pixels per inch to within a
// thousandth.
class EmfBytes {
public:
    EmfBytes& Add(int kind, const QByteArray& parameters = {})
    {
        QByteArray even = parameters;
        while (even.size() % 4 != 0)
            even += '\0';
        records += Long(kind) + Long(even.size() + 8) + even;
        return *this;
    }
    EmfBytes& Raw(const QByteArray& bytes)
    {
        records += bytes;
        return *this;
    }

    // The size is in pixels.
    QByteArray File(int width, int height) const
    {
        const auto frame = [](int pixels) { return pixels * 26'500 / 1000; };
        return Longs({1, 88, 0, 0, width - 1, height - 1, 0, 0, frame(width), frame(height), 0x464D4520, 0x10000}) +
               Longs({records.size() + 108, 3}) + Words({16, 0}) + Longs({0, 0, 0, 1000, 1000, 265, 265}) + records +
               Longs({14, 20, 0, 16, 20});
    }

private:
    QByteArray records;
};

} // namespace ob
