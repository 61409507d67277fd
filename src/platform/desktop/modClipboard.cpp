// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard as the tools fill it.
#include "platform/desktop/modClipboard.h"

#include "platform/dialogs/modDialogs.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace ob {

namespace {

// Systems have different line ends.
QString WithoutReturns(QString text)
{
    return text.remove(QLatin1Char('\r'));
}

// The toolkit does not report a refusal, so the text is read back.
bool WriteClipboard(const QString& text)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return false;
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.setText(text);
    return WithoutReturns(clipboard.text()) == WithoutReturns(text);
}

std::function<bool(const QString&)>& Writer()
{
    static std::function<bool(const QString&)> writer;
    return writer;
}

} // namespace

bool CopyText(const QString& text)
{
    if (Writer() ? Writer()(text) : WriteClipboard(text))
        return true;
    MsgBox(ClipboardTakenText, BoxIcon::Exclamation);
    return false;
}

void SetClipboardWriter(std::function<bool(const QString&)> writer)
{
    Writer() = std::move(writer);
}

} // namespace ob
