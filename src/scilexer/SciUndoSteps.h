// SPDX-License-Identifier: GPL-3.0-or-later
// Where one step of undo ends while text is typed.
#pragma once

#include <QChar>
#include <QElapsedTimer>
#include <QString>

namespace ob {

// Scintilla takes all that is typed in a row for one step. A step of ours ends before a word, before a new line, and
// when nothing was typed for a while.
class SciUndoSteps {
public:
    // Whether the text about to be typed begins a step. A line end is text too.
    bool Begins(const QString& text)
    {
        const Kind kind = KindOf(text);
        const bool isFirst = !lastKey.isValid();
        const bool hasPaused = !isFirst && lastKey.elapsed() > MillisecondsOfAStep;
        const bool begins = isFirst || hasPaused || kind == Kind::LineEnd || last == Kind::LineEnd ||
                            (kind == Kind::Word && last != Kind::Word);
        lastKey.start();
        last = kind;
        return begins;
    }

    // What is typed next begins a step.
    void End() { lastKey.invalidate(); }

private:
    enum class Kind { Word, Other, LineEnd };

    static constexpr qint64 MillisecondsOfAStep = 1500;

    static Kind KindOf(const QString& text)
    {
        const QChar first = text.isEmpty() ? QChar() : text.front();
        if (first == QLatin1Char('\r') || first == QLatin1Char('\n'))
            return Kind::LineEnd;
        return first.isLetterOrNumber() || first.isSurrogate() ? Kind::Word : Kind::Other;
    }

    QElapsedTimer lastKey;
    Kind last = Kind::Other;
};

} // namespace ob
