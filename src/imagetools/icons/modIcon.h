// SPDX-License-Identifier: GPL-3.0-or-later
// The icon of the icon editor as a value: a picture of 32 x 32 pixels, and what can be done to it.
#pragma once

#include "imaging/cDIBSection.h"
#include "platform/language/modColorNames.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace ob {

constexpr int IconSide = 32;

// What is transparent in an icon: red 255, green 238, blue 170.
constexpr ColorRef TransparentColor = Rgb(255, 238, 170);

// The colours of the editor's swatches, in their order. (An icon file's table has an order of its own.)
constexpr std::array<ColorRef, 16> SwatchColor = {
    Rgb(0, 0, 0),     Rgb(0, 0, 128),     Rgb(0, 128, 0),     Rgb(0, 128, 128),  Rgb(128, 0, 0), Rgb(128, 0, 128),
    Rgb(128, 128, 0), Rgb(192, 192, 192), Rgb(128, 128, 128), Rgb(0, 0, 255),    Rgb(0, 255, 0), Rgb(0, 255, 255),
    Rgb(255, 0, 0),   Rgb(255, 0, 255),   Rgb(255, 255, 0),   Rgb(255, 255, 255)};

// The index of the swatch of exactly that colour; nothing for others, the transparent one too.
std::optional<int> SwatchOf(ColorRef color);

// Pixels in rows from the top, each from the left.
struct Icon {
    std::array<ColorRef, IconSide * IconSide> pixels;

    Icon() { pixels.fill(TransparentColor); }

    ColorRef& At(int x, int y) { return pixels[static_cast<std::size_t>(y * IconSide + x)]; }
    ColorRef At(int x, int y) const { return pixels[static_cast<std::size_t>(y * IconSide + x)]; }
    bool operator==(const Icon&) const = default;
};

// The operations. What a shift pushes out on one side comes in on the other. Rotate exchanges x and y, so twice is
// none. Mirror exchanges left and right, Flip top and bottom.
Icon ShiftLeft(const Icon& icon);
Icon ShiftRight(const Icon& icon);
Icon ShiftUp(const Icon& icon);
Icon ShiftDown(const Icon& icon);
Icon Rotate(const Icon& icon);
Icon Mirror(const Icon& icon);
Icon Flip(const Icon& icon);
Icon ChangeAll(const Icon& icon, ColorRef oldColor, ColorRef newColor);

// The enlarged view: one cell a pixel, with its left and top grid line, and a line at the end.
constexpr int CellSide = 10;
constexpr int GridSide = IconSide * CellSide + 1;

// A place in the enlarged view or in the icon, from the top left; it may lie outside.
struct IconPoint {
    int x = 0;
    int y = 0;

    bool operator==(const IconPoint&) const = default;
};

// Whether a place of the view is on a line between the cells or outside them.
bool IsOnGridLine(IconPoint place);

// The cell that holds a place of the view, the cell's left and top line being its own; nothing outside the icon.
std::optional<IconPoint> CellAt(IconPoint place);

// The cells that a straight move between two places of the view touches, in its order, each once.
std::vector<IconPoint> CellsBetween(IconPoint from, IconPoint to);

// What a press on a cell does with the left button.
enum class IconTool { Paint, ChangeAll };

// What the editor works on: the icon, and the one icon that undo brings back.
struct IconSheet {
    Icon icon;
    Icon before;
    bool canUndo = false;
    bool isChanged = false; // since it was new or saved
    bool isEmpty = true;    // nothing has been drawn or opened since it was new

    bool isSavedSinceEdit = false; // undo would lead away from the icon that was saved
};

// Keeps the icon for undo before an edit; from then on it counts as changed.
void SaveUndo(IconSheet& sheet);

// The icon after an edit, with the one before for undo.
void Edit(IconSheet& sheet, const Icon& icon);

// An icon that came from its own file takes the place of the sheet's. It can be undone and is no change to be saved.
void TakeIcon(IconSheet& sheet, const Icon& icon);

// The icon stands in a file from here on.
void MarkSaved(IconSheet& sheet);

// Brings back the icon of the last SaveUndo, once; nothing after NewIcon. It counts as changed when the one that goes
// has been saved since.
void Undo(IconSheet& sheet);

// An empty sheet; the icon that it had cannot be brought back.
void NewIcon(IconSheet& sheet);

// The icon in the sixteen colours and the transparent one: what comes back from its file. Each other colour takes the
// nearest by squared distance, of equals the first in the file's table.
Icon ReducedIcon(const Icon& icon);

// The icon file: one image of 32 x 32 at 16 colours with a mask, 766 bytes.
QByteArray IconFileOf(const Icon& icon);

// The icon as a picture and as a bitmap file of 24 bits, the transparent colour as it is.
cDIBSection PictureOf(const Icon& icon);
QByteArray BitmapFileOf(const Icon& icon);

// A part of a picture, measured from its top left corner.
struct IconRegion {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool IsEmpty() const { return width <= 0 || height <= 0; }
    bool operator==(const IconRegion&) const = default;
};

// The part between two corners, in any order, as far as it lies in a picture of that size. The right and lower edge
// do not belong to it.
IconRegion RegionBetween(IconPoint corner, IconPoint opposite, int pictureWidth, int pictureHeight);

// The picture, or a part of it, stretched or squeezed to an icon: pixel x comes from x * width \ 32. Colours stay as
// they are. What lies outside the picture, and an empty region, is transparent.
Icon IconFromPicture(const cDIBSection& picture);
Icon IconFromPicture(const cDIBSection& picture, const IconRegion& region);

// The editor's temporary icon file, temp.ico in the program's folder. Writing it gives what comes back from it, and
// raises what ReplaceFile raises.
QString TempIconPath();
Icon WriteTempIcon(const Icon& icon);
void RemoveTempIcon(); // if it is there

// The builds of the runtime engine differ in the place of their icon.
enum class EngineVersion { Three, Four };

// Puts the icon into a copy of the runtime engine: writes temp.ico, takes 745 bytes from its byte 22 on, counted from
// 1, and writes them at byte 21664 (Three) or 21736 (Four) of the engine, in place. Nothing else of it changes; a file
// that ends before that place gets zeros up to it. Raises FileNotFound for a missing engine, and what reading and
// writing files raise; after an error a grown file has its old length.
void InstallIcon(const QString& enginePath, const Icon& icon, EngineVersion version);

} // namespace ob
