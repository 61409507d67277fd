// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the modules.
#include "obtool/toolModules.h"

#include "obtool/toolFailure.h"
#include "platform/files/modPaths.h"

#include <QLibrary>

namespace ob {

namespace {

constexpr char PicturesModule[] = "ToolPicturesOB";
constexpr char ArchivesModule[] = "ToolArchivesOB";

template <class Function>
Function* FunctionOf(const char* module, const char* name)
{
    QLibrary library(ExecutableFolder() + QLatin1Char('/') + QLatin1String(module));
    const auto function = reinterpret_cast<Function*>(library.resolve(name));
    if (function == nullptr)
        throw ToolFailure(module, library.errorString());
    return function;
}

} // namespace

void AddVerbsForPictures(CLI::App& group)
{
    FunctionOf<ToolModule_AddVerbs_Function>(PicturesModule, ToolModule_AddVerbs_Name)(group);
}

void AddVerbsForArchives(CLI::App& group)
{
    FunctionOf<ToolModule_AddVerbs_Function>(ArchivesModule, ToolModule_AddVerbs_Name)(group);
}

cButtonPicture LoadBitmapByModule(const QString& path)
{
    cButtonPicture picture;
    FunctionOf<ToolModule_LoadBitmap_Function>(PicturesModule, ToolModule_LoadBitmap_Name)(path, picture);
    return picture;
}

} // namespace ob
