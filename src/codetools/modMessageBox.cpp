// SPDX-License-Identifier: GPL-3.0-or-later
// The message box maker.
#include "codetools/modMessageBox.h"

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The spaces at the ends belong to the words.
QString IconWord(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::None:
        return u"0 "_s;
    case BoxIcon::Critical:
        return u"_MB_ICONHAND "_s;
    case BoxIcon::Exclamation:
        return u"_MB_ICONEXCLAMATION "_s;
    case BoxIcon::Question:
        return u"_MB_ICONQUESTION "_s;
    case BoxIcon::Information:
        return u"_MB_ICONINFORMATION "_s;
    }
    return {};
}

QString ButtonsWord(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return u"OR _MB_OK "_s;
    case BoxButtons::OkCancel:
        return u"OR _MB_OKCANCEL "_s;
    case BoxButtons::YesNo:
        return u"OR _MB_YESNO "_s;
    case BoxButtons::YesNoCancel:
        return u"OR _MB_YESNOCANCEL "_s;
    case BoxButtons::RetryCancel:
        return u"OR _MB_RETRYCANCEL "_s;
    case BoxButtons::AbortRetryIgnore:
        return u"OR _MB_ABORTRETRYIGNORE "_s;
    }
    return {};
}

} // namespace

MessageBoxSpec WithDefaultTexts(MessageBoxSpec spec)
{
    if (spec.title.isEmpty())
        spec.title = u"Information"_s;
    if (spec.message.isEmpty())
        spec.message = u"Message text goes here!"_s;
    return spec;
}

QString MessageBoxCode(const MessageBoxSpec& spec)
{
    const QString icon = IconWord(spec.icon);
    const auto quoted = [](const QString& text) { return u'"' + text + u'"'; };
    const QString lines[] = {
        u"    calldll #user32, \"MessageBeep\", "_s + icon + u" as long, beepResult as boolean"_s,
        {},
        u"    mbflags = "_s + icon + ButtonsWord(spec.buttons),
        {},
        u"    calldll #user32, \"MessageBoxA\", _ "_s,
        u"    0 as long, _"_s,
        u"    "_s + quoted(spec.message) + u" as ptr, _ "_s,
        u"    "_s + quoted(spec.title) + u" as ptr, _"_s,
        u"    mbflags as long, _"_s,
        u"    mbResult as long"_s,
        {},
        u"    'mbResult CODES: 1=ok 2=cancel 3=abort 4=retry 5=ignore 6=yes 7=no"_s,
        {},
    };
    QString code;
    for (const QString& line : lines)
        code += line + u"\r\n"_s;
    return code;
}

} // namespace ob
