// SPDX-License-Identifier: GPL-3.0-or-later
// The files of a package, and how it is made.
#include "engine/package/modPackage.h"

#include "engine/package/CGZipFiles.h"
#include "engine/package/cPackageStage.h"
#include "engine/package/modFileCopy.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString RuntimeName = u"run.exe"_s;
const QString RuntimePattern = u"*run*.exe"_s;
const QString IniName = u"obasic.ini"_s;

enum class RuntimeBy { Name, Pattern }; // an engine found by its pattern brings no ini file

struct EngineRow {
    InstalledEngine version;
    std::string_view marker;
    std::span<const std::string_view> files;
    RuntimeBy runtime;
};

// The first row's marker and the file of nearly the same name are two different files.
constexpr std::string_view versionOneFiles[] = {"vwabort.dll", "vwbas11.dll",  "vwdlgs.dll",   "vwfloat.dll",
                                                "vwfont.dll",  "vwsignon.dll", "vwsignon.bmp", "vwvm11.dll"};
constexpr std::string_view versionTwoFiles[] = {"vwabort.dll",  "vwbas20.dll",  "vwdlgs20.dll",
                                                "vwfloat2.dll", "vwhelp.dll",   "vwicons.dll",
                                                "vwsignon.dll", "vwsignon.bmp", "vwvm20.dll"};
constexpr std::string_view versionThreeFiles[] = {"Vbas31w.sll",  "Vgui31w.sll",  "Voflr31w.sll", "Vthk31w.dll",
                                                  "Vtk1631w.dll", "Vtk3231w.dll", "Vvm31w.dll",   "Vvmt31w.dll"};
constexpr EngineRow engineRows[] = {
    {InstalledEngine::One, "vwm11.dll", versionOneFiles, RuntimeBy::Name},
    {InstalledEngine::Two, "vwvm20.dll", versionTwoFiles, RuntimeBy::Name},
    {InstalledEngine::Three, "vgui31w.sll", versionThreeFiles, RuntimeBy::Pattern},
};

QString TextOf(std::string_view name)
{
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

// The first file of a folder that looks like a runtime engine, in case-insensitive order of names; "" for none.
QString FirstRuntime(const QString& folder)
{
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::NoSort);
    const QRegularExpression pattern = NamePattern({RuntimePattern});
    names.removeIf([&](const QString& name) { return !Fits(name, pattern); });
    const auto first = std::min_element(names.begin(), names.end(), [](const QString& left, const QString& right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order == 0 ? left < right : order < 0;
    });
    return first == names.end() ? QString() : *first;
}

const EngineRow* RowOf(const QString& engineFolder)
{
    if (engineFolder.isEmpty())
        return nullptr;
    const auto row = std::find_if(std::begin(engineRows), std::end(engineRows), [&](const EngineRow& each) {
        return FileOnDisk(engineFolder + TextOf(each.marker)).has_value();
    });
    return row == std::end(engineRows) ? nullptr : row;
}

void AddRuntimeFiles(const EngineRow& row, PackagePlan& plan)
{
    for (const std::string_view file : row.files)
        plan.files.append(plan.engineFolder + TextOf(file));
    if (row.runtime == RuntimeBy::Pattern) {
        const QString runtime = FirstRuntime(plan.engineFolder);
        // The pattern represents the missing engine, and is reported as missing later.
        plan.files.append(plan.engineFolder + (runtime.isEmpty() ? RuntimePattern : runtime));
        return;
    }
    plan.files.append(plan.engineFolder + RuntimeName);
    const QString ownIni = FolderOf(plan.token) + IniName;
    plan.files.append(FileOnDisk(ownIni) ? ownIni : plan.engineFolder + IniName);
}

// --- Copying. -------------------------------------------------------------------------------------------------------

// Other spellings of a name in a folder, on a case-sensitive disk.
QStringList OtherSpellings(const QString& folder, const QString& name)
{
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::NoSort);
    names.removeIf([&](const QString& each) { return each == name || each.compare(name, Qt::CaseInsensitive) != 0; });
    return names;
}

bool AreOneFile(const QString& left, const QString& right)
{
    std::error_code ignored;
    return std::filesystem::equivalent(QFileInfo(left).filesystemFilePath(), QFileInfo(right).filesystemFilePath(),
                                       ignored);
}

// Copies the files of a plan, counting the bytes.
class Copier {
public:
    Copier(const PackagePlan& plan, const QString& targetFolder, cPackageWatch& packageWatch)
        : folder(targetFolder), watch(packageWatch)
    {
        for (const QString& file : plan.files)
            if (const std::optional<QString> found = FileOnDisk(file))
                progress.all += QFileInfo(*found).size();
    }

