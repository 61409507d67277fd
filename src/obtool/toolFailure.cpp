// SPDX-License-Identifier: GPL-3.0-or-later
// Turns exceptions of the libraries into failures, and failures into lines.
#include "obtool/toolFailure.h"

#include "platform/language/cRuntimeError.h"

#include <cstdio>
#include <new>

using namespace Qt::StringLiterals;

namespace ob {

void ThrowAsFailureOf(const std::string& file)
{
    try {
        throw;
    } catch (const NumberedError& error) {
        throw ToolFailure(file, QString::fromUtf8(error.what()));
    } catch (const std::bad_alloc&) {
        throw ToolFailure(file, u"Out of memory"_s);
    }
}

void ThrowAsFailureIn(const std::string& folder)
{
    try {
        throw;
    } catch (const RuntimeError& error) {
        ThrowAsFailureOf(error.source.isEmpty() ? folder : error.source.toStdString());
    } catch (...) {
        ThrowAsFailureOf(folder);
    }
}

int Report(const ToolFailure& failure)
{
    // One line, whatever the reason contains.
    QString line = failure.reason;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    std::fprintf(stderr, "obtool: %s: %s\n", failure.file.c_str(), line.toUtf8().constData());
    return 1;
}

} // namespace ob
