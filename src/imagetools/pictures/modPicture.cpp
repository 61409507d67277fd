// SPDX-License-Identifier: GPL-3.0-or-later
// Connects the imaging library with the toolkit and the disk.
#include "imagetools/pictures/modPicture.h"

#include "imagetools/metafiles/modMetafile.h"
#include "imaging/modBitmapFile.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modByteViews.h"
#include "platform/files/modFilePieces.h"
#include "platform/files/modFiles.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

cDIBSection PictureOfToolkit(QByteArrayView bytes)
{
    QImageReader::setAllocationLimit(MostPictureMegabytes);
    QByteArray content = QByteArray::fromRawData(bytes.data(), bytes.size());
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    // Drawings of this format may contain text, and the toolkit aborts a process that draws text without fonts.
    if (reader.format().startsWith("svg") && !CanDrawText())
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    cDIBSection picture = CreateFromPicture(reader.read());
    if (picture.hDib() == 0)
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    return picture;
}

cDIBSection PictureOfMetafile(QByteArrayView bytes)
{
    const auto played = PlayMetafile(bytes);
    const auto* image = std::get_if<QImage>(&played);
    cDIBSection picture = image == nullptr ? cDIBSection() : CreateFromPicture(*image);
    if (picture.hDib() == 0)
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    return picture;
}

QString AdviceOn(const RuntimeError& error)
{
    switch (static_cast<ErrorNumber>(error.number)) {
    case ErrorNumber::InvalidPicture:
        return u"The file is damaged or holds no picture. Open it in a paint program and save it again."_s;
    case ErrorNumber::FileNotFound:
        return u"The file is not there any more."_s;
    case ErrorNumber::PathFileAccess:
        return u"The file cannot be opened. Check that you may read it."_s;
    default:
        return error.reason.isEmpty() ? u"The file cannot be read from its disk."_s : error.reason;
    }
}

} // namespace

cDIBSection PictureOfBytes(QByteArrayView bytes)
{
    if (!bytes.startsWith("BM"))
        return IsMetafile(bytes) ? PictureOfMetafile(bytes) : PictureOfToolkit(bytes);
    auto read = ReadBitmap(ByteViewOf(bytes));
    if (auto* picture = std::get_if<cDIBSection>(&read))
        return std::move(*picture);
    throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
}

cDIBSection LoadPicture(const QString& path)
{
    try {
        return PictureOfBytes(ReadWhole(path));
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number, QDir::toNativeSeparators(path), error.description, AdviceOn(error));
    }
}

bool CopyToClipboard(const cDIBSection& picture, ClipboardForm form)
{
    if (form == ClipboardForm::Dib) {
        MsgBox(u"I don't know how to put a DIB on the clipboard! Copy as bitmap instead!!!"_s);
        return false;
    }
    if (picture.hDib() == 0 || !qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return false;
    QGuiApplication::clipboard()->setImage(ImageOf(picture));
    return true;
}

FileReader DiskReader()
{
    return [](const std::string& fileName) -> FileContent {
        const QString path = QString::fromStdString(fileName);
        if (!FileExists(path))
            return {};
        try {
            const QByteArray bytes = ReadWhole(path);
            return {FileOutcome::Done, {bytes.begin(), bytes.end()}, {}};
        } catch (const RuntimeError& error) {
            // An existing file without read permission counts as one that is in use.
            const bool isLocked =
                error.number == static_cast<int>(ErrorNumber::PermissionDenied) ||
                (error.number == static_cast<int>(ErrorNumber::PathFileAccess) && QFileInfo(path).isFile());
            return {isLocked ? FileOutcome::Locked : FileOutcome::NotOpened, {}, error.description.toStdString()};
        }
    };
}

FileWriter DiskWriter()
{
    return [](const std::string& fileName, std::span<const ByteView> pieces) -> WriteResult {
        ReplaceFile(QString::fromStdString(fileName), FilePieces(QtViewsOf(pieces)), Durability::Unsynced);
        return {};
    };
}

NoticeSink NoticeBoxes()
{
    return [](const std::string& text, NoticeIcon icon) {
        MsgBox(QString::fromStdString(text), icon == NoticeIcon::Stop ? BoxIcon::Critical : BoxIcon::Information);
    };
}

} // namespace ob
