// SPDX-License-Identifier: GPL-3.0-or-later
// A file's bytes as memory: the system reads only the parts that are looked at.
#pragma once

#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"

#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <span>

namespace ob {

class cMappedFile {
public:
    // Raises FileNotFound, PathFileAccess (a folder, a device, or not to be read) or DeviceIoError.
    explicit cMappedFile(const QString& path) : file(path)
    {
        if (!FileExists(path))
            throw RuntimeErrorOf(ErrorNumber::FileNotFound, path);
        // Opening a pipe would wait for its other end.
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            throw RuntimeErrorOf(ErrorNumber::PathFileAccess, path);
        // An empty file cannot be mapped.
        if (file.size() == 0)
            return;
        const uchar* start = file.map(0, file.size());
        if (start == nullptr)
            throw RuntimeErrorOf(ErrorNumber::DeviceIoError, path);
        bytes = {start, static_cast<std::size_t>(file.size())};
    }

    // Good for as long as the object lives.
    std::span<const std::uint8_t> Bytes() const { return bytes; }

private:
    QFile file;
    std::span<const std::uint8_t> bytes;
};

} // namespace ob
