// SPDX-License-Identifier: GPL-3.0-or-later
// obtool zip: archives.
#include "obtool/toolGroups.h"

#include "engine/package/CGZipFiles.h"
#include "obtool/toolOutput.h"

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct ZipArguments {
    std::string out;
    std::vector<std::string> specs;
};

void MakeArchive(const ZipArguments& arguments)
{
    if (arguments.specs.empty())
        throw CLI::RequiredError("SPEC");
    CGZipFiles zip;
    zip.ZipFileName = PathOf(arguments.out);
    zip.RootDirectory.clear();
    for (const std::string& spec : arguments.specs) {
        if (spec.empty())
            throw CLI::ValidationError("SPEC", NotEmpty(spec));
        OnFile(spec, [&] { zip.AddFile(PathOf(spec)); });
    }
    if (zip.MakeZipFile() != 0)
        throw ToolFailure(arguments.out, zip.GetLastMessage());
    for (const QString& spec : zip.UnmatchedFiles())
        WriteNote(u"no file matches "_s + spec);
}

} // namespace

void AddZipVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<ZipArguments>();
    CLI::App* make = AddVerb(group, "make", "obtool zip make OUT SPEC...",
                             "an archive of the files, stored under their names without folders");
    make->add_option("OUT", arguments->out, "the archive; .zip is added to a name without an ending")
        ->required()
        ->check(NotEmpty);
    AddTexts(*make, "SPEC", arguments->specs, "a file, or files by the wildcards * and ? in the last part; at most 99");
    make->callback([arguments] { MakeArchive(*arguments); });
}

} // namespace ob
