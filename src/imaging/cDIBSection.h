// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in memory: 24 bits per pixel in the order blue, green, red, lines bottom-up, each on a multiple of 4 bytes.
#pragma once

#include "imaging/cBytes.h"
#include "imaging/modBitmapHeaders.h"
#include "imaging/modFileAccess.h"

#include <cstdint>
#include <optional>
#include <string>

namespace ob {

enum class Noise { Color, Grey };

class cDIBSection {
public:
    // Creates a black picture of that size and discards the old one. False when a side is below 1 or the pixels need
    // more than 2^31 - 1 bytes or more memory than available; the object then has no pixels.
    bool Create(std::int32_t width, std::int32_t height);

    // Frees the pixels. Width and Height keep the last size.
    void ClearUp();

    std::int32_t Width() const { return header.biWidth; }
    std::int32_t Height() const { return header.biHeight; }
    std::int32_t BytesPerScanLine() const;
    const BitmapInfoHeader& Header() const { return header; }

    // The first byte of the bottom line; null when there are no pixels. Plain memory is also the drawing surface, so
    // the two handles are its address, and 0 without pixels.
    std::uint8_t* DIBSectionBitsPtr() { return pixels.Data(); }
    const std::uint8_t* DIBSectionBitsPtr() const { return pixels.Data(); }
    std::uintptr_t hDib() const { return reinterpret_cast<std::uintptr_t>(pixels.Data()); }
    std::uintptr_t hdc() const { return hDib(); }

    // One line, from 0 at the bottom.
    std::uint8_t* Line(std::int64_t y) { return pixels.Data() + y * BytesPerScanLine(); }
    const std::uint8_t* Line(std::int64_t y) const { return pixels.Data() + y * BytesPerScanLine(); }

    // Copies a part of the source, measured from its top left corner, to this picture's top left corner. A width or
    // height below 0 is this picture's own. What is outside either picture is unchanged.
    void LoadPictureBlt(const cDIBSection& source, std::int32_t sourceLeft = 0, std::int32_t sourceTop = 0,
                        std::int32_t width = -1, std::int32_t height = -1);

    // The same from this picture to a place in another; a width or height below 0 is this picture's own.
    void PaintPicture(cDIBSection& target, std::int32_t targetLeft = 0, std::int32_t targetTop = 0,
                      std::int32_t width = -1, std::int32_t height = -1, std::int32_t sourceLeft = 0,
                      std::int32_t sourceTop = 0) const;

    // Fills the picture with noise: greys, or greens and reds without blue. Without a seed, seeds with the time of day.
    void RandomiseBits(Noise noise, std::optional<std::uint32_t> seed = {});

    // A copy scaled to that size (height first), bilinear; nothing when the size is impossible. Raises the subscript
    // error for a source of height or width 1, unless the size stays the same.
    std::optional<cDIBSection> Resample(std::int32_t newHeight, std::int32_t newWidth) const;

    // Writes the picture as a 24-bit bitmap file; whether all of it was written. Raises error 17 when the file cannot
    // be opened, and what the writer throws.
    bool WriteFile(const std::string& fileName, const FileWriter& write) const;

    // The same, but always false, also after a good write.
    bool SavePicture(const std::string& fileName, const FileWriter& write) const;

    // The system's text for an error number.
    static std::string ApiError(int number);

private:
    BitmapInfoHeader header;
    cBytes pixels;
};

// Error 17 of the bitmap writers, for a file that cannot be opened.
[[noreturn]] void RaiseFileNotOpened(int systemError);

} // namespace ob