    PackageRequest Copy(const QString& file)
    {
        progress.name = NameOf(file);
        const std::optional<QString> found = FileOnDisk(file);
        if (!found) {
            missing.append(file);
            isComplete = false;
            return watch.Processing(progress);
        }
        if (watch.Processing(progress) == PackageRequest::Stop)
            return PackageRequest::Stop;
        const qint64 before = progress.done;
        try {
            if (CopyFrom(*found) == CopyEnd::Stopped)
                return PackageRequest::Stop;
            RemoveOtherSpellings();
        } catch (const RuntimeError& error) {
            const QString reason = error.reason.isEmpty() ? error.description : error.reason;
            isComplete = false;
            watch.Tell({u"Error occurred!"_s, BoxIcon::None, BoxButtons::Ok, u"SHCOPY"_s, file + u": "_s + reason});
        }
        progress.done = std::min(before + QFileInfo(*found).size(), progress.all);
        return watch.Processing(progress);
    }

    QStringList missing;
    bool isComplete = true;

private:
    CopyEnd CopyFrom(const QString& found)
    {
        const qint64 before = progress.done;
        return CopyWholeFile(found, folder + QDir::separator() + progress.name, [&](qint64 copied) {
            progress.done = std::min(before + copied, progress.all);
            return watch.Processing(progress) == PackageRequest::Stop ? CopyRequest::Stop : CopyRequest::GoOn;
        });
    }

    // The copy replaces a file of its name, however that is spelled.
    void RemoveOtherSpellings()
    {
        const QString front = folder + QDir::separator();
        for (const QString& name : OtherSpellings(folder, progress.name))
            // A case-insensitive disk may have kept the old spelling for the copy itself.
            if (!AreOneFile(front + name, front + progress.name))
                QFile::remove(front + name);
    }

    QString folder;
    cPackageWatch& watch;
    PackageProgress progress;
};

// --- Renaming. ------------------------------------------------------------------------------------------------------

enum class Renaming { Done, Failed };

// A file that has the new name is deleted first, unless it is the same file.
Renaming Rename(const QString& folder, const QString& from, const QString& to)
{
    const QString front = folder + QDir::separator();
    const std::optional<QString> found = FileOnDisk(front + from);
    if (from.compare(to, Qt::CaseInsensitive) == 0)
        return found ? Renaming::Done : Renaming::Failed;
    for (std::optional<QString> old = FileOnDisk(front + to); old; old = FileOnDisk(front + to))
        if (!QFile::remove(*old))
            return Renaming::Failed;
    if (!found)
        return Renaming::Failed;
    std::error_code error;
    std::filesystem::rename(QFileInfo(*found).filesystemFilePath(), QFileInfo(front + to).filesystemFilePath(), error);
    return error ? Renaming::Failed : Renaming::Done;
}

// Any runtime engine in the folder becomes run.exe, which then gets the program's name.
std::optional<PackagedEngine> NameEngine(const PackagePlan& plan, const QString& folder)
{
    const QString runtime = FirstRuntime(folder);
    const QString wanted = NameOf(plan.token).chopped(3) + u"exe"_s;
    if (!runtime.isEmpty() && Rename(folder, runtime, RuntimeName) == Renaming::Failed)
        return std::nullopt;
    if (Rename(folder, RuntimeName, wanted) == Renaming::Failed)
        return std::nullopt;
    const QString found = FileOnDisk(folder + QDir::separator() + wanted).value_or(wanted);
    return PackagedEngine{wanted, PackageFolder(plan) + QDir::separator() + NameOf(found)};
}

MessageSpec MissingBox(const QStringList& missing)
{
    QString text = u"Orchard Bench could not find these needed files:"_s;
    for (const QString& file : missing)
        text += file + u"\r\n"_s;
    return {text, BoxIcon::Critical, BoxButtons::Ok, {}, {}, missing};
}

// --- The archive. ---------------------------------------------------------------------------------------------------

PackageOutcome ZipPackage(const PackagePlan& plan, cPackageWatch& watch)
{
    watch.ZipBegins();
    const QString base = PackageZipBase(plan);
    if (FileExists(base))
        QFile::remove(base);
    CGZipFiles zip;
    // The extension is given explicitly, as a base name with a dot in it would get none.
    zip.ZipFileName = base + u".zip"_s;
    zip.UpdatingZip = false;
    zip.AddFile(PackageFolder(plan) + QDir::separator() + u"*.*"_s);
    const int code = zip.MakeZipFile([&](const ZipProgress& progress) { return watch.Zipping(progress); });
    watch.ZipEnds();
    if (code != 0)
        return {PackageEnd::ZipFailed, zip.GetLastMessage(), true};
    watch.ZipIsMade(base);
    return {};
}

} // namespace

