// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of the form under design that can be undone: one snapshot of the form per finished action.
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
    // Controls in all snapshots together, so that the steps of a huge form do not exhaust memory.
    static constexpr std::size_t ControlLimit = 500'000;

    // Discards all steps; undo ends at the form's present state.
    void Restart(const GuiForm& form);

    // An action has ended; it may have set the window's size, or the user has merely moved or resized the window since.
    // False when it changed nothing.
    enum class WindowRect { Drawn, Set };
    bool Commit(const GuiForm& form, WindowRect rect = WindowRect::Drawn);

    // The same for a step that continues the one before, such as the repeats of a key that is held down.
    void Extend(const GuiForm& form);

    // The form's last change was not made by the user but filled in, such as missing names: not a step, and all steps
    // with the old texts get the new ones.
    void Adopt(const GuiForm& form);

    // The form before, and after, the last action undone; nothing at the end. The window stays where form has it, and
    // keeps its size unless the action itself had set it.
    std::optional<GuiForm> Undo(const GuiForm& form);
    std::optional<GuiForm> Redo(const GuiForm& form);

    // The form after the last finished action.
    const GuiForm& Current() const { return current; }

    bool CanUndo() const { return !before.empty(); }
    bool CanRedo() const { return !after.empty(); }

private:
    // The form on the other side of an action, and whether that action has set the window's size.
    struct Step {
        GuiForm form;
        WindowRect rect = WindowRect::Drawn;
    };

    void Settle(const GuiForm& form, WindowRect rect);
    std::optional<GuiForm> Go(std::deque<Step>& from, std::deque<Step>& to, const GuiForm& form);

    GuiForm current;
    std::deque<Step> before;
    std::deque<Step> after;
};

} // namespace ob
