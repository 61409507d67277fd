// SPDX-License-Identifier: GPL-3.0-or-later
// The expected texts of the code makers, a file each.
#pragma once

#include "platform/language/modAnsi.h"

#include <QFile>
#include <QTest>

namespace ob {

// The bytes of tests/data/codetools/NAME.
inline QByteArray MakerBytes(const char* name)
{
    QFile file(QStringLiteral(OB_TEST_DATA "/codetools/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(QStringLiteral("no such file: ") + file.fileName()), __FILE__, __LINE__);
    return file.readAll();
}

inline QString MakerText(const char* name)
{
    return TextFromAnsi(MakerBytes(name));
}

// The text as stored in a program's file.
inline QByteArray BytesOf(const QString& text)
{
    return AnsiFromText(text).bytes;
}

} // namespace ob
