// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as bitmap files of 256 colours.
#include "imagetools/pictures/modStrip256.h"

#include "imagetools/pictures/modPicture.h"
#include "imaging/cDIBSectionSave.h"

#include <new>
#include <optional>
#include <utility>

namespace ob {

namespace {

// The picture takes the colours of the file.
void Save(cDIBSection picture, const QString& path)
{
    std::optional<cPalette> palette;
    if (!cDIBSectionSave().WriteFile(path.toStdString(), picture, palette, SaveBitDepth::Bits8, SaveReduceMode::None,
                                     DiskWriter()))
        throw std::bad_alloc();
}

} // namespace

void SaveAs256(const cDIBSection& picture, const QString& path)
{
    if (picture.hDib() == 0)
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    cDIBSection copy;
    if (!copy.Create(picture.Width(), picture.Height()))
        throw std::bad_alloc();
    copy.LoadPictureBlt(picture);
    Save(std::move(copy), path);
}

void ConvertTo256(const QString& path)
{
    Save(LoadPicture(path), path);
}

} // namespace ob
