// SPDX-License-Identifier: GPL-3.0-or-later
// The icons in programs and libraries of the PE format. The tree of resources has three levels, types, names and
// languages, and is never followed deeper, so that loops are harmless.
#include "imagetools/icons/modPeIcons.h"

#include "imaging/cByteReader.h"

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
    ByteRange bytes;           // in the file
};

struct Program {
    std::vector<Section> sections;
    std::uint32_t resources = 0; // address of the tree; 0 for none

    // What the file has for the memory from that address on, to the end of its section.
    ByteRange From(std::uint32_t address) const
    {
        for (const Section& section : sections) {
            if (address >= section.address && address - section.address < section.bytes.size)
                return section.bytes.From(address - section.address, section.bytes.size);
        }
        return {};
    }
};

// The resources' part of the file.
struct Tree {
    const cByteSource& file;
    ByteRange range;
    std::vector<std::uint8_t> buffer = {};

    // So many bytes at a distance from the tree's start, good until the next; empty when not all of them are there.
    ByteView Get(std::uint64_t offset, std::uint64_t count) { return file.Look(range.At(offset, count), buffer); }
};

struct TreeEntry {
    std::uint32_t name = 0; // a number, or with the high bit the place of a text
    std::uint32_t target = 0;
};

bool IsBranch(const TreeEntry& entry)
{
    return (entry.target & HighBit) != 0;
}

std::vector<Section> ReadSections(const cByteSource& file, std::uint64_t start, std::size_t count)
{
    const ByteRange all = file.All();
    const std::vector<std::uint8_t> headers = file.Bytes(all.From(start, count * SectionBytes));
    std::vector<Section> sections;
    for (std::size_t index = 0; index < count; ++index) {
        const ByteView header = BytesAt(headers, index * SectionBytes, SectionBytes);
        if (header.empty())
            break;
        const cByteReader reader(header);
        sections.push_back({reader.Long(12), all.From(reader.Long(20), reader.Long(16))});
    }
    return sections;
}

std::optional<Program> ReadProgram(const cByteSource& file, std::uint64_t header)
{
    const ByteRange headerPlace = file.All().At(header, SignatureSize + FileHeaderBytes);
    if (headerPlace.IsEmpty())
        return {};
    const std::vector<std::uint8_t> fileHeader = file.Bytes(headerPlace);
    const cByteReader reader(fileHeader);
    constexpr std::uint32_t signature = 'P' | 'E' << 8;
    const std::size_t sectionCount = reader.Word(SignatureSize + 2);
    const std::size_t optionalSize = reader.Word(SignatureSize + 16);
    const std::uint64_t optionalStart = header + SignatureSize + FileHeaderBytes;
    const ByteRange optionalPlace = file.All().At(optionalStart, optionalSize);
    if (reader.Long(0) != signature || sectionCount > MostSections || optionalPlace.IsEmpty())
        return {};

    constexpr std::uint16_t bits32 = 0x10B;
    constexpr std::uint16_t bits64 = 0x20B;
    constexpr std::uint32_t resourceDirectory = 2;
    const std::vector<std::uint8_t> optional = file.Bytes(optionalPlace);
    const cByteReader fields(optional);
    const std::uint16_t kind = fields.Word(0);
    if (kind != bits32 && kind != bits64)
        return {};
    const std::size_t directories = kind == bits32 ? 96 : 112;
    Program program;
    if (fields.Long(directories - 4) > resourceDirectory)
        program.resources = fields.Long(directories + resourceDirectory * 8);
    program.sections = ReadSections(file, optionalStart + optionalSize, sectionCount);
    return program;
}

// The entries of one branch as far as they are in the tree: those with texts first, then those with numbers.
std::vector<TreeEntry> EntriesAt(Tree& tree, std::uint32_t target)
{
    constexpr std::size_t headerBytes = 16;
    constexpr std::size_t entryBytes = 8;
    const std::uint64_t start = target & ~HighBit;
    const ByteView header = tree.Get(start, headerBytes);
    if (header.empty())
        return {};
    const cByteReader counts(header);
    const std::size_t claimed = std::size_t{counts.Word(12)} + counts.Word(14);
    const std::vector<std::uint8_t> bytes = tree.file.Bytes(tree.range.From(start + headerBytes, claimed * entryBytes));
    const cByteReader reader(bytes);
    std::vector<TreeEntry> entries(bytes.size() / entryBytes);
    for (std::size_t index = 0; index < entries.size(); ++index)
        entries[index] = {reader.Long(index * entryBytes), reader.Long(index * entryBytes + 4)};
    return entries;
}

// Where the bytes of a resource in its first language are.
ByteRange ResourceAt(const Program& program, Tree& tree, const TreeEntry& entry)
{
    constexpr std::size_t leafBytes = 16;
    constexpr std::size_t branchBytes = 24; // with one entry
    if (!IsBranch(entry))
        return {};
    const ByteView branchPart = tree.Get(entry.target & ~HighBit, branchBytes);
    if (branchPart.empty())
        return {};
    const cByteReader branch(branchPart);
    const bool hasLanguage = branch.Word(12) != 0 || branch.Word(14) != 0;
    const std::uint32_t place = branch.Long(20);
    if (!hasLanguage || (place & HighBit) != 0)
        return {};
    const ByteView leafPart = tree.Get(place, leafBytes);
    if (leafPart.empty())
        return {};
    const cByteReader leaf(leafPart);
    return program.From(leaf.Long(0)).At(0, leaf.Long(4));
}

std::vector<TreeEntry> ResourcesOfType(Tree& tree, std::uint16_t type)
{
    for (const TreeEntry& entry : EntriesAt(tree, 0)) {
        if (entry.name == type)
            return IsBranch(entry) ? EntriesAt(tree, entry.target) : std::vector<TreeEntry>();
    }
    return {};
}

} // namespace

IconTable ReadPeIcons(const cByteSource& file, std::uint64_t header)
{
    const std::optional<Program> program = ReadProgram(file, header);
    if (!program || program->resources == 0)
        return {};
    Tree tree = {file, program->From(program->resources)};
    IconTable table;
    const std::vector<TreeEntry> groups = ResourcesOfType(tree, GroupResource);
    table.groups.reserve(groups.size());
    for (const TreeEntry& entry : groups)
        table.groups.push_back(ResourceAt(*program, tree, entry));
    const std::vector<TreeEntry> images = ResourcesOfType(tree, ImageResource);
    table.images.reserve(images.size());
    for (const TreeEntry& entry : images) {
        if (entry.name <= 0xFFFF)
            table.images.emplace_back(static_cast<std::uint16_t>(entry.name), ResourceAt(*program, tree, entry));
    }
    table.SortImages();
    return table;
}

} // namespace ob
