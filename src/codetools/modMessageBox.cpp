// SPDX-License-Identifier: GPL-3.0-or-later
// The message box maker.
#include "codetools/modMessageBox.h"

namespace ob {

namespace {

// The spaces at the ends belong to the words.
QString IconWord(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::None:
        return QStringLiteral("0 ");
    case BoxIcon::Critical:
        return QStringLiteral("_MB_ICONHAND ");
    case BoxIcon::Exclamation:
        return QStringLiteral("_MB_ICONEXCLAMATION ");
    case BoxIcon::Question:
        return QStringLiteral("_MB_ICONQUESTION ");
    case BoxIcon::Information:
        return QStringLiteral("_MB_ICONINFORMATION ");
    }
    return {};
}

QString ButtonsWord(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return QStringLiteral("OR _MB_OK ");
    case BoxButtons::OkCancel:
        return QStringLiteral("OR _MB_OKCANCEL ");
    case BoxButtons::YesNo:
        return QStringLiteral("OR _MB_YESNO ");
    case BoxButtons::YesNoCancel:
        return QStringLiteral("OR _MB_YESNOCANCEL ");
    case BoxButtons::RetryCancel:
        return QStringLiteral("OR _MB_RETRYCANCEL ");
    case BoxButtons::AbortRetryIgnore:
        return QStringLiteral("OR _MB_ABORTRETRYIGNORE ");
    }
    return {};
}

} // namespace

MessageBoxSpec WithDefaultTexts(MessageBoxSpec spec)
{
    if (spec.title.isEmpty())
        spec.title = QStringLiteral("Information");
    if (spec.message.isEmpty())
        spec.message = QStringLiteral("Message text goes here!");
    return spec;
}

QString MessageBoxCode(const MessageBoxSpec& spec)
{
    const QString icon = IconWord(spec.icon);
    const auto quoted = [](const QString& text) { return u'"' + text + u'"'; };
    const QString lines[] = {
        QStringLiteral("    calldll #user32, \"MessageBeep\", ") + icon +
            QStringLiteral(" as long, beepResult as boolean"),
        {},
        QStringLiteral("    mbflags = ") + icon + ButtonsWord(spec.buttons),
        {},
        QStringLiteral("    calldll #user32, \"MessageBoxA\", _ "),
        QStringLiteral("    0 as long, _"),
        QStringLiteral("    ") + quoted(spec.message) + QStringLiteral(" as ptr, _ "),
        QStringLiteral("    ") + quoted(spec.title) + QStringLiteral(" as ptr, _"),
        QStringLiteral("    mbflags as long, _"),
        QStringLiteral("    mbResult as long"),
        {},
        QStringLiteral("    'mbResult CODES: 1=ok 2=cancel 3=abort 4=retry 5=ignore 6=yes 7=no"),
        {},
    };
    QString code;
    for (const QString& line : lines)
        code += line + QStringLiteral("\r\n");
    return code;
}

} // namespace ob
