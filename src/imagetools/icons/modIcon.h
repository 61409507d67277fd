// SPDX-License-Identifier: GPL-3.0-or-later
// The icon of the icon editor as a value: a picture of 32 x 32 pixels, and its operations.
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

// The transparent colour of an icon: red 255, green 238, blue 170.
constexpr ColorRef TransparentColor = Rgb(255, 238, 170);

// The colours of the editor's swatches, in their order. (An icon file's table has an order of its own.)
constexpr std::array<ColorRef, 16> SwatchColor = {
    Rgb(0, 0, 0),     Rgb(0, 0, 128),     Rgb(0, 128, 0),     Rgb(0, 128, 128),  Rgb(128, 0, 0), Rgb(128, 0, 128),
    Rgb(128, 128, 0), Rgb(192, 192, 192), Rgb(128, 128, 128), Rgb(0, 0, 255),    Rgb(0, 255, 0), Rgb(0, 255, 255),
    Rgb(255, 0, 0),   Rgb(255, 0, 255),   Rgb(255, 255, 0),   Rgb(255, 255, 255)};

// The index of the swatch of exactly that colour; nothing for others, including the transparent one.
std::optional<int> SwatchOf(ColorRef color);

// Pixels in rows from the top, each from the left.
struct Icon {
    std::array<ColorRef, IconSide * IconSide> pixels;

    Icon() { pixels.fill(TransparentColor); }

    ColorRef& At(int x, int y) { return pixels[static_cast<std::size_t>(y * IconSide + x)]; }
    ColorRef At(int x, int y) const { return pixels[static_cast<std::size_t>(y * IconSide + x)]; }
    bool operator==(const Icon&) const = default;
};

// The operations. A shift wraps around. Rotate exchanges x and y, so that twice has no effect. Mirror exchanges left
// and right, Flip top and bottom.
Icon ShiftLeft(const Icon& icon);
Icon ShiftRight(const Icon& icon);
Icon ShiftUp(const Icon& icon);
Icon ShiftDown(const Icon& icon);
Icon Rotate(const Icon& icon);
Icon Mirror(const Icon& icon);
Icon Flip(const Icon& icon);
Icon ChangeAll(const Icon& icon, ColorRef oldColor, ColorRef newColor);

// The enlarged view: one cell per pixel, with its left and top grid line, and a line at the end.
constexpr int CellSide = 10;
constexpr int GridSide = IconSide * CellSide + 1;

// A place in the enlarged view or in the icon, from the top left; it may be outside.
struct IconPoint {
    int x = 0;
    int y = 0;

    bool operator==(const IconPoint&) const = default;
};

// Whether a place of the view is on a line between the cells or outside them.
bool IsOnGridLine(IconPoint place);

// The cell at a place of the view, including the cell's left and top line; nothing outside the icon.
std::optional<IconPoint> CellAt(IconPoint place);

// The cells that a straight move between two places of the view touches, in order, each once.
std::vector<IconPoint> CellsBetween(IconPoint from, IconPoint to);

// The effect of the left button on a cell.
enum class IconTool { Paint, ChangeAll };

// What the editor works on: the icon, and the one icon that undo restores.
struct IconSheet {
    Icon icon;
    Icon before;
    bool canUndo = false;
    bool isChanged = false; // since it was new or saved
    bool isEmpty = true;    // nothing has been drawn or opened since it was new

    bool isSavedSinceEdit = false; // undo would leave the saved icon
};

// Keeps the icon for undo before an edit; from then on it counts as changed.
void SaveUndo(IconSheet& sheet);

// The icon after an edit, with the one before for undo.
void Edit(IconSheet& sheet, const Icon& icon);

// Replaces the sheet's icon by one from a file of its own. This can be undone and is not a change to be saved.
void TakeIcon(IconSheet& sheet, const Icon& icon);

// The icon has been saved to a file.
void MarkSaved(IconSheet& sheet);

// Restores the icon of the last SaveUndo, once; does nothing after NewIcon. It counts as changed when the replaced icon
// has been saved since.
void Undo(IconSheet& sheet);

// Empties the sheet; its icon cannot be restored.
void NewIcon(IconSheet& sheet);

// The icon reduced to the sixteen colours and the transparent one, as read back from its file. Each other colour takes
// the nearest by squared distance, the first in the file's table among equals.
Icon ReducedIcon(const Icon& icon);

// The icon file: one image of 32 x 32 at 16 colours with a mask, 766 bytes.
QByteArray IconFileOf(const Icon& icon);

// The icon as a picture and as a bitmap file of 24 bits, the transparent colour unchanged.
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

// The part between two corners, in any order, clipped to a picture of that size. The right and lower edges are
// excluded.
IconRegion RegionBetween(IconPoint corner, IconPoint opposite, int pictureWidth, int pictureHeight);

// The picture, or a part of it, stretched or squeezed to an icon: pixel x comes from x * width \ 32. Colours are
// unchanged. Everything outside the picture, and an empty region, is transparent.
Icon IconFromPicture(const cDIBSection& picture);
Icon IconFromPicture(const cDIBSection& picture, const IconRegion& region);

// The editor's temporary icon file, temp.ico in the program's folder. Writing it returns the icon as read back, and
// raises what ReplaceFile raises.
QString TempIconPath();
Icon WriteTempIcon(const Icon& icon);
void RemoveTempIcon(); // if it exists

// The builds of the runtime engine differ in the place of their icon.
enum class EngineVersion { Three, Four };

// Writes the icon into a copy of the runtime engine: writes temp.ico, takes 745 bytes from its byte 22 on, counted from
// 1, and writes them at byte 21664 (Three) or 21736 (Four) of the engine, in place. Nothing else in it changes; a file
// that ends before that place is padded with zeros. Raises FileNotFound for a missing engine, and what reading and
// writing files raise; after an error an extended file has its old length.
void InstallIcon(const QString& enginePath, const Icon& icon, EngineVersion version);

} // namespace ob
