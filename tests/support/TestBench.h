// SPDX-License-Identifier: GPL-3.0-or-later
// A bench of its own for one test: fresh program folder, fresh settings store, scripted boxes, a fake engine.
#pragma once

#include "support/ScriptedDialogs.h"

#include "scilexer/modSci.h"
#include "shell/bench/frmMain.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class QDialog;

namespace ob {

class cDocument;
class frmDocument;

struct EngineCall {
    QStringList arguments;
    QByteArray copy; // the bytes of the file that the last argument named
};

class TestBench final : public QObject {
public:
    // Quiet: no tip comes at the start. Bare: the store is wholly empty, as for a new user.
    enum class Store { Quiet, Bare };
    explicit TestBench(Store store = Store::Quiet);
    ~TestBench() override;

    // Runs the start routine, the main window's Load and the command line, as the process's entry does.
    void Start(const QStringList& pieces = {});

    // Asks the frame to close, as the user would. True when it has closed.
    bool Close();

    frmMain& Frame() { return *frame; }
    void Choose(const QString& item); // triggers a menu item by its name

    // Files of the test, in its working folder, which is the current directory at first.
    QString Path(const QString& name) const;
    QString ProgramPath(const QString& name) const;
    QString Write(const QString& name, const QByteArray& bytes) const;
    static QByteArray Read(const QString& path);

    // A code window and its text. Window(n) is that of slot n.
    cDocument* Active() const;
    frmDocument* ActiveWindow() const;
    QWidget* ActiveWindowEdit() const; // the edit control itself, which takes the keys
    static QByteArray Text(const cDocument* document);
    static void Type(const cDocument* document, const QByteArray& text);

    // Puts the fake engine beside the test's files and gives its path; waits for its next call.
    QString MakeEngine(const QString& name = QStringLiteral("orchard.exe")) const;
    EngineCall WaitForEngine() const;

    // The next modal tool window: the script gets it once it is shown, and must close it.
    void ExpectModal(const QString& objectName, std::function<void(QDialog&)> script);

    ScriptedDialogs dialogs;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct ModalStep {
        QString objectName;
        std::function<void(QDialog&)> script;
    };

    QList<ModalStep> modals;
    QTemporaryDir folder;
    QString folderBefore;
    std::unique_ptr<frmMain> frame;
};

} // namespace ob
