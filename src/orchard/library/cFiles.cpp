// SPDX-License-Identifier: GPL-3.0-or-later
// The table of open files, and files and folders by name.
#include "orchard/library/cFiles.h"

#include <algorithm>
#include <chrono>
#include <exception>

#include "orchard/library/modFileNames.h"
#include "orchard/library/modTexts.h"

namespace ob::basic {

namespace {

namespace fs = std::filesystem;

LocalTime ChangeTime(const fs::directory_entry& entry)
{
    std::error_code error;
    const fs::file_time_type changed = entry.last_write_time(error);
    if (error)
        return {};
    const auto moment = std::chrono::file_clock::to_sys(changed);
    return LocalTimeOf(std::chrono::duration_cast<std::chrono::seconds>(moment.time_since_epoch()).count());
}

FolderEntry EntryOf(const fs::directory_entry& entry, std::string name)
{
    std::error_code error;
    const bool isFile = entry.is_regular_file(error);
    const std::uintmax_t size = isFile ? entry.file_size(error) : 0;
    const LocalTime changed = ChangeTime(entry);
    return {std::move(name), std::to_string(error ? 0 : size), DateText(changed), TimeText(changed)};
}

void SortByName(std::vector<FolderEntry>& entries)
{
    std::sort(entries.begin(), entries.end(), [](const FolderEntry& left, const FolderEntry& right) {
        const int order = CompareIgnoringCase(left.name, right.name);
        return order != 0 ? order < 0 : left.name < right.name;
    });
}

// The path of a file that is there and no folder.
fs::path PathOfFile(std::string_view name)
{
    const fs::path path = PathOfName(name);
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (!fs::exists(status))
        FailOpening(error ? error : std::make_error_code(std::errc::no_such_file_or_directory), path, name);
    if (fs::is_directory(status))
        Fail(ErrorNumber::IsFolder, name);
    return path;
}

// The number of the error of a call that reports it in its last argument; 0 for none.
template <typename Call>
int NumberOfCall(std::string_view name, Call call)
{
    try {
        std::error_code error;
        call(PathOfName(name), error);
        return error ? static_cast<int>(NumberOfError(error)) : 0;
    } catch (const cProgramError& error) {
        return static_cast<int>(error.Number());
    }
}

} // namespace

ErrorNumber NumberOfError(std::error_code error)
{
    static const std::pair<std::errc, ErrorNumber> numbers[] = {
        {std::errc::no_such_file_or_directory, ErrorNumber::FileNotFound},
        {std::errc::not_a_directory, ErrorNumber::FolderExpected},
        {std::errc::is_a_directory, ErrorNumber::IsFolder},
        {std::errc::permission_denied, ErrorNumber::PermissionDenied},
        {std::errc::operation_not_permitted, ErrorNumber::PermissionDenied},
        {std::errc::read_only_file_system, ErrorNumber::PermissionDenied},
        {std::errc::bad_file_descriptor, ErrorNumber::PermissionDenied},
        {std::errc::no_space_on_device, ErrorNumber::DiskFull},
        {std::errc::file_too_large, ErrorNumber::DiskFull},
        {std::errc::file_exists, ErrorNumber::FileExists},
        {std::errc::filename_too_long, ErrorNumber::WrongFileName},
        {std::errc::invalid_argument, ErrorNumber::WrongFileName},
        {std::errc::too_many_symbolic_link_levels, ErrorNumber::WrongFileName},
        {std::errc::too_many_files_open, ErrorNumber::TooManyFiles},
        {std::errc::too_many_files_open_in_system, ErrorNumber::TooManyFiles},
        {std::errc::device_or_resource_busy, ErrorNumber::InUse},
        {std::errc::text_file_busy, ErrorNumber::InUse},
        {std::errc::directory_not_empty, ErrorNumber::FolderNotEmpty},
        {std::errc::not_enough_memory, ErrorNumber::OutOfMemory},
    };
    for (const auto& [condition, number] : numbers)
        if (error == condition)
            return number;
    return ErrorNumber::DeviceFailed;
}

void FailOpening(std::error_code error, const fs::path& path, std::string_view name)
{
    std::error_code trouble;
    const bool isMissing = error == std::errc::no_such_file_or_directory;
    if (isMissing && path.has_parent_path() && !fs::is_directory(path.parent_path(), trouble))
        Fail(ErrorNumber::FolderNotFound, name);
    Fail(NumberOfError(error), name);
}

cFiles::~cFiles()
{
    try {
        CloseAll();
    } catch (const std::exception&) {
        // The program has ended; nobody is left to handle it.
    }
}

cFile& cFiles::Open(std::string_view name, FileMode mode, double recordLength)
{
    FlushAll();
    files.push_back(std::make_unique<cFile>(*this, name, mode, recordLength));
    return *files.back();
}

void cFiles::Close(cFile& file)
{
    const auto place =
        std::find_if(files.begin(), files.end(), [&file](const auto& one) { return one.get() == &file; });
    const std::unique_ptr<cFile> closing = std::move(*place);
    files.erase(place);
    closing->Close();
}

void cFiles::CloseAll()
{
    std::exception_ptr trouble;
    while (!files.empty()) {
        try {
            Close(*files.back());
        } catch (const cProgramError&) {
            if (!trouble)
                trouble = std::current_exception();
        }
    }
    if (trouble)
        std::rethrow_exception(trouble);
}

void cFiles::FlushAll()
{
    for (cFile* file : open)
        file->Flush();
}

// Handles of one file write at once and read anew, so that each sees what another wrote.
void cFiles::Opened(cFile& file)
{
    for (cFile* other : open) {
        if (!(other->identity == file.identity))
            continue;
        for (cFile* one : {other, &file}) {
            one->isShared = true;
            one->SetPromptness(cFile::Promptness::AtOnce);
        }
        other->DropRead();
    }
    open.push_back(&file);
}

void cFiles::Closed(cFile& file)
{
    std::erase(open, &file);
}

void cFiles::Changed(const cFile& file)
{
    for (cFile* other : open)
        if (other != &file && other->identity == file.identity)
            other->DropRead();
}

FolderEntries cFiles::List(std::string_view folder, std::string_view pattern)
{
    FlushAll();
    const fs::path path = folder.empty() ? fs::path(".") : PathOfName(folder);
    std::error_code error;
    FolderEntries found;
    fs::directory_iterator entry(path, error);
    if (error == std::errc::no_such_file_or_directory)
        Fail(ErrorNumber::FolderNotFound, folder);
    for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::string name = NameOfPath(entry->path().filename());
        std::error_code trouble;
        if (FitsPattern(name, pattern))
            (entry->is_directory(trouble) ? found.folders : found.files).push_back(EntryOf(*entry, std::move(name)));
    }
    if (error)
        Fail(NumberOfError(error), folder);
    SortByName(found.files);
    SortByName(found.folders);
    return found;
}

