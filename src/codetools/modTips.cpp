// SPDX-License-Identifier: GPL-3.0-or-later
// The tips of the day.
#include "codetools/modTips.h"

#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"
#include "shell/state/modSettings.h"
#include "shell/state/modTexts.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

std::function<double()>& RandomSource()
{
    static std::function<double()> source;
    return source;
}

} // namespace

QStringList LoadTips()
{
    const auto text = EmbeddedText(u"tips.txt"_s);
    if (!text)
        return {};
    const QString lines = QString::fromLatin1(text->data(), static_cast<qsizetype>(text->size()));
    return lines.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

int FirstTip(double random, int count)
{
    return NextTip(static_cast<int>(random * count + 1), count);
}

int NextTip(int index, int count)
{
    if (count == 0)
        return 0;
    return index + 1 > count ? 1 : index + 1;
}

void StoreShowTips()
{
    WriteSetting(u"ShowTips"_s, BooleanText(ShowTips));
}

double RandomNumber()
{
    const auto& source = RandomSource();
    return source ? source() : QRandomGenerator::global()->generateDouble();
}

void SetRandomSource(std::function<double()> source)
{
    RandomSource() = std::move(source);
}

} // namespace ob
