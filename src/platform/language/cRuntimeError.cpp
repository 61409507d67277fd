// SPDX-License-Identifier: GPL-3.0-or-later
// The descriptions of the runtime's errors.
#include "platform/language/cRuntimeError.h"

using namespace Qt::StringLiterals;

namespace ob {

static QString Description(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidCall:
        return u"Invalid procedure call or argument"_s;
    case ErrorNumber::Overflow:
        return u"Overflow"_s;
    case ErrorNumber::SubscriptOutOfRange:
        return u"Subscript out of range"_s;
    case ErrorNumber::TypeMismatch:
        return u"Type mismatch"_s;
    case ErrorNumber::FileNotFound:
        return u"File not found"_s;
    case ErrorNumber::DeviceIoError:
        return u"Device I/O error"_s;
    case ErrorNumber::DiskFull:
        return u"Disk full"_s;
    case ErrorNumber::PermissionDenied:
        return u"Permission denied"_s;
    case ErrorNumber::PathFileAccess:
        return u"Path/File access error"_s;
    case ErrorNumber::InvalidPicture:
        return u"Invalid picture"_s;
    case ErrorNumber::PathNotFound:
        return u"Path not found"_s;
    }
    return u"Application-defined or object-defined error"_s;
}

RuntimeError RuntimeErrorOf(ErrorNumber number, const QString& source, const QString& reason)
{
    return {static_cast<int>(number), source, Description(number), reason};
}

} // namespace ob
