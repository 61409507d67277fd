// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as commands see it, so that they need no toolkit and a test can stand in for it.
#pragma once

#include <QString>

class QKeyEvent;

namespace ob {

class cDocument;

// What the active MDI child is.
enum class ActiveChild { None, Code, Gui };

class cMainForm {
public:
    cMainForm() = default;
    cMainForm(const cMainForm&) = delete;
    cMainForm& operator=(const cMainForm&) = delete;
    virtual ~cMainForm() = default;

    virtual ActiveChild ActiveKind() const = 0;

    // The active child's document; null unless the active child is a code window.
    virtual cDocument* ActiveDocument() const = 0;

    // Gives the document a window when it has none, and makes that window the active one.
    virtual void ShowDocument(cDocument& document) = 0;

    // Closes the document's window, which may ask to save first.
    virtual void UnloadDocument(cDocument& document) = 0;

    virtual void SetStatusPanel(const QString& text) = 0;

    // Menu items by their names; a name that is not there is passed over.
    virtual void EnableItem(const QString& name, bool enable) = 0;

    // Chooses a menu item as its click does.
    virtual void ChooseItem(const QString& name) = 0;

    // Whether an item that can be chosen now has the key.
    virtual bool HasShortcut(const QKeyEvent& key) const = 0;

    // The items of the recent list, from 1 to 8; hidden until they are shown once.
    virtual void SetRecentCaption(int number, const QString& caption) = 0;
    virtual void ShowRecentItem(int number) = 0;

    // Toolbar buttons by their place, from 1, separators counted.
    virtual void EnableButton(int place, bool enable) = 0;

    // The form window: there is one at most. Unloading asks to save a modified form first; false when it stays. Showing
    // makes it, empty, and the active child. Refreshing shows what the form under design holds now.
    virtual bool UnloadGui() = 0;
    virtual void ShowGui() = 0;
    virtual void RefreshGui() = 0;

    // The form was changed by what is no step of the user's to undo: keep the steps that there are, or forget them.
    enum class GuiSteps { Keep, Forget };
    virtual void SettleGui(GuiSteps steps) = 0;

    // The window defaults of the form under design, modally.
    virtual void ShowGuiDefaults() = 0;

    // A button of the form builder's palette by its name.
    virtual void EnableGuiTool(const QString& name, bool enable) = 0;

    // Behind all other windows of the desktop.
    virtual void SendToBack() = 0;

    // Asks to close the frame.
    virtual void Unload() = 0;
};

} // namespace ob
