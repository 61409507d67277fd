// SPDX-License-Identifier: GPL-3.0-or-later
// One record of a metafile, read from its start to its end and never beyond.
#pragma once

#include <QByteArrayView>
#include <QtEndian>

#include <bit>
#include <cstdint>

namespace ob {

// Numbers are little-endian. A read beyond the end returns 0 and marks the record as short; check IsShort before
// drawing.
class cMetafileRecord {
public:
    explicit cMetafileRecord(QByteArrayView record) : bytes(record) {}

    std::uint8_t UInt8() { return Number<std::uint8_t>(); }
    std::uint16_t UInt16() { return Number<std::uint16_t>(); }
    std::int16_t Int16() { return Number<std::int16_t>(); }
    std::uint32_t UInt32() { return Number<std::uint32_t>(); }
    std::int32_t Int32() { return Number<std::int32_t>(); }
    float Float() { return std::bit_cast<float>(UInt32()); }

    void Skip(qsizetype count) { (void)Bytes(count); }
    QByteArrayView Bytes(qsizetype count)
    {
        if (count < 0 || count > Left()) {
            isShort = true;
            position = bytes.size();
            return {};
        }
        const QByteArrayView taken = bytes.sliced(position, count);
        position += count;
        return taken;
    }
    QByteArrayView Rest() { return Bytes(Left()); }

    // Bytes at a distance from the record's start.
    QByteArrayView At(std::uint32_t offset, std::uint32_t count)
    {
        if (std::uint64_t{offset} + count > static_cast<std::uint64_t>(bytes.size())) {
            isShort = true;
            return {};
        }
        return bytes.sliced(static_cast<qsizetype>(offset), static_cast<qsizetype>(count));
    }

    // Whether that many items of that size remain; marks the record as short when they are not.
    bool Holds(std::uint64_t count, std::uint64_t size)
    {
        if (count > static_cast<std::uint64_t>(Left()) / size)
            isShort = true;
        return !isShort;
    }

    qsizetype Size() const { return bytes.size(); }
    qsizetype Left() const { return bytes.size() - position; }
    bool IsShort() const { return isShort; }

private:
    template <class Whole>
    Whole Number()
    {
        const QByteArrayView taken = Bytes(static_cast<qsizetype>(sizeof(Whole)));
        return taken.isEmpty() ? Whole{0} : qFromLittleEndian<Whole>(taken.data());
    }

    QByteArrayView bytes;
    qsizetype position = 0;
    bool isShort = false;
};

} // namespace ob
