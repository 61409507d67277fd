// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes survive the conversion to UTF-8 and back, and any bytes may be given as UTF-8.
#include "platform/language/modAnsi.h"

#include <cstdlib>

static void Require(bool holds)
{
    if (!holds)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    const QByteArray utf8 = ob::DecodeAnsi(input);
    Require(QString::fromUtf8(utf8).toUtf8() == utf8);
    const ob::AnsiText back = ob::EncodeAnsi(utf8);
    Require(back.bytes == input && back.lostCount == 0 && back.firstLostLine == -1);

    const ob::AnsiText taken = ob::EncodeAnsi(input);
    Require(taken.bytes.size() <= input.size());
    Require((taken.lostCount == 0) == (taken.firstLostLine == -1));
    if (taken.lostCount == 0)
        Require(ob::DecodeAnsi(taken.bytes) == input);
    return 0;
}
