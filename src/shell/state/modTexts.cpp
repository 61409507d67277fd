// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the embedded texts and writes them out.
#include "shell/state/modTexts.h"

#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"

#include <QResource>

using namespace Qt::StringLiterals;

namespace ob {

std::optional<std::string_view> EmbeddedText(int id, const QString& type)
{
    if (type != QLatin1String("CUSTOM"))
        return std::nullopt;
    switch (id) {
    case 101:
        return EmbeddedText(u"wrapper32.bas"_s);
    case 102:
        return EmbeddedText(u"printer32.bas"_s);
    case 103:
        return EmbeddedText(u"jpeg.bas"_s);
    case 104:
        return EmbeddedText(u"jpeg.dll"_s);
    default:
        return std::nullopt;
    }
}

std::optional<std::string_view> EmbeddedText(const QString& name)
{
    const QResource resource(u":/texts/"_s + name);
    if (!resource.isValid() || resource.data() == nullptr)
        return std::nullopt;
    return std::string_view(reinterpret_cast<const char*>(resource.data()), static_cast<std::size_t>(resource.size()));
}

void ExtractResource(int id, const QString& type, const QString& path)
{
    const auto text = EmbeddedText(id, type);
    if (!text)
        return;
    try {
        WriteKeepingTail(path, QByteArray::fromRawData(text->data(), static_cast<qsizetype>(text->size())),
                         Durability::Unsynced);
    } catch (const RuntimeError&) {
        // A folder that cannot be written costs the user the library, not the start.
    }
}

} // namespace ob
