// SPDX-License-Identifier: GPL-3.0-or-later
// The compressors that an AVI file can be made with: "none", and those of the plugin AviCodecsOB, loaded on first use.
#pragma once

#include "avicodecs/AviCodecsOB_Api.h"

#include <QString>

#include <memory>
#include <vector>

namespace ob {

inline constexpr std::string_view NoCodec = "none";

struct AviOptions {
    std::string codec{NoCodec};
    int quality = 90; // 1 to 100
};

// "none" first, then the installed ones.
std::vector<AviCodec> AviCodecs();

// The reason why there is only "none"; empty when the compressors are available.
QString AviCodecsTrouble();

// The reason why a picture of that size cannot be compressed so; empty when it can. Both must be above 0.
QString AviRefusal(const AviOptions& options, int width, int height);

// An encoder of the plugin, or nothing and the reason.
struct AviEncoderResult {
    std::unique_ptr<cAviEncoder> encoder;
    QString reason;
};
AviEncoderResult MakeAviEncoder(const AviOptions& options, int width, int height, int framesPerSecond);

} // namespace ob
