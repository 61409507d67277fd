// SPDX-License-Identifier: GPL-3.0-or-later
// obtool: every tool of the bench from the command line.
#include "obtool/toolGroups.h"
#include "obtool/toolModules.h"
#include "obtool/toolOutput.h"
#include "platform/files/modTemporaryFiles.h"

#include <QByteArray>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view version = "obtool " OB_VERSION "\n";

// The innermost command on the line.
const CLI::App* Innermost(const CLI::App& tool)
{
    const CLI::App* command = &tool;
    while (!command->get_subcommands().empty())
        command = command->get_subcommands().front();
    return command;
}

std::string UsageOf(const CLI::App& command)
{
    return command.get_footer().empty() ? "usage: obtool GROUP VERB [OPTIONS] ARGUMENTS" : command.get_footer();
}

int WrongUsage(const CLI::App& tool, const std::string& reason)
{
    std::fprintf(stderr, "%s\n%s\n", reason.c_str(), UsageOf(*Innermost(tool)).c_str());
    return 2;
}

void Answer(std::string_view text)
{
    ob::WriteOutput({}, QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

// The arguments, last one first, as the parser takes them. It would take the next argument for the empty value of
// "--title=", so such an option and its value are separated here.
std::vector<std::string> ArgumentsOf(int argc, char** argv)
{
    std::vector<std::string> arguments;
    bool areOptions = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        areOptions = areOptions && argument != "--";
        const bool isEmptyOption =
            areOptions && argument.starts_with("--") && argument.find('=') == argument.size() - 1;
        arguments.emplace_back(isEmptyOption ? argument.substr(0, argument.size() - 1) : argument);
        if (isEmptyOption)
            arguments.emplace_back();
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

// A command's help begins with its usage line as in the manual.
class UsageFormatter final : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* command, std::string) const override { return UsageOf(*command) + "\n"; }
    std::string make_footer(const CLI::App*) const override { return {}; }
};

struct Group {
    const char* name;
    const char* description;
    void (*addVerbs)(CLI::App& group);
};

constexpr Group groups[] = {
    {"form", "forms under design", ob::AddFormVerbs},
    {"source", "BASIC source files", ob::AddSourceVerbs},
    {"write", "the code-writing tools", ob::AddWriteVerbs},
    {"image", "pictures and bitmap files", ob::AddVerbsForPictures},
    {"palette", "palette files", ob::AddVerbsForPictures},
    {"sprite", "masks for sprites", ob::AddVerbsForPictures},
    {"icon", "icons in files and programs", ob::AddVerbsForPictures},
    {"avi", "videos of bitmap files", ob::AddVerbsForPictures},
    {"package", "finished programs", ob::AddVerbsForArchives},
    {"zip", "zip archives", ob::AddVerbsForArchives},
};

// A line uses only one group, so the others have just their names.
void AddGroups(CLI::App& tool)
{
    for (const Group& group : groups) {
        CLI::App* app = tool.add_subcommand(group.name, group.description);
        app->require_subcommand(1);
        app->footer(std::string("usage: obtool ") + group.name + " VERB [OPTIONS] ARGUMENTS");
        app->preparse_callback([app, addVerbs = group.addVerbs](std::size_t) { addVerbs(*app); });
    }
}

int Run(CLI::App& tool, int argc, char** argv)
{
    try {
        tool.parse(ArgumentsOf(argc, argv));
    } catch (const CLI::CallForHelp&) {
        Answer(Innermost(tool)->help());
    } catch (const CLI::CallForVersion&) {
        Answer(version);
    } catch (const CLI::ParseError& error) {
        return WrongUsage(tool, std::string("obtool: ") + error.what());
    } catch (...) {
        // Without a file at fault the verb takes its place in the line.
        ob::ThrowAsFailureOf(Innermost(tool)->get_name());
    }
    return 0;
}

// Runs the command line and returns the exit status. Throws ToolFailure.
int Execute(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        Answer(version);
        return 0;
    }
    // Standard error has obtool's own lines only, not the toolkit's messages about pictures and the desktop.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    CLI::App tool("Every tool of the bench, from the command line", "obtool");
    tool.formatter(std::make_shared<UsageFormatter>());
    tool.require_subcommand(1);
    tool.set_version_flag("--version", "obtool " OB_VERSION, "print the version");
    AddGroups(tool);
    return Run(tool, argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    ob::RemoveMarkedOnSignals();
    try {
        return Execute(argc, argv);
    } catch (const ob::ToolFailure& failure) {
        return ob::Report(failure);
    }
}
