// SPDX-License-Identifier: GPL-3.0-or-later
// obtool sprite: masks for sprites.
#include "obtool/toolGroups.h"

#include "imagetools/sprites/modMask.h"
#include "obtool/pictures/toolPicture.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/language/cRuntimeError.h"

#include <cstdio>
#include <memory>

namespace ob {

namespace {

struct SpriteArguments {
    std::string in;
    std::string out;
    std::string folder;
};

void Mask(const SpriteArguments& arguments)
{
    const cDIBSection sprite = ReadPictureArgument(arguments.in);
    SpriteWithMask(sprite).WriteFile(arguments.out, ToolWriter());
}

void MaskFolder(const std::string& argument)
{
    const QString folder = PathOf(argument);
    if (!FolderExists(folder))
        throw ToolFailure(argument, RuntimeErrorOf(ErrorNumber::PathNotFound).description);
    const QStringList names = BitmapsIn(folder);
    if (names.isEmpty())
        throw ToolFailure(argument, NoBitmapsText(folder));
    std::string current = argument;
    const BatchWatch watch = {[&](qsizetype place) { current = PathIn(folder, names[place]).toStdString(); },
                              [&](const QString&, const cDIBSection&) {
                                  std::fprintf(stderr, "%s\n", current.c_str());
                                  return BatchStep::GoOn;
                              }};
    OnFile(current, [&] { MaskFiles(folder, names, watch); });
}

} // namespace

void AddSpriteVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<SpriteArguments>();
    CLI::App* mask = AddVerb(group, "mask", "obtool sprite mask IN OUT | obtool sprite mask --folder DIR",
                             "a bitmap of twice the height, a mask above the sprite");
    const CLI::Option* in =
        mask->add_option("IN", arguments->in, "a picture, black around the figure")->check(NotEmpty);
    const CLI::Option* out = mask->add_option("OUT", arguments->out, "the bitmap file to write")->check(NotEmpty);
    const CLI::Option* folder =
        mask->add_option("--folder", arguments->folder, "gives every bitmap of the folder its mask, in place")
            ->type_name("DIR")
            ->check(NotEmpty);
    mask->callback([arguments, in, out, folder] {
        if (folder->count() > 0) {
            if (in->count() > 0)
                throw CLI::ExcludesError("--folder", "IN");
            MaskFolder(arguments->folder);
            return;
        }
        for (const CLI::Option* needed : {in, out}) {
            if (needed->count() == 0)
                throw CLI::RequiredError(needed->get_name());
        }
        OnFile(arguments->in, [&] { Mask(*arguments); });
    });
}

} // namespace ob
