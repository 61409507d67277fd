// SPDX-License-Identifier: GPL-3.0-or-later
// obtool image: pictures and bitmap files.
#include "obtool/toolGroups.h"

#include "imagetools/pictures/modPicture.h"
#include "imaging/cColourReduceDIB.h"
#include "imaging/cDIB.h"
#include "imaging/cDIBSectionSave.h"
#include "imaging/cImagingError.h"
#include "obtool/pictures/toolPicture.h"
#include "platform/files/modFiles.h"

#include <map>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct ImageArguments {
    std::string in;
    std::string out;
    std::string palette;
    std::string depth;
    std::string reduce = "none";
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool dither = false;
};

FileReader ArgumentReader()
{
    return [](const std::string& file) -> FileContent {
        if (file != "-" && !FileExists(PathOf(file)))
            return {};
        const QByteArray bytes = ReadInput(file);
        return {FileOutcome::Done, {bytes.begin(), bytes.end()}, {}};
    };
}

void Info(const std::string& file)
{
    cDIB dib;
    OnFile(file, [&] {
        dib.CreateFromFile(file, ArgumentReader(), [&](const std::string& text, NoticeIcon) {
            QString reason = QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
            throw ToolFailure(file, reason.replace(QLatin1String("\r\n"), QLatin1String(" ")));
        });
    });
    const std::pair<const char*, std::int32_t> values[] = {{"FileType", dib.FileType()},
                                                           {"SizeFileHeader", dib.SizeFileHeader()},
                                                           {"BitOffset", dib.BitOffset()},
                                                           {"SizeInfoHeader", dib.SizeInfoHeader()},
                                                           {"Width", dib.Width()},
                                                           {"Height", dib.Height()},
                                                           {"Planes", dib.Planes()},
                                                           {"BitCount", dib.BitCount()},
                                                           {"Compression", dib.Compression()},
                                                           {"SizeImage", dib.SizeImage()},
                                                           {"XPPM", dib.XPPM()},
                                                           {"YPPM", dib.YPPM()},
                                                           {"ClrUsed", dib.ClrUsed()},
                                                           {"ClrImportant", dib.ClrImportant()},
                                                           {"SizeBitmapInfo", dib.SizeBitmapInfo()}};
    QByteArray report;
    for (const auto& [name, value] : values)
        report += QByteArray(name) + '\t' + QByteArray::number(value) + '\n';
    WriteAnswer(report);
}

void Save(const ImageArguments& arguments)
{
    static const std::map<std::string, SaveBitDepth> depths = {{"1", SaveBitDepth::Bits1},
                                                               {"4", SaveBitDepth::Bits4},
                                                               {"8", SaveBitDepth::Bits8},
                                                               {"24", SaveBitDepth::Bits24}};
    static const std::map<std::string, SaveReduceMode> modes = {
        {"none", SaveReduceMode::None}, {"palette", SaveReduceMode::Palette}, {"auto", SaveReduceMode::Automatic}};
    cDIBSection picture = ReadPictureArgument(arguments.in);
    std::optional<cPalette> palette;
    if (!arguments.palette.empty())
        palette = ReadPaletteArgument(arguments.palette, PaletteFormat::Text);
    OnFile(arguments.in, [&] {
        if (!cDIBSectionSave().WriteFile(arguments.out, picture, palette, depths.at(arguments.depth),
                                         modes.at(arguments.reduce), ToolWriter()))
            RaiseOutOfMemory();
    });
}

void Resample(const ImageArguments& arguments)
{
    const cDIBSection picture = ReadPictureArgument(arguments.in);
    OnFile(arguments.in, [&] {
        const std::optional<cDIBSection> scaled = picture.Resample(arguments.height, arguments.width);
        if (!scaled)
            throw ToolFailure(arguments.in, u"A picture of that size cannot be made."_s);
        scaled->WriteFile(arguments.out, ToolWriter());
    });
}

void Gray(const ImageArguments& arguments)
{
    cDIBSection picture = ReadPictureArgument(arguments.in);
    OnFile(arguments.in, [&] {
        cColourReduceDIB().GrayScale(picture);
        picture.WriteFile(arguments.out, ToolWriter());
    });
}

void Mono(const ImageArguments& arguments)
{
    cDIBSection picture = ReadPictureArgument(arguments.in);
    OnFile(arguments.in, [&] {
        cColourReduceDIB().BlackAndWhite(picture, picture);
        picture.WriteFile(arguments.out, ToolWriter());
    });
}

void Remap(const ImageArguments& arguments)
{
    cDIBSection picture = ReadPictureArgument(arguments.in);
    const cPalette palette = ReadPaletteArgument(arguments.palette, PaletteFormat::Text);
    OnFile(arguments.in, [&] {
        cColourReduceDIB().ApplyPalette(picture, picture, palette, arguments.dither ? Dither::On : Dither::Off);
        picture.WriteFile(arguments.out, ToolWriter());
    });
}

using Work = void (*)(const ImageArguments&);

// A verb that makes a bitmap file from a picture.
CLI::App* AddPictureVerb(CLI::App& group, const std::shared_ptr<ImageArguments>& arguments, const std::string& name,
                         const std::string& usage, const std::string& description, Work work)
{
    CLI::App* verb = AddVerb(group, name, "obtool image " + name + " IN OUT" + usage, description);
    verb->add_option("IN", arguments->in, "a picture")->required()->check(NotEmpty);
    verb->add_option("OUT", arguments->out, "the bitmap file to write")->required()->check(NotEmpty);
    verb->callback([arguments, work] { work(*arguments); });
    return verb;
}

void AddSave(CLI::App& group, const std::shared_ptr<ImageArguments>& arguments)
{
    CLI::App* save =
        AddPictureVerb(group, arguments, "save", " --depth 1|4|8|24 [--reduce none|palette|auto] [--palette FILE]",
                       "writes a bitmap file of that many bits a pixel", Save);
    save->add_option("--depth", arguments->depth, "bits a pixel")
        ->required()
        ->check(CLI::IsMember({"1", "4", "8", "24"}));
    save->add_option("--reduce", arguments->reduce, "how colours are reduced; default: none")
        ->check(CLI::IsMember({"none", "palette", "auto"}));
    save->add_option("--palette", arguments->palette, "a text palette")->type_name("FILE")->check(NotEmpty);
}

} // namespace

void AddImageVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<ImageArguments>();

    CLI::App* info = AddVerb(group, "info", "obtool image info FILE", "what a bitmap file's headers say");
    info->add_option("FILE", arguments->in, "a bitmap file")->required()->check(NotEmpty);
    AddOutOption(*info);
    info->callback([arguments] { Info(arguments->in); });

    AddSave(group, arguments);

    CLI::App* resample =
        AddPictureVerb(group, arguments, "resample", " WIDTH HEIGHT", "a picture in another size", Resample);
    resample->add_option("WIDTH", arguments->width, "in pixels")->required();
    resample->add_option("HEIGHT", arguments->height, "in pixels")->required();

    AddPictureVerb(group, arguments, "gray", "", "a picture in grey", Gray);
    AddPictureVerb(group, arguments, "mono", "", "a picture in black and white, with error diffusion", Mono);

    CLI::App* remap = AddPictureVerb(group, arguments, "remap", " --palette FILE [--dither]",
                                     "a picture in the colours of a palette", Remap);
    remap->add_option("--palette", arguments->palette, "a text palette")
        ->required()
        ->type_name("FILE")
        ->check(NotEmpty);
    remap->add_flag("--dither", arguments->dither, "with error diffusion");
}

} // namespace ob
