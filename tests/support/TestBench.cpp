// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program for one test.
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/frmDocument.h"
#include "platform/files/modPaths.h"
#include "shell/bench/modStart.h"
#include "shell/state/modSettings.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ob {

TestBench::TestBench(Store store) : folderBefore(QDir::currentPath())
{
    const QDir top(folder.path());
    top.mkdir(u"work"_s);
    top.mkdir(u"program"_s);
    SetProgramFolder(top.filePath(u"program"_s));
    SetLibraryFolder(u"" OB_BIN ""_s);
    SetSettingsFile(top.filePath(u"settings.ini"_s));
    if (store == Store::Quiet)
        WriteSetting(u"ShowTips"_s, u"False"_s);
    QDir::setCurrent(top.filePath(u"work"_s));
    qApp->installEventFilter(this);
}

TestBench::~TestBench()
{
    for (const ModalStep& step : modals)
        QTest::qFail(qPrintable(u"never shown: "_s + step.objectName), __FILE__, __LINE__);
    qApp->removeEventFilter(this);
    frame.reset();
    ResetBench();
    SetSettingsFile({});
    SetProgramFolder({});
    SetLibraryFolder({});
    QDir::setCurrent(folderBefore);
}

void TestBench::Start(const QStringList& pieces)
{
    StartRoutine([this] {
        frame = std::make_unique<frmMain>();
        return frame.get();
    });
    frame->Load();
    OpenFiles(pieces, FileSource::CommandLine);
    QApplication::processEvents();
}

bool TestBench::Close()
{
    const bool closed = frame->close();
    QApplication::processEvents();
    return closed;
}

void TestBench::Choose(const QString& item)
{
    QAction* action = frame->Item(item);
    if (action == nullptr || !action->isEnabled())
        QTest::qFail(qPrintable(u"no such item now: "_s + item), __FILE__, __LINE__);
    else
        action->trigger();
    QApplication::processEvents();
}

QString TestBench::Path(const QString& name) const
{
    return folder.filePath(u"work/"_s + name);
}

QString TestBench::ProgramPath(const QString& name) const
{
    return folder.filePath(u"program/"_s + name);
}

QString TestBench::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail("the test's own file cannot be written", __FILE__, __LINE__);
    return Path(name);
}

QByteArray TestBench::Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

cDocument* TestBench::Active() const
{
    return frame->ActiveDocument();
}

frmDocument* TestBench::ActiveWindow() const
{
    return Active() == nullptr ? nullptr : static_cast<frmDocument*>(Active()->window);
}

QWidget* TestBench::ActiveWindowEdit() const
{
    return ActiveWindow()->findChild<QWidget*>(u"sci"_s);
}

QByteArray TestBench::Text(const cDocument* document)
{
    const std::string_view text = SciText(document->sci);
    return {text.data(), static_cast<qsizetype>(text.size())};
}

void TestBench::Type(const cDocument* document, const QByteArray& text)
{
    SendSci(document->sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(text.size()), text.constData());
}

QString TestBench::MakeEngine(const QString& name) const
{
    const QString engine = Path(name);
    QFile::copy(u"" OB_BIN "/fake-engine"_s, engine);
    return engine;
}

EngineCall TestBench::WaitForEngine() const
{
    const QString call = Path(u"engine.call"_s);
    if (!QTest::qWaitFor([&] { return QFile::exists(call); }, 20'000)) {
        QTest::qFail("the engine was not called", __FILE__, __LINE__);
        return {};
    }
    const EngineCall seen{QString::fromLocal8Bit(Read(call)).split(QLatin1Char('\n'), Qt::SkipEmptyParts),
                          Read(Path(u"engine.copy"_s))};
    QFile::remove(call);
    return seen;
}

void TestBench::ExpectModal(const QString& objectName, std::function<void(QDialog&)> script)
{
    modals.append({objectName, std::move(script)});
}

bool TestBench::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (event->type() != QEvent::Show || dialog == nullptr || !dialog->isModal())
        return QObject::eventFilter(watched, event);
    // Comes up wherever the machine is slow, and goes by itself.
    if (dialog->objectName() == u"dlgPatience"_s &&
        (modals.isEmpty() || modals.first().objectName != dialog->objectName()) && !anyModal)
        return QObject::eventFilter(watched, event);
    const bool isNext = !modals.isEmpty() && modals.first().objectName == dialog->objectName();
    if (isNext || anyModal) {
        QTimer::singleShot(0, dialog, [dialog, script = isNext ? modals.takeFirst().script : anyModal] {
            script(*dialog);
            if (dialog->isVisible()) {
                QTest::qFail("the script left the modal window open", __FILE__, __LINE__);
                dialog->reject();
            }
        });
    } else {
        // A modal window that no script answers would hang the test.
        QTest::qFail(qPrintable(u"unexpected modal window: "_s + dialog->objectName()), __FILE__, __LINE__);
        QTimer::singleShot(0, dialog, &QDialog::reject);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace ob
