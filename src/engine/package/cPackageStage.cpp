// SPDX-License-Identifier: GPL-3.0-or-later
// The folder in which a package is put together.
#include "engine/package/cPackageStage.h"

#include "engine/package/modFileCopy.h"
#include "platform/files/modFiles.h"
#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFileInfo>

#include <system_error>

namespace ob {

namespace {

namespace fs = std::filesystem;

const char* const Name = "Package";

// Copies are complete files that are renamed over their older names, so the older files may be shared until then.
void TakeFileAlong(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::create_hard_link(from, to, error);
    if (error)
        (void)CopyWholeFile(TextOfPath(from), TextOfPath(to), {});
}

// Raises a RuntimeError or a filesystem_error for what cannot be taken along.
void TakeAlong(const fs::path& from, const fs::path& to)
{
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path place = to / entry.path().filename();
        if (entry.is_symlink()) {
            fs::copy_symlink(entry.path(), place);
        } else if (entry.is_directory()) {
            fs::create_directory(place, entry.path());
            TakeAlong(entry.path(), place);
        } else {
            TakeFileAlong(entry.path(), place);
        }
    }
}

} // namespace

cPackageStage::cPackageStage(const QString& packageFolder) : target(packageFolder), folder(packageFolder)
{
    const bool isThere = FolderExists(target);
    if (isThere)
        target = QDir::toNativeSeparators(QFileInfo(target).canonicalFilePath());
    else if (QFileInfo::exists(target))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, QDir::toNativeSeparators(target));
    const fs::path old = NativePath(target);
    if (isThere && (WriteTrouble(old) || WriteTrouble(old.parent_path())))
        return;
    try {
        made.emplace(old, target);
        const fs::path place = made->Path() / Name;
        fs::create_directory(place);
        if (isThere) {
            TakeAlong(old, place);
            fs::permissions(place, fs::status(old).permissions());
        }
        folder = TextOfPath(place);
    } catch (const std::exception&) {
        made.reset();
        if (!isThere)
            throw RuntimeErrorOf(ErrorNumber::PathFileAccess, QDir::toNativeSeparators(target));
    }
}

void cPackageStage::Finish()
{
    if (!made)
        return;
    const fs::path place = made->Path() / Name;
    const fs::path named = NativePath(target);
    std::error_code error;
    if (FolderExists(target))
        error = ExchangeNames(place, named);
    else
        fs::rename(place, named, error);
    made.reset();
    if (error)
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, QDir::toNativeSeparators(target),
                             QString::fromLocal8Bit(error.message()));
}

} // namespace ob
