// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the help window that shows a page of the manual.
#pragma once

#include "shell/help/modManual.h"

#include <QTextBrowser>

#include <optional>

namespace ob {

class frmHelpPage final : public QTextBrowser {
    Q_OBJECT

public:
    explicit frmHelpPage(QWidget* parent = nullptr);

    // Shows the page's text and goes to the section; an unknown section is the page's start.
    void ShowPage(const QString& name, const QString& section);

    // Highlights the words wherever they begin on the page; no words remove the highlights.
    void MarkWords(const QStringList& words);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Render();
    void Style();
    void StyleFrame(QTextFrame& frame);
    void StyleTable(QTextTable& table);
    void StyleBlock(const QTextBlock& block);
    void StylePieces(const QTextBlock& block);
    void FitPictures();
    void GoToSection(const QString& section);
    int TextWidth() const;

    QString shown; // the page's name
    QStringList marked;
    std::optional<QString> sectionToShow; // gone to once the page is visible
    int fittedWidth = 0;
};

} // namespace ob
