// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the engine's library share: texts that a failed comparison shows, and errors by number.
#pragma once

#include <QByteArray>
#include <QtTest>

#include <string>
#include <string_view>

#include "orchard/library/cProgramError.h"

inline QByteArray Shown(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

inline std::string_view View(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// The number of the error that a call throws; 0 for none.
template <typename Call>
int ErrorOf(Call call)
{
    try {
        (void)call();
        return 0;
    } catch (const ob::basic::cProgramError& error) {
        return static_cast<int>(error.Number());
    }
}

inline int NumberOf(ob::basic::ErrorNumber number)
{
    return static_cast<int>(number);
}
