// SPDX-License-Identifier: GPL-3.0-or-later
// The archive library, supplied file by file.
#include "engine/package/modZip.h"

#include "engine/package/modZipFiles.h"
#include "platform/files/cTemporaryFolder.h"
#include "platform/files/modFiles.h"
#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"

#include <QDateTime>
#include <QFileInfo>

#include <zip.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <deque>
#include <fstream>
#include <limits>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

namespace fs = std::filesystem;

static_assert(ZipNoFiles == ZIP_ER_NOENT && ZipTwoOfOneName == ZIP_ER_EXISTS && ZipCannotOpen == ZIP_ER_OPEN &&
              ZipStopped == ZIP_ER_CANCELLED);

// The default level of zip programs.
constexpr zip_uint32_t usualLevel = 6;

QString SystemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

std::time_t ModifiedTime(const fs::path& path)
{
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    if (error)
        return 0;
    using namespace std::chrono;
    return system_clock::to_time_t(floor<seconds>(file_clock::to_sys(time)));
}

// The time of an entry: the format has no years before 1980 or after 2107.
std::time_t EntryTime(const fs::path& path)
{
    static const auto timeOf = [](int year, int month, int day) {
        return static_cast<std::time_t>(QDateTime(QDate(year, month, day), QTime(0, 0)).toSecsSinceEpoch());
    };
    static const std::time_t first = timeOf(1980, 1, 1);
    static const std::time_t last = timeOf(2107, 12, 31);
    return std::clamp(ModifiedTime(path), first, last);
}

// --- What the library reads. ----------------------------------------------------------------------------------------

// State shared by all files of one archive.
struct Feed {
    const ZipWatch& watch;
    ZipProgress progress;
    QString failure; // of the first file that could not be read
};

// One file as the library reads it. The library calls it while it writes the archive.
class FileFeed {
public:
    FileFeed(const ZipEntry& fileEntry, Feed& sharedFeed) : entry(fileEntry), feed(sharedFeed)
    {
        zip_error_init(&error);
    }
    FileFeed(const FileFeed&) = delete;
    FileFeed& operator=(const FileFeed&) = delete;
    ~FileFeed() { zip_error_fini(&error); }

    static zip_int64_t Call(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command)
    {
        return static_cast<FileFeed*>(self)->Answer(data, length, command);
    }

private:
    zip_int64_t Answer(void* data, zip_uint64_t length, zip_source_cmd_t command)
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
            return Open();
        case ZIP_SOURCE_READ:
            return Read(static_cast<char*>(data), static_cast<std::streamsize>(length));
        case ZIP_SOURCE_CLOSE:
            file.close();
            return 0;
        case ZIP_SOURCE_STAT:
            return Stat(*static_cast<zip_stat_t*>(data));
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&error, data, length);
        case ZIP_SOURCE_FREE:
            return 0;
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                                  ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, -1);
        default:
            zip_error_set(&error, ZIP_ER_OPNOTSUPP, 0);
            return -1;
        }
    }

    zip_int64_t Fail(int code, int systemError)
    {
        zip_error_set(&error, code, systemError);
        if (feed.failure.isEmpty() && code != ZIP_ER_CANCELLED)
            feed.failure = QString::fromUtf8(entry.name) + u" cannot be read: "_s +
                           SystemText(systemError == 0 ? EIO : systemError);
        return -1;
    }

    zip_int64_t Open()
    {
        errno = 0;
        if (file.open(entry.path, std::ios::in | std::ios::binary) == nullptr)
            return Fail(ZIP_ER_OPEN, errno);
        feed.progress.name = QString::fromUtf8(entry.name);
        return Watch();
    }

    zip_int64_t Read(char* data, std::streamsize length)
    {
        std::streamsize count = 0;
        try {
            errno = 0;
            count = file.sgetn(data, length);
        } catch (const std::ios_base::failure&) {
            return Fail(ZIP_ER_READ, errno);
        }
        feed.progress.done += static_cast<std::uint64_t>(count);
        return Watch() < 0 ? -1 : count;
    }

    zip_int64_t Watch()
    {
        if (feed.watch && feed.watch(feed.progress) == ZipRequest::Stop)
            return Fail(ZIP_ER_CANCELLED, 0);
        return 0;
    }

    zip_int64_t Stat(zip_stat_t& status)
    {
        zip_stat_init(&status);
        status.size = entry.size;
        status.mtime = EntryTime(entry.path);
        status.valid = ZIP_STAT_SIZE | ZIP_STAT_MTIME;
        return sizeof status;
    }

    const ZipEntry& entry;
    Feed& feed;
    std::filebuf file;
    zip_error_t error = {};
};

