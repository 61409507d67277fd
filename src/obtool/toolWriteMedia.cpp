// SPDX-License-Identifier: GPL-3.0-or-later
// obtool write media: the code that plays a media file.
#include "obtool/toolGroups.h"

#include "imagetools/media/modMedia.h"
#include "obtool/toolOutput.h"

#include <memory>

namespace ob {

namespace {

struct MediaArguments {
    std::string file;
    bool hasPath = false;
};

void WriteMedia(const MediaArguments& arguments)
{
    const MediaPath path = arguments.hasPath ? MediaPath::Whole : MediaPath::NameOnly;
    WriteProgramText(MediaCode(PathOf(arguments.file), path));
}

} // namespace

void AddWriteMediaVerb(CLI::App& group)
{
    const auto arguments = std::make_shared<MediaArguments>();
    CLI::App* verb = AddVerb(group, "media", "obtool write media FILE [--path]", "the code that plays a media file");
    verb->add_option("FILE", arguments->file, "the file, which need not exist")
        ->required()
        ->type_name("")
        ->check(NotEmpty);
    verb->add_flag("--path", arguments->hasPath, "FILE goes in as given; default: its name alone");
    AddOutOption(*verb);
    verb->callback([arguments] { WriteMedia(*arguments); });
}

} // namespace ob
