// SPDX-License-Identifier: GPL-3.0-or-later
// Painting of a search result: the page's title, and the lines that contain the words.
#pragma once

#include "shell/help/modManual.h"

#include <QStyledItemDelegate>

namespace ob {

class frmHelpResults final : public QStyledItemDelegate {
    Q_OBJECT

public:
    // The data of an item besides its text, the title.
    static constexpr int SnippetsRole = Qt::UserRole;
    static constexpr int PageRole = Qt::UserRole + 1;
    static constexpr int SectionRole = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    // The words to be shown in bold.
    void SetWords(const QStringList& searched) { words = searched; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QStringList words;
};

} // namespace ob
