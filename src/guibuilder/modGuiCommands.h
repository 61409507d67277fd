// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's commands: new form, load, save, compile; and the state that follows the form window's creation and
// end.
#pragma once

#include "guibuilder/modGenerator.h"
#include "guibuilder/modGui.h"

#include <QString>

namespace ob {

inline const QString GuiHintText = QStringLiteral("Right click the window or controls for a properties dialog!");

// The scale of the screen that the main window is on.
SurfaceScale ScreenScale();

// The form window has been created or closed: updates the form's and the main window's state.
void GuiFormLoaded();
void GuiFormUnloaded();

enum class UnloadAnswer { Unload, Stay };

// Asks to save a modified form, when the user wants to be asked. Stay: Cancel, or the form could not be saved.
UnloadAnswer QueryGuiUnload();

// Writes the form under design. When a character cannot be stored the user is asked first; No leaves the file and the
// form's modified state as they were, and so does an error, which is thrown.
void SaveGuiForm(const QString& path);

// Makes a form file's content the form under design; closes an open form first, which may ask. Shows the message when
// the file is not a form file or is damaged.
void LoadGuiForm(const QString& path);

// Save and load with their file boxes.
void guiSave();
void mnuFileLoadGui_Click();

// A new, empty form; its window defaults are asked for.
void NewGuiForm();

// The menu bar of the designed window, shown or not.
enum class MenuBar { Hidden, Shown };
void GuiShowMenu(MenuBar bar);

// The note on the status bar of the designed window about what a click does.
void ShowStatusNote(bool show);

// The palette's button for the menu editor follows the window type: dialogs have no menu.
inline constexpr char MenuEditorTool[] = "Open Menu Editor";
void EnableMenuEditor(const QString& windowType);

// The form's program in a new code window; with its outline, or only the window's statements.
void Compile();
void CompileSimple();

} // namespace ob
