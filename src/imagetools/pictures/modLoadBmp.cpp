// SPDX-License-Identifier: GPL-3.0-or-later
// The list of bitmaps, and the lines that load them.
#include "imagetools/pictures/modLoadBmp.h"

#include "platform/language/cRuntimeError.h"

#include <limits>

namespace ob {

namespace {

constexpr qsizetype EndingLength = 4; // ".bmp"

QString FileName(const QString& path)
{
    return path.mid(std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\'))) + 1);
}

QString BitmapName(const QString& path)
{
    const QString name = FileName(path);
    if (name.size() < EndingLength)
        throw RuntimeErrorOf(ErrorNumber::InvalidCall);
    return name.chopped(EndingLength);
}

QString Quoted(const QString& text)
{
    return u'"' + text + u'"';
}

QString Line(const QString& text)
{
    return text + QStringLiteral("\r\n");
}

QString LoadLine(const QString& path, ImageLibrary library, PathInformation information)
{
    const QString place = information == PathInformation::Full
                              ? Quoted(path)
                              : QStringLiteral("DefaultDir$ + ") + Quoted(u'\\' + FileName(path));
    const QString source = library == ImageLibrary::Used ? QStringLiteral("LoadImageFile(0, %1)").arg(place) : place;
    return QStringLiteral("    loadbmp ") + Quoted(BitmapName(path)) + QStringLiteral(", ") + source;
}

QString LoadSection(const QStringList& paths, ImageLibrary library, PathInformation information)
{
    QString text = Line(QStringLiteral("[loadBmps]"));
    if (library == ImageLibrary::Used) {
        text += Line(QStringLiteral("    'be sure jpeg.dll is in same directory as program file"));
        text += Line(QStringLiteral("    open \"jpeg.dll\" for DLL as #j"));
    }
    for (const QString& path : paths)
        text += Line(LoadLine(path, library, information));
    if (library == ImageLibrary::Used)
        text += Line(QStringLiteral("    close #j"));
    return text + Line(QStringLiteral("    RETURN"));
}

QString UnloadSection(const QStringList& paths, ImageLibrary library)
{
    QString text = Line({}) + Line(QStringLiteral("[unloadBmps]"));
    for (const QString& path : paths)
        text += Line(QStringLiteral("    unloadbmp ") + Quoted(BitmapName(path)));
    text += Line(QStringLiteral("    RETURN")) + Line({});
    if (library == ImageLibrary::Unused)
        return text;
    return text + Line(QStringLiteral("Function LoadImageFile(hWnd, file$)")) +
           Line(QStringLiteral("    calldll #j, \"LoadImageFile\",_")) +
           Line(QStringLiteral("    hWnd as ulong, file$ as ptr,_")) +
           Line(QStringLiteral("    LoadImageFile As ulong")) + Line(QStringLiteral("    End Function"));
}

} // namespace

cLoadBmpList::Answer cLoadBmpList::Add(const QString& path)
{
    if (count < std::numeric_limits<std::int16_t>::max())
        ++count;
    if (count > Most)
        return Answer::Full;
    paths.append(path);
    return Answer::Added;
}

QString LoadBmpText(const QStringList& paths, ImageLibrary library, PathInformation information)
{
    return LoadSection(paths, library, information) + UnloadSection(paths, library);
}

} // namespace ob
