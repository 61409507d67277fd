// SPDX-License-Identifier: GPL-3.0-or-later
// The window record of the form under design as the values of a dialog, and back.
#pragma once

#include "guibuilder/modGui.h"
#include "platform/dialogs/modDialogs.h"

#include <QString>

#include <array>

namespace ob {

// The colours of a form in the order of their pickers. Graphics is the background of a graphics window.
enum class FormColor { Foreground, Background, Listbox, Combobox, Textbox, Texteditor, Graphics };
inline constexpr std::size_t FormColorCount = 7;

// The values in the dialog; width and height are in pixels.
struct WindowDefaults {
    QString caption;
    QString handle;
    QString windowType;
    QString fontName;
    QString fontSize; // points
    QString width;
    QString height;
    std::array<QString, FormColorCount> colors; // names, by FormColor
    bool tooltips = false;
    bool statusbar = false;
    bool timer = false;
    bool menu = false;
    QString statusText;

    bool operator==(const WindowDefaults&) const = default;
};

WindowDefaults DefaultsOf(const GuiForm& form, SurfaceScale scale);

// Stores the dialog's values in the form. Width and height are never less than 0. An empty text for the status bar
// becomes FirstPanelText; without a status bar its first panel stays as it was.
void ApplyDefaults(GuiForm& form, const WindowDefaults& values, SurfaceScale scale);

// The form's font as the font box first shows it: a size that is not a usable number counts as 10 points.
FontSpec FontOf(const WindowDefaults& values);

} // namespace ob
