// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes may be given as a metafile.
#include "imagetools/metafiles/modMetafile.h"

#include <QGuiApplication>

#include <cstdlib>

// Fonts of invented names fill the system's own lists, which it never empties.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

static void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// Text is part of what is played.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static int count = 3;
    static char program[] = "fuzz_metafile";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static char* arguments[] = {program, option, platform, nullptr};
    static const QGuiApplication application(count, arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto played = ob::PlayMetafile(bytes);
    if (const auto* image = std::get_if<QImage>(&played))
        Require(!image->isNull() && qint64{image->width()} * image->height() <= 16'000'000);
    else
        Require(ob::IsMetafile(bytes) || std::get<ob::MetafileError>(played) == ob::MetafileError::NotAMetafile);
    return 0;
}
