// SPDX-License-Identifier: GPL-3.0-or-later
// The folder in which a package is put together before it takes its name.
#pragma once

#include "platform/files/cTemporaryFolder.h"

#include <QString>

#include <optional>

namespace ob {

// What an older package has is in it from the start, so that the whole takes the older one's place at once. An older
// package that is locked, or whose files cannot be taken along, is worked on where it is.
class cPackageStage {
public:
    // Raises PathFileAccess when the package's folder cannot be made.
    explicit cPackageStage(const QString& packageFolder);

    // Where the files go.
    const QString& Folder() const { return folder; }

    // Gives the package its name. Without this nothing of it stays. Raises PathFileAccess.
    void Finish();

private:
    QString target;
    QString folder;
    std::optional<cTemporaryFolder> made;
};

} // namespace ob
