// SPDX-License-Identifier: GPL-3.0-or-later
// File work on descriptors, because only the system's error number tells a full disk from a closed door.
#include "platform/files/modFiles.h"

#include "platform/files/modFilePieces.h"

#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ob {

namespace {

namespace fs = std::filesystem;

enum class Opening { InPlace, New, Append };

// --- What the systems call differently. -----------------------------------------------------------------------------

#ifdef Q_OS_WIN
int OpenNative(const fs::path& path, Opening opening)
{
    int flags = _O_WRONLY | _O_BINARY | _O_NOINHERIT;
    if (opening == Opening::New)
        flags |= _O_CREAT | _O_EXCL;
    else if (opening == Opening::Append)
        flags |= _O_APPEND;
    return _wopen(path.c_str(), flags, _S_IREAD | _S_IWRITE);
}

qint64 WriteNative(int descriptor, const char* bytes, qsizetype length)
{
    return _write(descriptor, bytes, static_cast<unsigned>(std::min<qsizetype>(length, 1 << 30)));
}

qint64 SizeNative(int descriptor)
{
    return _filelengthi64(descriptor);
}

void TruncateNative(int descriptor, qint64 size)
{
    (void)_chsize_s(descriptor, size);
}

int CloseNative(int descriptor)
{
    return _close(descriptor);
}

bool MayWrite(const fs::path& path)
{
    return _waccess(path.c_str(), 2) == 0;
}

void TakeOver(int, const fs::path&) {}
#else
int OpenNative(const fs::path& path, Opening opening)
{
    int flags = O_WRONLY | O_CLOEXEC | O_NOCTTY;
    if (opening == Opening::New)
        flags |= O_CREAT | O_EXCL;
    else if (opening == Opening::Append)
        flags |= O_APPEND;
    // A pipe that nobody reads must give an error; waiting for a reader would stop the program for good.
    const int descriptor = ::open(path.c_str(), flags | O_NONBLOCK, 0666);
    if (descriptor >= 0)
        ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}

qint64 WriteNative(int descriptor, const char* bytes, qsizetype length)
{
    return ::write(descriptor, bytes, static_cast<std::size_t>(length));
}

// -1 for what is no regular file and so has no length to go back to.
qint64 SizeNative(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

void TruncateNative(int descriptor, qint64 size)
{
    (void)!::ftruncate(descriptor, size);
}

int CloseNative(int descriptor)
{
    return ::close(descriptor);
}

bool MayWrite(const fs::path& path)
{
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

// Gives the new file the old one's owner, as far as that is allowed, and its permissions.
void TakeOver(int descriptor, const fs::path& old)
{
    struct stat status = {};
    if (::stat(old.c_str(), &status) != 0)
        return;
    (void)!::fchown(descriptor, status.st_uid, status.st_gid);
    (void)::fchmod(descriptor, status.st_mode & 07777);
}
#endif

// --- The rest is the same everywhere. -------------------------------------------------------------------------------

[[noreturn]] void Raise(ErrorNumber number, const QString& path)
{
    throw RuntimeErrorOf(number, QDir::toNativeSeparators(path));
}

ErrorNumber NumberOfSystemError(int error)
{
    switch (error) {
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return ErrorNumber::DiskFull;
    case ENOENT:
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENAMETOOLONG:
    case ELOOP:
    case EINVAL:
        return ErrorNumber::PathFileAccess;
    case EBUSY:
    case ETXTBSY:
        return ErrorNumber::PermissionDenied;
    default:
        return ErrorNumber::DeviceIoError;
    }
}

// An open file; closes itself. Errors are raised in the name of the path that the caller gave.
class OpenFile {
public:
    OpenFile(int openDescriptor, QString callersPath) : descriptor(openDescriptor), path(std::move(callersPath)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { Drop(); }

    int Descriptor() const { return descriptor; }

    void Write(QByteArrayView bytes)
    {
        while (!bytes.isEmpty()) {
            const qint64 written = WriteNative(descriptor, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                Raise(written < 0 ? NumberOfSystemError(errno) : ErrorNumber::DiskFull, path);
            bytes = bytes.sliced(written);
        }
    }

    // Closes the file without asking whether all of it arrived.
    void Drop()
    {
        if (descriptor >= 0)
            CloseNative(std::exchange(descriptor, -1));
    }

    // A disk over the network may tell only now that it is full.
    void Close()
    {
        if (CloseNative(std::exchange(descriptor, -1)) != 0 && errno != EINTR)
            Raise(NumberOfSystemError(errno), path);
    }

private:
    int descriptor;
    QString path;
};

bool IsUsableName(const QString& path)
{
    return !path.isEmpty() && !path.contains(QChar::Null);
}

void RequireUsableName(const QString& path)
{
    if (!IsUsableName(path))
        Raise(ErrorNumber::PathFileAccess, path);
}

// The error of making a file. Folders that the system makes up say that the file is missing, not that they take none.
ErrorNumber NumberOfCreationError(int error, const fs::path& path)
{
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::error_code ignored;
    if (error == ENOENT && fs::is_directory(folder, ignored))
        return ErrorNumber::PathFileAccess;
    return NumberOfSystemError(error);
}

// A file opened without emptying it. What had to be made has its path here, so that it can be removed again.
struct FileInPlace {
    int descriptor = -1;
    std::optional<fs::path> madePath;
};

FileInPlace OpenOrMake(const QString& path, Opening opening)
{
    RequireUsableName(path);
    const fs::path given = NativePath(path);
    int descriptor = OpenNative(given, opening);
    if (descriptor >= 0)
        return {descriptor, std::nullopt};
    if (errno != ENOENT)
        Raise(NumberOfSystemError(errno), path);
    fs::path target = LinkTarget(given, path);
    descriptor = OpenNative(target, Opening::New);
    if (descriptor < 0)
        Raise(NumberOfCreationError(errno, target), path);
    return {descriptor, std::move(target)};
}

// Writes into a file that stays the same file; an error gives it back its old length, or removes it if it is new.
void WriteIntoFile(const QString& path, Opening opening, FilePieces pieces)
{
    const FileInPlace opened = OpenOrMake(path, opening);
    OpenFile file(opened.descriptor, path);
    const qint64 oldSize = SizeNative(opened.descriptor);
    try {
        for (const QByteArrayView piece : pieces)
            file.Write(piece);
    } catch (const RuntimeError&) {
        if (oldSize >= 0)
            TruncateNative(opened.descriptor, oldSize);
        file.Drop();
        if (opened.madePath) {
            std::error_code ignored;
            fs::remove(*opened.madePath, ignored);
        }
        throw;
    }
    file.Close();
}

// A new file in the folder with a name that nobody has; the name is short because the target's may be as long as the
// disk allows.
struct TemporaryFile {
    int descriptor = -1;
    fs::path path;
};

TemporaryFile MakeTemporaryFile(const fs::path& folder, const QString& callersPath)
{
    constexpr int maximumTries = 100;
    for (int count = 0; count < maximumTries; ++count) {
        const quint32 number = QRandomGenerator::global()->generate();
        fs::path path = folder / (".ob-" + std::to_string(number) + ".tmp");
        const int descriptor = OpenNative(path, Opening::New);
        if (descriptor >= 0)
            return {descriptor, std::move(path)};
        if (errno != EEXIST)
            Raise(NumberOfCreationError(errno, path), callersPath);
    }
    Raise(ErrorNumber::PathFileAccess, callersPath);
}

void ReplaceByRename(const fs::path& target, FilePieces pieces, const QString& callersPath)
{
    const TemporaryFile temporary = MakeTemporaryFile(target.parent_path(), callersPath);
    try {
        OpenFile file(temporary.descriptor, callersPath);
        for (const QByteArrayView piece : pieces)
            file.Write(piece);
        TakeOver(file.Descriptor(), target);
        file.Close();
        std::error_code error;
        fs::rename(temporary.path, target, error);
        if (error)
            Raise(NumberOfSystemError(error.default_error_condition().value()), callersPath);
    } catch (const RuntimeError&) {
        std::error_code ignored;
        fs::remove(temporary.path, ignored);
        throw;
    }
}

// For a folder that takes no new file: the old bytes are kept and put back after an error.
void ReplaceInPlace(const fs::path& target, FilePieces pieces, const QString& callersPath)
{
    const QByteArray old = ReadWhole(callersPath);
    const auto put = [&](FilePieces content) {
        WriteIntoFile(callersPath, Opening::InPlace, content);
        std::uintmax_t size = 0;
        for (const QByteArrayView piece : content)
            size += static_cast<std::uintmax_t>(piece.size());
        std::error_code error;
        fs::resize_file(target, size, error);
        if (error)
            Raise(NumberOfSystemError(error.default_error_condition().value()), callersPath);
    };
    try {
        put(pieces);
    } catch (const RuntimeError&) {
        try {
            const QByteArrayView before(old);
            put({&before, 1});
        } catch (const RuntimeError&) {
            // The first error tells the user more.
        }
        throw;
    }
}

std::optional<QString> FindParts(const QString& folder, const QStringList& parts)
{
    const QString& part = parts.first();
    const QStringList rest = parts.sliced(1);
    const QString front = folder + u'/';
    QStringList candidates;
    if (QFileInfo::exists(front + part))
        candidates += part;
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& entry : entries) {
        if (entry != part && entry.compare(part, Qt::CaseInsensitive) == 0)
            candidates += entry;
    }
    if (rest.isEmpty())
        return candidates.isEmpty() ? std::nullopt : std::optional(candidates.first());
    for (const QString& candidate : std::as_const(candidates)) {
        if (const std::optional<QString> found = FindParts(front + candidate, rest))
            return candidate + QDir::separator() + *found;
    }
    return std::nullopt;
}

// A time format with seconds, put behind the minutes with the mark that stands before them.
QString WithSeconds(QString format)
{
    const qsizetype minutes = format.indexOf(QLatin1String("mm"));
    if (minutes < 1 || format.contains(u's'))
        return format;
    const QChar mark = format[minutes - 1];
    return mark.isPunct() && mark != u'\'' ? format.insert(minutes + 2, mark + QLatin1String("ss")) : format;
}

QString WithWholeYear(QString format)
{
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

QFileInfo ExistingFile(const QString& path)
{
    if (!FileExists(path))
        Raise(ErrorNumber::FileNotFound, path);
    return QFileInfo(path);
}

} // namespace

bool FileExists(const QString& path)
{
    if (!IsUsableName(path))
        return false;
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

bool FolderExists(const QString& path)
{
    return IsUsableName(path) && QFileInfo(path).isDir();
}

QByteArray ReadWhole(const QString& path)
{
    if (!IsUsableName(path) || !QFileInfo::exists(path))
        Raise(ErrorNumber::FileNotFound, path);
    // A pipe or an endless device would keep the reader for ever; a folder has no bytes.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        Raise(ErrorNumber::PathFileAccess, path);
    // Files that the system makes up as they are read tell no size, and any file may grow while it is read.
    constexpr qint64 step = 1 << 16;
    QByteArray bytes(std::max(file.size() + 1, step), Qt::Uninitialized);
    qsizetype length = 0;
    for (;;) {
        if (length == bytes.size())
            bytes.resize(bytes.size() * 2);
        const qint64 count = file.read(bytes.data() + length, bytes.size() - length);
        if (file.error() != QFileDevice::NoError)
            Raise(ErrorNumber::DeviceIoError, path);
        if (count <= 0)
            break;
        length += count;
    }
    bytes.resize(length);
    return bytes;
}

void ReplaceFile(const QString& path, QByteArrayView bytes)
{
    ReplaceFile(path, FilePieces(&bytes, 1));
}

void ReplaceFile(const QString& path, FilePieces pieces)
{
    RequireUsableName(path);
    const fs::path given = NativePath(path);
    std::error_code error;
    const fs::file_status status = fs::status(given, error);
    if (fs::is_directory(status))
        Raise(ErrorNumber::PathFileAccess, path);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        WriteIntoFile(path, Opening::InPlace, pieces);
        return;
    }
    const fs::path target = LinkTarget(given, path);
    if (fs::exists(status) && !MayWrite(target))
        Raise(ErrorNumber::PathFileAccess, path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    if (fs::exists(status) && !MayWrite(folder))
        ReplaceInPlace(target, pieces, path);
    else
        ReplaceByRename(target, pieces, path);
}

void AppendToFile(const QString& path, QByteArrayView bytes)
{
    const QByteArrayView pieces[] = {bytes, QByteArrayView("\r\n")};
    WriteIntoFile(path, Opening::Append, pieces);
}

void WriteKeepingTail(const QString& path, QByteArrayView bytes)
{
    WriteKeepingTail(path, FilePieces(&bytes, 1));
}

void WriteKeepingTail(const QString& path, FilePieces pieces)
{
    WriteIntoFile(path, Opening::InPlace, pieces);
}

QString NameOf(const QString& path)
{
    return path.sliced(FolderOf(path).size());
}

QString FolderOf(const QString& path)
{
    qsizetype separator = path.lastIndexOf(u'/');
    if (QDir::separator() == u'\\')
        separator = std::max(separator, path.lastIndexOf(u'\\'));
    return path.first(separator + 1);
}

qint64 SizeOf(const QString& path)
{
    return ExistingFile(path).size();
}

QDateTime ModifiedOf(const QString& path)
{
    return ExistingFile(path).lastModified();
}

QString FileDateText(const QString& path)
{
    return DateText(ModifiedOf(path), QLocale::system());
}

QString ShortDateText(QDate date, const QLocale& locale)
{
    return locale.toString(date, WithWholeYear(locale.dateFormat(QLocale::ShortFormat)));
}

QString DateText(const QDateTime& when, const QLocale& locale)
{
    const QString timeFormat = WithSeconds(locale.timeFormat(QLocale::ShortFormat));
    return ShortDateText(when.date(), locale) + u' ' + locale.toString(when.time(), timeFormat);
}

std::optional<QString> FindIgnoringCase(const QString& folder, const QString& name)
{
    if (!IsUsableName(name) || folder.contains(QChar::Null))
        return std::nullopt;
    QString separated = name;
    separated.replace(u'\\', u'/');
    const QStringList parts = separated.split(u'/', Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return std::nullopt;
    const QString start = folder.isEmpty() ? QStringLiteral(".") : folder;
    if (QFileInfo::exists(start + u'/' + name))
        return QDir::toNativeSeparators(name);
    return FindParts(start, parts);
}

} // namespace ob
