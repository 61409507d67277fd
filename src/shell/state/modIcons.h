// SPDX-License-Identifier: GPL-3.0-or-later
// The bench's icons, in colours that can be seen on what is behind them.
#pragma once

#include <QIcon>
#include <QString>

namespace ob {

// What an icon is drawn on: a button, page or menu; or the title of a child window, whose colour is the style's own, so
// that the icon brings its background along.
enum class IconGround { Page, Title };

// The icon resources/icons/NAME.svg. Its colours follow the desktop's palette whenever it is drawn.
QIcon BenchIcon(const QString& name, IconGround ground = IconGround::Page);

} // namespace ob
