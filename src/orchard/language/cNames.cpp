// SPDX-License-Identifier: GPL-3.0-or-later
// Names by hashing: a table of numbers with open addressing, at most half full.
#include "orchard/language/cNames.h"

#include <cstring>

namespace ob::basic {

namespace {

constexpr std::size_t FirstSize = 256;

std::uint64_t Mixed(std::uint64_t value)
{
    value *= 0x9E3779B97F4A7C15U;
    return value ^ (value >> 29);
}

// Eight bytes at a time: names are short, so that most take one round.
std::uint32_t HashOf(std::string_view text)
{
    std::uint64_t hash = text.size();
    while (text.size() >= sizeof(std::uint64_t)) {
        std::uint64_t part;
        std::memcpy(&part, text.data(), sizeof part);
        hash = Mixed(hash ^ part);
        text.remove_prefix(sizeof part);
    }
    std::uint64_t rest = 0;
    for (const char c : text)
        rest = rest << 8 | static_cast<unsigned char>(c);
    hash = Mixed(hash ^ rest);
    return static_cast<std::uint32_t>(hash >> 32 ^ hash);
}

} // namespace

cNames::cNames() : slots(FirstSize, NoName) {}

std::size_t cNames::SlotOf(std::string_view text, std::uint32_t hash) const
{
    const std::size_t mask = slots.size() - 1;
    std::size_t slot = hash & mask;
    while (slots[slot] != NoName && (names[slots[slot]].hash != hash || names[slots[slot]].text != text))
        slot = (slot + 1) & mask;
    return slot;
}

NameId cNames::Intern(std::string_view text)
{
    const std::uint32_t hash = HashOf(text);
    std::size_t slot = SlotOf(text, hash);
    if (slots[slot] != NoName)
        return slots[slot];
    if (2 * (names.size() + 1) > slots.size()) {
        Grow();
        slot = SlotOf(text, hash);
    }
    slots[slot] = static_cast<NameId>(names.size());
    names.push_back({text, hash, MeaningOf(text)});
    return slots[slot];
}

NameId cNames::Find(std::string_view text) const
{
    return slots[SlotOf(text, HashOf(text))];
}

void cNames::Grow()
{
    slots.assign(2 * slots.size(), NoName);
    const std::size_t mask = slots.size() - 1;
    for (std::size_t name = 0; name < names.size(); ++name) {
        std::size_t slot = names[name].hash & mask;
        while (slots[slot] != NoName)
            slot = (slot + 1) & mask;
        slots[slot] = static_cast<NameId>(name);
    }
}

} // namespace ob::basic
