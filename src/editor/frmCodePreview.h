// SPDX-License-Identifier: GPL-3.0-or-later
// A look at the code that a tool would give, coloured as in a code window.
#pragma once

#include <QPlainTextEdit>

namespace ob {

class frmCodeColors;

// Read-only; its text can be selected and copied, Tab leaves it. In a Designer file it is a QPlainTextEdit promoted to
// ob::frmCodePreview, header codetools/frmCodePreview.h.
class frmCodePreview final : public QPlainTextEdit {
    Q_OBJECT
    // The height that it asks for; it can become lower and higher.
    Q_PROPERTY(int shownLines READ ShownLines WRITE SetShownLines)

public:
    explicit frmCodePreview(QWidget* parent = nullptr);
    ~frmCodePreview() override;

    // Shows the code, in the colours that the settings have now. What differs from the code before is scrolled into
    // view. Lines end at CR LF, LF or CR.
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
