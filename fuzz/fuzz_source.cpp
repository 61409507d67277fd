// SPDX-License-Identifier: GPL-3.0-or-later
// BASIC source of any bytes, loaded into a code window and saved: nothing is lost, nothing crashes.
#include "editor/files/modDocumentFile.h"
#include "editor/modLabels.h"
#include "engine/run/modIncludes.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        const QByteArray source = ob::LoadedBytes(file);
        const QByteArray text = ob::DecodeAnsi(source);
        const ob::SavedText saved = ob::SavedBytes(text);
        if (saved.lostLine != 0 || saved.bytes != source + " \r\n")
            std::abort();
        for (const ob::LabelEntry& entry : ob::LabelIndex(text))
            if (entry.text.isEmpty() || entry.text.contains('\n'))
                std::abort();
        const QString nowhere = QStringLiteral("no such folder/");
        if (!ob::IncludedText(text, ob::TextEncoding::Utf8, nowhere).isEmpty())
            std::abort();
    } catch (const ob::RuntimeError&) {
        if (size >= 2)
            std::abort();
    }
    return 0;
}
