// SPDX-License-Identifier: GPL-3.0-or-later
// Files in memory for the imaging library: what was written, and what a read returns.
#pragma once

#include "imaging/modFileAccess.h"

#include <map>

struct MemoryFiles {
    std::map<std::string, std::vector<std::uint8_t>> files;
    ob::WriteResult writeResult;                         // what the next writes report
    ob::FileOutcome readOutcome = ob::FileOutcome::Done; // of existing files
    std::string description;

    ob::FileWriter Writer()
    {
        return [this](const std::string& name, std::span<const ob::ByteView> pieces) {
            if (writeResult.outcome == ob::FileOutcome::Done) {
                std::vector<std::uint8_t>& file = files[name];
                file.clear();
                for (const ob::ByteView piece : pieces)
                    file.insert(file.end(), piece.begin(), piece.end());
            }
            return writeResult;
        };
    }
    ob::FileReader Reader()
    {
        return [this](const std::string& name) -> ob::FileContent {
            const auto found = files.find(name);
            if (found == files.end())
                return {};
            if (readOutcome != ob::FileOutcome::Done)
                return {readOutcome, {}, description};
            return {ob::FileOutcome::Done, found->second, {}};
        };
    }
    void Put(const std::string& name, std::string_view text) { files[name].assign(text.begin(), text.end()); }
    std::string Text(const std::string& name) { return {files[name].begin(), files[name].end()}; }
};
