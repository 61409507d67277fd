// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as bitmap files of 256 colours.
#include "imagetools/pictures/modStrip256.h"

#include "imagetools/pictures/modPicture.h"
#include "imaging/cDIBSectionSave.h"
#include "platform/files/modFilePieces.h"

#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace ob {

namespace {

// The picture takes the colours of the file. The library ignores a writer's result, so disk errors leave it as
// exceptions.
void Save(cDIBSection picture, const QString& path)
{
    bool isWritten = false;
    const FileWriter write = [&](const std::string&, std::span<const ByteView> pieces) -> WriteResult {
        std::vector<QByteArrayView> views;
        for (const ByteView piece : pieces)
            views.emplace_back(reinterpret_cast<const char*>(piece.data()), static_cast<qsizetype>(piece.size()));
        ReplaceFile(path, FilePieces(views));
        isWritten = true;
        return {};
    };
    std::optional<cPalette> palette;
    cDIBSectionSave().Save(path.toStdString(), picture, palette, SaveBitDepth::Bits8, SaveReduceMode::None, write);
    if (!isWritten)
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
