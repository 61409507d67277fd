// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer's file operations.
#include "imagetools/pictures/modImageFiles.h"

#include "imagetools/pictures/modPicture.h"
#include "imagetools/pictures/modStrip256.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/modTexts.h"

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

void Save(const QString& source, const QString& target, ImageColors colors)
{
    if (colors == ImageColors::Reduced256)
        SaveAs256(LoadPicture(source), target);
    else
        ReplaceFile(target, ReadWhole(source), Durability::Unsynced);
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

void SaveImageFile(const QString& source, const QString& target, ImageColors colors)
{
    const QString failed = u"Error saving file!"_s;
    try {
        Save(source, target, colors);
    } catch (const RuntimeError& error) {
        FailureBox(failed, error);
        return;
    } catch (const std::bad_alloc&) {
        MsgBox(failed, BoxIcon::Critical);
        return;
    }
    MsgBox((colors == ImageColors::Reduced256 ? u"Image has been saved in Windows default 256-color format as "_s
                                              : u"Image has been saved as "_s) +
           target);
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
