// SPDX-License-Identifier: GPL-3.0-or-later
// obtool avi: videos of bitmap files.
#include "obtool/toolGroups.h"

#include "imagetools/avi/cAviWriting.h"
#include "obtool/toolOutput.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct AviArguments {
    std::string out;
    std::string framesPerSecond = "1";
    std::string codec{NoCodec};
    std::vector<std::string> files;
};

NoticeSink NotesOn(const std::string& file)
{
    return [file](const std::string& text, NoticeIcon) { WriteNote(file, QString::fromStdString(text)); };
}

AviList ListOf(const std::vector<std::string>& files)
{
    AviList list;
    for (const std::string& file : files) {
        const QString path = PathOf(file);
        try {
            if (const auto format = FormatForList(list, path, NotesOn(file)))
                AddToList(list, path, *format);
        } catch (const NumberedError& error) {
            WriteNote(file, QString::fromUtf8(error.what()));
        }
    }
    return list;
}

void Write(const AviArguments& arguments)
{
    if (arguments.files.empty())
        throw CLI::RequiredError("FILE");
    const AviList list = ListOf(arguments.files);
    if (list.files.isEmpty())
        throw ToolFailure(arguments.out, u"There is no bitmap to make a video of."_s);
    cAviWriting writing(PathOf(arguments.out), list, QString::fromStdString(arguments.framesPerSecond),
                        NotesOn(arguments.out));
    OnFile(arguments.out, [&] {
        AviState state = writing.Begin([&](const AviFormat&) {
            AviOptions options;
            options.codec = arguments.codec;
            return options;
        });
        while (state == AviState::Writing)
            state = writing.WriteFrame();
    });
}

void Codecs()
{
    QByteArray report;
    for (const AviCodec& codec : AviCodecs())
        report += QByteArray(codec.name.data(), static_cast<qsizetype>(codec.name.size())) + '\t' +
                  QByteArray(codec.description.data(), static_cast<qsizetype>(codec.description.size())) + '\n';
    WriteAnswer(report);
    if (const QString trouble = AviCodecsTrouble(); !trouble.isEmpty())
        WriteNote(trouble);
}

} // namespace

void AddAviVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<AviArguments>();

    CLI::App* write = AddVerb(group, "write", "obtool avi write OUT [--fps N] [--codec NAME] FILE...",
                              "a silent video, a frame for each bitmap file");
    write->add_option("OUT", arguments->out, "the video to write")->required()->check(NotEmpty);
    AddTexts(*write, "FILE", arguments->files, "bitmap files of one size and format");
    write->add_option("--fps", arguments->framesPerSecond, "frames a second, 1 to 30; default: 1")->type_name("N");
    write->add_option("--codec", arguments->codec, "a compressor of \"obtool avi codecs\"; default: none")
        ->type_name("NAME")
        ->check(NotEmpty);
    write->callback([arguments] { Write(*arguments); });

    CLI::App* codecs = AddVerb(group, "codecs", "obtool avi codecs", "the compressors: name, description");
    AddOutOption(*codecs);
    codecs->callback([] { Codecs(); });
}

} // namespace ob
