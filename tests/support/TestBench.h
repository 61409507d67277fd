// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program for one test: fresh program folder, fresh settings store, scripted boxes, a fake engine.
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
    QByteArray copy; // the bytes of the file named by the last argument
};

class TestBench final : public QObject {
public:
    // Quiet: no tip is shown at the start. Bare: the store is completely empty, as for a new user.
    enum class Store { Quiet, Bare };
    explicit TestBench(Store store = Store::Quiet);
    ~TestBench() override;

    // Runs the start routine, the main window's Load and the command line, like the program's own entry.
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
    QWidget* ActiveWindowEdit() const; // the edit control itself, which receives the keys
    static QByteArray Text(const cDocument* document);
    static void Type(const cDocument* document, const QByteArray& text);

    // Copies the fake engine next to the test's files and returns its path; waits for its next call.
    QString MakeEngine(const QString& name = QStringLiteral("orchard.exe")) const;
    EngineCall WaitForEngine() const;

    // The next modal tool window is passed to the script once it is shown; the script must close it.
    void ExpectModal(const QString& objectName, std::function<void(QDialog&)> script);

    // Whatever modal tool window comes, if one does: the script gets it and must close it.
    void AnswerModals(std::function<void(QDialog&)> script) { anyModal = std::move(script); }

    ScriptedDialogs dialogs;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct ModalStep {
        QString objectName;
        std::function<void(QDialog&)> script;
    };

    QList<ModalStep> modals;
    std::function<void(QDialog&)> anyModal;
    QTemporaryDir folder;
    QString folderBefore;
    std::unique_ptr<frmMain> frame;
};

} // namespace ob
