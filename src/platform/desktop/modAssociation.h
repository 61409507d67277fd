// SPDX-License-Identifier: GPL-3.0-or-later
// Making the program the one that opens its files when they are double-clicked.
#pragma once

#include <QByteArray>
#include <QString>

namespace ob {

// The program that shall open the files, and where the user's desktop keeps such choices. Full paths. Only the
// executable counts on Windows, where the registry is the place.
struct AssociationPlaces {
    QString executable;
    QString dataFolder;   // file types, desktop entries and icons
    QString configFolder; // mimeapps.list
    QString iconFolder;   // holds app.svg and app-SIZE.png; may lie in the program's resources
};

// This program, and the user's own folders as XDG_DATA_HOME, XDG_CONFIG_HOME and HOME give them.
AssociationPlaces UsersPlaces(const QString& iconFolder);

// Makes *.bas and *.oba one file type and *.obf another, with the program's icon, and the program the one that opens
// both, for this user; doing it again is harmless. Raises a RuntimeError when something that matters cannot be written.
void AssociateFileTypes(const AssociationPlaces& places);

// A program as the Exec line of a desktop entry names it: quoted and escaped where it has to be.
QByteArray ExecutableInEntry(const QString& executable);

// The bytes of a mimeapps.list with the desktop entry put first for the program's two file types. All other lines, and
// the other programs of these types, stay.
QByteArray WithProgramFirst(const QByteArray& list, const QByteArray& entry);

} // namespace ob
