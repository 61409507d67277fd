// SPDX-License-Identifier: GPL-3.0-or-later
// Answers the program's boxes from a script.
#include "support/ScriptedDialogs.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

void Fail(const QString& message)
{
    QTest::qFail(message.toUtf8().constData(), __FILE__, __LINE__);
}

} // namespace

ScriptedDialogs::ScriptedDialogs() : before(SetDialogs(this)) {}

ScriptedDialogs::~ScriptedDialogs()
{
    SetDialogs(before);
    for (const Step& step : steps)
        Fail(u"never shown: "_s + step.description);
}

QString ScriptedDialogs::Describe(const MessageSpec& spec)
{
    return u"message \"%1\" icon %2 buttons %3 title \"%4\""_s.arg(spec.text)
        .arg(static_cast<int>(spec.icon))
        .arg(static_cast<int>(spec.buttons))
        .arg(spec.title);
}

QString ScriptedDialogs::Describe(const InputSpec& spec)
{
    return u"input \"%1\" title \"%2\" initial \"%3\""_s.arg(spec.prompt, spec.title, spec.initial);
}

QString ScriptedDialogs::Describe(FilePurpose purpose, const QString& title, const QString& filter)
{
    return u"%1 box \"%2\" filter \"%3\""_s.arg(purpose == FilePurpose::Open ? u"open"_s : u"save"_s, title, filter);
}

QString ScriptedDialogs::Describe(const ColorSpec& spec)
{
    return u"color box \"%1\" start %2"_s.arg(spec.title).arg(spec.start, 6, 16, QLatin1Char('0'));
}

QString ScriptedDialogs::Describe(const FontSpec& font)
{
    return u"font box \"%1\" size %2 bold %3 italic %4"_s.arg(font.name).arg(font.size).arg(font.bold).arg(font.italic);
}

void ScriptedDialogs::ExpectFolder(const QString& title, const QString& answer)
{
    steps.append({u"folder box \"%1\""_s.arg(title), BoxAnswer::Ok, answer, {}, {}});
}

void ScriptedDialogs::ExpectColor(const QString& title, std::uint32_t start, std::optional<std::uint32_t> answer)
{
    steps.append({Describe(ColorSpec{title, start}), BoxAnswer::Ok, {}, answer, {}});
}

void ScriptedDialogs::ExpectFont(const FontSpec& start, const std::optional<FontSpec>& answer)
{
    steps.append({Describe(start), BoxAnswer::Ok, {}, {}, answer});
}

void ScriptedDialogs::ExpectMessage(const QString& text, BoxAnswer answer, BoxIcon icon, BoxButtons buttons,
                                    const QString& title)
{
    steps.append({Describe(MessageSpec{text, icon, buttons, title}), answer, {}, {}, {}});
}

void ScriptedDialogs::ExpectQuestion(const QString& text, BoxAnswer answer)
{
    ExpectMessage(text, answer, BoxIcon::Question, BoxButtons::YesNo);
}

void ScriptedDialogs::ExpectInput(const InputSpec& spec, const std::optional<QString>& answer)
{
    steps.append({Describe(spec), BoxAnswer::Ok, answer, {}, {}});
}

void ScriptedDialogs::ExpectFile(FilePurpose purpose, const QString& title, const QString& filter,
                                 const QString& answer, int filterIndex)
{
    steps.append({Describe(purpose, title, filter), BoxAnswer::Ok, answer, {}, {}, filterIndex});
}

void ScriptedDialogs::ExpectFiles(const QString& title, const QString& filter, const QStringList& answer)
{
    steps.append({Describe(FilePurpose::Open, title, filter), BoxAnswer::Ok, answer.value(0), {}, {}, 0, answer});
}

bool ScriptedDialogs::Finished() const
{
    for (const Step& step : steps)
        qWarning("still to come: %s", step.description.toUtf8().constData());
    return steps.isEmpty();
}

std::optional<ScriptedDialogs::Step> ScriptedDialogs::Next(const QString& shown)
{
    if (steps.isEmpty() || steps.first().description != shown) {
        Fail(u"unexpected %1; expected %2"_s.arg(shown, steps.isEmpty() ? u"nothing"_s : steps.first().description));
        return std::nullopt;
    }
    return steps.takeFirst();
}

BoxAnswer ScriptedDialogs::Message(const MessageSpec& spec)
{
    const auto step = Next(Describe(spec));
    if (step)
        return step->answer;
    return spec.buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel;
}

std::optional<QString> ScriptedDialogs::Input(const InputSpec& spec)
{
    const auto step = Next(Describe(spec));
    return step ? step->text : std::nullopt;
}

QString ScriptedDialogs::File(const FileSpec& spec)
{
    lastFile = spec;
    lastFile.filterIndex = nullptr;
    const auto step = Next(Describe(spec.purpose, spec.title, spec.filter));
    if (!step)
        return {};
    if (spec.filterIndex != nullptr)
        *spec.filterIndex = step->filterIndex;
    return step->text.value_or(QString());
}

QStringList ScriptedDialogs::Files(const FileSpec& spec)
{
    const QStringList several = steps.isEmpty() ? QStringList() : steps.first().files;
    const QString one = File(spec);
    return one.isEmpty() ? QStringList() : several.isEmpty() ? QStringList(one) : several;
}

QString ScriptedDialogs::Folder(const FolderSpec& spec)
{
    const auto step = Next(u"folder box \"%1\""_s.arg(spec.title));
    return step ? step->text.value_or(QString()) : QString();
}

std::optional<std::uint32_t> ScriptedDialogs::Color(const ColorSpec& spec)
{
    const auto step = Next(Describe(spec));
    return step ? step->color : std::nullopt;
}

std::optional<FontSpec> ScriptedDialogs::Font(const FontSpec& start)
{
    const auto step = Next(Describe(start));
    return step ? step->font : std::nullopt;
}

} // namespace ob
