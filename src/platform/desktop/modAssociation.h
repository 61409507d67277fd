// SPDX-License-Identifier: GPL-3.0-or-later
// Making the program the one that opens its files when they are double-clicked.
#pragma once

#include <QByteArray>
#include <QString>

namespace ob {

// The program that is to open the files, and where the user's desktop stores such choices. Full paths. On Windows,
// which uses the registry, only the executable matters.
struct AssociationPlaces {
    QString executable;
    QString dataFolder;   // file types, desktop entries and icons
    QString configFolder; // mimeapps.list
    QString iconFolder;   // holds app.svg and app-SIZE.png; may be in the program's resources
};

// This program, and the user's own folders from XDG_DATA_HOME, XDG_CONFIG_HOME and HOME.
AssociationPlaces UsersPlaces(const QString& iconFolder);

// Makes *.bas and *.oba one file type and *.obf another, with the program's icon, and the program the one that opens
// both, for this user; repeating it is harmless. Raises a RuntimeError when something essential cannot be written.
void AssociateFileTypes(const AssociationPlaces& places);

// A program as named in the Exec line of a desktop entry: quoted and escaped where necessary.
QByteArray ExecutableInEntry(const QString& executable);

// The bytes of a mimeapps.list with the desktop entry put first for the program's two file types. All other lines, and
// the other programs of these types, are kept.
QByteArray WithProgramFirst(const QByteArray& list, const QByteArray& entry);

} // namespace ob
