// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes may be taken for a desktop entry, and any program's path survives the way into one and back.
#include "platform/desktop/cDesktopEntry.h"
#include "platform/desktop/modAssociation.h"

#include <cstdlib>

static void Require(bool holds)
{
    if (!holds)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    const QString group = QStringLiteral("Desktop Entry");
    const QString key = QStringLiteral("Exec");
    const ob::cKeyFile any(input);
    ob::SplitExec(any.Text(group, key, QStringLiteral("sr_YU.UTF-8@Latn")));
    for (const QString& part : any.List(group, QStringLiteral("MimeType")))
        Require(!part.isEmpty());

    const QString path = u'/' + QString::fromUtf8(input).remove(QChar()) + u'x';
    const ob::cKeyFile written("[Desktop Entry]\nExec=" + ob::ExecutableInEntry(path) + " %f\n");
    const auto arguments = ob::SplitExec(written.Text(group, key));
    Require(arguments && arguments->size() == 2);
    Require(QString(arguments->first()).replace(QStringLiteral("%%"), QStringLiteral("%")) == path);
    return 0;
}
