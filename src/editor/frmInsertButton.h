// SPDX-License-Identifier: GPL-3.0-or-later
// The button of a tool that inserts its code into the active program.
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class QPushButton;

namespace ob {

class frmInsertButton final : public QObject {
public:
    struct Tool {
        // Whether there is code now.
        std::function<bool()> hasCode;
        // The code, after whatever the tool asks for first; nothing when the user went back.
        std::function<std::optional<QString>()> code;
        // What follows when the code is in the program; may be empty.
        std::function<void()> inserted;
    };

    // A press inserts the code at the caret, as one step of undo. The button is grey while no program is active, or
    // there is no code. Belongs to the button.
    frmInsertButton(QPushButton* button, Tool tool);

    // To be called when there may be code that was not there before, or the other way round.
    void Refresh();

private:
    void Insert() const;

    QPushButton* button;
    Tool tool;
};

} // namespace ob
