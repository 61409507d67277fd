// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of sounds, songs and films.
#include "imagetools/media/frmTools.h"

#include "imagetools/media/frmMedia.h"
#include "imagetools/media/frmWav.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolWav", "&Wav Preview", "sound", frmWav::ManualPage, mnuToolWav_Click, PreviewTools},
    {"mnuToolMedia", "Med&ia Preview", "media", frmMedia::ManualPage, mnuToolMedia_Click, PreviewTools},
};
// clang-format on

std::span<const ToolRow> MediaTools()
{
    return rows;
}

} // namespace ob
