// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write toolbar" and "write texteditor" as processes.
#include "obtool/RunObtool.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray Golden(const char* name)
{
    QFile file(u"" OB_TEST_DATA "/codetools/"_s + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

Outcome Toolbar(const QStringList& arguments)
{
    return RunObtool(QStringList{u"write"_s, u"toolbar"_s} + arguments);
}

} // namespace

class tst_toolWriteToolbar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewWindow()
    {
        const Outcome done =
            Toolbar({u"--bitmap"_s, u"toolbar.bmp"_s, u"open=Open a file"_s, u"[quit]=Leave"_s, u"branch3"_s});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.error, QByteArray());
        QCOMPARE(done.out, Golden("toolbar-new.bas"));
    }

    void textsAreWrittenUnchanged()
    {
        const Outcome done =
            Toolbar({u"--bitmap"_s, u"c:\\pictures\\bar.bmp"_s, u"--program"_s, u"editor.bas"_s, u"--style"_s,
                     u"raised"_s, u"--border"_s, u"thick"_s, u"[a]={i} \"quoted\" {tip}"_s});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out, Golden("toolbar-raised.bas"));
    }

    void anExistingWindow()
    {
        const Outcome done = Toolbar({u"--existing"_s, u"win"_s, u"--bitmap"_s, u"C:\\bench\\\\toolbar.bmp"_s,
                                      u"--border"_s, u"thin"_s, u"open=\u00d6ffnen"_s, u"save=Save"_s});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out, Golden("toolbar-existing.bas"));
    }

    void emptyPiecesAreNamedAfterTheirButton()
    {
        const Outcome done = Toolbar({u"--bitmap"_s, u"b"_s, u"="_s, u"[a,b]=x=y"_s});
        QCOMPARE(done.status, 0);
        QVERIFY(done.out.contains("\r\n[branch1]\r\n"));
        QVERIFY(done.out.contains("lpstrText$.struct = \"branch1 tooltip\"\r\n"));
        QVERIFY(done.out.contains("\r\n[a,b]\r\n"));
        QVERIFY(done.out.contains("lpstrText$.struct = \"x=y\"\r\n"));
    }

    void bracketsAroundAButtonAreNotAList()
    {
        const Outcome done = Toolbar({u"--bitmap"_s, u"b"_s, u"[a,b]"_s, u"[c]=[d]"_s, u"[]"_s});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out.count("Button #main.hide"), 3);
        QVERIFY(done.out.contains("Button #main.hide0, \"\", [a,b], UL"));
        QVERIFY(done.out.contains("lpstrText$.struct = \"[d]\"\r\n"));
        QVERIFY(done.out.contains("Button #main.hide2, \"\", [], UL"));
    }

    void charactersThatTheCodePageLacksAreReported()
    {
        const Outcome done = Toolbar({u"--bitmap"_s, u"b"_s, u"a=\u0436"_s});
        QCOMPARE(done.status, 0);
        QVERIFY(done.out.contains("lpstrText$.struct = \"?\"\r\n"));
        QCOMPARE(done.error, QByteArray("obtool: note: Characters that the code page lacks became question marks.\n"));
    }

    void anEmptyHandleFails()
    {
        const Outcome done = Toolbar({u"--existing"_s, QString(), u"--bitmap"_s, u"b"_s, u"a=b"_s});
        QCOMPARE(done.status, 1);
        QCOMPARE(done.out, QByteArray());
        QCOMPARE(done.error, QByteArray("obtool: toolbar: You must specify the handle of the existing window.\n"));
    }

    void anEmptyNameOfABitmapFails()
    {
        const Outcome done = Toolbar({u"--bitmap"_s, QString(), u"a=b"_s});
        QCOMPARE(done.status, 1);
        QCOMPARE(done.out, QByteArray());
        QCOMPARE(done.error, QByteArray("obtool: --bitmap: a name may not be empty\n"));
    }

    void wrongUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no button") << QStringList{u"--bitmap"_s, u"b"_s};
        QTest::newRow("no bitmap") << QStringList{u"a=b"_s};
        QTest::newRow("no such style") << QStringList{u"--bitmap"_s, u"b"_s, u"--style"_s, u"round"_s, u"a=b"_s};
        QTest::newRow("no such option") << QStringList{u"--bitmap"_s, u"b"_s, u"--size"_s, u"a=b"_s};
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
        const Outcome done = RunObtool({u"write"_s, u"texteditor"_s});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out.count("\r\n"), 203);
        QVERIFY(done.out.startsWith("nomainwin\r\n"));
        QVERIFY(done.out.endsWith("    end sub\r\n"));
    }
};

QTEST_APPLESS_MAIN(tst_toolWriteToolbar)
#include "tst_toolWriteToolbar.moc"
