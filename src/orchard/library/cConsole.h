// SPDX-License-Identifier: GPL-3.0-or-later
// The console of a program: it prints and reads, and may be a window.
#pragma once

#include <string_view>

#include "orchard/library/cInput.h"
#include "orchard/library/cItems.h"
#include "orchard/library/cOutput.h"

namespace ob::basic {

class cConsole : public cInput, public cOutput {
public:
    // What a console without a window does not have. Columns and rows count from 1.
    virtual void Clear() {}
    virtual void Locate(double column, double row);
    virtual void Beep() {}
    virtual void SetTitle(std::string_view title);
    virtual void SetSize(double columns, double rows);
    virtual void Hide() {}

    // line input: shows the prompt and reads a line. The view is good until the next call that reads.
    std::string_view Ask(std::string_view prompt);

protected:
    using cOutput::cOutput;

    // What was printed is seen before the program waits for an input, which ends the line.
    void StartReading() override;
    void StartWriting() override {}
};

// The items that one input statement asks for.
class cQuestion {
public:
    static constexpr std::string_view Mark = "?";

    // The prompt is Mark for a statement without a text.
    cQuestion(cConsole& answering, std::string_view prompt) : console(answering), items(console.Ask(prompt)) {}

    // The next item; asks again when the line has no more. The view is good until the next call.
    std::string_view Next()
    {
        if (items.IsEmpty())
            items = cItems(console.Ask(Mark));
        return items.Take();
    }

private:
    cConsole& console;
    cItems items;
};

} // namespace ob::basic
