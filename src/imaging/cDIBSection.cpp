// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in memory.
#include "imaging/cDIBSection.h"

#include "imaging/cImagingError.h"
#include "imaging/modResample.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <system_error>

namespace ob {

namespace {

constexpr std::int64_t LongestBlock = std::numeric_limits<std::int32_t>::max();
// The source of error 17 is the class's older name.
constexpr char ErrorSource[] = "orchard-bench.cDIBSection256";

std::int64_t ScanLineBytes(std::int64_t width)
{
    return (width * 3 + 3) & ~std::int64_t{3};
}

// The part of a copy along one side that is within both pictures.
struct Overlap {
    std::int64_t source;
    std::int64_t target;
    std::int64_t length;
};

Overlap OverlapOf(std::int64_t source, std::int64_t sourceSize, std::int64_t target, std::int64_t targetSize,
                  std::int64_t length)
{
    const std::int64_t cut = std::max<std::int64_t>({0, -source, -target});
    source += cut;
    target += cut;
    return {source, target, std::min({length - cut, sourceSize - source, targetSize - target})};
}

std::uint8_t RandomByte(std::mt19937& generator)
{
    constexpr double steps = 4294967296.0;
    return static_cast<std::uint8_t>(std::nearbyint(static_cast<double>(generator()) / steps * 255.0));
}

} // namespace

void RaiseFileNotOpened(int systemError)
{
    throw ImagingError(17, ErrorSource, cDIBSection::ApiError(systemError));
}

bool cDIBSection::Create(std::int32_t width, std::int32_t height)
{
    ClearUp();
    header = {};
    header.biSize = static_cast<std::int32_t>(InfoHeaderSize);
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 24;
    if (width <= 0 || height <= 0 || ScanLineBytes(width) > LongestBlock / height)
        return false;
    header.biSizeImage = BytesPerScanLine() * height;
    return pixels.Allocate(static_cast<std::size_t>(header.biSizeImage));
}

void cDIBSection::ClearUp()
{
    pixels.Release();
}

std::int32_t cDIBSection::BytesPerScanLine() const
{
    return static_cast<std::int32_t>(ScanLineBytes(header.biWidth));
}

void cDIBSection::LoadPictureBlt(const cDIBSection& source, std::int32_t sourceLeft, std::int32_t sourceTop,
                                 std::int32_t width, std::int32_t height)
{
    source.PaintPicture(*this, 0, 0, width < 0 ? Width() : width, height < 0 ? Height() : height, sourceLeft,
                        sourceTop);
}

void cDIBSection::PaintPicture(cDIBSection& target, std::int32_t targetLeft, std::int32_t targetTop, std::int32_t width,
                               std::int32_t height, std::int32_t sourceLeft, std::int32_t sourceTop) const
{
    if (hdc() == 0 || target.hdc() == 0)
        return;
    const Overlap across = OverlapOf(sourceLeft, Width(), targetLeft, target.Width(), width < 0 ? Width() : width);
    const Overlap down = OverlapOf(sourceTop, Height(), targetTop, target.Height(), height < 0 ? Height() : height);
    if (across.length <= 0)
        return;
    for (std::int64_t step = 0; step < down.length; ++step) {
        // Within one picture, lines must be read before they are overwritten.
        const std::int64_t row = down.source < down.target ? down.length - 1 - step : step;
        std::memmove(target.Line(target.Height() - 1 - down.target - row) + across.target * 3,
                     Line(Height() - 1 - down.source - row) + across.source * 3,
                     static_cast<std::size_t>(across.length * 3));
    }
}

void cDIBSection::RandomiseBits(Noise noise, std::optional<std::uint32_t> seed)
{
    if (hdc() == 0)
        return;
    const auto timeOfDay = std::chrono::system_clock::now().time_since_epoch().count();
    std::mt19937 generator(seed.value_or(static_cast<std::uint32_t>(timeOfDay)));
    if (noise == Noise::Grey) {
        for (std::int32_t y = 0; y < Height(); ++y) {
            std::uint8_t* pixel = Line(y);
            for (std::int32_t x = 0; x < Width(); ++x, pixel += 3)
                pixel[0] = pixel[1] = pixel[2] = RandomByte(generator);
        }
        return;
    }
    for (std::int64_t x = 0; x < Width(); ++x) {
        for (std::int32_t y = 0; y < Height(); ++y) {
            std::uint8_t* pixel = Line(y) + x * 3;
            pixel[0] = 0;
            pixel[1] = RandomByte(generator);
            pixel[2] = RandomByte(generator);
        }
    }
}

std::optional<cDIBSection> cDIBSection::Resample(std::int32_t newHeight, std::int32_t newWidth) const
{
    std::optional<cDIBSection> result(std::in_place);
    if (!result->Create(newWidth, newHeight))
        return {};
    if (newWidth == Width() && newHeight == Height())
        result->LoadPictureBlt(*this);
    else
        ResampleInto(*this, *result);
    return result;
}

bool cDIBSection::SavePicture(const std::string& fileName, const FileWriter& write) const
{
    WriteFile(fileName, write);
    return false;
}

bool cDIBSection::WriteFile(const std::string& fileName, const FileWriter& write) const
{
    if (hdc() == 0)
        RaiseObjectNotSet();
    constexpr std::int32_t pixelOffset = static_cast<std::int32_t>(FileHeaderSize + InfoHeaderSize);
    // The file's size wraps round with a picture of almost 2 GB; readers ignore it.
    const auto fileSize = static_cast<std::uint32_t>(header.biSizeImage) + static_cast<std::uint32_t>(pixelOffset);
    const auto fileHeader =
        BytesOf(BitmapFileHeader{BitmapFileType, static_cast<std::int32_t>(fileSize), 0, 0, pixelOffset});
    const auto infoHeader = BytesOf(header);
    const std::array<ByteView, 3> pieces = {fileHeader, infoHeader, pixels.View()};
    const WriteResult result = write(fileName, pieces);
    if (result.outcome != FileOutcome::Done && result.outcome != FileOutcome::Failed)
        RaiseFileNotOpened(result.systemError);
    return result.outcome == FileOutcome::Done;
}

std::string cDIBSection::ApiError(int number)
{
    return std::system_category().message(number);
}

} // namespace ob
