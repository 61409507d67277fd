// SPDX-License-Identifier: GPL-3.0-or-later
// Include lines at the top of a program, and the bytes that they append to its copy.
#include "engine/run/modIncludes.h"

#include "core/CoreBench.h"
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"
#include "engine/run/modRun.h"
#include "platform/files/modFiles.h"
#include "platform/language/modAnsi.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Cases = u"" OB_TEST_DATA "/runcopy/"_s;

QByteArray Heading(const QByteArray& name)
{
    return "'*******************************\r\n'" + name + " begins here:\r\n\r\n";
}

} // namespace

// Each folder of the cases holds program.bas, the files that it may include, and the expected bytes of the run copy.
class tst_modIncludes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void theRunCopyHoldsTheTextAndItsIncludes_data()
    {
        QTest::addColumn<QString>("folder");
        const QStringList names = QDir(Cases).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        QVERIFY(names.size() > 20);
        for (const QString& name : names)
            QTest::newRow(qPrintable(name)) << Cases + name + QLatin1Char('/');
    }

    void theRunCopyHoldsTheTextAndItsIncludes()
    {
        QFETCH(QString, folder);
        const QByteArray program = LoadedBytes(CoreBench::Get(folder + u"program.bas"_s));
        const QByteArray expected = CoreBench::Get(folder + u"expected.copy"_s);

        QByteArray copy = program + " \r\n";
        const QByteArray included = IncludedText(program, TextEncoding::Ansi, folder);
        if (!included.isEmpty())
            copy += included + "\r\n";
        QCOMPARE(copy, expected);
        QCOMPARE(IncludedText(program, TextEncoding::Ansi, folder.chopped(1)), included);

        // The same from a code window, as in the run commands and Save Project.
        bench->Open(u"x.bas"_s, DecodeAnsi(program));
        const QString path = bench->Path(u"x.BAK"_s);
        QVERIFY(SaveDocumentFile(*ActiveDocument(), path) == SaveEnd::Written);
        const QByteArray fromWindow = CheckIncludes(*ActiveDocument(), folder);
        if (!fromWindow.isEmpty())
            AppendToFile(path, fromWindow);
        QCOMPARE(CoreBench::Get(path), expected);
    }

    void theCurrentFolderDoesNotMatter()
    {
        bench->Put(u"a.bas"_s, "'in the current folder\r\n");
        QDir().mkdir(u"sub"_s);
        QCOMPARE(IncludedText("'include a.bas\r\n", TextEncoding::Ansi, bench->Path(u"sub/"_s)), QByteArray());
        bench->Put(u"sub/a.bas"_s, "'beside the program\r\n");
        QCOMPARE(IncludedText("'include a.bas\r\n", TextEncoding::Ansi, bench->Path(u"sub/"_s)),
                 Heading("a.bas") + "'beside the program\r\n");
        QCOMPARE(IncludedText("'include a.bas\r\n", TextEncoding::Ansi, u"sub/"_s),
                 Heading("a.bas") + "'beside the program\r\n");
        QCOMPARE(IncludedText("'include a.bas\r\n", TextEncoding::Ansi, {}),
                 Heading("a.bas") + "'in the current folder\r\n");
    }

    void aFolderAboveCanBeNamed()
    {
        QDir().mkdir(u"sub"_s);
        bench->Put(u"a.bas"_s, "'a\r\n");
        QCOMPARE(IncludedText("'include ..\\a.bas\r\n", TextEncoding::Ansi, bench->Path(u"sub/"_s)),
                 Heading("a.bas") + "'a\r\n");
    }

    void aNameInTheCodePageFindsItsFile()
    {
        bench->Put(u"\u00DCber.bas"_s, "'u\r\n");
        const QString folder = bench->Path({});
        QCOMPARE(IncludedText("'include \xDC"
                              "ber.bas\r\n",
                              TextEncoding::Ansi, folder),
                 Heading("\xDC"
                         "ber.bas") +
                     "'u\r\n");
        QCOMPARE(IncludedText("'include \xC3\x9C"
                              "ber.bas\r\n",
                              TextEncoding::Utf8, folder),
                 Heading("\xDC"
                         "ber.bas") +
                     "'u\r\n");
        QCOMPARE(IncludedText("'include \xC3\xBC"
                              "BER.bas\r\n",
                              TextEncoding::Utf8, folder),
                 Heading("\xDC"
                         "ber.bas") +
                     "'u\r\n");
    }

    void aNameThatTheCodePageLacksFindsNothing()
    {
        bench->Put(u"\u03B1.bas"_s, "'alpha\r\n");
        QCOMPARE(IncludedText("'include \xCE\xB1.bas\r\n", TextEncoding::Utf8, bench->Path({})), QByteArray());
    }

    void theExactNameWinsOverOneInAnotherCase()
    {
        bench->Put(u"a.bas"_s, "'lower\r\n");
        bench->Put(u"A.BAS"_s, "'upper\r\n");
        if (CoreBench::Get(bench->Path(u"a.bas"_s)) == "'upper\r\n")
            QSKIP("the disk ignores case");
        QCOMPARE(IncludedText("'include A.BAS\r\n'include a.bas\r\n", TextEncoding::Ansi, bench->Path({})),
                 Heading("A.BAS") + "'upper\r\n" + Heading("a.bas") + "'lower\r\n");
    }

    void aFileThatCannotBeReadIsAnError()
    {
#ifdef Q_OS_LINUX
        QVERIFY(QFile::link(u"/proc/self/mem"_s, bench->Path(u"a.bas"_s)));
        QVERIFY(RaisedBy([&] { IncludedText("'include a.bas\r\n", TextEncoding::Ansi, bench->Path({})); }) != 0);
#else
        QSKIP("has no such file");
#endif
    }

    void aLinkLeadsToItsFile()
    {
        QDir().mkdir(u"other"_s);
        bench->Put(u"other/a.bas"_s, "'a\r\n");
        QVERIFY(QFile::link(bench->Path(u"other/a.bas"_s), bench->Path(u"b.bas"_s)));
        QCOMPARE(IncludedText("'include b.bas\r\n", TextEncoding::Ansi, bench->Path({})), Heading("b.bas") + "'a\r\n");
    }

    void aNulInANameFindsNothing()
    {
        bench->Put(u"a.bas"_s, "'a\r\n");
        QCOMPARE(
            IncludedText(QByteArray("'include a.bas\0\r\n'include a.bas", 31), TextEncoding::Ansi, bench->Path({})),
            Heading("a.bas") + "'a\r\n");
    }

private:
    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modIncludes)
#include "tst_modIncludes.moc"
