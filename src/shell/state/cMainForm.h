// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as commands see it, so that they need no toolkit and a test can replace it.
#pragma once

#include <QString>

class QKeyEvent;

namespace ob {

class cDocument;

// The kind of the active MDI child.
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

    // Creates the document's window when it has none, and activates it.
    virtual void ShowDocument(cDocument& document) = 0;

    // Closes the document's window, which may ask to save first.
    virtual void UnloadDocument(cDocument& document) = 0;

    virtual void SetStatusPanel(const QString& text) = 0;

    // Menu items by their names; an unknown name is ignored.
    virtual void EnableItem(const QString& name, bool enable) = 0;

    // Triggers a menu item like a click.
    virtual void ChooseItem(const QString& name) = 0;

    // Whether the key is the shortcut of an item that is enabled now.
    virtual bool HasShortcut(const QKeyEvent& key) const = 0;

    // The items of the recent list, from 1 to 8; hidden until first shown.
    virtual void SetRecentCaption(int number, const QString& caption) = 0;
    virtual void ShowRecentItem(int number) = 0;

    // Toolbar buttons by their position, from 1, counting separators.
    virtual void EnableButton(int place, bool enable) = 0;

    // The form window, at most one. Unloading asks to save a modified form first; false when it stays. Showing creates
    // it, empty, and activates it. Refreshing shows the present state of the form under design.
    virtual bool UnloadGui() = 0;
    virtual void ShowGui() = 0;
    virtual void RefreshGui() = 0;

    // After a change to the form that the user cannot undo: keep the undo steps recorded so far, or forget them.
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
