// SPDX-License-Identifier: GPL-3.0-or-later
// A runtime error of the language: thrown where a routine raises it, shown in one place when nobody catches it.
#pragma once

#include "imaging/cNumberedError.h"

#include <QString>

#include <utility>

namespace ob {

class RuntimeError : public NumberedError {
public:
    RuntimeError(int errorNumber, QString errorSource, QString errorDescription, QString errorReason = {})
        : NumberedError(errorNumber), source(std::move(errorSource)), description(std::move(errorDescription)),
          reason(std::move(errorReason)), text(description.toUtf8())
    {
    }

    const char* what() const noexcept override { return text.constData(); }

    QString source;
    QString description;
    QString reason; // the system's text ("No space left on device"); empty where no system call failed

private:
    QByteArray text;
};

// The numbers raised by file work and conversions; RuntimeErrorOf gives them their usual descriptions.
enum class ErrorNumber {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    InvalidPicture = 481,
};

// The error with that number, the runtime's description of it ("File not found" for 53), the given source and reason.
RuntimeError RuntimeErrorOf(ErrorNumber number, const QString& source = {}, const QString& reason = {});

} // namespace ob
