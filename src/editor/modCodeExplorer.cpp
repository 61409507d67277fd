// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk for BASIC source.
#include "editor/modCodeExplorer.h"

#include "editor/files/modDocumentFile.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"

#include <QFile>

namespace ob {

static constexpr qint64 previewSize = 2000;

QString CodePreview(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess);
    return TextFromAnsi(file.read(previewSize));
}

void OpenExploredFile(const QString& path)
{
    OpenInNewWindow(path, static_cast<OpenChoices>(OpenChoice::Status));
}

} // namespace ob
