// SPDX-License-Identifier: GPL-3.0-or-later
// Packages: a token file with the runtime engine and its files, ready for distribution.
#pragma once

#include "engine/package/modZip.h"
#include "platform/dialogs/modDialogs.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ob {

// The version of the language whose runtime files are in an engine's folder.
enum class InstalledEngine { None, One, Two, Three };

// The contents of a package. Nothing is copied before MakePackage.
struct PackagePlan {
    QString token;        // absolute path
    QString engineFolder; // with a trailing separator; "" when there is no engine
    InstalledEngine version = InstalledEngine::None;
    QStringList files; // full paths in the order of copying; the package has them under their plain names
};

// Whether a name ends in "tkn", in any case.
bool IsTokenName(const QString& path);

// The engine's runtime files by the table of its version, then the token. Files are looked up on disk
// case-insensitively, here and in MakePackage; a copy is spelled as in the plan. The version is None for a folder
// without a marker.
PackagePlan PlanPackage(const QString& token, const QString& engineFolder);

// The message when the version is None.
// The same package with the runtime files of another engine; the files that were added to it stay.
PackagePlan WithEngine(const PackagePlan& plan, const QString& engineFolder);

// Why a plan has no runtime files, and what follows from it; empty for one that has.
QString NoEngineText(const PackagePlan& plan);

MessageSpec NoEngineBox();

// The position of the first file of that plain name in the plan, case-insensitively; -1 when there is none.
qsizetype PlaceInPackage(const PackagePlan& plan, const QString& name);

// A planned file as spelled on disk, case-insensitively; nothing when it is missing or not a file.
std::optional<QString> FileOnDisk(const QString& path);

// The folder of the package, next to the token; and the archive without its ".zip".
QString PackageFolder(const PackagePlan& plan);
QString PackageZipBase(const PackagePlan& plan);

// The progress of the copying: in bytes, over all files, and the plain name of the current file.
struct PackageProgress {
    QString name;
    qint64 done = 0;
    qint64 all = 0;
};

enum class PackageRequest { GoOn, Stop };

// The runtime engine under the program's name.
struct PackagedEngine {
    QString name; // as shown
    QString path; // as spelled on disk
};

// Observes the making of a package.
class cPackageWatch {
public:
    cPackageWatch() = default;
    cPackageWatch(const cPackageWatch&) = delete;
    cPackageWatch& operator=(const cPackageWatch&) = delete;
    virtual ~cPackageWatch() = default;

    // Before and after each file, and during a large one.
    virtual PackageRequest Processing(const PackageProgress& progress) = 0;
    // A message to show; the work continues after it.
    virtual void Tell(const MessageSpec& box) = 0;
    // The engine has the program's name now and can be tested.
    virtual void EngineIsNamed(const PackagedEngine& engine) = 0;
    // No file is copied or renamed after this.
    virtual void FilesAreDone() = 0;
    // Around the making of the archive.
    virtual void ZipBegins() = 0;
    virtual ZipRequest Zipping(const ZipProgress& progress) = 0;
    virtual void ZipEnds() = 0;
    virtual void ZipIsMade(const QString& base) = 0;
};

// The question for EngineIsNamed, and the message for ZipIsMade.
MessageSpec TestQuestion(const PackagePlan& plan, const PackagedEngine& engine);
MessageSpec ZipMadeBox(const QString& base);

enum class PackageZip { No, Yes };

enum class PackageEnd { Made, Aborted, ZipFailed };

struct PackageOutcome {
    PackageEnd end = PackageEnd::Made;
    QString reason;         // of a failed zip
    bool isComplete = true; // every file is there, and the engine has the program's name
};

// Copies the plan's files into the package folder, renames the runtime engine after the program, and zips the folder on
// request. The folder takes its name when it is whole, with one step where the disk can do that; Stop, or the end of
// the program before, leaves the older one as it was. Older files in the folder stay or are replaced. Files that are
// missing or cannot be copied are reported and skipped. Raises PathFileAccess when the folder cannot be made.
PackageOutcome MakePackage(const PackagePlan& plan, PackageZip zip, cPackageWatch& watch);

} // namespace ob
