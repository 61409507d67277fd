// SPDX-License-Identifier: GPL-3.0-or-later
// Sprites and their masks.
#include "imagetools/sprites/modMask.h"

#include "imagetools/pictures/modPicture.h"
#include "platform/files/modFolders.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"

#include <QDir>

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

void MaskPixels(const std::uint8_t* sprite, std::uint8_t* mask, std::int32_t count)
{
    for (std::int32_t x = 0; x < count; ++x, sprite += 3, mask += 3) {
        const auto value = static_cast<std::uint8_t>((sprite[0] | sprite[1] | sprite[2]) == 0 ? 255 : 0);
        mask[0] = mask[1] = mask[2] = value;
    }
}

cDIBSection DoubleHeight(const cDIBSection& sprite)
{
    cDIBSection picture;
    constexpr std::int32_t highest = (std::int32_t{1} << 30) - 1;
    if (sprite.hDib() == 0 || sprite.Height() > highest || !picture.Create(sprite.Width(), sprite.Height() * 2))
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    return picture;
}

std::size_t BytesOfPicture(const cDIBSection& picture)
{
    return static_cast<std::size_t>(picture.Header().biSizeImage);
}

// A blank picture of a common sprite's width, used in place of a missing picture.
cDIBSection EmptyPicture()
{
    constexpr std::int32_t side = 32;
    cDIBSection picture;
    picture.Create(side, side * 2);
    std::memset(picture.DIBSectionBitsPtr(), 255, BytesOfPicture(picture));
    return picture;
}

} // namespace

const QStringList BitmapPatterns = {u"*.bmp"_s};

const QString BatchStartText = u"Choose a Directory.\nAll Bitmaps in the Directory will receive masks.\n"
                               "The bitmap files will be overwritten with the masked versions."_s;
const QString BatchQuestionText =
    u"All bitmap files in this directory will receive masks and the files will be overwritten.  After the "
    "masking has begun, press ESCAPE or the Cancel button to abort the operation.  Continue?"_s;
const QString BatchCancelledText =
    u"Operation cancelled.  Some bitmaps in this directory may not have received masks."_s;

cDIBSection SpriteWithMask(const cDIBSection& sprite)
{
    cDIBSection picture = DoubleHeight(sprite);
    // Lines run from the bottom up, so the lower half comes first.
    for (std::int32_t y = 0; y < sprite.Height(); ++y) {
        std::memcpy(picture.Line(y), sprite.Line(y), static_cast<std::size_t>(sprite.BytesPerScanLine()));
        MaskPixels(sprite.Line(y), picture.Line(sprite.Height() + y), sprite.Width());
    }
    return picture;
}

cDIBSection SpriteTwice(const cDIBSection& sprite)
{
    cDIBSection picture = DoubleHeight(sprite);
    for (const std::int32_t half : {0, sprite.Height()})
        std::memcpy(picture.Line(half), sprite.Line(0), BytesOfPicture(sprite));
    return picture;
}

void MaskColumns(cDIBSection& picture, std::int32_t left, std::int32_t count)
{
    if (picture.hDib() == 0 || left < 0 || left >= picture.Width())
        return;
    count = std::min(count, picture.Width() - left);
    const std::int32_t height = picture.Height() / 2;
    for (std::int32_t y = 0; y < height; ++y)
        MaskPixels(picture.Line(y) + left * 3, picture.Line(height + y) + left * 3, count);
}

cDIBSection LoadSpriteWithMask(const QString& path)
{
    return SpriteWithMask(LoadPicture(path));
}

void SaveMask(const QString& path, const cDIBSection& picture)
{
    if (picture.hDib() != 0)
        picture.WriteFile(path.toStdString(), DiskWriter());
    else
        EmptyPicture().WriteFile(path.toStdString(), DiskWriter());
}

QStringList BitmapsIn(const QString& folder)
{
    return ReadFolder(folder, BitmapPatterns).files;
}

BatchEnd MaskFiles(const QString& folder, const QStringList& names, const BatchWatch& watch)
{
    for (qsizetype place = 0; place < names.size(); ++place) {
        watch.before(place);
        const QString path = PathIn(folder, names[place]);
        const cDIBSection picture = LoadSpriteWithMask(path);
        SaveMask(path, picture);
        if (watch.after(path, picture) == BatchStep::Stop)
            return BatchEnd::Cancelled;
    }
    return BatchEnd::Finished;
}

QString NoBitmapsText(const QString& folder)
{
    return u"There are no bitmaps in %1!  Please choose another directory."_s.arg(QDir::toNativeSeparators(folder));
}

QString BatchProgressText(qsizetype place, qsizetype count, const QString& folder)
{
    return u"Click CANCEL to abort.  Processing bitmap number "_s + Str(place + 1) + u" of "_s + Str(count) +
           u" bitmaps in \n\n"_s + QDir::toNativeSeparators(folder);
}

QString BatchFinishedText(const QString& folder)
{
    return u"All bitmaps in %1 now include masks."_s.arg(QDir::toNativeSeparators(folder));
}

QString BatchFailedText(const QString& name, qsizetype done, qsizetype count)
{
    return u"%1 ended the work; %2 of %3 bitmaps have received masks. Mend it or take it away and press OK: the work "
           u"goes "
           "on with the others."_s.arg(name)
               .arg(done)
               .arg(count);
}

} // namespace ob
