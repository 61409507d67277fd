// SPDX-License-Identifier: GPL-3.0-or-later
// Used by every verb: reading FILE or standard input, writing OUT or standard output, notes.
#pragma once

#include "obtool/toolFailure.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <string>

namespace ob {

// The whole file, or standard input for "-". Throws ToolFailure.
QByteArray ReadInput(const std::string& file);

// BASIC source as the code window loads it: without the last two bytes. Throws ToolFailure.
QByteArray ReadSource(const std::string& file);

// Writes OUT through a temporary file, or standard output when out is empty. Throws ToolFailure.
void WriteOutput(const std::string& out, QByteArrayView bytes);

// Writes what a verb gives to the file of its option -o, or else to standard output. Throws ToolFailure.
void WriteAnswer(QByteArrayView bytes);

// The file of the option -o; empty: standard output.
std::string& AnswerFile();

// An argument in the system's form.
QString TextOf(const std::string& argument);
QString PathOf(const std::string& argument);

// Reports on standard error what a window would show in a box before continuing: one line, whatever the text contains.
void WriteNote(QString text);
// The same with the file that it is about, where the text does not name it.
void WriteNote(const std::string& file, const QString& text);

// WriteAnswer of program text, with a note when it has characters that the code page lacks. Throws
// ToolFailure.
void WriteProgramText(const QString& text);

} // namespace ob
