// SPDX-License-Identifier: GPL-3.0-or-later
// The process's entry: the start routine, then the event loop.
#include "platform/dialogs/dlgStandard.h"
#include "platform/dialogs/frmApplication.h"
#include "platform/dialogs/modDialogs.h"
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

constexpr char usage[] = "usage: orchard-bench [--grab OUT.png] [FILE]\n"
                         "       orchard-bench --version | --help\n"
                         "\n"
                         "Opens the bench, and in it FILE: a form (.obf) or BASIC source.\n"
                         "\n"
                         "  --grab OUT.png  open as usual, paint, save a picture of the main window, end\n"
                         "  --version       print the version\n"
                         "  --help          print this text\n";

// Handles requests that need no window before the toolkit starts: the exit status, or nothing.
std::optional<int> AnswerAtOnce(int count, char** arguments)
{
    const char* const first = count > 1 ? arguments[1] : "";
    if (std::strcmp(first, "--version") == 0)
        return std::puts("orchard-bench " OB_VERSION) < 0 ? 1 : 0;
    if (std::strcmp(first, "--help") == 0)
        return std::fputs(usage, stdout) < 0 ? 1 : 0;
    if (std::strcmp(first, "--grab") == 0 && count < 3) {
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

    const ob::frmApplication application(argc, argv);
    QApplication::setApplicationName(u"orchard-bench"_s);
    QApplication::setApplicationDisplayName(QString());
    QApplication::setDesktopFileName(u"orchard-bench"_s);
    QApplication::setWindowIcon(QIcon(u":/icons/app.svg"_s));

    QStringList pieces = QApplication::arguments().mid(1);
    QString picture;
    if (pieces.size() >= 2 && pieces[0] == QLatin1String("--grab")) {
        picture = pieces[1];
        pieces = pieces.mid(2);
    }

    ob::dlgStandard boxes;
    ob::SetDialogs(&boxes);
    std::unique_ptr<ob::frmMain> frame;
    const ob::CommandEnd start = ob::RunCommand([&] {
        ob::StartRoutine([&] {
            frame = std::make_unique<ob::frmMain>();
            return frame.get();
        });
        frame->Load();
        ob::OpenFiles(pieces, ob::FileSource::CommandLine);
    });
    if (start == ob::CommandEnd::Failed)
        return 1;
    return picture.isEmpty() ? QApplication::exec() : SavePicture(*frame, picture);
}
