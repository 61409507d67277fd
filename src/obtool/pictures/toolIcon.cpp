// SPDX-License-Identifier: GPL-3.0-or-later
// obtool icon: icons in files and programs, and the icon of the runtime engine.
#include "obtool/toolGroups.h"

#include "imagetools/icons/modIcon.h"
#include "imagetools/icons/modIconFile.h"
#include "obtool/pictures/toolPicture.h"

#include <map>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct IconArguments {
    std::string file;
    std::string out;
    std::string engineVersion;
    int index = 0;
};

// Runs work on the icons of a file; a file without an icon is a failure.
template <class Work>
void WithIcons(const std::string& file, Work work)
{
    OnFile(file, [&] {
        const cIconIndex icons = IconsOfFile(PathOf(file));
        if (icons.Count() == 0)
            throw ToolFailure(file, u"There is no icon in the file."_s);
        work(icons);
    });
}

Icon IconOf(const std::string& file, int index)
{
    Icon icon;
    WithIcons(file, [&](const cIconIndex& icons) {
        if (index < 0 || index >= icons.Count())
            throw ToolFailure(file, u"There is no icon %1 in the file."_s.arg(index));
        const std::optional<IconImage> image = icons.Extract(index);
        if (!image)
            throw ToolFailure(file, u"Icon %1 cannot be read."_s.arg(index));
        DrawIcon(icon, *image);
    });
    return icon;
}

// Icons that cannot be read are skipped, and named after the others.
void List(const std::string& file)
{
    WithIcons(file, [&](const cIconIndex& icons) {
        QByteArray report;
        std::optional<int> unreadable;
        for (int index = 0; index < icons.Count(); ++index) {
            const std::optional<IconImageSize> size = icons.Size(index);
            if (!size) {
                unreadable = unreadable.value_or(index);
                continue;
            }
            for (const int value : {index, size->width, size->height})
                report += QByteArray::number(value) + '\t';
            report += QByteArray::number(size->bits) + '\n';
        }
        WriteAnswer(report);
        if (unreadable)
            throw ToolFailure(file, u"Icon %1 cannot be read."_s.arg(*unreadable));
    });
}

void Extract(const IconArguments& arguments)
{
    const Icon icon = IconOf(arguments.file, arguments.index);
    const bool isBitmap = PathOf(arguments.out).endsWith(QLatin1String(".bmp"), Qt::CaseInsensitive);
    WriteOutput(arguments.out, isBitmap ? BitmapFileOf(ReducedIcon(icon)) : IconFileOf(icon));
}

void Make(const IconArguments& arguments)
{
    const cDIBSection picture = ReadPictureArgument(arguments.file);
    OnFile(arguments.file, [&] { WriteOutput(arguments.out, IconFileOf(IconFromPicture(picture))); });
}

void Install(const IconArguments& arguments)
{
    const Icon icon = IconOf(arguments.file, 0);
    const auto version = arguments.engineVersion == "3" ? EngineVersion::Three : EngineVersion::Four;
    struct TempIcon {
        ~TempIcon() { RemoveTempIcon(); }
    } const temporary;
    OnFile(arguments.out, [&] { InstallIcon(PathOf(arguments.out), icon, version); });
}

} // namespace

void AddIconVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<IconArguments>();
    const auto addFile = [&arguments](CLI::App& verb, const char* name, const char* description) {
        verb.add_option(name, arguments->file, description)->required()->check(NotEmpty);
    };
    const auto addOut = [&arguments](CLI::App& verb, const char* name, const char* description) {
        verb.add_option(name, arguments->out, description)->required()->check(NotEmpty);
    };
    constexpr char anyFile[] = "an icon file, a program or a library";

    CLI::App* list = AddVerb(group, "list", "obtool icon list FILE", "the icons of a file");
    addFile(*list, "FILE", anyFile);
    AddOutOption(*list);
    list->callback([arguments] { List(arguments->file); });

    CLI::App* extract = AddVerb(group, "extract", "obtool icon extract FILE INDEX OUT",
                                "an icon as an icon file of 16 colours, or as a bitmap");
    addFile(*extract, "FILE", anyFile);
    extract->add_option("INDEX", arguments->index, "from 0")->required();
    addOut(*extract, "OUT", "the file to write; .bmp makes it a bitmap");
    extract->callback([arguments] { Extract(*arguments); });

    CLI::App* make = AddVerb(group, "make", "obtool icon make IN OUT", "a picture as an icon file of 16 colours");
    addFile(*make, "IN", "a picture");
    addOut(*make, "OUT", "the icon file to write");
    make->callback([arguments] { Make(*arguments); });

    CLI::App* install = AddVerb(group, "install", "obtool icon install ICON ENGINE --engine 3|4",
                                "puts an icon into a copy of the runtime engine");
    addFile(*install, "ICON", anyFile);
    addOut(*install, "ENGINE", "the copy, which is changed in place");
    install->add_option("--engine", arguments->engineVersion, "the version of the language")
        ->required()
        ->check(CLI::IsMember({"3", "4"}));
    install->callback([arguments] { Install(*arguments); });
}

} // namespace ob
