// SPDX-License-Identifier: GPL-3.0-or-later
// Files written whole, at their start or at their end.
#include "platform/files/modFilePieces.h"

#include "platform/files/cFileReplacement.h"
#include "platform/files/modFileErrors.h"
#include "platform/files/modFiles.h"
#include "platform/files/modNativePath.h"

#include <optional>

namespace ob {

namespace {

namespace fs = std::filesystem;

std::span<const std::uint8_t> BytesOf(QByteArrayView bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())};
}

qint64 SizeOf(FilePieces pieces)
{
    qint64 size = 0;
    for (const QByteArrayView piece : pieces)
        size += piece.size();
    return size;
}

std::error_code WriteAll(cSystemFile& file, FilePieces pieces)
{
    for (const QByteArrayView piece : pieces)
        if (const std::error_code error = file.Write(BytesOf(piece)))
            return error;
    return {};
}

// Devices and pipes have nothing to sync.
std::error_code SyncIfAsked(cSystemFile& file, Durability durability)
{
    return durability == Durability::Synced && file.Size() >= 0 ? SyncBytes(file) : std::error_code();
}

// A file opened without emptying it. What had to be made has its path here, so that it can be removed again.
struct FileInPlace {
    cSystemFile file;
    std::optional<fs::path> madePath;
};

FileInPlace OpenOrMake(const QString& path, Opening opening)
{
    RequireWholeName(path);
    const fs::path given = NativePath(path);
    FileInPlace opened;
    std::error_code error = opened.file.Open(given, opening);
    if (!error)
        return opened;
    if (TroubleOf(error) != FileTrouble::Missing)
        RaiseFileError(error, path);
    opened.madePath = LinkTarget(given, path);
    error = opened.file.Open(*opened.madePath, Opening::New);
    if (error)
        RaiseCreationError(error, *opened.madePath, path);
    return opened;
}

// Writes into a file that stays the same file; an error gives it back its old length, or removes it if it is new.
void WriteIntoFile(const QString& path, Opening opening, FilePieces pieces, Durability durability)
{
    auto [file, madePath] = OpenOrMake(path, opening);
    const std::int64_t oldSize = file.Size();
    std::error_code error = WriteAll(file, pieces);
    if (!error)
        error = SyncIfAsked(file, durability);
    if (error && oldSize >= 0)
        (void)file.Resize(oldSize);
    const std::error_code closing = file.Close();
    if (error && madePath) {
        std::error_code ignored;
        fs::remove(*madePath, ignored);
    }
    if (error || closing)
        RaiseFileError(error ? error : closing, path);
}

// For a folder that takes no new file: the old bytes are kept and put back after an error.
void ReplaceInPlace(const fs::path& target, FilePieces pieces, Durability durability, const QString& path)
{
    const QByteArray old = ReadWhole(path);
    cSystemFile file;
    if (const std::error_code error = file.Open(target, Opening::InPlace))
        RaiseFileError(error, path);
    std::error_code error = WriteAll(file, pieces);
    if (!error)
        error = file.Resize(SizeOf(pieces));
    if (!error)
        error = SyncIfAsked(file, durability);
    if (error) {
        // The first error is the one that helps the user.
        (void)file.WriteAt(0, BytesOf(old));
        (void)file.Resize(old.size());
    }
    const std::error_code closing = file.Close();
    if (error || closing)
        RaiseFileError(error ? error : closing, path);
}

void ReplaceByRename(FilePieces pieces, Durability durability, const QString& path)
{
    cFileReplacement file(path, durability);
    for (const QByteArrayView piece : pieces)
        file.Write(BytesOf(piece));
    file.Finish();
}

} // namespace

void ReplaceFile(const QString& path, QByteArrayView bytes, Durability durability)
{
    ReplaceFile(path, FilePieces(&bytes, 1), durability);
}

void ReplaceFile(const QString& path, FilePieces pieces, Durability durability)
{
    RequireWholeName(path);
    std::error_code ignored;
    const fs::file_status status = fs::status(NativePath(path), ignored);
    if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status)) {
        WriteIntoFile(path, Opening::InPlace, pieces, durability);
        return;
    }
    const fs::path target = LinkTarget(NativePath(path), path);
    if (!fs::is_regular_file(status) || !WriteTrouble(FolderOfNative(target))) {
        ReplaceByRename(pieces, durability, path);
        return;
    }
    RequireWritable(target, path);
    ReplaceInPlace(target, pieces, durability, path);
}

void AppendToFile(const QString& path, QByteArrayView bytes, Durability durability)
{
    const QByteArrayView pieces[] = {bytes, QByteArrayView("\r\n")};
    WriteIntoFile(path, Opening::Append, pieces, durability);
}

void WriteKeepingTail(const QString& path, QByteArrayView bytes, Durability durability)
{
    WriteKeepingTail(path, FilePieces(&bytes, 1), durability);
}

void WriteKeepingTail(const QString& path, FilePieces pieces, Durability durability)
{
    WriteIntoFile(path, Opening::InPlace, pieces, durability);
}

} // namespace ob
