// SPDX-License-Identifier: GPL-3.0-or-later
// What a form's controls look like on the drawing surface: the form's font and colours, and its texts laid out.
#pragma once

#include "guibuilder/modGui.h"
#include "platform/language/modColorNames.h"

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QGlyphRun>
#include <QHash>
#include <QImage>
#include <QList>
#include <QSizeF>
#include <QString>

#include <optional>

namespace ob {

// The colour on a typical desktop, system colours included, whatever the bench's own palette is.
QColor SurfaceColor(ColorRef color);

// The form's font, in pixels of the surface (13 for ten points at 15 twips a pixel). A name that is not installed gets
// a fixed, serif or sans serif substitute about as wide as the font that a program would use.
QFont SurfaceFont(const QString& name, const QString& points, int twipsPerPixelY);

// What "&" does in a caption: it underlines the next character ("&&" is the character itself), or it is a character
// like any other.
enum class Ampersands { Mark, Keep };

// A text laid out from 0, 0 on, in pixels of the surface; the line under the underlined character, if any.
struct SurfaceText {
    QList<QGlyphRun> runs;
    QSizeF size;
    std::optional<QLineF> underline;
};

// Created once when a form's font or colours have changed, and kept: it caches text layouts, the largest cost of
// painting.
class SurfaceStyle {
public:
    SurfaceStyle(const GuiForm& form, SurfaceScale screen);

    SurfaceScale scale;
    QFont font;
    QFontMetrics metrics;
    QColor fore;
    QColor surface;
    QColor listbox;
    QColor combobox;
    QColor textbox;
    QColor texteditor;

    // One line of text; line ends count as spaces.
    SurfaceText Line(const QString& text, Ampersands ampersands) const;
    // Words wrapped at that width in pixels.
    SurfaceText Paragraph(const QString& text, int width) const;
    // A line in type small enough for an icon's place.
    SurfaceText SmallLine(const QString& text) const;

    // The empty ring of a radio button, that many device pixels wide and high.
    QImage RadioRing(int side) const;

private:
    enum class Layout { Line, MarkedLine, Paragraph, SmallLine };
    struct TextKey {
        QString text;
        Layout layout;
        int width;

        bool operator==(const TextKey&) const = default;
        friend std::size_t qHash(const TextKey& key, std::size_t seed)
        {
            return qHashMulti(seed, key.text, static_cast<int>(key.layout), key.width);
        }
    };
    SurfaceText Remembered(const QString& text, Layout layout, int width) const;

    QFont smallFont;
    mutable QHash<TextKey, SurfaceText> texts;
    mutable QImage radioRing;
};

} // namespace ob
