// SPDX-License-Identifier: GPL-3.0-or-later
// The program without windows for one test: fresh state, folders and store, a recording main window, scripted boxes.
#pragma once

#include "core/FakeMainForm.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modSettings.h"
#include "support/ScriptedDialogs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace ob {

class CoreBench {
public:
    CoreBench()
    {
        const QDir top(folder.path());
        top.mkdir(QStringLiteral("work"));
        top.mkdir(QStringLiteral("program"));
        SetProgramFolder(top.filePath(QStringLiteral("program")));
        SetSettingsFile(StorePath());
        QDir::setCurrent(top.filePath(QStringLiteral("work")));
        ResetBench();
        MainForm = &form;
    }

    ~CoreBench()
    {
        ResetBench();
        SetSettingsFile(folder.filePath(QStringLiteral("last.ini")));
        SetProgramFolder({});
        QDir::setCurrent(folderBefore);
    }

    CoreBench(const CoreBench&) = delete;
    CoreBench& operator=(const CoreBench&) = delete;

    // Files in the test's working folder, which is the current directory at first, and in the program's folder.
    QString Path(const QString& name) const { return folder.filePath(QStringLiteral("work/") + name); }
    QString ProgramPath(const QString& name) const { return folder.filePath(QStringLiteral("program/") + name); }
    QString StorePath() const { return folder.filePath(QStringLiteral("store.ini")); }

    QString Put(const QString& name, const QByteArray& bytes) const
    {
        PutFile(Path(name), bytes);
        return Path(name);
    }

    static void PutFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            QTest::qFail("the test's own file cannot be written", __FILE__, __LINE__);
    }

    static QByteArray Get(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
    }

    // A code window in the first slot, with the text in it and nothing to save.
    cDocument& Open(const QString& caption, const QByteArray& text = {})
    {
        if (Documents.empty())
            Documents.push_back(nullptr);
        Documents.push_back(std::make_unique<cDocument>(static_cast<int>(Documents.size())));
        cDocument& document = *Documents.back();
        document.Tag = TagOpen;
        document.SetCaption(caption);
        form.ShowDocument(document);
        FakeMainForm::Control(document).text = text;
        form.log.clear();
        return document;
    }

    FakeMainForm form;
    ScriptedDialogs dialogs;

private:
    QTemporaryDir folder;
    QString folderBefore = QDir::currentPath();
};

// The number of the runtime error that a call raises; 0 for none.
template <class Call>
int RaisedBy(Call call)
{
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace ob

// The main function of a test program without windows that includes the commands of code windows.
#define OB_CORE_TEST(TestClass)                                                                                        \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        QCoreApplication application(argc, argv);                                                                      \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
