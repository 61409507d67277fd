// SPDX-License-Identifier: GPL-3.0-or-later
// The window record as the values of a dialog.
#include "guibuilder/modWindowDefaults.h"

#include "guibuilder/modProperties.h"
#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr int UsualPoints = 10;
constexpr int MostPoints = 999;

template <class Form>
auto& ColorOf(Form& form, FormColor color)
{
    switch (color) {
    case FormColor::Foreground:
        return form.GuiForegroundColor;
    case FormColor::Listbox:
        return form.GuiListboxColor;
    case FormColor::Combobox:
        return form.GuiComboboxColor;
    case FormColor::Textbox:
        return form.GuiTextboxColor;
    case FormColor::Texteditor:
        return form.GuiTexteditorColor;
    case FormColor::Background:
    case FormColor::Graphics:
        break;
    }
    return form.GuiBackgroundColor;
}

} // namespace

WindowDefaults DefaultsOf(const GuiForm& form, SurfaceScale scale)
{
    WindowDefaults values;
    values.caption = form.caption;
    values.handle = form.GuiHandleName;
    values.windowType = form.GuiWindowType;
    values.fontName = form.GuiFontName;
    values.fontSize = form.GuiFontSize;
    values.width = PixelText(form.width, scale.x);
    values.height = PixelText(form.height, scale.y);
    for (std::size_t color = 0; color < FormColorCount; ++color)
        values.colors[color] = ColorOf(form, static_cast<FormColor>(color));
    values.tooltips = form.GuiTooltipsOn;
    values.statusbar = form.GuiStatusbarOn;
    values.timer = form.GuiTimerOn;
    values.menu = form.GuiMenuOn;
    if (!form.panels.empty())
        values.statusText = form.panels.front();
    return values;
}

void ApplyDefaults(GuiForm& form, const WindowDefaults& values, SurfaceScale scale)
{
    if (form.GuiDefaultsState == -1)
        form.GuiDefaultsState = 1;
    // The last one, of graphics windows, shares a field with the background.
    const bool isGraphics = IsGraphicsType(values.windowType);
    for (std::size_t color = 0; color < (isGraphics ? FormColorCount : FormColorCount - 1); ++color)
        ColorOf(form, static_cast<FormColor>(color)) = values.colors[color];
    form.GuiTooltipsOn = values.tooltips;
    form.GuiStatusbarOn = values.statusbar;
    form.GuiTimerOn = values.timer;
    form.GuiMenuOn = values.menu;
    form.GuiFontName = values.fontName;
    form.GuiFontSize = values.fontSize;
    form.GuiWindowType = form.windowTag = values.windowType;
    form.caption = values.caption;
    form.GuiHandleName = values.handle;
    form.width = std::max(TwipsOf(values.width, scale.x, form.width), 0.0f);
    form.height = std::max(TwipsOf(values.height, scale.y, form.height), 0.0f);
    SetColorByName(form.backColor, form.GuiBackgroundColor);
    if (!values.statusbar)
        return;
    if (form.panels.empty())
        form.panels.emplace_back();
    form.panels.front() = values.statusText.isEmpty() ? FirstPanelText : values.statusText;
}

FontSpec FontOf(const WindowDefaults& values)
{
    const double points = NumberOf(values.fontSize);
    FontSpec font;
    font.name = values.fontName;
    font.styles = FontStyles::Ignored;
    font.size = points >= 1 && points <= MostPoints ? static_cast<int>(std::lround(points)) : UsualPoints;
    return font;
}

} // namespace ob
