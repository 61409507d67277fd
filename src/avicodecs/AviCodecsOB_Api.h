// SPDX-License-Identifier: GPL-3.0-or-later
// What the compressors' plugin offers to the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ob {

enum class AviQuality { Fixed, Adjustable };

struct AviCodec {
    std::string_view name; // as on the command line
    std::string_view description;
    AviQuality quality = AviQuality::Fixed;
    int sizeStep = 1; // width and height must be multiples of it
};

struct AviEncoderSpec {
    int width = 0; // in pixels; both are above 0
    int height = 0;
    int framesPerSecond = 1;
    int quality = 90; // 1 to 100, for an adjustable codec
};

// Encodes each picture as a key frame. The same pictures always give the same bytes.
class cAviEncoder {
public:
    cAviEncoder() = default;
    cAviEncoder(const cAviEncoder&) = delete;
    cAviEncoder& operator=(const cAviEncoder&) = delete;
    virtual ~cAviEncoder() = default;

    // The codec's four characters.
    virtual std::uint32_t Handler() const = 0;

    // The stream's format: a BITMAPINFOHEADER, followed by the decoder's own data.
    virtual std::vector<std::uint8_t> Format() const = 0;

    // Encodes a picture of the given size, three bytes per pixel in the order blue, green, red: its topmost line, and
    // the distance in bytes to the line below. The result is valid until the next call; empty when the encoder failed.
    virtual std::span<const std::uint8_t> Encode(const std::uint8_t* topLine, std::ptrdiff_t lineStep) = 0;
};

class cAviCodecs {
public:
    cAviCodecs() = default;
    cAviCodecs(const cAviCodecs&) = delete;
    cAviCodecs& operator=(const cAviCodecs&) = delete;
    virtual ~cAviCodecs() = default;

    // The codecs that this system's libraries support.
    virtual std::span<const AviCodec> Codecs() const = 0;

    // An encoder, or null and the reason in words: the codec is not available, or does not support that size.
    virtual std::unique_ptr<cAviEncoder> MakeEncoder(std::string_view name, const AviEncoderSpec& spec,
                                                     std::string& reason) const = 0;
};

// The plugin's only function. The result lives as long as the plugin.
using AviCodecsOB_Function = const cAviCodecs*();
inline constexpr char AviCodecsOB_Name[] = "AviCodecsOB_Codecs";

} // namespace ob
