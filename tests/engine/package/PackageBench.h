// SPDX-License-Identifier: GPL-3.0-or-later
// An engine's folder with invented files, and a token next to it.
#pragma once

#include "engine/package/ZipBench.h"

#include <QStringList>

// The files of the three versions in the order of packing, without engine and ini file, and the marker of each.
struct EngineFiles {
    const char* marker;
    const char* files;
};
inline constexpr EngineFiles engineFiles[] = {
    {"vwm11.dll", "vwabort.dll vwbas11.dll vwdlgs.dll vwfloat.dll vwfont.dll vwsignon.dll vwsignon.bmp vwvm11.dll"},
    {"vwvm20.dll", "vwabort.dll vwbas20.dll vwdlgs20.dll vwfloat2.dll vwhelp.dll vwicons.dll vwsignon.dll vwsignon.bmp "
                   "vwvm20.dll"},
    {"vgui31w.sll",
     "Vbas31w.sll Vgui31w.sll Voflr31w.sll Vthk31w.dll Vtk1631w.dll Vtk3231w.dll Vvm31w.dll Vvmt31w.dll"},
};

inline QStringList Words(const char* words)
{
    return QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// A folder "engine" with a complete engine and a folder "work" with game.tkn, in a temporary folder.
class PackageBench {
public:
    explicit PackageBench(int version) : engine(At("engine")), work(At("work"))
    {
        QDir(folder.path()).mkdir(QStringLiteral("engine"));
        QDir(folder.path()).mkdir(QStringLiteral("work"));
        PutFile(At("engine/orchard.exe"), "orchard");
        if (version > 0) {
            const EngineFiles& files = engineFiles[version - 1];
            PutFile(engine + QLatin1Char('/') + QString::fromLatin1(files.marker), "marker");
            for (const QString& name : Words(files.files))
                PutFile(engine + QLatin1Char('/') + name, "the " + name.toUtf8());
            PutFile(At("engine/run.exe"), "the engine");
            PutFile(At("engine/obasic.ini"), "engine's ini");
        }
        PutFile(Token(), "token");
    }

    QString At(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    QString Token() const { return At("work/game.tkn"); }
    QString Package() const { return At("work/Package"); }
    QString Packed(const char* name) const { return Package() + QLatin1Char('/') + QString::fromUtf8(name); }
    QByteArray Get(const char* name) const { return GetFile(Packed(name)); }
    QStringList PackedNames() const { return NamesIn(Package()); }

    // The contents of a complete package of that version: the engine under the program's name, the token, the ini file.
    static QStringList WholePackage(int version)
    {
        QStringList names = Words(engineFiles[version - 1].files) + Words("game.exe game.tkn");
        if (version < 3)
            names.append(QStringLiteral("obasic.ini"));
        names.sort(Qt::CaseSensitive);
        return names;
    }

private:
    QTemporaryDir folder;

public:
    QString engine; // without a trailing separator
    QString work;
};
