// SPDX-License-Identifier: GPL-3.0-or-later
// Lookup of file patterns on disk.
#include "engine/package/modZipFiles.h"

#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/language/modAnsi.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <system_error>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

namespace fs = std::filesystem;

fs::path NativePath(const QString& path)
{
    return QFileInfo(path).filesystemFilePath();
}

// A name on disk need not be valid UTF-8; such a name is read as ANSI.
QString TextOfName(const fs::path& name)
{
    const std::u8string bytes = name.u8string();
    const QByteArrayView view(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    return view.isValidUtf8() ? QString::fromUtf8(view) : TextFromAnsi(view);
}

bool IsRegular(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

// Links to folders are excluded: following them might never end.
bool IsFolder(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_directory(fs::symlink_status(path, ignored));
}

struct Found {
    fs::path path;
    QString name;
};

// The contents of a folder, by name, case-insensitively. Empty for a folder that cannot be read.
std::vector<Found> EntriesOf(const fs::path& folder)
{
    std::vector<std::pair<QString, Found>> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        QString name = TextOfName(entry->path().filename());
        QString folded = name.toCaseFolded();
        entries.emplace_back(std::move(folded), Found{entry->path(), std::move(name)});
    }
    std::sort(entries.begin(), entries.end(), [](const auto& left, const auto& right) {
        return std::tie(left.first, left.second.name) < std::tie(right.first, right.second.name);
    });
    std::vector<Found> sorted;
    for (auto& entry : entries)
        sorted.push_back(std::move(entry.second));
    return sorted;
}

void AddBelow(const fs::path& folder, std::vector<Found>& files)
{
    for (Found& entry : EntriesOf(folder)) {
        if (IsRegular(entry.path))
            files.push_back(std::move(entry));
        else if (IsFolder(entry.path))
            AddBelow(entry.path, files);
    }
}

void AddFitting(const Found& entry, ZipFolders folders, std::vector<Found>& files)
{
    if (IsRegular(entry.path))
        files.push_back(entry);
    else if (folders == ZipFolders::Enter && IsFolder(entry.path))
        AddBelow(entry.path, files);
}

// The path as spelled on disk, looked up case-insensitively; unchanged when it does not exist.
QString OnDisk(const QString& path)
{
    if (path.isEmpty() || QFileInfo::exists(path))
        return path;
    const QString start = QDir::isRelativePath(path) ? QString() : QDir::rootPath();
    const std::optional<QString> found = FindIgnoringCase(start, path.sliced(start.size()));
    return found ? start + *found : path;
}

std::vector<Found> FilesOf(const QString& spec, ZipFolders folders)
{
    std::vector<Found> files;
    const QString pattern = NameOf(spec);
    if (!pattern.contains(u'*') && !pattern.contains(u'?')) {
        const fs::path path = NativePath(OnDisk(spec));
        AddFitting({path, TextOfName(path.filename())}, folders, files);
        return files;
    }
    const QRegularExpression wanted = NamePattern({pattern});
    const QString folder = OnDisk(FolderOf(spec));
    for (const Found& entry : EntriesOf(folder.isEmpty() ? fs::path(".") : NativePath(folder)))
        if (Fits(entry.name, wanted))
            AddFitting(entry, folders, files);
    return files;
}

// The same name for a file however it was reached; empty when there is no such file.
fs::path TruePath(const fs::path& path)
{
    std::error_code error;
    fs::path truePath = fs::canonical(path, error);
    return error ? fs::path() : truePath;
}

QString ClashText(const QString& name, const fs::path& first, const fs::path& second)
{
    return u"Two files are named %1: %2 and %3"_s.arg(name, TextOfName(first), TextOfName(second));
}

// Where the archive is unpacked, a backslash may mean a folder.
QByteArray NameInArchive(QString name)
{
    return name.replace(u'\\', u'_').toUtf8();
}

class Collector {
public:
    explicit Collector(fs::path archive) : archivePath(std::move(archive)) {}

    enum class Match { No, Yes };

    Match Add(const Found& file)
    {
        const fs::path truePath = TruePath(file.path);
        if (!archivePath.empty() && truePath == archivePath)
            return Match::No;
        const auto known = places.constFind(file.name.toCaseFolded());
        if (known != places.constEnd()) {
            const fs::path& other = list.entries[*known].path;
            if (TruePath(other) != truePath && list.clash.isEmpty())
                list.clash = ClashText(file.name, other, file.path);
            return Match::Yes;
        }
        std::error_code ignored;
        const std::uintmax_t size = fs::file_size(file.path, ignored);
        places.insert(file.name.toCaseFolded(), list.entries.size());
        list.entries.push_back({file.path, NameInArchive(file.name), ignored ? 0 : size});
        return Match::Yes;
    }

    ZipFileList list;

private:
    fs::path archivePath;
    QHash<QString, std::size_t> places; // of the entries, by their names in lower case
};

std::vector<Found> FilesFromRoot(QString spec, const QString& root, ZipFolders folders)
{
    std::vector<Found> files = FilesOf(PathFromRoot(spec, root), folders);
    // It may be written with the separators of the other system.
    if (files.empty() && spec.contains(u'\\'))
        files = FilesOf(PathFromRoot(spec.replace(u'\\', u'/'), root), folders);
    return files;
}

} // namespace

QString PathFromRoot(const QString& path, const QString& root)
{
    if (root == QLatin1String("\\"))
        return QDir::root().absoluteFilePath(path);
    return root.isEmpty() || QDir::isAbsolutePath(path) ? path : QDir(root).filePath(path);
}

ZipFileList FindZipFiles(const QStringList& specs, const QString& root, const QString& archive, ZipFolders folders)
{
    Collector collector(TruePath(NativePath(archive)));
    for (const QString& spec : specs) {
        bool isMatched = false;
        for (const Found& file : FilesFromRoot(spec, root, folders))
            isMatched |= collector.Add(file) == Collector::Match::Yes;
        if (!isMatched)
            collector.list.unmatched.append(spec);
    }
    return std::move(collector.list);
}

} // namespace ob
