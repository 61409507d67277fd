// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion to and from the machine's ANSI code page: text on disk is ANSI, text in the program is UTF-8.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <cstddef>

namespace ob {

// ANSI bytes made from Unicode text. A character that the code page lacks becomes '?', and so does each byte of
// malformed UTF-8; both count as lost.
struct AnsiText {
    QByteArray bytes;
    std::size_t lostCount = 0;
    // The line of the first lost character, from 1; -1 when nothing was lost. Lines end at CR LF, LF or CR.
    int firstLostLine = -1;
};

// The UTF-8 text of ANSI bytes. Every byte sequence is valid; a NUL is a character like any other. The code page is
// the system's own on Windows and windows-1252 on Unix, where the five bytes without a character (81 8D 8F 90 9D)
// become the control character of the same number, so that EncodeAnsi(DecodeAnsi(x)).bytes == x.
QByteArray DecodeAnsi(QByteArrayView ansi);
// The same; a text without bytes above 7F is shared and not copied.
QByteArray DecodeAnsi(const QByteArray& ansi);
inline QByteArray DecodeAnsi(const char* ansi)
{
    return DecodeAnsi(QByteArrayView(ansi));
}

// The ANSI bytes of UTF-8 text, and what was lost.
AnsiText EncodeAnsi(QByteArrayView utf8);
// The same; a text without bytes above 7F is shared and not copied.
AnsiText EncodeAnsi(const QByteArray& utf8);
inline AnsiText EncodeAnsi(const char* utf8)
{
    return EncodeAnsi(QByteArrayView(utf8));
}

// The same for small texts in a QString. An unpaired surrogate counts as lost.
QString TextFromAnsi(QByteArrayView ansi);
AnsiText AnsiFromText(QStringView text);

} // namespace ob