bool IsTokenName(const QString& path)
{
    return path.endsWith(QLatin1String("tkn"), Qt::CaseInsensitive);
}

std::optional<QString> FileOnDisk(const QString& path)
{
    if (FileExists(path))
        return path;
    const QString folder = FolderOf(path);
    QStringList others = OtherSpellings(folder, NameOf(path));
    others.removeIf([&](const QString& each) { return !FileExists(folder + each); }); // a dangling link
    return others.isEmpty() ? std::nullopt : std::optional(folder + *std::min_element(others.begin(), others.end()));
}

PackagePlan PlanPackage(const QString& token, const QString& engineFolder)
{
    PackagePlan plan;
    plan.token = AbsolutePathOf(token);
    plan.engineFolder = engineFolder;
    if (const EngineRow* row = RowOf(engineFolder)) {
        plan.version = row->version;
        AddRuntimeFiles(*row, plan);
    }
    plan.files.append(plan.token);
    return plan;
}

PackagePlan WithEngine(const PackagePlan& plan, const QString& engineFolder)
{
    const PackagePlan before = PlanPackage(plan.token, plan.engineFolder);
    PackagePlan next = PlanPackage(plan.token, engineFolder);
    for (const QString& file : plan.files)
        if (!before.files.contains(file))
            next.files.append(file);
    return next;
}

QString NoEngineText(const PackagePlan& plan)
{
    if (plan.version != InstalledEngine::None)
        return {};
    const QString rest = u" The package will have no runtime files."_s;
    return plan.engineFolder.isEmpty()
               ? u"No engine was chosen, and so the path of Orchard BASIC is empty now."_s + rest
               : u"There is no copy of Orchard BASIC in %1."_s.arg(QDir::toNativeSeparators(plan.engineFolder)) + rest;
}

MessageSpec NoEngineBox()
{
    return {u"Orchard Bench cannot find your copy of Orchard BASIC.  Please set the path to "
            "'orchard.exe' in the Prefernces Menu, under 'Options/Paths'."_s,
            BoxIcon::Exclamation,
            BoxButtons::Ok,
            {}};
}

qsizetype PlaceInPackage(const PackagePlan& plan, const QString& name)
{
    const auto found = std::find_if(plan.files.begin(), plan.files.end(), [&](const QString& file) {
        return NameOf(file).compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == plan.files.end() ? -1 : found - plan.files.begin();
}

QString PackageFolder(const PackagePlan& plan)
{
    return FolderOf(plan.token) + u"Package"_s;
}

QString PackageZipBase(const PackagePlan& plan)
{
    const QString name = NameOf(plan.token);
    return PackageFolder(plan) + QDir::separator() + name.first(std::max<qsizetype>(0, name.size() - 4));
}

MessageSpec TestQuestion(const PackagePlan& plan, const PackagedEngine& engine)
{
    return {u"The runtime engine is now called %1  All files can be found in %2\r\n\r\n"
            "Would you like to test your new application?"_s.arg(engine.name, PackageFolder(plan)),
            BoxIcon::Question,
            BoxButtons::YesNo,
            {},
            {},
            {engine.name, PackageFolder(plan)}};
}

MessageSpec ZipMadeBox(const QString& base)
{
    const QString path = base + u".zip"_s;
    return {path + u" Created Successfully"_s, BoxIcon::Information, BoxButtons::Ok, {}, {}, {path}};
}

PackageOutcome MakePackage(const PackagePlan& plan, PackageZip zip, cPackageWatch& watch)
{
    cPackageStage stage(PackageFolder(plan));
    Copier copier(plan, stage.Folder(), watch);
    for (const QString& file : plan.files) {
        if (copier.Copy(file) == PackageRequest::Stop) {
            watch.Tell({u"File copying operation aborted!"_s, BoxIcon::Critical, BoxButtons::Ok, {}});
            watch.FilesAreDone();
            return {PackageEnd::Aborted, {}, false};
        }
    }
    const std::optional<PackagedEngine> engine = NameEngine(plan, stage.Folder());
    stage.Finish();
    if (engine) {
        watch.EngineIsNamed(*engine);
    } else {
        copier.isComplete = false;
        watch.Tell({u"Error renaming runtime engine!"_s,
                    BoxIcon::Critical,
                    BoxButtons::Ok,
                    {},
                    PackageFolder(plan) + u": no runtime engine could get the program's name"_s});
    }
    watch.FilesAreDone();
    if (!copier.missing.isEmpty())
        watch.Tell(MissingBox(copier.missing));
    PackageOutcome outcome = zip == PackageZip::Yes ? ZipPackage(plan, watch) : PackageOutcome();
    outcome.isComplete = copier.isComplete;
    return outcome;
}

} // namespace ob
