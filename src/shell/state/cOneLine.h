// SPDX-License-Identifier: GPL-3.0-or-later
// The contents of a field of one line: what it holds is what it shows.
#pragma once

#include <QValidator>

namespace ob {

// Accepts every text. Line ends, which arrive by pasting and dropping, become the spaces that a field shows in their
// place, and so do other control characters; those at the end of the text are dropped.
class cOneLine final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& caret) const override;
};

} // namespace ob
