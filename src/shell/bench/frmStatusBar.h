// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's status bar: text, the states of three keys, date and time.
#pragma once

#include <QStatusBar>

class QLabel;

namespace ob {

class frmStatusBar final : public QStatusBar {
    Q_OBJECT

public:
    explicit frmStatusBar(QWidget* parent = nullptr);
    ~frmStatusBar() override;

    void SetText(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* AddPanel(const char* name, const QString& text);
    void ShowClock();
    void ShowKeys();

    QLabel* textPanel = nullptr;
    QLabel* numPanel = nullptr;
    QLabel* capsPanel = nullptr;
    QLabel* insPanel = nullptr;
    QLabel* datePanel = nullptr;
    QLabel* timePanel = nullptr;
};

} // namespace ob
