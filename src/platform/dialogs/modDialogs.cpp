// SPDX-License-Identifier: GPL-3.0-or-later
// The seam of the modal boxes and the place that shows an uncaught runtime error.
#include "platform/dialogs/modDialogs.h"

#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <cstdio>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Without windows a box is a line on standard error with the answer of a closed box.
class ConsoleDialogs final : public cDialogs {
public:
    BoxAnswer Message(const MessageSpec& spec) override
    {
        QString line = spec.text;
        line.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(QLatin1Char('\n'), QLatin1Char(' '));
        std::fprintf(stderr, "obtool: note: %s\n", line.trimmed().toUtf8().constData());
        switch (spec.buttons) {
        case BoxButtons::Ok:
            return BoxAnswer::Ok;
        case BoxButtons::OkCancel:
            return BoxAnswer::Cancel;
        case BoxButtons::YesNo:
            return BoxAnswer::No;
        case BoxButtons::YesNoCancel:
        case BoxButtons::RetryCancel:
            return BoxAnswer::Cancel;
        case BoxButtons::AbortRetryIgnore:
            return BoxAnswer::Abort;
        }
        return BoxAnswer::Cancel;
    }

    std::optional<QString> Input(const InputSpec&) override { return std::nullopt; }
    QString File(const FileSpec&) override { return {}; }
    QString Folder(const FolderSpec&) override { return {}; }
    std::optional<std::uint32_t> Color(const ColorSpec&) override { return std::nullopt; }
    std::optional<FontSpec> Font(const FontSpec&) override { return std::nullopt; }
};

cDialogs*& Current()
{
    static ConsoleDialogs console;
    static cDialogs* current = &console;
    return current;
}

std::function<void(const QString&)>& Reasons()
{
    static std::function<void(const QString&)> sink;
    return sink;
}

void GiveReason(const QString& reason)
{
    if (!reason.isEmpty() && Reasons())
        Reasons()(reason);
}

} // namespace

cDialogs* SetDialogs(cDialogs* dialogs)
{
    cDialogs* before = Current();
    Current() = dialogs;
    return before;
}

BoxAnswer MsgBox(const QString& text, BoxIcon icon, BoxButtons buttons, const QString& title)
{
    return MsgBox({text, icon, buttons, title});
}

BoxAnswer MsgBox(const MessageSpec& spec)
{
    GiveReason(spec.reason);
    return Current()->Message(spec);
}

// The file, where the error's source is one, and the reason.
static QString DetailsOf(const RuntimeError& error)
{
    const bool isFile = QFileInfo(error.source).isAbsolute();
    if (!isFile || error.reason.isEmpty())
        return isFile ? error.source : error.reason;
    return error.source + u": "_s + error.reason;
}

void FailureBox(const QString& text, const RuntimeError& error, const QString& title)
{
    MsgBox({text, BoxIcon::Critical, BoxButtons::Ok, title, DetailsOf(error)});
}

std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& initial)
{
    return Current()->Input({prompt, title, initial});
}

QStringList cDialogs::Files(const FileSpec& spec)
{
    const QString chosen = File(spec);
    return chosen.isEmpty() ? QStringList() : QStringList(chosen);
}

// The next box starts in the folder of this choice.
static void GoToFolderOf(const QString& chosen)
{
    if (!chosen.isEmpty())
        QDir::setCurrent(QFileInfo(chosen).absolutePath());
}

// Whether the choice is refused, with a message.
static bool IsRefused(const QString& chosen)
{
    if (!IsLostName(chosen))
        return false;
    MsgBox(LostNameText(chosen), BoxIcon::Exclamation);
    return true;
}

QString FileBox(const FileSpec& spec)
{
    const QString chosen = Current()->File(spec);
    if (IsRefused(chosen))
        return {};
    GoToFolderOf(chosen);
    return chosen;
}

QStringList FilesBox(const FileSpec& spec)
{
    QStringList chosen = Current()->Files(spec);
    chosen.removeIf(IsRefused);
    GoToFolderOf(chosen.value(0));
    return chosen;
}

QString OpenFileDialog(const QString& filter, const QString& folder)
{
    return FileBox({FilePurpose::Open, u"Open File..."_s, folder, {}, filter});
}

QString FolderBox(const QString& title, const QString& start)
{
    return Current()->Folder({title, start});
}

std::optional<std::uint32_t> ColorBox(const QString& title, std::uint32_t start)
{
    return Current()->Color({title, start});
}

std::optional<FontSpec> FontBox(const FontSpec& start)
{
    return Current()->Font(start);
}

QList<FileFilter> FileFiltersOf(const QString& filter)
{
    QList<FileFilter> filters;
    const QStringList parts = filter.split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        FileFilter pair{parts[i].trimmed(), {}};
        const QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString pattern : patterns) {
            pattern.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
            pattern = pattern.trimmed();
            // "*.*" means every file, also one without a dot.
            pair.patterns.append(pattern == QLatin1String("*.*") ? u"*"_s : pattern);
        }
        filters.append(pair);
    }
    return filters;
}

void SetReasonSink(std::function<void(const QString&)> sink)
{
    Reasons() = std::move(sink);
}

void ShowReason(const RuntimeError& error)
{
    GiveReason(DetailsOf(error));
}

void ShowRuntimeError(const NumberedError& error)
{
    const auto* runtime = dynamic_cast<const RuntimeError*>(&error);
    const QString words = QString::fromUtf8(error.what());
    MsgBox({u"Run-time error '%1':\n%2"_s.arg(error.number).arg(words), BoxIcon::Critical, BoxButtons::Ok, QString(),
            runtime == nullptr ? QString() : DetailsOf(*runtime)});
}

static void ShowUnexpectedError(const QString& reason)
{
    MsgBox(u"This command ended with an unexpected error:\n"_s + reason, BoxIcon::Critical);
}

void ShowCaughtError()
{
    try {
        throw;
    } catch (const NumberedError& error) {
        ShowRuntimeError(error);
    } catch (const std::bad_alloc&) {
        ShowRuntimeError(RuntimeError(7, {}, u"Out of memory"_s));
    } catch (const std::exception& error) {
        ShowUnexpectedError(QString::fromLocal8Bit(error.what()));
    } catch (...) {
        ShowUnexpectedError(u"no reason is known"_s);
    }
}

CommandEnd RunCommand(const std::function<void()>& command)
{
    try {
        command();
        return CommandEnd::Finished;
    } catch (...) {
        ShowCaughtError();
        return CommandEnd::Failed;
    }
}

} // namespace ob
