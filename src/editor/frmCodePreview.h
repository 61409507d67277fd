// SPDX-License-Identifier: GPL-3.0-or-later
// A preview of the code that a tool would generate, coloured as in a code window.
#pragma once

#include <QPlainTextEdit>

namespace ob {

class frmCodeColors;

// Read-only unless a window makes it editable; its text can be selected and copied, and Tab leaves it. In a Designer
// file it is a QPlainTextEdit promoted to ob::frmCodePreview, header editor/frmCodePreview.h.
class frmCodePreview final : public QPlainTextEdit {
    Q_OBJECT
    // The preferred height; the widget can shrink and grow.
    Q_PROPERTY(int shownLines READ ShownLines WRITE SetShownLines)

public:
    explicit frmCodePreview(QWidget* parent = nullptr);
    ~frmCodePreview() override;

    // Shows the code in the current colours of the settings. The part that differs from the previous code is scrolled
    // into view. Lines end with CR LF, LF or CR.
    void ShowCode(const QString& code);

    int ShownLines() const { return shownLines; }
    void SetShownLines(int lines);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    int HeightOf(int lines) const;

    frmCodeColors* colors;
    QString shownCode;
    int shownLines = 6;
};

} // namespace ob
