// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the bytes of icon images, icon files and programs with icons for tests.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QList>

#include <cstdint>

namespace icons {

inline void Put(QByteArray& bytes, std::uint64_t value, int count)
{
    for (int index = 0; index < count; ++index)
        bytes.append(static_cast<char>(index < 8 ? value >> (8 * index) & 255 : 0));
}

inline void Overwrite(QByteArray& bytes, qsizetype offset, std::uint64_t value, int count)
{
    QByteArray number;
    Put(number, value, count);
    bytes.replace(offset, count, number);
}

inline void PadTo(QByteArray& bytes, qsizetype size)
{
    if (bytes.size() < size)
        bytes.append(size - bytes.size(), '\0');
}

// One image with its directory entry's values.
struct Entry {
    int width = 0;
    int height = 0;
    int bits = 0;
    QByteArray bytes;
};

inline QByteArray Noise(qsizetype count, unsigned seed)
{
    QByteArray bytes;
    for (qsizetype index = 0; index < count; ++index) {
        seed = seed * 1664525U + 1013904223U;
        bytes.append(static_cast<char>(seed >> 24));
    }
    return bytes;
}

inline QByteArray BitmapHeader(int width, int height, int bits, int compression = 0, int colorsUsed = 0)
{
    QByteArray bytes;
    Put(bytes, 40, 4);
    Put(bytes, static_cast<std::uint64_t>(width), 4);
    Put(bytes, static_cast<std::uint64_t>(height) * 2, 4);
    Put(bytes, 1, 2);
    Put(bytes, static_cast<std::uint64_t>(bits), 2);
    Put(bytes, static_cast<std::uint64_t>(compression), 4);
    Put(bytes, 0, 12);
    Put(bytes, static_cast<std::uint64_t>(colorsUsed), 4);
    Put(bytes, 0, 4);
    return bytes;
}

inline qsizetype LineBytes(int width, int bits)
{
    return (width * bits + 31) / 32 * 4;
}

// An image of random pixels, colours and mask.
inline Entry RandomImage(int width, int height, int bits, unsigned seed = 1)
{
    QByteArray bytes = BitmapHeader(width, height, bits);
    for (int index = 0; bits <= 8 && index < 1 << bits; ++index)
        Put(bytes, static_cast<std::uint32_t>(index * 0x2F1B35 + static_cast<int>(seed)) & 0xFFFFFF, 4);
    bytes += Noise((LineBytes(width, bits) + LineBytes(width, 1)) * height, seed);
    return {width, height, bits, bytes};
}

// An image of one colour whose mask is 0 everywhere.
inline Entry PlainImage(int width, int height, int bits, std::uint32_t redGreenBlue)
{
    QByteArray bytes = BitmapHeader(width, height, bits);
    if (bits <= 8) {
        for (int index = 0; index < 1 << bits; ++index)
            Put(bytes, redGreenBlue, 4);
        bytes.append(LineBytes(width, bits) * height, '\0');
    } else {
        for (int y = 0; y < height; ++y) {
            QByteArray line;
            for (int x = 0; x < width; ++x)
                Put(line, redGreenBlue | 0xFF000000, bits / 8);
            PadTo(line, LineBytes(width, bits));
            bytes += line;
        }
    }
    bytes.append(LineBytes(width, 1) * height, '\0');
    return {width, height, bits, bytes};
}

inline Entry PngImage(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return {image.width(), image.height(), 32, buffer.data()};
}

inline void PutEntry(QByteArray& directory, const Entry& entry)
{
    Put(directory, static_cast<std::uint64_t>(entry.width & 255), 1);
    Put(directory, static_cast<std::uint64_t>(entry.height & 255), 1);
    Put(directory, entry.bits < 8 ? 1U << entry.bits : 0, 2);
    Put(directory, 1, 2);
    Put(directory, static_cast<std::uint64_t>(entry.bits), 2);
    Put(directory, static_cast<std::uint64_t>(entry.bytes.size()), 4);
}

inline QByteArray DirectoryStart(qsizetype count)
{
    QByteArray bytes;
    Put(bytes, 0, 2);
    Put(bytes, 1, 2);
    Put(bytes, static_cast<std::uint64_t>(count), 2);
    return bytes;
}

inline QByteArray IcoFile(const QList<Entry>& entries)
{
    QByteArray bytes = DirectoryStart(entries.size());
    qsizetype offset = 6 + 16 * entries.size();
    for (const Entry& entry : entries) {
        PutEntry(bytes, entry);
        Put(bytes, static_cast<std::uint64_t>(offset), 4);
        offset += entry.bytes.size();
    }
    for (const Entry& entry : entries)
        bytes += entry.bytes;
    return bytes;
}

// The directory of an icon in a program; its images have the numbers from that on.
inline QByteArray Group(const QList<Entry>& entries, int firstNumber)
{
    QByteArray bytes = DirectoryStart(entries.size());
    for (const Entry& entry : entries) {
        PutEntry(bytes, entry);
        Put(bytes, static_cast<std::uint64_t>(firstNumber++), 2);
    }
    return bytes;
}

struct Resource {
    int type = 0;
    QByteArray name; // empty when it has a number
    int number = 0;
    QByteArray bytes;
};

// The resources of a program with these icons: images numbered from 1 on, the first icons with names, the others with
// numbers.
inline QList<Resource> ResourcesOf(const QList<QList<Entry>>& icons, const QList<QByteArray>& names = {})
{
    QList<Resource> images;
    QList<Resource> groups;
    int number = 1;
    for (qsizetype index = 0; index < icons.size(); ++index) {
        groups.append({14, names.value(index), 100 + static_cast<int>(index), Group(icons[index], number)});
        for (const Entry& entry : icons[index])
            images.append({3, {}, number++, entry.bytes});
    }
    return images + groups;
}

// The table of an NE program whose first content is at that place, and the texts after it, at that distance from its
// start.
struct NeTable {
    QByteArray rows;
    QByteArray texts;
};

inline NeTable NeTableOf(const QList<Resource>& resources, int shift, qsizetype firstPlace, qsizetype textsPlace)
{
    NeTable table;
    Put(table.rows, static_cast<std::uint64_t>(shift), 2);
    for (const int type : {3, 14}) {
        QByteArray rows;
        int count = 0;
        std::uint64_t place = static_cast<std::uint64_t>(firstPlace) >> shift;
        for (const Resource& resource : resources) {
            const std::uint64_t here = place;
            const std::uint64_t length =
                (static_cast<std::uint64_t>(resource.bytes.size()) + (1U << shift) - 1) >> shift;
            place += length;
            if (resource.type != type)
                continue;
            ++count;
            Put(rows, here, 2);
            Put(rows, length, 2);
            Put(rows, 0x1C30, 2);
            if (resource.name.isEmpty()) {
                Put(rows, static_cast<std::uint64_t>(resource.number) | 0x8000, 2);
            } else {
                Put(rows, static_cast<std::uint64_t>(textsPlace + table.texts.size()), 2);
                table.texts += static_cast<char>(resource.name.size()) + resource.name;
            }
            Put(rows, 0, 4);
        }
        Put(table.rows, static_cast<std::uint64_t>(type) | 0x8000, 2);
        Put(table.rows, static_cast<std::uint64_t>(count), 2);
        Put(table.rows, 0, 4);
        table.rows += rows;
    }
    Put(table.rows, 0, 2);
    table.texts += '\0';
    return table;
}

// A program of the NE format. Lengths and places are counted in units of 2 to the power of shift.
inline QByteArray NeFile(const QList<Resource>& resources, int shift = 4)
{
    constexpr qsizetype tablePlace = 128;
    const qsizetype unit = qsizetype{1} << shift;
    const auto wholeUnits = [unit](qsizetype bytes) { return (bytes + unit - 1) / unit * unit; };
    // Its length does not depend on its values, so a first one gives the places.
    const NeTable sizes = NeTableOf(resources, shift, 0, 0);
    const qsizetype tableEnd = tablePlace + sizes.rows.size() + sizes.texts.size();
    const NeTable table = NeTableOf(resources, shift, wholeUnits(tableEnd), sizes.rows.size());

    QByteArray file = "MZ";
    PadTo(file, 60);
    Put(file, 64, 4);
    file += "NE";
    PadTo(file, tablePlace);
    Overwrite(file, 64 + 36, 64, 2);
    Overwrite(file, 64 + 38, static_cast<std::uint64_t>(tableEnd - 64), 2);
    file += table.rows + table.texts;
    for (const Resource& resource : resources) {
        PadTo(file, wholeUnits(file.size()));
        file += resource.bytes;
    }
    PadTo(file, wholeUnits(file.size()));
    return file;
}

enum class PeKind { Bits32, Bits64 };

constexpr qsizetype PeTreeOffset = 0x200; // of the resource tree in such a file
constexpr std::uint32_t PeTreeAddress = 0x1000;

// A program of the PE format with one section, which contains that tree.
inline QByteArray PeFileAround(const QByteArray& tree, PeKind kind)
{
    const int optionalSize = kind == PeKind::Bits32 ? 224 : 240;
    QByteArray file = "MZ";
    PadTo(file, 60);
    Put(file, 64, 4);
    file += QByteArray("PE\0\0", 4);
    Put(file, kind == PeKind::Bits32 ? 0x14C : 0x8664, 2);
    Put(file, 1, 2);
    Put(file, 0, 12);
    Put(file, static_cast<std::uint64_t>(optionalSize), 2);
    Put(file, 0x2102, 2);
    QByteArray optional;
    Put(optional, kind == PeKind::Bits32 ? 0x10B : 0x20B, 2);
    PadTo(optional, optionalSize);
    const qsizetype directories = optionalSize - 128;
    Overwrite(optional, directories - 4, 16, 4);
    Overwrite(optional, directories + 16, PeTreeAddress, 4);
    Overwrite(optional, directories + 20, static_cast<std::uint64_t>(tree.size()), 4);
    file += optional + QByteArray(".rsrc\0\0\0", 8);
    Put(file, static_cast<std::uint64_t>(tree.size()), 4);
    Put(file, PeTreeAddress, 4);
    Put(file, static_cast<std::uint64_t>(tree.size()), 4);
    Put(file, static_cast<std::uint64_t>(PeTreeOffset), 4);
    Put(file, 0, 16);
    PadTo(file, PeTreeOffset);
    return file + tree;
}

// The tree of resources: types, names, one language, then the texts and the contents.
inline QByteArray PeTree(const QList<Resource>& resources)
{
    constexpr std::uint32_t branch = 0x80000000;
    const QList<int> types = {3, 14};
    QByteArray tree(16, '\0');
    Overwrite(tree, 14, static_cast<std::uint64_t>(types.size()), 2);
    qsizetype namesPlace = 16 + 8 * types.size();
    const qsizetype languagesPlace = namesPlace + 16 * types.size() + 8 * resources.size();
    const qsizetype leavesPlace = languagesPlace + 24 * resources.size();
    const qsizetype contentPlace = leavesPlace + 16 * resources.size();
    QByteArray names;
    QByteArray languages;
    QByteArray leaves;
    QByteArray content;
    for (const int type : types) {
        Put(tree, static_cast<std::uint64_t>(type), 4);
        Put(tree, static_cast<std::uint64_t>(namesPlace + names.size()) | branch, 4);
        QByteArray entries;
        int counts[2] = {0, 0};
        for (const Resource& resource : resources) {
            if (resource.type != type)
                continue;
            ++counts[resource.name.isEmpty() ? 1 : 0];
            if (resource.name.isEmpty()) {
                Put(entries, static_cast<std::uint64_t>(resource.number), 4);
            } else {
                Put(entries, static_cast<std::uint64_t>(contentPlace + content.size()) | branch, 4);
                Put(content, static_cast<std::uint64_t>(resource.name.size()), 2);
                for (const char character : resource.name)
                    Put(content, static_cast<unsigned char>(character), 2);
                PadTo(content, (content.size() + 3) / 4 * 4);
            }
            Put(entries, static_cast<std::uint64_t>(languagesPlace + languages.size()) | branch, 4);
            languages.append(14, '\0');
            Put(languages, 1, 2);
            Put(languages, 1033, 4);
            Put(languages, static_cast<std::uint64_t>(leavesPlace + leaves.size()), 4);
            Put(leaves, static_cast<std::uint64_t>(PeTreeAddress + contentPlace + content.size()), 4);
            Put(leaves, static_cast<std::uint64_t>(resource.bytes.size()), 4);
            Put(leaves, 0, 8);
            content += resource.bytes;
            PadTo(content, (content.size() + 3) / 4 * 4);
        }
        names.append(12, '\0');
        Put(names, static_cast<std::uint64_t>(counts[0]), 2);
        Put(names, static_cast<std::uint64_t>(counts[1]), 2);
        names += entries;
    }
    return tree + names + languages + leaves + content;
}

inline QByteArray PeFile(const QList<Resource>& resources, PeKind kind)
{
    return PeFileAround(PeTree(resources), kind);
}

} // namespace icons
