// SPDX-License-Identifier: GPL-3.0-or-later
// The statement sort.
#include "orchard/machine/modSort.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ob::basic {

namespace {

// Thrown out of a comparison: a sort of ten million texts must not hold up the end of the program.
struct Stopped {};

double KeyOf(double item)
{
    return item;
}

std::string_view KeyOf(const cText& item)
{
    return item.View();
}

template <class Item>
void Sort(cArray<Item>& array, double from, double to, double column, const cMachine& machine)
{
    constexpr std::size_t usualLast = 10;
    if (array.Dimensions() == 0)
        array.Dim(usualLast);
    const bool isTable = array.Dimensions() == 2;
    const std::size_t width = array.Columns();
    const auto rowOf = [&](double index) {
        const std::size_t place = isTable ? array.Place(index, column) : array.Place(index);
        if (place == cArray<Item>::None)
            Fail(ErrorNumber::IndexOutside);
        return place / width;
    };
    const std::size_t first = rowOf(from);
    const std::size_t last = rowOf(to);
    const bool isFalling = first > last;
    const std::size_t start = std::min(first, last);
    const std::size_t count = std::max(first, last) - start + 1;
    const auto key = isTable ? static_cast<std::size_t>(column < 0 ? 0 : column) : 0;

    using Key = decltype(KeyOf(array.Items()[0]));
    struct Row {
        Key key;
        std::size_t place;
    };
    std::vector<Row> rows;
    rows.reserve(count);
    for (std::size_t row = start; row < start + count; ++row)
        rows.push_back({KeyOf(array.Items()[row * width + key]), row});
    std::uint32_t comparisons = 0;
    const auto check = [&] {
        if ((++comparisons & 0xFFF) == 0 && machine.IsStopped())
            throw Stopped();
    };
    if (isFalling)
        std::ranges::stable_sort(rows, [&](const Row& a, const Row& b) { return check(), b.key < a.key; });
    else
        std::ranges::stable_sort(rows, [&](const Row& a, const Row& b) { return check(), a.key < b.key; });

    std::vector<Item> sorted;
    sorted.reserve(count * width);
    for (const Row& row : rows)
        for (std::size_t item = 0; item < width; ++item)
            sorted.push_back(std::move(array.Items()[row.place * width + item]));
    std::ranges::move(sorted, array.Items() + start * width);
}

} // namespace

void SortArray(cArray<double>& array, double from, double to, double column, const cMachine& machine)
{
    try {
        Sort(array, from, to, column, machine);
    } catch (const Stopped&) {
    }
}

void SortArray(cArray<cText>& array, double from, double to, double column, const cMachine& machine)
{
    try {
        Sort(array, from, to, column, machine);
    } catch (const Stopped&) {
    }
}

} // namespace ob::basic
