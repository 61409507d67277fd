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

namespace ob {

namespace {

constexpr int DemonstrationNumber = 103;
constexpr int LibraryNumber = 104;

std::optional<std::string_view> Embedded(int number)
{
    return EmbeddedText(number, QStringLiteral("CUSTOM"));
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
    const QString patterns =
        library == ImageLibrary::Used ? QStringLiteral("*.bmp;*.jpg;*.wmf;*.emf,*.gif") : QStringLiteral("*.bmp");
    return patterns.split(QLatin1Char(';'));
}

QString CannotBeShownText(const QString& path)
{
    return NameOf(path) + QStringLiteral(" cannot be shown.");
}

void SaveImageFile(const QString& source, const QString& target, ImageColors colors)
{
    const QString failed = QStringLiteral("Error saving file!");
    try {
        Save(source, target, colors);
    } catch (const RuntimeError& error) {
        FailureBox(failed, error);
        return;
    } catch (const std::bad_alloc&) {
        MsgBox(failed, BoxIcon::Critical);
        return;
    }
    MsgBox((colors == ImageColors::Reduced256
                ? QStringLiteral("Image has been saved in Windows default 256-color format as ")
                : QStringLiteral("Image has been saved as ")) +
           target);
}

bool CarriesImageLibrary()
{
    return Embedded(LibraryNumber).has_value();
}

QString WriteImageLibrary(const QString& folder)
{
    const QString path = PathIn(folder, QStringLiteral("jpeg.dll"));
    ReplaceFile(path, QByteArrayView(Embedded(LibraryNumber).value_or(std::string_view())), Durability::Unsynced);
    ReplaceFile(PathIn(folder, QStringLiteral("jpeg.bas")),
                QByteArrayView(Embedded(DemonstrationNumber).value_or(std::string_view())), Durability::Unsynced);
    return path;
}

} // namespace ob
