// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes may be given as an icon file or as a program with icons.
#include "imagetools/icons/modIconFile.h"
#include "platform/language/modColorNames.h"

#include <cstdlib>

static void Require(bool holds)
{
    if (!holds)
        std::abort();
}

static void LookAtImage(ob::ByteView bytes)
{
    const auto size = ob::ReadIconImageSize(bytes);
    const auto image = ob::ReadIconImage(bytes);
    Require(size || !image);
    if (!image)
        return;
    const auto count = static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height);
    Require(*size == ob::IconImageSize{image->width, image->height, image->bits});
    Require(image->colors.size() == count && image->mask.size() == count);
    Require(image->alpha.empty() || image->alpha.size() == count);
    ob::Icon icon;
    ob::DrawIcon(icon, *image);
    for (const ob::ColorRef color : icon.pixels)
        Require(color <= 0xFFFFFF);
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const ob::ByteView input(data, size);
    LookAtImage(input);
    const ob::cIconIndex index(input);
    Require(index.Count() >= 0 && static_cast<std::size_t>(index.Count()) <= size);
    Require(!index.Size(index.Count()) && !index.Extract(-1));
    for (int icon = 0; icon < index.Count() && icon < 8; ++icon) {
        const auto stated = index.Size(icon);
        const auto image = index.Extract(icon);
        Require(!image || *stated == ob::IconImageSize{image->width, image->height, image->bits});
    }
    return 0;
}
