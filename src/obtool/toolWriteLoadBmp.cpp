// SPDX-License-Identifier: GPL-3.0-or-later
// obtool write loadbmp: the bitmap previewer's list.
#include "obtool/toolGroups.h"

#include "editor/files/modDocumentFile.h"
#include "imagetools/pictures/modLoadBmp.h"
#include "obtool/toolOutput.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/modSystem.h"

#include <memory>

namespace ob {

namespace {

struct LoadBmpArguments {
    std::vector<std::string> files;
    bool usesLibrary = false;
    bool hasPaths = false;
};

// The generated program runs elsewhere: a path of its system stays unchanged, and cannot be looked up here.
bool IsElsewhere(const QString& file)
{
    const bool hasDrive = file.size() > 2 && file[0].isLetter() && file[1] == QLatin1Char(':');
    return ThisSystem != System::Windows && (hasDrive || file.startsWith(QLatin1Char('\\')));
}

QString FullPathOf(const std::string& argument)
{
    const QString file = PathOf(argument);
    if (IsElsewhere(file))
        return file;
    if (!FileExists(file))
        throw ToolFailure(argument, MissingFileText);
    return AbsolutePathOf(file);
}

void WriteLoadBmp(const LoadBmpArguments& arguments)
{
    const auto library = arguments.usesLibrary ? ImageLibrary::Used : ImageLibrary::Unused;
    const auto information = arguments.hasPaths ? PathInformation::Full : PathInformation::Left;
    cLoadBmpList list;
    for (const std::string& file : arguments.files) {
        const QString path = FullPathOf(file);
        if (list.Add(path) == cLoadBmpList::Answer::Full) {
            WriteNote(file, BmpListFullText);
            continue;
        }
        // Too short a name is that file's failure.
        OnFile(file, [&] { (void)LoadBmpText({path}, library, information); });
    }
    WriteProgramText(LoadBmpText(list.Paths(), library, information));
}

} // namespace

void AddWriteLoadBmpVerb(CLI::App& group)
{
    const auto arguments = std::make_shared<LoadBmpArguments>();
    CLI::App* verb = AddVerb(group, "loadbmp", "obtool write loadbmp [--dll] [--path] FILE...",
                             "the lines that load pictures and let go of them");
    verb->add_flag("--dll", arguments->usesLibrary, "the image library jpeg.dll loads them");
    verb->add_flag("--path", arguments->hasPaths, "with the full path of each picture");
    AddTexts(*verb, "FILE", arguments->files, "the pictures, 150 at most")->required()->check(NotEmpty);
    AddOutOption(*verb);
    verb->callback([arguments] { WriteLoadBmp(*arguments); });
}

} // namespace ob
