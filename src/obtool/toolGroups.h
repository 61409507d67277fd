// SPDX-License-Identifier: GPL-3.0-or-later
// The groups of commands; each adds its verbs to the command line.
#pragma once

#include <CLI/CLI.hpp>

namespace ob {

// A verb with its usage line, which --help shows and wrong usage prints.
CLI::App* AddVerb(CLI::App& group, const std::string& name, const std::string& usage, const std::string& description);

// A check for options that take a file or a folder: the reason when the text is empty.
std::string NotEmpty(const std::string& text);

void AddFormGroup(CLI::App& tool);
void AddSourceGroup(CLI::App& tool);
void AddWriteGroup(CLI::App& tool);
void AddImageGroup(CLI::App& tool);
void AddPaletteGroup(CLI::App& tool);

} // namespace ob
