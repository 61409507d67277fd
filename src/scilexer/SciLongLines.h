// SPDX-License-Identifier: GPL-3.0-or-later
// Lines that are too long to be shown whole. Scintilla measures a line from its first character to its last before it
// shows any of it, which takes seconds for megabytes; it passes over text whose style is not visible. Such text is
// protected too, and a selection that holds some of it could not be replaced: hence Unlocked.
#pragma once

#include "scilexer/QsciBase.h"
#include "scilexer/modLexer.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace ob {

// Positions and lengths are bytes of the document.
class SciLongLines {
public:
    using Position = std::intptr_t;
    using Control = std::function<std::intptr_t(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)>;

    explicit SciLongLines(Control messages) : control(std::move(messages)) {}

    static bool IsLong(Position length) { return length > LongestColoredLine; }

    // To be called at the start and whenever all styles have been reset.
    void HideRest() { control(Base::SCI_STYLESETVISIBLE, HiddenStyle, 0); }

    // While it exists, the long lines are whole, as a printed page needs them.
    class Whole {
    public:
        explicit Whole(SciLongLines& longLines) : lines(longLines)
        {
            if (lines.areThere)
                lines.control(Base::SCI_STYLESETVISIBLE, HiddenStyle, 1);
        }
        ~Whole()
        {
            if (lines.areThere)
                lines.HideRest();
        }
        Whole(const Whole&) = delete;
        Whole& operator=(const Whole&) = delete;

    private:
        SciLongLines& lines;
    };

    // Spans a command that may replace the selection. Only a command that measures no line before its first change may
    // be in it.
    class Unlocked {
    public:
        explicit Unlocked(SciLongLines& longLines) : lines(longLines) { lines.Unlock(); }
        ~Unlocked() { lines.Lock(); }
        Unlocked(const Unlocked&) = delete;
        Unlocked& operator=(const Unlocked&) = delete;

    private:
        SciLongLines& lines;
    };

    // To be called at each announcement of a change: what follows measures lines again.
    void Lock()
    {
        if (isUnlocked)
            HideRest();
        isUnlocked = false;
    }

    // The styles of a long line: plain around the caret's last known place or, if that is not in the line, at the
    // line's start; hidden elsewhere. `styles` has room for `length` bytes.
    void Style(Position start, Position length, unsigned char* styles)
    {
        areThere = true;
        unstyled = 0;
        const bool isCaretLine = place >= start && place <= start + length;
        const Position middle = isCaretLine ? place : start;
        const Position from = std::max(start, Boundary(middle - ShownOnEachSide));
        const Position to = std::min(start + length, Boundary(middle + ShownOnEachSide));
        std::fill(styles, styles + length, HiddenStyle);
        std::fill(styles + (from - start), styles + (to - start), StyleDefault);
    }

    // Whether a long line has its styles already. What has been typed into it since is plain without any.
    bool IsStyled(Position start, Position length) const
    {
        return unstyled <= ShownOnEachSide && !(IsShown(start) && IsShown(start + length - 1));
    }

    // To be called at each announcement of an insertion.
    void NoteGrowth(Position length) { unstyled += length; }

    // To be called when text has come in, before Scintilla measures it: it has no styles yet, so all of it would show.
    void NoteInsertion(Position position, Position length)
    {
        // Every long line contains one of these places.
        Position done = position;
        for (Position at = position; at <= position + length; at += LongestColoredLine) {
            const Line line = LineAround(at);
            if (at >= done && IsLong(line.end - line.start))
                StyleNow(line);
            done = std::max(done, line.end);
        }
    }

    // Whether the caret has come near the end of the part that is shown.
    bool IsCaretAtRest() const
    {
        const Position caret = Caret();
        const Line line = LineAround(caret);
        if (!IsLong(line.end - line.start))
            return true;
        return IsShown(std::max(line.start, caret - Near)) && IsShown(std::min(line.end - 1, caret + Near));
    }

    // Shows the part around the caret.
    void Follow()
    {
        place = Caret();
        const Line line = LineAround(place);
        if (!IsLong(line.end - line.start))
            return;
        StyleNow(line);
        control(Base::SCI_SCROLLCARET, 0, 0);
    }

private:
    using Base = QsciScintillaBase;

    void Unlock()
    {
        isUnlocked = areThere && control(Base::SCI_GETSELECTIONEMPTY, 0, 0) == 0;
        if (isUnlocked)
            control(Base::SCI_STYLESETVISIBLE, HiddenStyle, 1);
    }

    struct Line {
        Position start = 0;
        Position end = 0; // with the line end
    };

    static constexpr unsigned char HiddenStyle = Base::STYLE_LASTPREDEFINED + 1;
    static constexpr Position ShownOnEachSide = LongestColoredLine / 4;
    static constexpr Position Near = ShownOnEachSide / 4;

    Position Caret() const { return control(Base::SCI_GETCURRENTPOS, 0, 0); }

    Line LineAround(Position position) const
    {
        const std::intptr_t line = control(Base::SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(position), 0);
        return {control(Base::SCI_POSITIONFROMLINE, static_cast<std::uintptr_t>(line), 0),
                control(Base::SCI_POSITIONFROMLINE, static_cast<std::uintptr_t>(line + 1), 0)};
    }

    bool IsShown(Position position) const
    {
        return control(Base::SCI_GETSTYLEAT, static_cast<std::uintptr_t>(position), 0) != HiddenStyle;
    }

    // The start of a character. Scintilla keeps it within the text.
    Position Boundary(Position position) const
    {
        return position <= 0 ? 0 : control(Base::SCI_POSITIONBEFORE, static_cast<std::uintptr_t>(position), 0);
    }

    // Leaves the mark of the styled end where it was.
    void StyleNow(const Line& line)
    {
        const std::intptr_t styledEnd = control(Base::SCI_GETENDSTYLED, 0, 0);
        const Position length = line.end - line.start;
        std::vector<unsigned char> styles(static_cast<std::size_t>(length));
        Style(line.start, length, styles.data());
        control(Base::SCI_STARTSTYLING, static_cast<std::uintptr_t>(line.start), 0);
        control(Base::SCI_SETSTYLINGEX, static_cast<std::uintptr_t>(length),
                reinterpret_cast<std::intptr_t>(styles.data()));
        control(Base::SCI_STARTSTYLING, static_cast<std::uintptr_t>(styledEnd), 0);
    }

    Control control;
    Position place = -1;   // of the caret, when the shown part was last chosen
    Position unstyled = 0; // the length of what has been inserted since a long line was styled
    bool areThere = false;
    bool isUnlocked = false;
};

} // namespace ob
