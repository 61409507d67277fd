// SPDX-License-Identifier: GPL-3.0-or-later
// The groups of commands; each adds its verbs when it is used.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace ob {

// A verb with its usage line, shown by --help and after wrong usage.
CLI::App* AddVerb(CLI::App& group, const std::string& name, const std::string& usage, const std::string& description);

// The option -o of a verb that writes to standard output by WriteAnswer.
void AddOutOption(CLI::App& verb);

// Any number of arguments, including none, each unchanged: CLI11 itself would read "[a,b]" as a list of two.
CLI::Option* AddTexts(CLI::App& verb, const std::string& name, std::vector<std::string>& texts,
                      const std::string& description);

// A check for options that take a file or a folder: the reason when the text is empty.
std::string NotEmpty(const std::string& text);

void AddFormVerbs(CLI::App& group);
void AddSourceVerbs(CLI::App& group);
void AddWriteVerbs(CLI::App& group);
void AddWriteCodeVerbs(CLI::App& group);
void AddWriteToolbarVerbs(CLI::App& group);
void AddWriteLoadBmpVerb(CLI::App& group);
void AddWriteMediaVerb(CLI::App& group);
void AddImageVerbs(CLI::App& group);
void AddPaletteVerbs(CLI::App& group);
void AddSpriteVerbs(CLI::App& group);
void AddIconVerbs(CLI::App& group);
void AddAviVerbs(CLI::App& group);
void AddPackageVerbs(CLI::App& group);
void AddZipVerbs(CLI::App& group);

} // namespace ob
