// SPDX-License-Identifier: GPL-3.0-or-later
// The icons in programs and libraries of the PE format. The tree of resources has three levels, types, names and
// languages, and is never followed deeper, so that loops are harmless.
#include "imagetools/icons/modPeIcons.h"

#include "imaging/modBitmapHeaders.h"

#include <optional>

namespace ob {

namespace {

constexpr std::size_t SignatureSize = 4;
constexpr std::size_t FileHeaderBytes = 20;
constexpr std::size_t SectionBytes = 40;
// The system does not start programs with more; a bound keeps each look-up short.
constexpr std::size_t MostSections = 96;

constexpr std::uint32_t HighBit = 0x80000000;

struct Section {
    std::uint32_t address = 0; // in memory
    ByteView bytes;            // in the file
};

struct Program {
    std::vector<Section> sections;
    std::uint32_t resources = 0; // address of the tree; 0 for none

    // The bytes in the file for the memory from that address on, to the end of its section.
    ByteView From(std::uint32_t address) const
    {
        for (const Section& section : sections) {
            if (address >= section.address && address - section.address < section.bytes.size())
                return section.bytes.subspan(address - section.address);
        }
        return {};
    }
};

struct TreeEntry {
    std::uint32_t name = 0; // a number, or with the high bit the place of a text
    std::uint32_t target = 0;
};

bool IsBranch(const TreeEntry& entry)
{
    return (entry.target & HighBit) != 0;
}

std::vector<Section> ReadSections(ByteView file, std::size_t start, std::size_t count)
{
    std::vector<Section> sections;
    for (std::size_t index = 0; index < count; ++index) {
        const ByteView header = BytesAt(file, start + index * SectionBytes, SectionBytes);
        if (header.empty())
            break;
        const cByteReader reader(header);
        const std::uint64_t offset = std::min<std::uint64_t>(reader.Long(20), file.size());
        const std::uint64_t size = std::min<std::uint64_t>(reader.Long(16), file.size() - offset);
        sections.push_back({reader.Long(12), BytesAt(file, offset, size)});
    }
    return sections;
}

std::optional<Program> ReadProgram(ByteView file, std::size_t header)
{
    const ByteView fileHeader = BytesAt(file, header, SignatureSize + FileHeaderBytes);
    if (fileHeader.empty())
        return {};
    const cByteReader reader(fileHeader);
    constexpr std::uint32_t signature = 'P' | 'E' << 8;
    const std::size_t sectionCount = reader.Word(SignatureSize + 2);
    const std::size_t optionalSize = reader.Word(SignatureSize + 16);
    const std::uint64_t optionalStart = std::uint64_t{header} + SignatureSize + FileHeaderBytes;
    const ByteView optional = BytesAt(file, optionalStart, optionalSize);
    if (reader.Long(0) != signature || sectionCount > MostSections || optional.empty())
        return {};

    constexpr std::uint16_t bits32 = 0x10B;
    constexpr std::uint16_t bits64 = 0x20B;
    constexpr std::uint32_t resourceDirectory = 2;
    const cByteReader fields(optional);
    const std::uint16_t kind = fields.Word(0);
    if (kind != bits32 && kind != bits64)
        return {};
    const std::size_t directories = kind == bits32 ? 96 : 112;
    Program program;
    if (fields.Long(directories - 4) > resourceDirectory)
        program.resources = fields.Long(directories + resourceDirectory * 8);
    program.sections = ReadSections(file, static_cast<std::size_t>(optionalStart) + optionalSize, sectionCount);
    return program;
}

// The entries of one branch as far as they are in the tree: those with texts first, then those with numbers.
std::vector<TreeEntry> EntriesAt(ByteView tree, std::uint32_t target)
{
    constexpr std::size_t headerBytes = 16;
    constexpr std::size_t entryBytes = 8;
    const std::size_t start = target & ~HighBit;
    if (BytesAt(tree, start, headerBytes).empty())
        return {};
    const cByteReader reader(tree);
    const std::size_t claimed = std::size_t{reader.Word(start + 12)} + reader.Word(start + 14);
    const std::size_t count = std::min(claimed, (tree.size() - start - headerBytes) / entryBytes);
    std::vector<TreeEntry> entries(count);
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t place = start + headerBytes + index * entryBytes;
        entries[index] = {reader.Long(place), reader.Long(place + 4)};
    }
    return entries;
}

// The bytes of a resource in its first language.
ByteView ResourceAt(const Program& program, ByteView tree, const TreeEntry& entry)
{
    constexpr std::size_t leafBytes = 16;
    constexpr std::size_t branchBytes = 24; // with one entry
    const std::size_t branch = entry.target & ~HighBit;
    if (!IsBranch(entry) || BytesAt(tree, branch, branchBytes).empty())
        return {};
    const cByteReader reader(tree);
    const bool hasLanguage = reader.Word(branch + 12) != 0 || reader.Word(branch + 14) != 0;
    const std::uint32_t leaf = reader.Long(branch + 20);
    if (!hasLanguage || (leaf & HighBit) != 0 || BytesAt(tree, leaf, leafBytes).empty())
        return {};
    return BytesAt(program.From(reader.Long(leaf)), 0, reader.Long(leaf + 4));
}

std::vector<TreeEntry> ResourcesOfType(ByteView tree, std::uint16_t type)
{
    for (const TreeEntry& entry : EntriesAt(tree, 0)) {
        if (entry.name == type)
            return IsBranch(entry) ? EntriesAt(tree, entry.target) : std::vector<TreeEntry>();
    }
    return {};
}

} // namespace

IconTable ReadPeIcons(ByteView file, std::size_t header)
{
    const std::optional<Program> program = ReadProgram(file, header);
    if (!program || program->resources == 0)
        return {};
    const ByteView tree = program->From(program->resources);
    IconTable table;
    for (const TreeEntry& entry : ResourcesOfType(tree, GroupResource))
        table.groups.push_back(ResourceAt(*program, tree, entry));
    for (const TreeEntry& entry : ResourcesOfType(tree, ImageResource)) {
        if (entry.name <= 0xFFFF)
            table.images.emplace_back(static_cast<std::uint16_t>(entry.name), ResourceAt(*program, tree, entry));
    }
    table.SortImages();
    return table;
}

} // namespace ob