void cFiles::Rename(std::string_view from, std::string_view to)
{
    FlushAll();
    const fs::path source = PathOfFile(from);
    fs::path target = PathOfName(to);
    std::error_code error;
    const bool isOther = fs::exists(fs::symlink_status(target, error)) && !fs::equivalent(source, target, error);
    if (isOther)
        Fail(ErrorNumber::FileExists, to);
    if (fs::equivalent(source, target, error))
        target.replace_filename(LastPart(to));
    fs::rename(source, target, error);
    if (error)
        FailOpening(error, target, to);
}

void cFiles::Kill(std::string_view name)
{
    FlushAll();
    std::error_code error;
    fs::remove(PathOfFile(name), error);
    if (error)
        Fail(NumberOfError(error), name);
}

int cFiles::MakeFolder(std::string_view name)
{
    return NumberOfCall(name, [](const fs::path& path, std::error_code& error) {
        if (!fs::create_directory(path, error) && !error)
            error = std::make_error_code(std::errc::file_exists);
    });
}

int cFiles::RemoveFolder(std::string_view name)
{
    FlushAll();
    return NumberOfCall(name, [](const fs::path& path, std::error_code& error) {
        const fs::file_status status = fs::symlink_status(path, error);
        if (fs::exists(status) && !fs::is_directory(status))
            error = std::make_error_code(std::errc::not_a_directory);
        else if (!error && !fs::remove(path, error) && !error)
            error = std::make_error_code(std::errc::no_such_file_or_directory);
    });
}

std::string cFiles::CurrentFolder() const
{
    std::error_code error;
    std::string name = NameOfPath(fs::current_path(error));
    while (!name.empty() && (name.back() == '/' || name.back() == '\\'))
        name.pop_back();
    return name;
}

} // namespace ob::basic
