// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes may be given as a bitmap file or as a bitmap in memory.
#include "imaging/cDIB.h"
#include "imaging/cImagingError.h"
#include "imaging/modBitmapFile.h"
#include "imaging/modBitmapLayout.h"

#include <cstdlib>

static void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// If these bytes looked like used ones, a read beyond the end would go unnoticed.
static unsigned SumOf(ob::ByteView bytes)
{
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes)
        sum += byte;
    return sum;
}

static void LookAt(const ob::cDIB& dib)
{
    // Sizes that exist only in the header would exhaust the fuzzer's memory.
    constexpr std::int32_t most = 1 << 16;
    Require(dib.SizeImage() >= 1 && dib.SizeBitmapInfo() >= 1);
    unsigned sum = 0;
    if (dib.SizeImage() < most)
        sum += SumOf(dib.PointerToBits());
    if (dib.SizeBitmapInfo() < most)
        sum += SumOf(dib.PointerToBitmapInfo());
    if (dib.SizeImage() < most && dib.SizeBitmapInfo() < most) {
        dib.WriteToFile("x", [&](const std::string&, std::span<const ob::ByteView> pieces) {
            for (const ob::ByteView piece : pieces)
                sum += SumOf(piece);
            return ob::WriteResult();
        });
    }
    volatile unsigned sink = sum;
    (void)sink;
}

static void LookAtPicture(ob::ByteView input)
{
    const auto read = ob::ReadBitmapLayout(input);
    const auto* layout = std::get_if<ob::BitmapLayout>(&read);
    if (!layout)
        return;
    const auto pictureBytes = std::int64_t{layout->width} * layout->height * 3;
    Require(layout->width > 0 && layout->height > 0);
    Require(pictureBytes <= static_cast<std::int64_t>(ob::UncheckedPictureBytes) ||
            pictureBytes <= static_cast<std::int64_t>(input.size()) * 400);
    // Large pictures run through the same code, only longer.
    if (pictureBytes > 1 << 17)
        return;
    const auto decoded = ob::ReadBitmap(input);
    const auto* picture = std::get_if<ob::cDIBSection>(&decoded);
    Require(picture && picture->Width() == layout->width && picture->Height() == layout->height);
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const ob::ByteView input(data, size);
    LookAtPicture(input);
    try {
        ob::cDIB dib;
        if (dib.CreateFromBytes({input.begin(), input.end()}))
            LookAt(dib);
    } catch (const ob::ImagingError& error) {
        Require(error.number == 9);
    }
    ob::cDIB packed;
    if (packed.CreateFromPackedDIBPointer(input))
        LookAt(packed);
    return 0;
}
