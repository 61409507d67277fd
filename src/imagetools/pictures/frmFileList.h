// SPDX-License-Identifier: GPL-3.0-or-later
// A list of files that the user puts in order with three buttons, or keys.
#pragma once

#include <QObject>

class QListWidget;
class QPushButton;

namespace ob {

// In the list Del takes an entry out, Alt+Up and Alt+Down move it. The buttons follow the chosen entry.
class frmFileList final : public QObject {
    Q_OBJECT

public:
    struct Controls {
        QListWidget* list;
        QPushButton* remove;
        QPushButton* up;
        QPushButton* down;
    };

    enum class Use { Open, Held };

    frmFileList(const Controls& of, QObject* parent);

    // While the entries are in use elsewhere none of them can be moved or taken out.
    void SetUse(Use newUse);

    void ShowButtons(); // to be called when entries have come or gone

Q_SIGNALS:
    void Removed(int place);
    void Moved(int from, int to);

private:
    void Remove();
    void Move(int by);

    Controls controls;
    Use use = Use::Open;
};

} // namespace ob
