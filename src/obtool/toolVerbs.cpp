// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers with which the groups add their verbs and arguments.
#include "obtool/toolGroups.h"

#include "obtool/toolOutput.h"

namespace ob {

CLI::App* AddVerb(CLI::App& group, const std::string& name, const std::string& usage, const std::string& description)
{
    CLI::App* verb = group.add_subcommand(name, description);
    verb->footer("usage: " + usage);
    return verb;
}

void AddOutOption(CLI::App& verb)
{
    verb.add_option("-o", AnswerFile(), "write OUT instead of standard output")->type_name("OUT")->check(NotEmpty);
}

CLI::Option* AddTexts(CLI::App& verb, const std::string& name, std::vector<std::string>& texts,
                      const std::string& description)
{
    // An option with this expected count takes all arguments; only one that may take more than expected reads lists.
    constexpr int AsManyAsCome = 1 << 24;
    const auto keep = [&texts](const CLI::results_t& results) {
        texts = results;
        return true;
    };
    return verb.add_option(name, keep, description)
        ->expected(AsManyAsCome)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false)
        ->option_text("...");
}

std::string NotEmpty(const std::string& text)
{
    return text.empty() ? "a name may not be empty" : std::string();
}

} // namespace ob
