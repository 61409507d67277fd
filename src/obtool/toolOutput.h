// SPDX-License-Identifier: GPL-3.0-or-later
// What every verb needs: reading FILE or standard input, writing OUT or standard output, failing with a reason.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <exception>
#include <string>

namespace ob {

// Work that failed: one line "obtool: FILE: reason" on standard error, exit status 1.
class ToolFailure : public std::exception {
public:
    ToolFailure(std::string failedFile, QString failedReason)
        : file(std::move(failedFile)), reason(std::move(failedReason))
    {
    }
    const char* what() const noexcept override { return file.c_str(); }

    std::string file;
    QString reason;
};

// The whole file, or standard input for "-". Throws ToolFailure.
QByteArray ReadInput(const std::string& file);

// BASIC source as the code window loads it: without the last two bytes. Throws ToolFailure.
QByteArray ReadSource(const std::string& file);

// Writes OUT by way of a temporary file, or standard output when out is empty. Throws ToolFailure.
void WriteOutput(const std::string& out, QByteArrayView bytes);

// An argument as the system wrote it.
QString TextOf(const std::string& argument);
QString PathOf(const std::string& argument);

// Tells on standard error what a window would show in a box and go on: one line, whatever the text holds.
void WriteNote(QString text);

// Writes program text to standard output, with a note when it holds characters that the code page lacks. Throws
// ToolFailure.
void WriteProgramText(const QString& text);

} // namespace ob
