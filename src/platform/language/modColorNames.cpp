// SPDX-License-Identifier: GPL-3.0-or-later
// Colours by name.
#include "platform/language/modColorNames.h"

namespace ob {

ColorRef ColorFromName(const QString& name)
{
    for (std::size_t i = 0; i < ColorName.size(); ++i)
        if (name == QLatin1String(ColorName[i].data(), static_cast<qsizetype>(ColorName[i].size())))
            return ColorValue[i];
    return 0;
}

QString NameFromColor(const QString& text)
{
    bool isNumber = false;
    const qlonglong value = text.trimmed().toLongLong(&isNumber);
    if (!isNumber)
        return {};
    // The number may be signed or not; one of more than 32 bits is no colour.
    for (std::size_t i = 0; i < ColorValue.size(); ++i)
        if (value == ColorValue[i] || value == static_cast<std::int32_t>(ColorValue[i]))
            return QString::fromLatin1(ColorName[i].data(), static_cast<qsizetype>(ColorName[i].size()));
    return {};
}

} // namespace ob
