// SPDX-License-Identifier: GPL-3.0-or-later
// Include lines: comments at the top of a program that name files to be merged into the written copy.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ob {

class cDocument;

enum class TextEncoding { Utf8, Ansi };

// The text for the include lines at the top of a program: for each file found in the folder a heading and the file's
// bytes; empty when there is none. Names are relative to the folder; missing files are skipped. Throws RuntimeError
// when an existing file cannot be read.
QByteArray IncludedText(QByteArrayView program, TextEncoding encoding, const QString& folder);

// The same for a code window; the folder ends with a separator.
QByteArray CheckIncludes(const cDocument& document, const QString& folder);

} // namespace ob
