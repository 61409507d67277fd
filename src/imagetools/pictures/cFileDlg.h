// SPDX-License-Identifier: GPL-3.0-or-later
// The file boxes as a record that is filled and then shown.
#pragma once

#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace ob {

// Flags of the published record.
inline constexpr std::uint32_t OFN_READONLY = 0x1;
inline constexpr std::uint32_t OFN_OVERWRITEPROMPT = 0x2;
inline constexpr std::uint32_t OFN_HIDEREADONLY = 0x4;
inline constexpr std::uint32_t OFN_ALLOWMULTISELECT = 0x200;
inline constexpr std::uint32_t OFN_FILEMUSTEXIST = 0x1000;

// The read-only tick, which this system's boxes lack, is only kept in the record. The boxes are
// modal to the active window, and the box for a new name always asks before an existing file would be replaced.
class cFileDlg {
public:
    // The file name's place in the record.
    static constexpr qsizetype BufferSize = 1024;

    quintptr OwnerHwnd = 0;
    bool FileMustExist = false;
    bool MultiSelect = false;
    bool ReadOnly = false;
    bool HideReadOnly = false;
    bool OverwritePrompt = false;
    QString Filter;      // "Words|*.bmp:Other words|*.dib"; ":" and "|" are equivalent
    int FilterIndex = 1; // from 1
    QString InitDirectory;
    std::optional<QStandardPaths::StandardLocation> InitDirectorySpecial; // when there is no InitDirectory
    QString DlgTitle;
    QString DefaultExt; // without the dot; added to a chosen name that has none
    std::uint32_t Flags = 0;

    // True on OK, with the chosen name in the argument, which is the suggested name before. A name that does not fit
    // into the record counts as Cancel, as does one that must exist and does not.
    bool VBGetOpenFileName(QString& fileName) const;
    QStringList VBGetOpenFileNames() const; // several, when MultiSelect is set; empty after Cancel
    bool VBGetOpenFileNamePreview(QString& fileName) const;
    bool VBGetSaveFileName(QString& fileName) const;

    std::uint32_t AllFlags() const;
    static bool ExistFile(const QString& path);
    static QString VBGetFileTitle(const QString& path);

private:
    QString BoxFilter() const;
    QString Folder() const;
    bool Accept(const QString& chosen, QString& fileName) const;
};

} // namespace ob
