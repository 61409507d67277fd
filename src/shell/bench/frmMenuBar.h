// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar of the main window.
#pragma once

#include <QMenuBar>

class QKeyEvent;
class QStyleOptionMenuItem;

namespace ob {

// A letter that several menus share selects the first of them and then, pressed again, the next; Enter or Down opens
// the selected one, Left and Right select its neighbours, Escape leaves. So nothing opens that the user could take for
// another menu, and no key meant for a menu reaches the program's text.
class frmMenuBar final : public QMenuBar {
    Q_OBJECT

public:
    using QMenuBar::QMenuBar;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    enum class Selecting { No, Yes };

    QList<QAction*> UsableMenus() const;
    QList<QAction*> MenusOf(const QKeySequence& letter) const;
    void Select(QAction* menu);
    void SelectNeighbour(int step);
    void Leave();
    void KeyWhileSelecting(const QKeyEvent& key);
    void LetterWhileSelecting(const QKeyEvent& key);

    Selecting selecting = Selecting::No;
};

} // namespace ob
