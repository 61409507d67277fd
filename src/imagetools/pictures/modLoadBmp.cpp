// SPDX-License-Identifier: GPL-3.0-or-later
// The list of bitmaps, and the lines that load them.
#include "imagetools/pictures/modLoadBmp.h"

#include "platform/language/cRuntimeError.h"

#include <limits>

using namespace Qt::StringLiterals;

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
    return text + u"\r\n"_s;
}

QString LoadLine(const QString& path, ImageLibrary library, PathInformation information)
{
    const QString place =
        information == PathInformation::Full ? Quoted(path) : u"DefaultDir$ + "_s + Quoted(u'\\' + FileName(path));
    const QString source = library == ImageLibrary::Used ? u"LoadImageFile(0, %1)"_s.arg(place) : place;
    return u"    loadbmp "_s + Quoted(BitmapName(path)) + u", "_s + source;
}

QString LoadSection(const QStringList& paths, ImageLibrary library, PathInformation information)
{
    QString text = Line(u"[loadBmps]"_s);
    if (library == ImageLibrary::Used) {
        text += Line(u"    'be sure jpeg.dll is in same directory as program file"_s);
        text += Line(u"    open \"jpeg.dll\" for DLL as #j"_s);
    }
    for (const QString& path : paths)
        text += Line(LoadLine(path, library, information));
    if (library == ImageLibrary::Used)
        text += Line(u"    close #j"_s);
    return text + Line(u"    RETURN"_s);
}

QString UnloadSection(const QStringList& paths, ImageLibrary library)
{
    QString text = Line({}) + Line(u"[unloadBmps]"_s);
    for (const QString& path : paths)
        text += Line(u"    unloadbmp "_s + Quoted(BitmapName(path)));
    text += Line(u"    RETURN"_s) + Line({});
    if (library == ImageLibrary::Unused)
        return text;
    return text + Line(u"Function LoadImageFile(hWnd, file$)"_s) + Line(u"    calldll #j, \"LoadImageFile\",_"_s) +
           Line(u"    hWnd as ulong, file$ as ptr,_"_s) + Line(u"    LoadImageFile As ulong"_s) +
           Line(u"    End Function"_s);
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

void cLoadBmpList::Remove(int place)
{
    paths.removeAt(place);
    count = static_cast<std::int16_t>(paths.size());
}

void cLoadBmpList::Move(int from, int to)
{
    paths.move(from, to);
}

QString LoadBmpText(const QStringList& paths, ImageLibrary library, PathInformation information)
{
    return LoadSection(paths, library, information) + UnloadSection(paths, library);
}

} // namespace ob
