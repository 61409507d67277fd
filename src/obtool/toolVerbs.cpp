// SPDX-License-Identifier: GPL-3.0-or-later
// What the groups add their verbs and arguments with.
#include "obtool/toolGroups.h"

namespace ob {

CLI::App* AddVerb(CLI::App& group, const std::string& name, const std::string& usage, const std::string& description)
{
    CLI::App* verb = group.add_subcommand(name, description);
    verb->footer("usage: " + usage);
    return verb;
}

CLI::Option* AddTexts(CLI::App& verb, const std::string& name, std::vector<std::string>& texts,
                      const std::string& description)
{
    // An option that expects so many takes all that come, and only one that may take more than it expects reads lists.
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
