// SPDX-License-Identifier: GPL-3.0-or-later
// Packages: a token file gathered with the runtime engine and its files, ready to be given away.
#pragma once

#include "engine/package/modZip.h"
#include "platform/dialogs/modDialogs.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ob {

// The version of the language whose runtime files an engine's folder holds.
enum class InstalledEngine { None, One, Two, Three };

// What goes into a package. Nothing is copied before MakePackage.
struct PackagePlan {
    QString token;        // absolute
    QString engineFolder; // with a separator at its end; "" when there is no engine
    InstalledEngine version = InstalledEngine::None;
    QStringList files; // full paths in the order of copying; in the package each has its plain name
};

// Whether a name ends in "tkn", in any case.
bool IsTokenName(const QString& path);

// The engine's runtime files by the table of its version, then the token. Files are looked up on disk without regard to
// case, here and in MakePackage; a copy is spelled as in the plan. The version is None for a folder without a marker.
PackagePlan PlanPackage(const QString& token, const QString& engineFolder);

// What the user is told when the version is None.
MessageSpec NoEngineBox();

// The place of the first file of that plain name in the plan, without regard to case; -1 when there is none.
qsizetype PlaceInPackage(const PackagePlan& plan, const QString& name);

// A planned file as it is on disk, in whatever case; nothing when it is missing or no file.
std::optional<QString> FileOnDisk(const QString& path);

// The folder that the package goes to, beside the token; and the archive without its ".zip".
QString PackageFolder(const PackagePlan& plan);
QString PackageZipBase(const PackagePlan& plan);

// How far the copying is: in bytes, over all files, and the plain name of the file at hand.
struct PackageProgress {
    QString name;
    qint64 done = 0;
    qint64 all = 0;
};

enum class PackageWish { GoOn, Stop };

// The runtime engine under the program's name.
struct PackagedEngine {
    QString name; // as it is told
    QString path; // as it is on disk
};

// Who follows the making of a package.
class cPackageWatch {
public:
    cPackageWatch() = default;
    cPackageWatch(const cPackageWatch&) = delete;
    cPackageWatch& operator=(const cPackageWatch&) = delete;
    virtual ~cPackageWatch() = default;

    // Before and behind each file, and within a large one.
    virtual PackageWish Processing(const PackageProgress& progress) = 0;
    // A box on the way; the work goes on behind it.
    virtual void Tell(const MessageSpec& box) = 0;
    // The engine has the program's name now and could be tested.
    virtual void EngineIsNamed(const PackagedEngine& engine) = 0;
    // No file is copied or renamed from here on.
    virtual void FilesAreDone() = 0;
    // Around the making of the archive.
    virtual void ZipBegins() = 0;
    virtual ZipWish Zipping(const ZipProgress& progress) = 0;
    virtual void ZipEnds() = 0;
    virtual void ZipIsMade(const QString& base) = 0;
};

// The question that goes with EngineIsNamed, and the box that goes with ZipIsMade.
MessageSpec TestQuestion(const PackagePlan& plan, const PackagedEngine& engine);
MessageSpec ZipMadeBox(const QString& base);

enum class PackageZip { No, Yes };

enum class PackageEnd { Made, Aborted, ZipFailed };

struct PackageOutcome {
    PackageEnd end = PackageEnd::Made;
    QString reason; // of a failed zip
};

// Copies the plan's files into the package folder, gives the runtime engine the program's name, and zips the folder on
// request. Older files in the folder stay or are overwritten. Files that are missing or cannot be copied are told and
// passed over. Stop leaves what is copied so far and ends the work. Raises PathFileAccess when the folder cannot be
// made.
PackageOutcome MakePackage(const PackagePlan& plan, PackageZip zip, cPackageWatch& watch);

} // namespace ob
