// SPDX-License-Identifier: GPL-3.0-or-later
// Form files of any bytes: what can be read can be written, read and compiled, and is stable after its first save.
#include "guibuilder/modCompleted.h"
#include "guibuilder/modFormFile.h"
#include "guibuilder/modGenerator.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"

#include <algorithm>
#include <cstdlib>

namespace {

// A full menu is written with one piece more than the reader accepts.
bool HasFullMenu(const ob::GuiForm& form)
{
    return std::ranges::any_of(form.GuiMenuItems, [](const auto& items) { return !items.back().isEmpty(); });
}

// The file of a form that was read; every character came from the code page and so can be written back.
QByteArray Written(const ob::GuiForm& form)
{
    const ob::AnsiText text = ob::AnsiFromText(ob::WriteForm(ob::Completed(form, ob::CompletedFor::File)));
    if (text.lostCount != 0)
        std::abort();
    return text.bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    constexpr std::size_t mostPanels = 10;
    ob::GuiForm form;
    const QByteArrayView file(data, static_cast<qsizetype>(size));
    if (ob::ReadForm(file, form) != ob::FormLoad::Loaded || form.panels.size() > mostPanels || HasFullMenu(form))
        return 0;
    ob::GuiForm saved;
    ob::GuiForm again;
    const QByteArray first = Written(form);
    if (ob::ReadForm(first, saved) != ob::FormLoad::Loaded)
        std::abort();
    const QByteArray second = Written(saved);
    if (ob::ReadForm(second, saved) != ob::FormLoad::Loaded || Written(saved) != second ||
        ob::ReadForm(Written(saved), again) != ob::FormLoad::Loaded || !(again == saved))
        std::abort();
    for (const ob::ProgramKind kind : {ob::ProgramKind::Outline, ob::ProgramKind::Simple})
        if (!ob::GenerateProgram(ob::Completed(saved, ob::CompletedFor::Program), kind, {})
                 .text.endsWith(QLatin1String("\r\n\r\n")))
            std::abort();
    return 0;
}
