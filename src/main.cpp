// SPDX-License-Identifier: GPL-3.0-or-later
// The process's entry: the start routine, then the event loop.
#include "platform/dialogs/dlgStandard.h"
#include "platform/dialogs/frmApplication.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modTemporaryFiles.h"
#include "shell/bench/frmMain.h"
#include "shell/bench/modStart.h"
#include "shell/state/cMainForm.h"

#include <QIcon>

#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr char usage[] = "usage: orchard-bench [--grab OUT.png] [--size WxH] [FILE]\n"
                         "       orchard-bench --version | --help\n"
                         "\n"
                         "Opens the bench, and in it FILE: a form (.obf) or BASIC source.\n"
                         "\n"
                         "  --grab OUT.png  open as usual, paint, save a picture of the main window, end\n"
                         "  --size WxH      open the main window in that size, in pixels; a picture is 1280x800\n"
                         "  --version       print the version\n"
                         "  --help          print this text\n";

// What the command line asks of the bench.
struct Request {
    QString picture;
    std::optional<QSize> size;
    QStringList files;
};

// From "1280x800"; nothing for anything else, or a size that no window could have.
std::optional<QSize> SizeOf(const QString& text)
{
    constexpr QSize least(100, 100);
    constexpr QSize most(16'000, 16'000);
    const QStringList sides = text.split(QLatin1Char('x'));
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    if (sides.size() != 2 || size.expandedTo(least) != size || size.boundedTo(most) != size)
        return std::nullopt;
    return size;
}

// The options come first. Nothing when one has no value, or one that means nothing.
std::optional<Request> RequestOf(QStringList words)
{
    Request request;
    while (!words.isEmpty() && (words[0] == QLatin1String("--grab") || words[0] == QLatin1String("--size"))) {
        const QString option = words.takeFirst();
        if (words.isEmpty())
            return std::nullopt;
        const QString value = words.takeFirst();
        if (option == QLatin1String("--grab"))
            request.picture = value;
        else if (request.size = SizeOf(value); !request.size)
            return std::nullopt;
    }
    request.files = words;
    return request;
}

// Handles requests that need no window before the toolkit starts: the exit status, or nothing.
std::optional<int> AnswerAtOnce(int count, char** arguments)
{
    const char* const first = count > 1 ? arguments[1] : "";
    if (std::strcmp(first, "--version") == 0)
        return std::puts("orchard-bench " OB_VERSION) < 0 ? 1 : 0;
    if (std::strcmp(first, "--help") == 0)
        return std::fputs(usage, stdout) < 0 ? 1 : 0;
    QStringList words;
    for (int i = 1; i < count; ++i)
        words.append(QString::fromLocal8Bit(arguments[i]));
    if (!RequestOf(words)) {
        std::fputs(usage, stderr);
        return 2;
    }
    return std::nullopt;
}

int SavePicture(ob::frmMain& frame, const QString& path)
{
    QApplication::processEvents();
    if (frame.grab().save(path))
        return 0;
    std::fprintf(stderr, "orchard-bench: %s: the picture cannot be written\n", path.toUtf8().constData());
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (const auto status = AnswerAtOnce(argc, argv))
        return *status;

    ob::RemoveMarkedOnSignals();
    const ob::frmApplication application(argc, argv);
    QApplication::setApplicationName(u"orchard-bench"_s);
    QApplication::setApplicationDisplayName(QString());
    QApplication::setDesktopFileName(u"orchard-bench"_s);
    QApplication::setWindowIcon(QIcon(u":/icons/app.svg"_s));

    Request request = RequestOf(QApplication::arguments().mid(1)).value_or(Request());
    if (!request.picture.isEmpty() && !request.size)
        request.size = ob::frmMain::FirstSize;

    ob::dlgStandard boxes;
    ob::SetDialogs(&boxes);
    std::unique_ptr<ob::frmMain> frame;
    const ob::CommandEnd start = ob::RunCommand([&] {
        ob::StartRoutine([&] {
            frame = std::make_unique<ob::frmMain>();
            return frame.get();
        });
        frame->Load(request.size);
        ob::OpenFiles(request.files, ob::FileSource::CommandLine);
    });
    if (start == ob::CommandEnd::Failed)
        return 1;
    return request.picture.isEmpty() ? QApplication::exec() : SavePicture(*frame, request.picture);
}
