// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of the form under design that can be undone: a snapshot of the form a finished action.
#pragma once

#include "guibuilder/modGui.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>

namespace ob {

class cFormHistory {
public:
    static constexpr std::size_t StepLimit = 200;
    // Controls in all snapshots together, so that the steps of a huge form do not take all memory.
    static constexpr std::size_t ControlLimit = 500'000;

    // Forgets all steps; what the form holds now is where undo ends.
    void Restart(const GuiForm& form);

    // An action has ended; it has set the window's rectangle, or the user has just drawn the window somewhere else
    // since. False when it changed nothing.
    enum class WindowRect { Drawn, Set };
    bool Commit(const GuiForm& form, WindowRect rect = WindowRect::Drawn);

    // The same for a step that goes on with the one before, as a key that is held down does.
    void Extend(const GuiForm& form);

    // What the form holds now was not done by the user but filled in, such as missing names: no step, and all steps
    // that have the old texts get the new ones.
    void Adopt(const GuiForm& form);

    // The form before, and after, the last action undone; nothing at the end. The rectangle of the window is that of
    // form unless the action itself had set it.
    std::optional<GuiForm> Undo(const GuiForm& form);
    std::optional<GuiForm> Redo(const GuiForm& form);

    // The form as the last finished action left it.
    const GuiForm& Current() const { return current; }

    bool CanUndo() const { return !before.empty(); }
    bool CanRedo() const { return !after.empty(); }

private:
    void Settle(const GuiForm& form, WindowRect rect);
    std::optional<GuiForm> Step(std::deque<GuiForm>& from, std::deque<GuiForm>& to, const GuiForm& form);

    GuiForm current;
    std::deque<GuiForm> before;
    std::deque<GuiForm> after;
};

} // namespace ob
