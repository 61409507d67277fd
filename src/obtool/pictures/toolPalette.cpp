// SPDX-License-Identifier: GPL-3.0-or-later
// obtool palette: palette files.
#include "obtool/toolGroups.h"

#include "imaging/cPalette.h"
#include "obtool/pictures/toolPicture.h"
#include "obtool/toolOutput.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct PaletteArguments {
    std::string kind;
    std::string file;
    std::string out;
    std::string from;
    std::int32_t colors = 0;
    int level = 0;
    std::int32_t red = 0;
    std::int32_t green = 0;
    std::int32_t blue = 0;
    bool binary = false;

    PaletteFormat Format() const { return binary ? PaletteFormat::Binary : PaletteFormat::Text; }
};

void MakeOptimal(const PaletteArguments& arguments, cPalette& palette)
{
    const cDIBSection picture = ReadPictureArgument(arguments.from);
    cPalette::OptimalEvents events;
    events.reducingFailed = [&](std::int64_t) { WriteNote(arguments.from, u"Error in reducing nodes"_s); };
    OnFile(arguments.from, [&] {
        palette.CreateOptimal(picture, arguments.colors, static_cast<std::uint8_t>(arguments.level), events);
    });
    palette.EraseNodes();
}

void Make(const PaletteArguments& arguments)
{
    cPalette palette;
    if (arguments.kind == "web")
        palette.CreateWebSafe();
    else if (arguments.kind == "halftone")
        palette.CreateHalfTone();
    else if (arguments.kind == "mono")
        palette.CreateMono();
    else if (arguments.kind == "16")
        palette.Create16Colour();
    else
        MakeOptimal(arguments, palette);
    if (arguments.binary)
        palette.Save(arguments.out, 0, ToolWriter());
    else
        palette.SaveToJASCFile(arguments.out, ToolWriter());
}

void Show(const PaletteArguments& arguments)
{
    const cPalette palette = ReadPaletteArgument(arguments.file, arguments.Format());
    QByteArray report;
    int index = 0;
    for (const PaletteEntry& entry : palette.Entries()) {
        ++index;
        for (const int value : {index, int{entry.red}, int{entry.green}})
            report += QByteArray::number(value) + '\t';
        report += QByteArray::number(int{entry.blue}) + '\n';
    }
    WriteAnswer(report);
}

void Closest(const PaletteArguments& arguments)
{
    const cPalette palette = ReadPaletteArgument(arguments.file, arguments.Format());
    const std::int32_t index = palette.ClosestIndex(arguments.red, arguments.green, arguments.blue);
    WriteAnswer(QByteArray::number(index) + '\n');
}

using Arguments = std::shared_ptr<PaletteArguments>;

void AddFormat(CLI::App& verb, const Arguments& arguments)
{
    verb.add_flag("--binary", arguments->binary, "a binary palette file in place of a text one");
}

void AddFile(CLI::App& verb, const Arguments& arguments)
{
    verb.add_option("FILE", arguments->file, "a palette file")->required()->check(NotEmpty);
    AddFormat(verb, arguments);
}

void AddMake(CLI::App& group, const Arguments& arguments)
{
    CLI::App* make =
        AddVerb(group, "make",
                "obtool palette make web|halftone|mono|16|optimal OUT [--from IN --colours N --level L] [--binary]",
                "writes a palette file; optimal: the best palette of the picture IN");
    make->add_option("KIND", arguments->kind, "the palette")
        ->required()
        ->check(CLI::IsMember({"web", "halftone", "mono", "16", "optimal"}));
    make->add_option("OUT", arguments->out, "the palette file to write")->required()->check(NotEmpty);
    const std::vector<CLI::Option*> ofOptimal = {
        make->add_option("--from", arguments->from, "a picture")->type_name("IN")->check(NotEmpty),
        make->add_option("--colours", arguments->colors, "how many are wanted")->type_name("N"),
        make->add_option("--level", arguments->level, "the tree's depth, 1 to 8")
            ->type_name("L")
            ->check(CLI::Range(0, 255))};
    AddFormat(*make, arguments);
    make->callback([arguments, ofOptimal] {
        for (const CLI::Option* option : ofOptimal) {
            if (arguments->kind == "optimal" && option->count() == 0)
                throw CLI::RequiredError(option->get_name());
            if (arguments->kind != "optimal" && option->count() > 0)
                throw CLI::ExcludesError(option->get_name(), arguments->kind);
        }
        Make(*arguments);
    });
}

} // namespace

void AddPaletteVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<PaletteArguments>();
    AddMake(group, arguments);

    CLI::App* show = AddVerb(group, "show", "obtool palette show FILE [--binary]", "the entries of a palette file");
    AddFile(*show, arguments);
    AddOutOption(*show);
    show->callback([arguments] { Show(*arguments); });

    CLI::App* closest = AddVerb(group, "closest", "obtool palette closest FILE RED GREEN BLUE [--binary]",
                                "the index of the nearest entry, 0 for none");
    AddFile(*closest, arguments);
    closest->add_option("RED", arguments->red, "any whole number")->required();
    closest->add_option("GREEN", arguments->green, "any whole number")->required();
    closest->add_option("BLUE", arguments->blue, "any whole number")->required();
    AddOutOption(*closest);
    closest->callback([arguments] { Closest(*arguments); });
}

} // namespace ob
