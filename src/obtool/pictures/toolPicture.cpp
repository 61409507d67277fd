// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands for pictures and palettes share.
#include "obtool/pictures/toolPicture.h"

#include "imagetools/metafiles/modMetafile.h"
#include "imagetools/pictures/modPicture.h"

#include <QByteArray>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

FileReader ReaderOf(const QByteArray& bytes)
{
    return [&bytes](const std::string&) -> FileContent {
        return {FileOutcome::Done, {bytes.begin(), bytes.end()}, {}};
    };
}

} // namespace

cDIBSection ReadPictureArgument(const std::string& file)
{
    const QByteArray bytes = ReadInput(file);
    return OnFile(file, [&] { return PictureOfBytes(bytes); });
}

cPalette ReadPaletteArgument(const std::string& file, PaletteFormat format)
{
    const QByteArray bytes = ReadInput(file);
    cPalette palette;
    std::int32_t position = 0;
    const bool isRead = format == PaletteFormat::Text ? palette.LoadFromJASCFile(file, ReaderOf(bytes))
                                                      : palette.Load(file, position, ReaderOf(bytes));
    if (!isRead)
        throw ToolFailure(file, u"The palette cannot be read."_s);
    return palette;
}

FileWriter ToolWriter()
{
    return [write = DiskWriter()](const std::string& fileName, std::span<const ByteView> pieces) {
        return OnFile(fileName, [&] { return write(PathOf(fileName).toStdString(), pieces); });
    };
}

void LetPicturesHaveFonts()
{
    SetFontMaker([] {
        static char program[] = "obtool";
        static char option[] = "-platform";
        static char platform[] = "offscreen";
        static char* arguments[] = {program, option, platform, nullptr};
        static int count = 3;
        static const QGuiApplication application(count, arguments);
    });
}

} // namespace ob
