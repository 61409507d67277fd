// SPDX-License-Identifier: GPL-3.0-or-later
// The structs of a running program: bytes, as the system's interfaces lay them out.
#pragma once

#include "orchard/machine/cMachineCode.h"
#include "orchard/machine/cText.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace ob::basic {

class cStructs {
public:
    explicit cStructs(const MachineCode& program) : code(program), memories(program.structCount) {}

    // `struct` was run: the fields are empty and have that layout.
    void Define(std::size_t layout);

    // Bytes of a struct, and its fields; UnknownName for one that was not defined or has no such field.
    std::size_t Size(std::size_t structure) const;
    double Number(std::size_t structure, std::string_view field) const;
    cText Text(std::size_t structure, std::string_view field) const;
    // The number is cut, and its low bits fit the field.
    void SetNumber(std::size_t structure, std::string_view field, double value);
    // The text is cut where the field ends.
    void SetText(std::size_t structure, std::string_view field, const cText& value);

private:
    struct Memory {
        const StructLayout* layout = nullptr;
        std::vector<std::uint8_t> bytes;
        std::map<std::uint32_t, cText> pointed; // the texts of fields that are pointers, by their offsets
    };

    const Memory& MemoryOf(std::size_t structure) const;
    const StructField& FieldOf(std::size_t structure, std::string_view field) const;

    const MachineCode& code;
    std::vector<Memory> memories;
};

} // namespace ob::basic
