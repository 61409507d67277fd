// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer's file operations.
#include "imagetools/pictures/modImageFiles.h"

#include "imagetools/pictures/modStrip256.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/modTexts.h"

#include <QFileInfo>

#include <new>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int DemonstrationNumber = 103;
constexpr int LibraryNumber = 104;

std::optional<std::string_view> Embedded(int number)
{
    return EmbeddedText(number, u"CUSTOM"_s);
}

ImageSave Save(const QString& source, const QString& target, ImageColors colors, const PictureReader& read)
{
    if (colors == ImageColors::AsTheyAre) {
        ReplaceFile(target, ReadWhole(source), Durability::Unsynced);
        return ImageSave::Done;
    }
    const std::optional<cDIBSection> picture = read(source);
    if (!picture)
        return ImageSave::Not;
    SaveAs256(*picture, target);
    return ImageSave::Done;
}

} // namespace

QStringList BitmapPatterns(ImageLibrary library)
{
    const QString patterns = library == ImageLibrary::Used ? u"*.bmp;*.jpg;*.wmf;*.emf,*.gif"_s : u"*.bmp"_s;
    return patterns.split(QLatin1Char(';'));
}

QString CannotBeShownText(const QString& path)
{
    return NameOf(path) + u" cannot be shown."_s;
}

ImageSave SaveImageFile(const QString& source, const QString& target, ImageColors colors, const PictureReader& read)
{
    const QString failed = u"Error saving file!"_s;
    try {
        if (Save(source, target, colors, read) == ImageSave::Not)
            return ImageSave::Not;
    } catch (const RuntimeError& error) {
        FailureBox(failed, error);
        return ImageSave::Not;
    } catch (const std::bad_alloc&) {
        MsgBox(failed, BoxIcon::Critical);
        return ImageSave::Not;
    }
    MsgBox((colors == ImageColors::Reduced256 ? u"Image has been saved in Windows default 256-color format as "_s
                                              : u"Image has been saved as "_s) +
           target);
    return ImageSave::Done;
}

QString CopyNameFor(const QString& source, ImageColors colors)
{
    return CopyNameOf(colors == ImageColors::Reduced256 ? QFileInfo(source).completeBaseName() + u".bmp"_s : source);
}

bool CarriesImageLibrary()
{
    return Embedded(LibraryNumber).has_value();
}

QString WriteImageLibrary(const QString& folder)
{
    const QString path = PathIn(folder, u"jpeg.dll"_s);
    ReplaceFile(path, QByteArrayView(Embedded(LibraryNumber).value_or(std::string_view())), Durability::Unsynced);
    ReplaceFile(PathIn(folder, u"jpeg.bas"_s),
                QByteArrayView(Embedded(DemonstrationNumber).value_or(std::string_view())), Durability::Unsynced);
    return path;
}

} // namespace ob
