// SPDX-License-Identifier: GPL-3.0-or-later
// obtool write: the code-writing tools.
#include "obtool/toolGroups.h"

#include "obtool/toolOutput.h"
#include "shell/modTexts.h"

#include <memory>

namespace ob {

namespace {

void Library(const std::string& name)
{
    const auto text = CarriedText(QString::fromStdString(name) + QStringLiteral(".bas"));
    if (!text)
        throw ToolFailure(name, QStringLiteral("this build does not carry the library"));
    WriteOutput({}, QByteArrayView(*text));
}

} // namespace

void AddWriteGroup(CLI::App& tool)
{
    CLI::App* group = tool.add_subcommand("write", "the code-writing tools");
    const auto name = std::make_shared<std::string>();
    CLI::App* library = AddVerb(*group, "library", "obtool write library wrapper32|printer32|jpeg|snippets",
                                "a text that the program carries");
    library->add_option("NAME", *name, "the library")
        ->required()
        ->check(CLI::IsMember({"wrapper32", "printer32", "jpeg", "snippets"}));
    library->callback([name] { Library(*name); });
}

} // namespace ob
