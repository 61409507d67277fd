// SPDX-License-Identifier: GPL-3.0-or-later
// obtool write toolbar, write texteditor.
#include "obtool/toolGroups.h"

#include "codetools/modAPItextedit.h"
#include "codetools/modToolbarCode.h"
#include "obtool/toolOutput.h"

#include <memory>
#include <string>
#include <vector>

namespace ob {

namespace {

struct ToolbarLine {
    std::string bitmap;
    std::string program;
    std::string handle;
    std::string style = "flat";
    std::string border = "none";
    std::vector<std::string> buttons;
};

ToolbarButton ButtonOf(const std::string& argument, qsizetype number)
{
    const std::size_t sign = argument.find('=');
    return {ToolbarBranchOf(TextOf(argument.substr(0, sign)), number),
            ToolbarTipOf(sign == std::string::npos ? QString() : TextOf(argument.substr(sign + 1)), number)};
}

void Toolbar(const ToolbarLine& line, const CLI::Option& existing)
{
    if (line.bitmap.empty())
        throw ToolFailure("--bitmap", QString::fromStdString(NotEmpty(line.bitmap)));
    ToolbarSpec spec;
    spec.bitmap = TextOf(line.bitmap);
    spec.program = TextOf(line.program);
    if (existing.count() > 0) {
        spec.handle = WindowHandleOf(TextOf(line.handle));
        if (!spec.handle)
            throw ToolFailure("toolbar", NoHandleText);
    }
    spec.style = line.style == "flat" ? ToolbarStyle::Flat : ToolbarStyle::Raised;
    spec.border = line.border == "thin"    ? ToolbarBorder::Thin
                  : line.border == "thick" ? ToolbarBorder::Thick
                                           : ToolbarBorder::None;
    for (const std::string& button : line.buttons)
        spec.buttons.append(ButtonOf(button, spec.buttons.size() + 1));
    WriteProgramText(ToolbarCode(spec));
}

} // namespace

void AddWriteToolbarVerbs(CLI::App& group)
{
    const auto line = std::make_shared<ToolbarLine>();
    CLI::App* toolbar = AddVerb(group, "toolbar",
                                "obtool write toolbar --bitmap FILE [--program FILE] [--existing HANDLE] "
                                "[--style flat|raised] [--border thin|thick|none] LABEL=TIP...",
                                "the listing that makes a toolbar");
    toolbar->add_option("--bitmap", line->bitmap, "the bitmap of the buttons' pictures")->required();
    toolbar->add_option("--program", line->program, "the file that the listing is saved as");
    const CLI::Option* existing =
        toolbar->add_option("--existing", line->handle, "the handle of the window that gets the toolbar");
    toolbar->add_option("--style", line->style, "how the buttons look")->check(CLI::IsMember({"flat", "raised"}));
    toolbar->add_option("--border", line->border, "the toolbar's border")
        ->check(CLI::IsMember({"thin", "thick", "none"}));
    AddTexts(*toolbar, "LABEL=TIP", line->buttons, "a button: its branch label and its tip")->required();
    AddOutOption(*toolbar);
    toolbar->callback([line, existing] { Toolbar(*line, *existing); });

    CLI::App* texteditor =
        AddVerb(group, "texteditor", "obtool write texteditor", "the sample of a text editor made of API calls");
    AddOutOption(*texteditor);
    texteditor->callback([] { WriteAnswer(TextEditorCode()); });
}

} // namespace ob
