// SPDX-License-Identifier: GPL-3.0-or-later
// The descriptions of the runtime's errors.
#include "platform/language/cRuntimeError.h"

namespace ob {

static QString Description(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::DeviceIoError:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::PathFileAccess:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::InvalidPicture:
        return QStringLiteral("Invalid picture");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    }
    return QStringLiteral("Application-defined or object-defined error");
}

RuntimeError RuntimeErrorOf(ErrorNumber number, const QString& source, const QString& reason)
{
    return {static_cast<int>(number), source, Description(number), reason};
}

} // namespace ob
