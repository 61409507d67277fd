// SPDX-License-Identifier: GPL-3.0-or-later
// The structs of a running program: bytes, as the system's interfaces lay them out.
#include "orchard/machine/cStructs.h"

#include "orchard/library/cProgramError.h"
#include "orchard/machine/modNumbers.h"

#include <algorithm>
#include <bit>

namespace ob::basic {

namespace {

bool IsSigned(DataType type)
{
    return type == DataType::Long || type == DataType::Short || type == DataType::Boolean;
}

} // namespace

void cStructs::Define(std::size_t number)
{
    const StructLayout& layout = code.layouts[number];
    Memory& memory = memories[layout.structure];
    memory.layout = &layout;
    memory.bytes.assign(layout.size, 0);
    memory.pointed.clear();
}

const cStructs::Memory& cStructs::MemoryOf(std::size_t structure) const
{
    if (memories[structure].layout == nullptr)
        Fail(ErrorNumber::UnknownName, "the struct is not defined");
    return memories[structure];
}

const StructField& cStructs::FieldOf(std::size_t structure, std::string_view name) const
{
    const std::vector<StructField>& fields = MemoryOf(structure).layout->fields;
    const auto found = std::ranges::find(fields, name, &StructField::name);
    if (found == fields.end())
        Fail(ErrorNumber::UnknownName, name);
    return *found;
}

std::size_t cStructs::Size(std::size_t structure) const
{
    return MemoryOf(structure).bytes.size();
}

double cStructs::Number(std::size_t structure, std::string_view name) const
{
    const StructField& field = FieldOf(structure, name);
    const std::uint8_t* const bytes = memories[structure].bytes.data() + field.offset;
    std::uint64_t bits = 0;
    for (std::uint32_t index = 0; index < field.size && index < 8; ++index)
        bits |= std::uint64_t{bytes[index]} << (8 * index);
    if (field.type == DataType::Double) {
        const auto value = std::bit_cast<double>(bits);
        return std::isfinite(value) ? value : 0;
    }
    const unsigned unused = 64 - 8 * std::min<std::uint32_t>(field.size, 8);
    if (IsSigned(field.type))
        return static_cast<double>(static_cast<std::int64_t>(bits << unused) >> unused);
    return static_cast<double>(bits);
}

cText cStructs::Text(std::size_t structure, std::string_view name) const
{
    const StructField& field = FieldOf(structure, name);
    const Memory& memory = memories[structure];
    if (field.type != DataType::Char) {
        const auto found = memory.pointed.find(field.offset);
        if (found == memory.pointed.end())
            return {};
        const std::string_view text = found->second.View();
        return found->second.Slice(text.substr(0, text.find('\0')));
    }
    const std::string_view bytes(reinterpret_cast<const char*>(memory.bytes.data()) + field.offset, field.size);
    return cText(bytes.substr(0, bytes.find('\0')));
}

void cStructs::SetNumber(std::size_t structure, std::string_view name, double value)
{
    const StructField& field = FieldOf(structure, name);
    const std::uint64_t bits = field.type == DataType::Double ? std::bit_cast<std::uint64_t>(value) : ToBits(value);
    std::uint8_t* const bytes = memories[structure].bytes.data() + field.offset;
    for (std::uint32_t index = 0; index < field.size && index < 8; ++index)
        bytes[index] = static_cast<std::uint8_t>(bits >> (8 * index));
}

void cStructs::SetText(std::size_t structure, std::string_view name, const cText& value)
{
    const StructField& field = FieldOf(structure, name);
    Memory& memory = memories[structure];
    if (field.type != DataType::Char) {
        memory.pointed[field.offset] = value;
        return;
    }
    const std::string_view text = value.View().substr(0, field.size);
    const auto start = memory.bytes.begin() + static_cast<std::ptrdiff_t>(field.offset);
    std::fill(std::ranges::copy(text, start).out, start + static_cast<std::ptrdiff_t>(field.size), std::uint8_t{0});
}

} // namespace ob::basic
