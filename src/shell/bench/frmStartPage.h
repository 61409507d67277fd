// SPDX-License-Identifier: GPL-3.0-or-later
// What the empty area of the main window offers: new and recent programs and forms, and the manual's first page.
#pragma once

#include <QScrollArea>

class QGridLayout;
class QMdiArea;
class QToolButton;

namespace ob {

class frmStartPage final : public QScrollArea {
    Q_OBJECT

public:
    // Covers the area whenever it has no window.
    explicit frmStartPage(QMdiArea& mdi);

    // Shows the page if the area is empty, with the recent files of now, and hides it otherwise.
    void Follow();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* AddChoice(const char* name, const char* text, const char* icon, const char* tip);
    void FillRecentFiles();
    void AddRecentFile(int number, const QString& path);

    QMdiArea& area;
    QWidget* choices = nullptr;
    QWidget* recent = nullptr;
    QGridLayout* recentFiles = nullptr;
};

} // namespace ob
