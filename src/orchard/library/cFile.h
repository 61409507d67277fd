// SPDX-License-Identifier: GPL-3.0-or-later
// A file that a program has open: what it reads, prints and keeps as records.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "orchard/library/cDiskFile.h"
#include "orchard/library/cInput.h"
#include "orchard/library/cOutput.h"

namespace ob::basic {

class cFiles;

enum class FileMode { Input, Output, Append, Random, Binary };

// Asked while a device lets the program wait; true throws ProgramStopped.
using StopQuestion = std::function<bool()>;
struct ProgramStopped {};

// Positions count from 0, records from 1. Errors are cProgramError; WrongFileMode where the mode does not allow a call.
class cFile final : public cInput, public cOutput {
public:
    // length: bytes of a record; 0 for the sum of its fields.
    cFile(cFiles& table, std::string_view name, FileMode fileMode, double length);
    ~cFile() override;

    FileMode Mode() const { return mode; }

    // eof: whether nothing is left to read; a file that is only written is at its end.
    bool Eof();
    double Length();
    // loc: the place of the next byte; in a random file the record that was used last.
    double Location();
    void Seek(double position);

    // field: the widths of a record's fields. WrongRecordLength when they are none, negative or longer than the record.
    void SetFields(std::span<const double> widths);
    std::size_t FieldCount() const { return fields.size(); }

    // put: texts are left-aligned and cut on the right; what has no text is blank. A gap before the record is empty.
    void Put(double number, std::span<const std::string_view> texts);
    // get: the fields of a record, good until the next call; blanks fill a record that the file's end cuts.
    std::span<const std::string_view> Get(double number);

    // Sends what waits, and closes; the error of either is thrown when all is closed.
    void Close();

private:
    friend class cFiles;

    void StartReading() override;
    std::size_t Receive(std::span<char> room) override;
    void StartWriting() override;
    void Send(std::string_view bytes) override;

    std::int64_t Place() const;
    void MoveToPlace(std::int64_t wanted);
    void DropRead();
    std::int64_t RecordPlace(double number);
    [[noreturn]] void FailWith(std::error_code error) const;

    cFiles& files;
    std::string name;
    FileMode mode;
    cDiskFile disk;
    DiskIdentity identity;
    bool isShared = false;      // with another handle, so that nothing may wait here
    std::int64_t diskPlace = 0; // where the buffer that is read ends, or the bytes that wait begin
    std::size_t recordLength = 0;
    double lastRecord = 0;
    std::vector<std::size_t> fields;
    std::vector<std::string_view> record;
    std::string recordBytes;
};

} // namespace ob::basic
