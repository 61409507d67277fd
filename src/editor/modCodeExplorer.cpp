// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk for BASIC source.
#include "editor/modCodeExplorer.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"

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
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    LoadDocumentFile(path);
    document->SetCaption(path);
    SetStatusText(OpenedFileStatus(path));
}

} // namespace ob