// Whether compression is pointless, judged by samples from all over the file: pictures, sounds and archives are
// compressed already, and trying again takes ten times as long as storing them. A small file is sampled whole.
bool IsPackedAlready(const ZipEntry& entry)
{
    if (entry.size == 0)
        return true;
    constexpr std::uintmax_t maximumSamples = 16;
    const std::uintmax_t size = std::min<std::uintmax_t>(entry.size, 16 * 1024);
    const std::uintmax_t count = std::min((entry.size + size - 1) / size, maximumSamples);
    std::filebuf file;
    if (file.open(entry.path, std::ios::in | std::ios::binary) == nullptr)
        return false;
    QByteArray sample(static_cast<qsizetype>(size), Qt::Uninitialized);
    try {
        for (std::uintmax_t number = 0; number < count; ++number) {
            const std::uintmax_t place =
                number + 1 == count ? entry.size - size : (entry.size - size) / (count - 1) * number;
            if (file.pubseekpos(static_cast<std::streamoff>(place), std::ios::in) == std::streampos(-1) ||
                file.sgetn(sample.data(), sample.size()) != sample.size())
                return false;
            // The fast level finds nearly everything that the default one finds.
            constexpr int fastLevel = 1;
            constexpr qsizetype frame = 10; // which an entry of an archive does not have
            if (qCompress(sample, fastLevel).size() - frame < sample.size() - sample.size() / 100)
                return false;
        }
    } catch (const std::ios_base::failure&) {
        return false;
    }
    return true;
}

// --- The archive. ---------------------------------------------------------------------------------------------------

struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Archive = std::unique_ptr<zip_t, Discard>;

ZipAnswer Failure(int code, const QString& message)
{
    return {code, message, {}};
}

ZipAnswer FailureOf(zip_error_t* error)
{
    return Failure(zip_error_code_zip(error), QString::fromLocal8Bit(zip_error_strerror(error)));
}

ZipAnswer FailureOf(const Archive& archive)
{
    return FailureOf(zip_get_error(archive.get()));
}

// The exact time, in addition to the time in steps of two seconds that every entry has.
void SetExactTime(zip_t* archive, zip_uint64_t place, std::time_t time)
{
    constexpr zip_uint16_t timestampField = 0x5455;
    constexpr zip_uint8_t hasModified = 1;
    // The field is a signed 32-bit number.
    if (time < 0 || time > std::numeric_limits<std::int32_t>::max())
        return;
    const auto part = [&](int shift) { return static_cast<zip_uint8_t>(time >> shift); };
    const zip_uint8_t field[] = {hasModified, part(0), part(8), part(16), part(24)};
    zip_file_extra_field_set(archive, place, timestampField, ZIP_EXTRA_FIELD_NEW, field, sizeof field,
                             ZIP_FL_LOCAL | ZIP_FL_CENTRAL);
}

// The DOS attributes in the low byte, and the permissions where systems that have them expect them.
zip_uint32_t AttributesOf(const ZipEntry& entry)
{
    constexpr zip_uint32_t dosReadOnly = 0x01;
    constexpr zip_uint32_t dosHidden = 0x02;
    constexpr zip_uint32_t dosArchive = 0x20;
    constexpr zip_uint32_t regularFile = 0100000;
    std::error_code error;
    const fs::perms permissions = fs::status(entry.path, error).permissions();
    const zip_uint32_t mode = error ? 0644 : static_cast<zip_uint32_t>(permissions & fs::perms::mask);
    const bool isReadOnly = (mode & static_cast<zip_uint32_t>(fs::perms::owner_write)) == 0;
    const bool isHidden = entry.name.startsWith('.');
    return (regularFile | mode) << 16 | dosArchive | (isReadOnly ? dosReadOnly : 0) | (isHidden ? dosHidden : 0);
}

// Whether the archive already contains the file in a version that is not older.
bool IsUpToDate(zip_t* archive, const ZipEntry& entry)
{
    zip_stat_t status = {};
    if (zip_stat(archive, entry.name.constData(), ZIP_FL_NOCASE | ZIP_FL_ENC_UTF_8, &status) != 0)
        return false;
    // The archive's times have steps of two seconds.
    return (status.valid & ZIP_STAT_MTIME) != 0 && EntryTime(entry.path) <= status.mtime + 1;
}

enum class Adding { Done, Failed };

