// SPDX-License-Identifier: GPL-3.0-or-later
// A file over the disk.
#include "orchard/library/cFile.h"

#include <algorithm>

#include "orchard/library/cFiles.h"
#include "orchard/library/modFileNames.h"

namespace ob::basic {

namespace {

constexpr std::string_view fileLineEnd = "\r\n";
constexpr std::int64_t longestRecord = std::int64_t{1} << 30;
constexpr std::int64_t lastPlace = std::int64_t{1} << 62;

DiskUse UseOf(FileMode mode)
{
    switch (mode) {
    case FileMode::Input:
        return DiskUse::Read;
    case FileMode::Output:
        return DiskUse::Replace;
    case FileMode::Append:
        return DiskUse::Append;
    case FileMode::Random:
    case FileMode::Binary:
        return DiskUse::Change;
    }
    return DiskUse::Read;
}

std::size_t RecordLength(double length)
{
    const std::int64_t whole = WholePart(length);
    if (whole < 0 || whole > longestRecord)
        Fail(ErrorNumber::WrongRecordLength);
    return static_cast<std::size_t>(whole);
}

} // namespace

cFile::cFile(cFiles& table, std::string_view fileName, FileMode fileMode, double length)
    : cOutput(fileMode == FileMode::Binary ? std::string_view() : fileLineEnd), files(table), name(fileName),
      mode(fileMode), recordLength(RecordLength(length))
{
    const std::filesystem::path path = PathOfName(name);
    if (const std::error_code error = disk.Open(path, UseOf(mode)))
        FailOpening(error, path, name);
    identity = disk.Identity();
    if (mode == FileMode::Append)
        diskPlace = disk.Size();
    files.Opened(*this);
}

cFile::~cFile()
{
    files.Closed(*this);
}

void cFile::Close()
{
    std::exception_ptr trouble;
    try {
        Flush();
    } catch (const cProgramError&) {
        trouble = std::current_exception();
    }
    const std::error_code error = disk.Close();
    if (trouble)
        std::rethrow_exception(trouble);
    if (error)
        FailWith(error);
}

void cFile::FailWith(std::error_code error) const
{
    Fail(NumberOfError(error), name);
}

std::int64_t cFile::Place() const
{
    return diskPlace + static_cast<std::int64_t>(Waiting()) - static_cast<std::int64_t>(Unread());
}

void cFile::DropRead()
{
    diskPlace -= static_cast<std::int64_t>(Unread());
    DropBuffer();
}

void cFile::StartReading()
{
    if (mode == FileMode::Output || mode == FileMode::Append)
        Fail(ErrorNumber::WrongFileMode, name);
    Flush();
}

std::size_t cFile::Receive(std::span<char> room)
{
    constexpr std::size_t recordsAhead = 4096;
    if (mode == FileMode::Random)
        room = room.first(std::min(room.size(), std::max(recordLength, recordsAhead)));
    constexpr int patience = 50;
    while (!disk.HasPositions() && !disk.WaitForInput(patience))
        if (files.IsStopped())
            throw ProgramStopped();
    std::size_t count = 0;
    if (const std::error_code error = disk.Read(diskPlace, room, count))
        FailWith(error);
    diskPlace += static_cast<std::int64_t>(count);
    return count;
}

void cFile::StartWriting()
{
    if (mode == FileMode::Input)
        Fail(ErrorNumber::WrongFileMode, name);
    DropRead();
}

void cFile::Send(std::string_view bytes)
{
    if (const std::error_code error = disk.Write(diskPlace, bytes))
        FailWith(error);
    diskPlace += static_cast<std::int64_t>(bytes.size());
    if (isShared)
        files.Changed(*this);
}

bool cFile::Eof()
{
    return mode == FileMode::Output || mode == FileMode::Append || IsAtEnd();
}

double cFile::Length()
{
    Flush();
    return static_cast<double>(disk.Size());
}

double cFile::Location()
{
    return mode == FileMode::Random ? lastRecord : static_cast<double>(Place());
}

void cFile::Seek(double position)
{
    const std::int64_t wanted = WholePart(position);
    if (wanted < 0 || wanted > lastPlace)
        Fail(ErrorNumber::OutOfRange, "a place in a file");
    if (mode == FileMode::Append)
        Fail(ErrorNumber::WrongFileMode, name);
    MoveToPlace(wanted);
}

// Keeps the buffer where it can, so that records one after the other do not read the disk each time.
void cFile::MoveToPlace(std::int64_t wanted)
{
    if (wanted == Place())
        return;
    Flush();
    const std::int64_t start = diskPlace - static_cast<std::int64_t>(Unread() + AlreadyRead());
    if (wanted >= start && wanted <= diskPlace)
        return MoveTo(static_cast<std::size_t>(wanted - start));
    DropBuffer();
    diskPlace = wanted;
}

void cFile::SetFields(std::span<const double> widths)
{
    if (mode != FileMode::Random)
        Fail(ErrorNumber::WrongFileMode, name);
    std::size_t sum = 0;
    std::vector<std::size_t> found;
    for (const double width : widths) {
        found.push_back(RecordLength(width));
        sum += found.back();
    }
    if (sum == 0 || (recordLength != 0 && sum > recordLength) || sum > static_cast<std::size_t>(longestRecord))
        Fail(ErrorNumber::WrongRecordLength, name);
    fields = std::move(found);
    if (recordLength == 0)
        recordLength = sum;
}

std::int64_t cFile::RecordPlace(double number)
{
    if (mode != FileMode::Random || fields.empty())
        Fail(ErrorNumber::WrongFileMode, name);
    const std::int64_t whole = WholePart(number);
    const auto length = static_cast<std::int64_t>(recordLength);
    if (whole < 1 || whole > lastPlace / length)
        Fail(ErrorNumber::WrongRecord, name);
    lastRecord = static_cast<double>(whole);
    return (whole - 1) * length;
}

void cFile::Put(double number, std::span<const std::string_view> texts)
{
    const std::int64_t place = RecordPlace(number);
    recordBytes.assign(recordLength, ' ');
    std::size_t start = 0;
    for (std::size_t field = 0; field < fields.size(); ++field) {
        if (field < texts.size())
            texts[field].copy(recordBytes.data() + start, fields[field]);
        start += fields[field];
    }
    MoveToPlace(place);
    Text(recordBytes);
    EndStatement();
}

std::span<const std::string_view> cFile::Get(double number)
{
    MoveToPlace(RecordPlace(number));
    std::string_view bytes = Bytes(recordLength);
    if (bytes.size() < recordLength) {
        recordBytes.assign(bytes).append(recordLength - bytes.size(), ' ');
        bytes = recordBytes;
    }
    record.clear();
    for (const std::size_t width : fields) {
        record.push_back(bytes.substr(0, width));
        bytes.remove_prefix(width);
    }
    return record;
}

} // namespace ob::basic
