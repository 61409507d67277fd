// SPDX-License-Identifier: GPL-3.0-or-later
// A visible edit control for tests, set up like that of a code window.
#pragma once

#include "BasicSource.h"
#include "scilexer/SciLexerOB_Api.h"

#include <QDragEnterEvent>
#include <QImage>
#include <QLibrary>
#include <QWidget>

#include <string>
#include <string_view>
#include <vector>

namespace ob {

// A document's styles, line states and fold levels, for comparison as a whole.
struct Look {
    std::vector<int> styles;
    std::vector<int> states;
    std::vector<int> levels;

    bool operator==(const Look&) const = default;
};

inline SciLexerOB_Window MakeControl(QWidget* parent)
{
    auto* create = reinterpret_cast<SciLexerOB_CreateFunction*>(
        QLibrary::resolve(QStringLiteral(OB_BIN "/SciLexerOB"), SciLexerOB_CreateName));
    return create == nullptr ? SciLexerOB_Window{} : create(parent);
}

// Accepts drops, like the program's main window.
class DropWindow : public QWidget {
public:
    int entered = 0;

    DropWindow() { setAcceptDrops(true); }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        ++entered;
        event->acceptProposedAction();
    }
};

// A visible control in a window of its own.
class SciBench {
public:
    SciBench()
    {
        const SciLexerOB_Window made = MakeControl(&frame);
        if (made.window == nullptr)
            qFatal("The plugin SciLexerOB does not load.");
        control = made.window;
        sci = made.sci;
        frame.resize(500, 400);
        control->setGeometry(0, 0, 500, 400);
        SendSci(sci, SCI_SETLEXER, 8);
        SendSci(sci, SCI_SETSTYLEBITS, 7);
        SendSci(sci, SCI_SETKEYWORDS, 0, std::string(basicKeywords).c_str());
        SendSciTexts(sci, SCI_SETPROPERTY, "fold", "1");
        SendSci(sci, SCI_STYLESETFORE, 34, 0xFF0000);
        SendSci(sci, SCI_STYLESETFORE, 35, 0x0000FF);
        frame.show();
    }

    explicit SciBench(std::string_view text) : SciBench() { Insert(0, text); }

    std::intptr_t Length() const { return SendSci(sci, SCI_GETLENGTH); }
    std::string Text() const { return std::string(SciText(sci)); }

    void Insert(std::intptr_t position, std::string_view text)
    {
        SendSci(sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(position));
        SendSci(sci, SCI_ADDTEXT, text.size(), text.data());
    }

    void Replace(std::intptr_t from, std::intptr_t to, const std::string& text)
    {
        SendSci(sci, SCI_SETSEL, static_cast<std::uintptr_t>(from), to);
        SendSci(sci, SCI_REPLACESEL, 0, text.c_str());
    }

    // Paints at once and so lets the control request the styles of the visible text.
    QImage Paint() { return control->grab().toImage(); }

    // The number of lines lexed until the window is painted.
    std::intptr_t LinesLexedByPainting()
    {
        const std::intptr_t before = SendSci(sci, SCI_OB_COUNTLEXEDLINES);
        Paint();
        return SendSci(sci, SCI_OB_COUNTLEXEDLINES) - before;
    }

    // The end of the last whole line before Scintilla's mark of the styled end.
    std::intptr_t StyledLinesEnd() const
    {
        const auto end = static_cast<std::uintptr_t>(SendSci(sci, SCI_GETENDSTYLED));
        if (static_cast<std::intptr_t>(end) == Length())
            return Length();
        const std::intptr_t line = SendSci(sci, SCI_LINEFROMPOSITION, end);
        return SendSci(sci, SCI_POSITIONFROMLINE, static_cast<std::uintptr_t>(line));
    }

    // The document's styles, line states and levels so far.
    Look StyledLook() const
    {
        Look look;
        const std::intptr_t end = StyledLinesEnd();
        for (std::intptr_t i = 0; i < end; ++i)
            look.styles.push_back(static_cast<int>(SendSci(sci, SCI_GETSTYLEAT, static_cast<std::uintptr_t>(i))));
        for (std::uintptr_t line = 0; SendSci(sci, SCI_POSITIONFROMLINE, line) < end; ++line) {
            look.states.push_back(static_cast<int>(SendSci(sci, SCI_GETLINESTATE, line)));
            look.levels.push_back(static_cast<int>(SendSci(sci, SCI_GETFOLDLEVEL, line)));
        }
        return look;
    }

    DropWindow frame;
    QWidget* control = nullptr;
    Sci sci = nullptr;
};

} // namespace ob
