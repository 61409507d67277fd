// SPDX-License-Identifier: GPL-3.0-or-later
// What file boxes take from the main window and leave with it.
#include "editor/document/cDocument.h"
#include "guibuilder/modGui.h"
#include "platform/dialogs/modFileBox.h"
#include "platform/files/modFiles.h"
#include "shell/bench/frmMain.h"
#include "shell/state/modSettings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString Section = u"Bench"_s;
const QString SizeKey = u"FileBoxSize"_s;

// "800x600"; an empty size for any other text.
QSize StoredSize()
{
    const QStringList sides = ReadRemembered(Section, SizeKey).split(QLatin1Char('x'));
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

void StoreSize(const QSize& size)
{
    WriteRemembered(Section, SizeKey, u"%1x%2"_s.arg(size.width()).arg(size.height()));
}

} // namespace

void frmMain::HostFileBoxes()
{
    SetFileBoxHost({[this] { return ActiveFolder(); }, StoredSize, StoreSize});
}

// The folder of the active code window's or form's file; empty for one that has no file.
QString frmMain::ActiveFolder() const
{
    QString file;
    if (const cDocument* document = ActiveDocument())
        file = document->Caption();
    else if (ActiveKind() == ActiveChild::Gui)
        file = GuiDesign().file;
    if (!QFileInfo(file).isAbsolute())
        return {};
    const QString folder = QFileInfo(file).absolutePath();
    return FolderExists(folder) ? folder : QString();
}

} // namespace ob
