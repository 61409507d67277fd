// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write toolbar" and "write texteditor" as processes.
#include "obtool/RunObtool.h"

#include <QFile>
#include <QTest>

using namespace ob;

namespace {

QByteArray Golden(const char* name)
{
    QFile file(QStringLiteral(OB_TEST_DATA "/codetools/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

Outcome Toolbar(const QStringList& arguments)
{
    return RunObtool(QStringList{QStringLiteral("write"), QStringLiteral("toolbar")} + arguments);
}

} // namespace

class tst_toolWriteToolbar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewWindow()
    {
        const Outcome done =
            Toolbar({QStringLiteral("--bitmap"), QStringLiteral("toolbar.bmp"), QStringLiteral("open=Open a file"),
                     QStringLiteral("[quit]=Leave"), QStringLiteral("branch3")});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.error, QByteArray());
        QCOMPARE(done.out, Golden("toolbar-new.bas"));
    }

    void textsAreWrittenUnchanged()
    {
        const Outcome done =
            Toolbar({QStringLiteral("--bitmap"), QStringLiteral("c:\\pictures\\bar.bmp"), QStringLiteral("--program"),
                     QStringLiteral("editor.bas"), QStringLiteral("--style"), QStringLiteral("raised"),
                     QStringLiteral("--border"), QStringLiteral("thick"), QStringLiteral("[a]={i} \"quoted\" {tip}")});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out, Golden("toolbar-raised.bas"));
    }

    void anExistingWindow()
    {
        const Outcome done =
            Toolbar({QStringLiteral("--existing"), QStringLiteral("win"), QStringLiteral("--bitmap"),
                     QStringLiteral("C:\\bench\\\\toolbar.bmp"), QStringLiteral("--border"), QStringLiteral("thin"),
                     QStringLiteral("open=\u00d6ffnen"), QStringLiteral("save=Save")});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out, Golden("toolbar-existing.bas"));
    }

    void emptyPiecesAreNamedAfterTheirButton()
    {
        const Outcome done = Toolbar(
            {QStringLiteral("--bitmap"), QStringLiteral("b"), QStringLiteral("="), QStringLiteral("[a,b]=x=y")});
        QCOMPARE(done.status, 0);
        QVERIFY(done.out.contains("\r\n[branch1]\r\n"));
        QVERIFY(done.out.contains("lpstrText$.struct = \"branch1 tooltip\"\r\n"));
        QVERIFY(done.out.contains("\r\n[a,b]\r\n"));
        QVERIFY(done.out.contains("lpstrText$.struct = \"x=y\"\r\n"));
    }

    void bracketsAroundAButtonAreNotAList()
    {
        const Outcome done = Toolbar({QStringLiteral("--bitmap"), QStringLiteral("b"), QStringLiteral("[a,b]"),
                                      QStringLiteral("[c]=[d]"), QStringLiteral("[]")});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out.count("Button #main.hide"), 3);
        QVERIFY(done.out.contains("Button #main.hide0, \"\", [a,b], UL"));
        QVERIFY(done.out.contains("lpstrText$.struct = \"[d]\"\r\n"));
        QVERIFY(done.out.contains("Button #main.hide2, \"\", [], UL"));
    }

    void charactersThatTheCodePageLacksAreReported()
    {
        const Outcome done = Toolbar({QStringLiteral("--bitmap"), QStringLiteral("b"), QStringLiteral("a=\u0436")});
        QCOMPARE(done.status, 0);
        QVERIFY(done.out.contains("lpstrText$.struct = \"?\"\r\n"));
        QCOMPARE(done.error, QByteArray("obtool: note: Characters that the code page lacks became question marks.\n"));
    }

    void anEmptyHandleFails()
    {
        const Outcome done = Toolbar({QStringLiteral("--existing"), QString(), QStringLiteral("--bitmap"),
                                      QStringLiteral("b"), QStringLiteral("a=b")});
        QCOMPARE(done.status, 1);
        QCOMPARE(done.out, QByteArray());
        QCOMPARE(done.error, QByteArray("obtool: toolbar: You must specify the handle of the existing window.\n"));
    }

    void wrongUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no button") << QStringList{QStringLiteral("--bitmap"), QStringLiteral("b")};
        QTest::newRow("no bitmap") << QStringList{QStringLiteral("a=b")};
        QTest::newRow("no such style") << QStringList{QStringLiteral("--bitmap"), QStringLiteral("b"),
                                                      QStringLiteral("--style"), QStringLiteral("round"),
                                                      QStringLiteral("a=b")};
        QTest::newRow("no such option") << QStringList{QStringLiteral("--bitmap"), QStringLiteral("b"),
                                                       QStringLiteral("--size"), QStringLiteral("a=b")};
    }

    void wrongUsage()
    {
        QFETCH(QStringList, arguments);
        const Outcome done = Toolbar(arguments);
        QCOMPARE(done.status, 2);
        QCOMPARE(done.out, QByteArray());
        QVERIFY(done.error.contains("usage: obtool write toolbar --bitmap FILE"));
    }

    void theTextEditorIsTheEmbeddedText()
    {
        const Outcome done = RunObtool({QStringLiteral("write"), QStringLiteral("texteditor")});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out.count("\r\n"), 203);
        QVERIFY(done.out.startsWith("nomainwin\r\n"));
        QVERIFY(done.out.endsWith("    end sub\r\n"));
    }
};

QTEST_APPLESS_MAIN(tst_toolWriteToolbar)
#include "tst_toolWriteToolbar.moc"
