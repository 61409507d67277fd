// SPDX-License-Identifier: GPL-3.0-or-later
// One record of a metafile, read from its start to its end and never beyond.
#pragma once

#include "imaging/cByteReader.h"
#include "platform/files/modByteViews.h"

#include <bit>
#include <cstdint>

namespace ob {

// Numbers are little-endian. A read beyond the end returns 0 and marks the record as short; check IsShort before
// drawing.
class cMetafileRecord {
public:
    explicit cMetafileRecord(QByteArrayView record) : reader(ByteViewOf(record)) {}

    std::uint8_t UInt8() { return reader.Next<std::uint8_t>(); }
    std::uint16_t UInt16() { return reader.Next<std::uint16_t>(); }
    std::int16_t Int16() { return reader.Next<std::int16_t>(); }
    std::uint32_t UInt32() { return reader.Next<std::uint32_t>(); }
    std::int32_t Int32() { return reader.Next<std::int32_t>(); }
    float Float() { return std::bit_cast<float>(UInt32()); }

    // A count below 0 is more than there is.
    void Skip(qsizetype count) { (void)Bytes(count); }
    QByteArrayView Bytes(qsizetype count) { return QtViewOf(reader.NextBytes(static_cast<std::size_t>(count))); }
    QByteArrayView Rest() { return Bytes(Left()); }

    // Bytes at a distance from the record's start.
    QByteArrayView At(std::uint32_t offset, std::uint32_t count)
    {
        lacksBytes = lacksBytes || std::uint64_t{offset} + count > reader.All().size();
        return QtViewOf(BytesAt(reader.All(), offset, count));
    }

    // Whether that many items of that size remain; marks the record as short when they are not.
    bool Holds(std::uint64_t count, std::uint64_t size)
    {
        lacksBytes = lacksBytes || count > static_cast<std::uint64_t>(Left()) / size;
        return !IsShort();
    }

    qsizetype Size() const { return static_cast<qsizetype>(reader.All().size()); }
    qsizetype Left() const { return static_cast<qsizetype>(reader.Left()); }
    bool IsShort() const { return lacksBytes || reader.IsShort(); }

private:
    cByteReader reader;
    bool lacksBytes = false; // where nothing was read in turn
};

} // namespace ob
