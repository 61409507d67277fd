// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of file work share: errors as numbers, and deliberate failures.
#pragma once

#include "imaging/cNumberedError.h"
#include "platform/language/cRuntimeError.h"

#include <QFile>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

// The numbers of the runtime's errors as the user sees them.
enum RuntimeNumber {
    none = 0,
    fileNotFound = 53,
    deviceIoError = 57,
    diskFull = 61,
    pathFileAccess = 75,
    pathNotFound = 76,
};

// The number of the error raised by a call.
template <class Call>
int ErrorOf(Call call)
{
    try {
        call();
    } catch (const ob::NumberedError& error) {
        return error.number;
    }
    return none;
}

inline void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

#ifdef Q_OS_UNIX
// During its lifetime no file of this process may grow beyond the limit; further writing fails without a signal.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &oldLimit);
        const rlimit limit = {bytes, oldLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &oldLimit);
        std::signal(SIGXFSZ, oldHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit oldLimit = {};
    void (*oldHandler)(int) = SIG_DFL;
};

// During its lifetime the process runs as a user to whom permissions apply; without root's rights it already does.
class PlainUser {
public:
    PlainUser() : changed(geteuid() == 0 && seteuid(65534) == 0) {}
    ~PlainUser()
    {
        if (changed && seteuid(0) != 0)
            qFatal("cannot be root again");
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

private:
    bool changed;
};
#endif
