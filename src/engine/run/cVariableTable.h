// SPDX-License-Identifier: GPL-3.0-or-later
// The variables of a text as a table model.
#pragma once

#include "engine/run/modVariables.h"

#include <QAbstractTableModel>
#include <QByteArray>

#include <cstdint>
#include <vector>

namespace ob {

// A text (UTF-8) and the variables in it, whose names are views of it.
struct ScannedText {
    QByteArray text;
    std::vector<VariableEntry> entries;
};
ScannedText ScanText(const QByteArray& text);

// Columns: name, and line (from 0) as text. Rows are in scan order until they are sorted.
class cVariableTable final : public QAbstractTableModel {
public:
    static constexpr int NameColumn = 0;
    static constexpr int LineColumn = 1;

    explicit cVariableTable(ScannedText scannedText, QObject* parent = nullptr);

    // Copies the text (UTF-8), so that the names survive changes in the control.
    explicit cVariableTable(QByteArrayView source, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // Sorts a column as text, ignoring the case of ASCII letters; "10" comes before "9". The sort is stable.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    const VariableEntry& Entry(int row) const { return scanned.entries[rows[static_cast<std::size_t>(row)]]; }

private:
    using Rows = std::vector<std::uint32_t>;

    Rows SortedRows(int column, Qt::SortOrder order) const;
    void MoveIndexes(const Rows& before);

    ScannedText scanned;
    Rows rows; // the entry of each row
};

} // namespace ob
