// SPDX-License-Identifier: GPL-3.0-or-later
// The file boxes as a record.
#include "imagetools/pictures/cFileDlg.h"

#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

std::uint32_t cFileDlg::AllFlags() const
{
    return Flags | (FileMustExist ? OFN_FILEMUSTEXIST : 0) | (MultiSelect ? OFN_ALLOWMULTISELECT : 0) |
           (ReadOnly ? OFN_READONLY : 0) | (HideReadOnly ? OFN_HIDEREADONLY : 0) |
           (OverwritePrompt ? OFN_OVERWRITEPROMPT : 0);
}

// The initial entry comes first, as the boxes start with the first one.
QString cFileDlg::BoxFilter() const
{
    QStringList parts = QString(Filter).replace(u':', u'|').split(u'|');
    const qsizetype start = 2 * (std::max(FilterIndex, 1) - 1);
    if (start > 0 && start + 1 < parts.size()) {
        parts.move(start, 0);
        parts.move(start + 1, 1);
    }
    return parts.join(u'|');
}

QString cFileDlg::Folder() const
{
    if (InitDirectory.isEmpty() && InitDirectorySpecial)
        return QStandardPaths::writableLocation(*InitDirectorySpecial);
    return InitDirectory;
}

bool cFileDlg::Accept(const QString& chosen, QString& fileName) const
{
    if (chosen.isEmpty() || chosen.size() >= BufferSize)
        return false;
    fileName = chosen;
    return true;
}

bool cFileDlg::VBGetOpenFileName(QString& fileName) const
{
    const QString chosen = FileBox({FilePurpose::Open, DlgTitle, Folder(), fileName, BoxFilter()});
    if ((AllFlags() & OFN_FILEMUSTEXIST) != 0 && !ExistFile(chosen))
        return false;
    return Accept(chosen, fileName);
}

QStringList cFileDlg::VBGetOpenFileNames() const
{
    const FileSpec box = {FilePurpose::Open, DlgTitle, Folder(), {}, BoxFilter()};
    const bool takesSeveral = (AllFlags() & OFN_ALLOWMULTISELECT) != 0;
    QStringList files = takesSeveral ? FilesBox(box) : QStringList(FileBox(box));
    files.removeIf([this](const QString& file) {
        const bool isMissing = (AllFlags() & OFN_FILEMUSTEXIST) != 0 && !ExistFile(file);
        return isMissing || file.isEmpty() || file.size() >= BufferSize;
    });
    return files;
}

bool cFileDlg::VBGetOpenFileNamePreview(QString& fileName) const
{
    return VBGetOpenFileName(fileName);
}

bool cFileDlg::VBGetSaveFileName(QString& fileName) const
{
    QString chosen = FileBox({FilePurpose::Save, DlgTitle, Folder(), fileName, BoxFilter()});
    if (!chosen.isEmpty() && !DefaultExt.isEmpty() && !NameOf(chosen).contains(u'.')) {
        chosen += u'.' + DefaultExt;
        // The box has asked about the name without its extension.
        const QString question = u"%1 already exists.\nDo you want to replace it?"_s.arg(chosen);
        if (ExistFile(chosen) && MsgBox(question, BoxIcon::Question, BoxButtons::YesNo) != BoxAnswer::Yes)
            return false;
    }
    return Accept(chosen, fileName);
}

bool cFileDlg::ExistFile(const QString& path)
{
    return FileExists(path);
}

QString cFileDlg::VBGetFileTitle(const QString& path)
{
    return NameOf(path);
}

} // namespace ob
