// SPDX-License-Identifier: GPL-3.0-or-later
// The arrays of a running program.
#pragma once

#include "orchard/machine/cText.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

namespace ob::basic {

// Items 0 to a size in one or two dimensions, all of them zeros of their type at first. Item is double or cText; memory
// that nobody has touched costs none.
template <class Item>
class cArray {
public:
    static constexpr std::size_t None = std::numeric_limits<std::size_t>::max();

    cArray() = default;
    cArray(cArray&& other) noexcept
        : items(std::exchange(other.items, nullptr)), rows(std::exchange(other.rows, 0)),
          columns(std::exchange(other.columns, 0)), dimensions(std::exchange(other.dimensions, 0))
    {
    }
    cArray& operator=(cArray&&) = delete;
    ~cArray() { Clear(); }

    // Makes the array anew, with items 0 to the last ones, which are not negative. Throws std::bad_alloc and is then as
    // it was.
    void Dim(std::size_t lastRow) { Make(lastRow, 0, 1); }
    void Dim(std::size_t lastRow, std::size_t lastColumn) { Make(lastRow, lastColumn, 2); }

    // 0 when it has not been dimensioned.
    int Dimensions() const { return dimensions; }
    std::size_t Rows() const { return rows; }
    std::size_t Columns() const { return columns; }
    std::size_t Size() const { return rows * columns; }
    Item* Items() { return items; }

    // The place of an item, its indexes cut toward zero; None outside the array, or for another number of dimensions.
    std::size_t Place(double index) const
    {
        const std::size_t row = Index(index, rows);
        return dimensions == 1 ? row : None;
    }
    std::size_t Place(double first, double second) const
    {
        const std::size_t row = Index(first, rows);
        const std::size_t column = Index(second, columns);
        return dimensions == 2 && row != None && column != None ? row * columns + column : None;
    }

private:
    static std::size_t Index(double index, std::size_t count)
    {
        return index > -1 && index < static_cast<double>(count) ? static_cast<std::size_t>(index) : None;
    }

    void Make(std::size_t lastRow, std::size_t lastColumn, int newDimensions)
    {
        constexpr std::size_t most = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(Item);
        if (lastRow >= most || lastColumn >= most || (lastRow + 1) > most / (lastColumn + 1))
            throw std::bad_alloc();
        void* made = std::calloc((lastRow + 1) * (lastColumn + 1), sizeof(Item));
        if (made == nullptr)
            throw std::bad_alloc();
        Clear();
        items = static_cast<Item*>(made);
        rows = lastRow + 1;
        columns = lastColumn + 1;
        dimensions = newDimensions;
    }

    void Clear()
    {
        if constexpr (!std::is_trivially_destructible_v<Item>)
            for (std::size_t place = 0; place < Size(); ++place)
                items[place].~Item();
        std::free(items);
        items = nullptr;
        rows = columns = 0;
        dimensions = 0;
    }

    Item* items = nullptr;
    std::size_t rows = 0;
    std::size_t columns = 0;
    int dimensions = 0;
};

} // namespace ob::basic
