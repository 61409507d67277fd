// SPDX-License-Identifier: GPL-3.0-or-later
// The edit control's look while a page is formatted for printing.
#pragma once

#include "scilexer/QsciBase.h"

#include <QColor>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace ob {

// While it exists, there are no line numbers, which the formatter would print, and colours chosen for a dark window are
// darkened for white paper. Its destructor restores everything.
class SciPrintView {
public:
    using Control = std::function<std::intptr_t(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)>;

    explicit SciPrintView(Control messages) : control(std::move(messages))
    {
        HideLineNumbers();
        if (ColorOf(Base::SCI_STYLEGETBACK, Base::STYLE_DEFAULT).lightness() < MiddleLightness)
            for (std::uintptr_t style = 0; style <= Base::STYLE_DEFAULT; ++style)
                DarkenText(style);
    }

    ~SciPrintView()
    {
        for (auto change = changes.crbegin(); change != changes.crend(); ++change)
            control(change->message, change->what, change->before);
    }

    SciPrintView(const SciPrintView&) = delete;
    SciPrintView& operator=(const SciPrintView&) = delete;

private:
    using Base = QsciScintillaBase;

    static constexpr int MiddleLightness = 128; // of 255
    static constexpr std::uintptr_t MarginCount = 5;

    struct Change {
        unsigned message;
        std::uintptr_t what;
        std::intptr_t before;
    };

    void Set(unsigned message, std::uintptr_t what, std::intptr_t before, std::intptr_t now)
    {
        changes.push_back({message, what, before});
        control(message, what, now);
    }

    // The margin's width is part of the line measures that the control caches; its type is not.
    void HideLineNumbers()
    {
        for (std::uintptr_t margin = 0; margin < MarginCount; ++margin) {
            const std::intptr_t kind = control(Base::SCI_GETMARGINTYPEN, margin, 0);
            if (kind == Base::SC_MARGIN_NUMBER)
                Set(Base::SCI_SETMARGINTYPEN, margin, kind, Base::SC_MARGIN_SYMBOL);
        }
    }

    void DarkenText(std::uintptr_t style)
    {
        const QColor color = ColorOf(Base::SCI_STYLEGETFORE, style);
        if (color.lightness() < MiddleLightness)
            return;
        const QColor dark = QColor::fromHsl(color.hslHue(), color.hslSaturation(), 255 - color.lightness());
        Set(Base::SCI_STYLESETFORE, style, NumberOf(color), NumberOf(dark));
    }

    // Colours have red in the low byte.
    QColor ColorOf(unsigned message, std::uintptr_t style) const
    {
        const std::intptr_t number = control(message, style, 0);
        return {static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
                static_cast<int>(number >> 16 & 0xFF)};
    }
    static std::intptr_t NumberOf(const QColor& color)
    {
        return color.red() | (color.green() << 8) | (color.blue() << 16);
    }

    Control control;
    std::vector<Change> changes;
};

} // namespace ob
