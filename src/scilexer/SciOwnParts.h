// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of the edit control that no message of the program sets: caret, tips, line numbers, the horizontal scroll
// bar.
#pragma once

#include "scilexer/QsciBase.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace ob {

class SciOwnParts {
public:
    using Control = std::function<std::intptr_t(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)>;

    explicit SciOwnParts(Control messages) : control(std::move(messages)) {}

    void Start()
    {
        ForgetLineWidth();
        control(Base::SCI_SETSCROLLWIDTHTRACKING, 1, 0);
    }

    // The horizontal scroll bar appears for the longest line seen since.
    void ForgetLineWidth() { control(Base::SCI_SETSCROLLWIDTH, 1, 0); }

    // To be called when the program has set the line numbers' colour, and instead of SCI_STYLECLEARALL: it gives all
    // styles the default one, and the line numbers keep their colours all the same.
    void NoteLineNumberColor() { hasLineNumberColors = true; }
    void ClearStyles()
    {
        const std::intptr_t fore = control(Base::SCI_STYLEGETFORE, Base::STYLE_LINENUMBER, 0);
        const std::intptr_t back = control(Base::SCI_STYLEGETBACK, Base::STYLE_LINENUMBER, 0);
        control(Base::SCI_STYLECLEARALL, 0, 0);
        if (hasLineNumberColors) {
            control(Base::SCI_STYLESETFORE, Base::STYLE_LINENUMBER, fore);
            control(Base::SCI_STYLESETBACK, Base::STYLE_LINENUMBER, back);
        }
        fitted = {};
        ForgetLineWidth();
        ShowCaretAndTips();
    }

    // The margin's width is the program's; the numbers are made so small that the last line's fits into it.
    void FitLineNumbers()
    {
        const std::intptr_t lines = control(Base::SCI_GETLINECOUNT, 0, 0);
        const Fitted wanted{std::to_string(lines).size(), control(Base::SCI_GETMARGINWIDTHN, 0, 0)};
        if (wanted == fitted)
            return;
        fitted = wanted;
        const std::intptr_t largest = control(Base::SCI_STYLEGETSIZEFRACTIONAL, Base::STYLE_DEFAULT, 0);
        const std::string number(wanted.digits, '9');
        std::intptr_t size = largest;
        control(Base::SCI_STYLESETSIZEFRACTIONAL, Base::STYLE_LINENUMBER, size);
        while (wanted.width > 0 && WidthOf(number) > wanted.width && size > SmallestSize) {
            size -= SizeStep;
            control(Base::SCI_STYLESETSIZEFRACTIONAL, Base::STYLE_LINENUMBER, size);
        }
    }

private:
    using Base = QsciScintillaBase;

    static constexpr std::intptr_t MiddleBrightness = 3 * 128;
    static constexpr std::intptr_t Padding = 4; // pixels around a number
    static constexpr std::intptr_t SizeStep = Base::SC_FONT_SIZE_MULTIPLIER / 4;
    static constexpr std::intptr_t SmallestSize = 5 * Base::SC_FONT_SIZE_MULTIPLIER;

    struct Fitted {
        std::size_t digits = 0;
        std::intptr_t width = 0;

        bool operator==(const Fitted&) const = default;
    };

    std::intptr_t WidthOf(const std::string& number) const
    {
        const auto text = reinterpret_cast<std::intptr_t>(number.c_str());
        return control(Base::SCI_TEXTWIDTH, Base::STYLE_LINENUMBER, text) + Padding;
    }

    // Scintilla's caret is black and its tips are white, which suits a light window alone.
    void ShowCaretAndTips()
    {
        const std::intptr_t fore = control(Base::SCI_STYLEGETFORE, Base::STYLE_DEFAULT, 0);
        const std::intptr_t back = control(Base::SCI_STYLEGETBACK, Base::STYLE_DEFAULT, 0);
        if ((back & 0xFF) + (back >> 8 & 0xFF) + (back >> 16 & 0xFF) >= MiddleBrightness)
            return;
        control(Base::SCI_SETCARETFORE, static_cast<std::uintptr_t>(fore), 0);
        control(Base::SCI_CALLTIPSETBACK, static_cast<std::uintptr_t>(back), 0);
        control(Base::SCI_CALLTIPSETFORE, static_cast<std::uintptr_t>(fore), 0);
        control(Base::SCI_CALLTIPSETFOREHLT, static_cast<std::uintptr_t>(fore), 0);
    }

    Control control;
    bool hasLineNumberColors = false;
    Fitted fitted;
};

} // namespace ob
