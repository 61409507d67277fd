// SPDX-License-Identifier: GPL-3.0-or-later
// Programs in tests/data/basic/run are run, and print what the file beside them says.
#include "orchard/language/modRead.h"
#include "orchard/library/cScriptedHost.h"
#include "orchard/machine/cGenerator.h"
#include "orchard/machine/cRun.h"
#include "orchard/machine/modCheckCode.h"
#include "orchard/machine/modLibraryRows.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace basic = ob::basic;

namespace {

const QString Folder = QStringLiteral(OB_TEST_DATA "/basic/run");

std::string Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

// What a program prints, and after "! " the line and text of the error that ends it.
std::string OutputOf(const std::string& source, const std::string& typed)
{
    const basic::Program program = basic::ReadProgram(source, nullptr);
    if (!program.errors.empty()) {
        const basic::ReadError& error = program.errors.front();
        return "reading: " + std::to_string(program.lines.PlaceOf(error.offset).line) + ": " + error.Text();
    }
    const basic::MachineCode code = basic::GenerateCode(program);
    if (const auto wrong = basic::CheckMachineCode(code, basic::LibraryRows()))
        return "code: " + *wrong;
    basic::cScriptedHost host(typed);
    basic::cRun run(host);
    basic::cMachine machine(code, basic::LibraryRows(), &run);
    try {
        run.Run(machine);
    } catch (const basic::cRunError& error) {
        return host.Console().Printed() + "! " + std::to_string(error.line) + ": " + error.text + "\n";
    } catch (const basic::WindowNeeded& needed) {
        return host.Console().Printed() + "! window: " + needed.what + "\n";
    }
    return host.Console().Printed();
}

} // namespace

class tst_basicRuns final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void program_data();
    void program();
};

void tst_basicRuns::program_data()
{
    QTest::addColumn<QString>("path");
    QDirIterator files(Folder, {QStringLiteral("*.bas")}, QDir::Files, QDirIterator::Subdirectories);
    QStringList paths;
    while (files.hasNext())
        paths.append(files.next());
    paths.sort();
    QVERIFY(paths.size() >= 20);
    for (const QString& path : paths)
        QTest::newRow(qPrintable(path.mid(Folder.size() + 1).chopped(4))) << path;
}

void tst_basicRuns::program()
{
    QFETCH(const QString, path);
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const QString base = path.chopped(4);
    const std::string output = OutputOf(Content(path), Content(base + QStringLiteral(".in")));
    QDir::setCurrent(before);
    QCOMPARE(QString::fromLatin1(output), QString::fromLatin1(Content(base + QStringLiteral(".out"))));
}

QTEST_APPLESS_MAIN(tst_basicRuns)
#include "tst_basicRuns.moc"
