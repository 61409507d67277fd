// SPDX-License-Identifier: GPL-3.0-or-later
// The form window as commands see it, so that they need no toolkit. There is one at most.
#pragma once

#include <QString>

#include <vector>

namespace ob {

struct FormRemark;

// The form was changed by what is no step of the user's to undo: keep the steps that there are, or forget them.
enum class GuiSteps { Keep, Forget };

class cGuiWindow {
public:
    cGuiWindow() = default;
    cGuiWindow(const cGuiWindow&) = delete;
    cGuiWindow& operator=(const cGuiWindow&) = delete;

    // Asks to save a modified form first; false when the window stays.
    virtual bool UnloadGui() = 0;

    // Makes the window, empty, and the active child.
    virtual void ShowGui() = 0;

    // Shows what the form under design holds now.
    virtual void RefreshGui() = 0;

    virtual void SettleGui(GuiSteps steps) = 0;

    // The window defaults of the form under design, modally.
    virtual void ShowGuiDefaults() = 0;

    // A list of what is odd about the form, beside everything else; none when there is nothing.
    virtual void ShowGuiRemarks(const std::vector<FormRemark>&) {}

    // A button of the palette by its name.
    virtual void EnableGuiTool(const QString& name, bool enable) = 0;

protected:
    ~cGuiWindow() = default;
};

// Put in place by the main window; null while there is none.
inline cGuiWindow* GuiWindow = nullptr;

} // namespace ob