Adding Add(zip_t* archive, const ZipEntry& entry, FileFeed& feed, const ZipOptions& options)
{
    if (options.updatingZip) {
        if (IsUpToDate(archive, entry))
            return Adding::Done;
        const zip_int64_t old = zip_name_locate(archive, entry.name.constData(), ZIP_FL_NOCASE | ZIP_FL_ENC_UTF_8);
        if (old >= 0 && zip_delete(archive, static_cast<zip_uint64_t>(old)) != 0)
            return Adding::Failed;
    }
    zip_source_t* source = zip_source_function(archive, FileFeed::Call, &feed);
    if (source == nullptr)
        return Adding::Failed;
    const zip_int64_t added = zip_file_add(archive, entry.name.constData(), source, ZIP_FL_ENC_UTF_8);
    if (added < 0) {
        zip_source_free(source);
        return Adding::Failed;
    }
    const auto place = static_cast<zip_uint64_t>(added);
    // When the library chooses the method itself, it ignores the level.
    const zip_int32_t method = IsPackedAlready(entry) ? ZIP_CM_STORE : ZIP_CM_DEFLATE;
    const bool isSet = zip_set_file_compression(archive, place, method, usualLevel) == 0 &&
                       zip_file_set_external_attributes(archive, place, 0, ZIP_OPSYS_UNIX, AttributesOf(entry)) == 0;
    SetExactTime(archive, place, ModifiedTime(entry.path));
    return isSet ? Adding::Done : Adding::Failed;
}

// The archive's path must lead to nothing or to a file that may be replaced.
QString ObstacleAt(const QString& archive)
{
    const QFileInfo info(archive);
    if (!info.exists())
        return {};
    if (!info.isFile())
        return u"%1 is no file"_s.arg(archive);
    return info.isWritable() ? QString() : u"%1 is write-protected"_s.arg(archive);
}

ZipAnswer Write(const QString& path, const std::vector<ZipEntry>& entries, const ZipOptions& options,
                const ZipWatch& watch)
{
    Feed feed{watch, {}, {}};
    std::deque<FileFeed> files; // referenced by the archive, so they must outlive it
    int code = 0;
    Archive archive(zip_open(path.toUtf8().constData(), ZIP_CREATE | (options.updatingZip ? 0 : ZIP_TRUNCATE), &code));
    if (!archive) {
        const int systemError = errno;
        zip_error_t error = {};
        zip_error_init_with_code(&error, code);
        error.sys_err = systemError;
        const ZipAnswer answer = FailureOf(&error);
        zip_error_fini(&error);
        return answer;
    }
    for (const ZipEntry& entry : entries)
        feed.progress.all += entry.size;
    for (const ZipEntry& entry : entries)
        if (Add(archive.get(), entry, files.emplace_back(entry, feed), options) == Adding::Failed)
            return FailureOf(archive);
    if (zip_close(archive.get()) == 0) {
        (void)archive.release(); // freed by its closing
        return {};
    }
    ZipAnswer answer = FailureOf(archive);
    if (answer.code != ZipStopped && !feed.failure.isEmpty())
        answer.message = feed.failure;
    return answer;
}

// Written in a folder of its own beside the archive, of which a kill leaves nothing that the next save does not remove.
ZipAnswer WriteBeside(const QString& path, const std::vector<ZipEntry>& entries, const ZipOptions& options,
                      const ZipWatch& watch)
{
    const fs::path archive = NativePath(path);
    std::optional<cTemporaryFolder> folder;
    try {
        folder.emplace(archive, path);
    } catch (const RuntimeError&) {
        // The library's own words for a folder that takes no file.
        return Write(path, entries, options, watch);
    }
    const fs::path made = folder->Path() / archive.filename();
    std::error_code error;
    if (fs::exists(archive, error))
        fs::create_hard_link(archive, made, error);
    if (error)
        fs::copy_file(archive, made, error);
    if (error)
        return Write(path, entries, options, watch);
    const ZipAnswer answer = Write(TextOfPath(made), entries, options, watch);
    if (answer.code == 0)
        error = RenameOver(made, archive);
    return error ? Failure(ZipCannotOpen, QString::fromLocal8Bit(error.message())) : answer;
}

} // namespace

QString ZipNameOf(const QString& archive)
{
    return NameOf(archive).contains(u'.') ? archive : archive + u".zip"_s;
}

ZipAnswer MakeZip(const QString& archive, const QStringList& specs, const ZipOptions& options, const ZipWatch& watch)
{
    QString path = PathFromRoot(ZipNameOf(archive), options.rootDirectory);
    const QString obstacle = ObstacleAt(path);
    if (!obstacle.isEmpty())
        return Failure(ZipCannotOpen, obstacle);
    // A link remains a link, and its target is replaced.
    if (QFileInfo::exists(path))
        path = QFileInfo(path).canonicalFilePath();
    ZipFileList list =
        FindZipFiles(specs, options.rootDirectory, path, options.recurseFolders ? ZipFolders::Enter : ZipFolders::Skip);
    ZipAnswer answer;
    if (!list.clash.isEmpty())
        answer = Failure(ZipTwoOfOneName, list.clash);
    else if (list.entries.empty())
        answer = Failure(ZipNoFiles, u"No file was found to zip"_s);
    else
        answer = WriteBeside(path, list.entries, options, watch);
    answer.unmatched = std::move(list.unmatched);
    return answer;
}

} // namespace ob
