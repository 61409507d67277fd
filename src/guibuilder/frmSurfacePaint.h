// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the form under design as the generated program will show it, and the marks of the drawing surface: grid,
// handles, frames, rubber band. Everything is crisp at any scale of the screen.
#pragma once

#include "guibuilder/frmSurfaceStyle.h"

#include <QRect>

class QPainter;

namespace ob {

// A control's place in pixels of the surface: each measure truncated to an integer and limited to about 30,000; no
// width or height is negative, and what is not a number is 0.
QRect PixelRect(const ControlRecord& control, SurfaceScale scale);

// Everything that painting the control touches, at any scale of the screen; empty for an invisible one.
QRect PaintedRect(const GuiForm& form, ControlRef ref, SurfaceScale scale);

// Paints a control, if it is visible and meets the painter's clip. Changes the painter's pen and brush.
void PaintControl(QPainter& painter, const SurfaceStyle& style, const GuiForm& form, ControlRef ref);

// A dot every 10 pixels, in a colour that is visible on the form's background; only those in exposed.
void PaintGrid(QPainter& painter, QRect exposed, const GuiForm& form, SurfaceScale scale);

// The two handles of the selected control. All rectangles from here on are in pixels.
enum class HandleState { Free, Locked };
void PaintHandles(QPainter& painter, QRect lowerRight, QRect upperLeft, HandleState state);

// The frame around one of several selected controls; it extends that many pixels beyond the control.
inline constexpr int SelectionMargin = 3;
void PaintSelectionFrame(QPainter& painter, QRect control);

// A dashed rectangle, its lines inside, visible on any colour.
void PaintRubberBand(QPainter& painter, QRect band);

} // namespace ob
