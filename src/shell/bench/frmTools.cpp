// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of all rooms: each room that has some is one line here.
#include "shell/bench/frmTools.h"

#include "codetools/frmTools.h"
#include "editor/frmTools.h"
#include "engine/package/frmTools.h"
#include "engine/run/frmTools.h"
#include "guibuilder/frmTools.h"
#include "imagetools/avi/frmTools.h"
#include "imagetools/colors/frmTools.h"
#include "imagetools/icons/frmTools.h"
#include "imagetools/media/frmTools.h"
#include "imagetools/pictures/frmTools.h"
#include "imagetools/sprites/frmTools.h"
#include "shell/bench/modLaunchers.h"

#include <algorithm>
#include <span>

namespace ob {

namespace {

using RoomTools = std::span<const ToolRow> (*)();

// The libraries that the bench keeps beside the program.
constexpr ToolRow libraries[] = {
    {"mnuWrapper", "AP&I Wrapper Library", "api-library", "api-libraries", mnuWrapper_Click, ConstructionTools},
    {"mnuToolPrinter", "&Printer API Library", "printer-library", "api-libraries", mnuToolPrinter_Click,
     ConstructionTools},
};

std::span<const ToolRow> LibraryTools()
{
    return libraries;
}

// clang-format off
constexpr RoomTools rooms[] = {
    EditorTools,
    GuiTools,
    RunTools,
    PackageTools,
    PictureTools,
    IconTools,
    AviTools,
    SpriteTools,
    MediaTools,
    ColorTools,
    CodeTools,
    LibraryTools,
};
// clang-format on

} // namespace

const std::vector<ToolRow>& Tools()
{
    static const std::vector<ToolRow> tools = [] {
        std::vector<ToolRow> all;
        for (const RoomTools room : rooms)
            all.insert(all.end(), room().begin(), room().end());
        return all;
    }();
    return tools;
}

const ToolRow* FindTool(const QString& name)
{
    const auto tool = std::find_if(Tools().begin(), Tools().end(),
                                   [&name](const ToolRow& row) { return name == QLatin1String(row.name); });
    return tool == Tools().end() ? nullptr : &*tool;
}

} // namespace ob
