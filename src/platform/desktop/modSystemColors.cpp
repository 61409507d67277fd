// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own colours, from the toolkit's palette.
#include "platform/desktop/modSystemColors.h"

#include <QGuiApplication>
#include <QPalette>

namespace ob {

static QPalette::ColorRole RoleOf(SystemColor color)
{
    switch (color) {
    case SystemColor::Window:
        return QPalette::Base;
    case SystemColor::WindowText:
        return QPalette::Text;
    case SystemColor::ButtonFace:
        return QPalette::Button;
    }
    return QPalette::Text;
}

std::uint32_t GetSysColor(SystemColor color)
{
    const QColor value = QGuiApplication::palette().color(QPalette::Active, RoleOf(color));
    return static_cast<std::uint32_t>(value.red() | (value.green() << 8) | (value.blue() << 16));
}

} // namespace ob
