// SPDX-License-Identifier: GPL-3.0-or-later
// The groups of commands; each adds its verbs to the command line.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace ob {

// A verb with its usage line, which --help shows and wrong usage prints.
CLI::App* AddVerb(CLI::App& group, const std::string& name, const std::string& usage, const std::string& description);

// Any number of arguments, none included, each as it stands: CLI11 itself would read "[a,b]" as a list of two.
CLI::Option* AddTexts(CLI::App& verb, const std::string& name, std::vector<std::string>& texts,
                      const std::string& description);

// A check for options that take a file or a folder: the reason when the text is empty.
std::string NotEmpty(const std::string& text);

void AddFormGroup(CLI::App& tool);
void AddSourceGroup(CLI::App& tool);
void AddWriteGroup(CLI::App& tool);
void AddWriteCodeVerbs(CLI::App& group);
void AddWriteToolbarVerbs(CLI::App& group);
void AddWriteLoadBmpVerb(CLI::App& group);
void AddWriteMediaVerb(CLI::App& group);
void AddImageGroup(CLI::App& tool);
void AddPaletteGroup(CLI::App& tool);
void AddSpriteGroup(CLI::App& tool);
void AddIconGroup(CLI::App& tool);
void AddAviGroup(CLI::App& tool);
void AddPackageGroup(CLI::App& tool);
void AddZipGroup(CLI::App& tool);

} // namespace ob
