// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk for BASIC source: names, folders, drives, the preview, and opening.
#include "editor/modCodeExplorer.h"

#include "platform/files/modFolders.h"

#include "core/CoreBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QStringList Words(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class tst_modCodeExplorer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void codeFilesAreRecognizedByTheirExtensionInAnyCase()
    {
        for (const QString& name : Words("a.bas A.BAS b.bak b.Bak x.y.bAs .bas"))
            QVERIFY2(Fits(name, NamePattern(CodeFilePatterns)), qPrintable(name));
        for (const QString& name : Words("bas abas a.ba a.bass a.bas~ a.oba a.txt a.bas.txt"))
            QVERIFY2(!Fits(name, NamePattern(CodeFilePatterns)), qPrintable(name));
        QVERIFY(!Fits(QString(), NamePattern(CodeFilePatterns)));
    }

    void whatCannotBeReadRaises()
    {
        const CoreBench bench;
        QCOMPARE(RaisedBy([] { CodePreview(QDir::currentPath()); }), static_cast<int>(ErrorNumber::PathFileAccess));
    }

    void thePreviewIsTheFirstTwoThousandBytes_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("shown");
        QTest::newRow("empty") << 0 << 0;
        QTest::newRow("short") << 12 << 12;
        QTest::newRow("just all") << 2000 << 2000;
        QTest::newRow("one more") << 2001 << 2000;
        QTest::newRow("long") << 100'000 << 2000;
    }

    void thePreviewIsTheFirstTwoThousandBytes()
    {
        QFETCH(int, size);
        QFETCH(int, shown);
        const CoreBench bench;
        QByteArray bytes(size, 'x');
        if (size > 1999)
            bytes[1999] = 'y';
        const QString preview = CodePreview(bench.Put(u"a.bas"_s, bytes));
        QCOMPARE(preview, QString::fromLatin1(bytes.first(shown)));
    }

    void thePreviewIsReadInTheCodePage()
    {
        const CoreBench bench;
        QCOMPARE(CodePreview(bench.Put(u"a.bas"_s, "gr\xFC\xDF"
                                                   "e \x80\r\n")),
                 u"gr\u00fc\u00dfe \u20ac\r\n"_s);
    }

    void anExploredFileGoesToANewWindowAndNotToTheRecentList()
    {
        CoreBench bench;
        RecentFiles.fill(u"untitled"_s);
        const QString path = bench.Put(u"game.bas"_s, "print 1\r\n");
        OpenExploredFile(path);
        QCOMPARE(FakeMainForm::Control(*bench.form.active).text, QByteArray("print 1"));
        QCOMPARE(bench.form.active->Caption(), path);
        QVERIFY(bench.form.status.startsWith(u"game.bas  Size: 9 KB   Last Modified: "_s));
        QCOMPARE(RecentFiles[0], u"untitled"_s);
        QCOMPARE(RecentCount, 0);
    }

    void aFileThatVanishedIsReported()
    {
        CoreBench bench;
        bench.dialogs.ExpectMessage(u"File does not exist or is corrupt."_s, BoxAnswer::Ok, BoxIcon::Critical,
                                    BoxButtons::Ok, u"Error"_s);
        QCOMPARE(RaisedBy([] { OpenExploredFile(u"/nowhere/gone.bas"_s); }),
                 static_cast<int>(ErrorNumber::FileNotFound));
        QVERIFY(bench.dialogs.Finished());
    }

    void withoutTheEditLibraryNothingIsOpened()
    {
        CoreBench bench;
        bench.form.hasEditLibrary = false;
        OpenExploredFile(bench.Put(u"game.bas"_s, "print 1\r\n"));
        QVERIFY(bench.form.status.isEmpty());
    }
};

OB_CORE_TEST(tst_modCodeExplorer)
#include "tst_modCodeExplorer.moc"
