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

    // Menu items and toolbar buttons by their names; an unknown name is ignored.
    virtual void EnableItem(const QString& name, bool enable) = 0;
    virtual void EnableButton(const QString& name, bool enable) = 0;

    // A menu item's caption, all of it to be read, and an item that is hidden until it is shown once.
    virtual void SetItemCaption(const QString& name, const QString& caption) = 0;
    virtual void ShowItem(const QString& name) = 0;

    // The items of all tools that need a code window.
    virtual void EnableCodeTools(bool enable) = 0;

    // Triggers a menu item like a click.
    virtual void ChooseItem(const QString& name) = 0;

    // Whether the key is the shortcut of an item that is enabled now.
    virtual bool HasShortcut(const QKeyEvent& key) const = 0;

    // Behind all other windows of the desktop.
    virtual void SendToBack() = 0;

    // Asks to close the frame.
    virtual void Unload() = 0;
};

// The one main window; null while there is none.
inline cMainForm* MainForm = nullptr;

// The first panel of the status bar.
void SetStatusText(const QString& text);

// Chooses an item of the main window's menu by its name, as its click does.
void ChooseMenuItem(const QString& name);

} // namespace ob
