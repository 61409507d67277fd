// SPDX-License-Identifier: GPL-3.0-or-later
// The variables of a text as a table.
#include "engine/run/cVariableTable.h"

#include "platform/language/modRuntime.h"

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Sorting by a number made of the start of the text avoids nearly all accesses to the text itself.
struct SortKey {
    std::uint64_t start = 0;
    std::uint32_t entry = 0;
};

// The first eight bytes, the first one most significant.
std::uint64_t StartOf(QByteArrayView name)
{
    std::uint64_t start = 0;
    for (qsizetype i = 0; i < 8; ++i)
        start = start << 8 | (i < name.size() ? static_cast<unsigned char>(LowerAscii(name[i])) : 0U);
    return start;
}

// The order of decimal texts: digits from the left, then the shorter before the longer.
std::uint64_t StartOf(int line)
{
    std::uint64_t length = 1;
    for (int rest = line / 10; rest != 0; rest /= 10)
        ++length;
    auto digits = static_cast<std::uint64_t>(line);
    for (std::uint64_t place = length; place < 10; ++place)
        digits *= 10;
    return digits * 16 + length;
}

bool IsBefore(QByteArrayView left, QByteArrayView right)
{
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
        return static_cast<unsigned char>(LowerAscii(a)) < static_cast<unsigned char>(LowerAscii(b));
    });
}

} // namespace

ScannedText ScanText(const QByteArray& text)
{
    return {text, ScanVariables(text)};
}

cVariableTable::cVariableTable(QByteArrayView source, QObject* parent)
    : cVariableTable(ScanText(source.toByteArray()), parent)
{
}

cVariableTable::cVariableTable(ScannedText scannedText, QObject* parent)
    : QAbstractTableModel(parent), scanned(std::move(scannedText)), rows(scanned.entries.size())
{
    std::iota(rows.begin(), rows.end(), 0U);
}

int cVariableTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

int cVariableTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant cVariableTable::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    const VariableEntry& entry = Entry(index.row());
    return index.column() == NameColumn ? QString::fromUtf8(entry.name) : QString::number(entry.line);
}

QVariant cVariableTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? u"Variable Name"_s : u"Line #"_s;
}

cVariableTable::Rows cVariableTable::SortedRows(int column, Qt::SortOrder order) const
{
    std::vector<SortKey> keys(rows.size());
    std::transform(rows.begin(), rows.end(), keys.begin(), [&](std::uint32_t entry) {
        const VariableEntry& from = scanned.entries[entry];
        return SortKey{column == NameColumn ? StartOf(from.name) : StartOf(from.line), entry};
    });
    const auto ascending = [&](const SortKey& left, const SortKey& right) {
        if (left.start != right.start || column == LineColumn)
            return left.start < right.start;
        return IsBefore(scanned.entries[left.entry].name, scanned.entries[right.entry].name);
    };
    const auto descending = [&](const SortKey& left, const SortKey& right) { return ascending(right, left); };
    if (order == Qt::AscendingOrder)
        std::stable_sort(keys.begin(), keys.end(), ascending);
    else
        std::stable_sort(keys.begin(), keys.end(), descending);
    Rows sorted(keys.size());
    std::transform(keys.begin(), keys.end(), sorted.begin(), [](const SortKey& key) { return key.entry; });
    return sorted;
}

// A selected entry stays selected wherever it moves.
void cVariableTable::MoveIndexes(const Rows& before)
{
    const QModelIndexList old = persistentIndexList();
    if (old.isEmpty())
        return;
    Rows rowOfEntry(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        rowOfEntry[rows[row]] = static_cast<std::uint32_t>(row);
    for (const QModelIndex& index : old) {
        const std::uint32_t entry = before[static_cast<std::size_t>(index.row())];
        changePersistentIndex(index, createIndex(static_cast<int>(rowOfEntry[entry]), index.column()));
    }
}

void cVariableTable::sort(int column, Qt::SortOrder order)
{
    if (column != NameColumn && column != LineColumn)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const Rows before = rows;
    rows = SortedRows(column, order);
    MoveIndexes(before);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

} // namespace ob
