// SPDX-License-Identifier: GPL-3.0-or-later
// The constants of the system's interfaces.
#include "orchard/library/LibraryTest.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "orchard/library/modConstants.h"

using namespace ob::basic;
using namespace Qt::StringLiterals;

class tst_modConstants : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void constantsHaveTheirValues_data();
    void constantsHaveTheirValues();
    void namesAreFoundInAnyCase();
    void unknownNamesAreNotFound();
    void everyLineIsFound();
    void constantsOfOurOwnTextsAreKnown();
};

void tst_modConstants::constantsHaveTheirValues_data()
{
    QTest::addColumn<double>("value");
    const auto row = [](const char* name, double value) { QTest::newRow(name) << value; };
    row("_WS_VISIBLE", 0x10000000);
    row("_WS_POPUP", 2147483648.0);
    row("_WS_EX_TOPMOST", 8);
    row("_CW_USEDEFAULT", -2147483648.0);
    row("_GENERIC_READ", 2147483648.0);
    row("_GWL_STYLE", -16);
    row("_HWND_TOPMOST", -1);
    row("_INVALID_HANDLE_VALUE", -1);
    row("_IDC_ARROW", 32512);
    row("_RT_BITMAP", 2);
    row("_SRCCOPY", 0xCC0020);
    row("_COLOR_BTNFACE", 15);
    row("_TTS_ALWAYSTIP", 1);
    row("_LVM_GETITEMCOUNT", 0x1004);
    row("_LVN_ITEMCHANGED", 4294967195.0);
    row("_TVI_ROOT", -65536);
    row("_PBM_SETPOS", 0x402);
    row("_TBM_GETPOS", 0x400);
    row("_OFN_FILEMUSTEXIST", 0x1000);
    row("_CDERR_STRUCTSIZE", 1);
    row("_CSIDL_PERSONAL", 5);
    row("_SHGFI_ICON", 0x100);
    row("_SND_ASYNC", 1);
    row("_MCI_OPEN", 0x803);
    row("_MAX_PATH", 260);
    row("_MEM_COMMIT", 0x1000);
    row("_ERROR_FILE_NOT_FOUND", 2);
    row("_E_FAIL", -2147467259.0);
    row("_HKEY_LOCAL_MACHINE", -2147483646.0);
    row("_VK_ESCAPE", 27);
    row("_SW_SHOWNORMAL", 1);
    row("_MB_ICONQUESTION", 32);
    row("_EM_GETSEL", 0xB0);
    row("_CB_ERR", -1);
    row("_TRUE", 1);
    row("_NULL", 0);
}

void tst_modConstants::constantsHaveTheirValues()
{
    QFETCH(double, value);
    double found = 0.5;
    QVERIFY(FindConstant(QTest::currentDataTag(), found));
    QCOMPARE(found, value);
}

void tst_modConstants::namesAreFoundInAnyCase()
{
    double value = 0;
    for (const char* name : {"_ws_child", "WS_CHILD", "_Ws_Child"}) {
        value = 0;
        QVERIFY(FindConstant(name, value));
        QCOMPARE(value, 1073741824.0);
    }
}

void tst_modConstants::unknownNamesAreNotFound()
{
    double value = 7;
    for (const std::string& name :
         {std::string(), std::string("_"), std::string("__WS_CHILD"), std::string("_WS_CHIL"),
          std::string("_WS_CHILD "), std::string("_WS_CHILD 1073741824"), std::string("_\n"), std::string("_0"),
          std::string("_zzzzz"), std::string("_\xFF"), std::string(100000, 'A')})
        QVERIFY2(!FindConstant(name, value), name.substr(0, 40).c_str());
    QCOMPARE(value, 7.0);
}

void tst_modConstants::everyLineIsFound()
{
    QFile file(QStringLiteral(OB_TEST_DATA "/../../src/orchard/library/constants.inc"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    std::size_t count = 0;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        line = line.trimmed();
        if (line.startsWith("R\"("))
            line = line.mid(3);
        const qsizetype space = line.indexOf(' ');
        if (space < 0 || line.startsWith("//"))
            continue;
        double value = 0;
        QVERIFY2(FindConstant(View(line.first(space)), value), line.constData());
        QCOMPARE(value, line.mid(space + 1).toDouble());
        ++count;
    }
    QCOMPARE(count, ConstantCount());
    QVERIFY(count > 20000);
}

// The programs, snippets and texts that the bench brings along name only constants that there are.
void tst_modConstants::constantsOfOurOwnTextsAreKnown()
{
    static const QRegularExpression name(u"(?<![A-Za-z0-9_.$\\]])_[A-Z][A-Z0-9_]+"_s);
    static const QRegularExpression quoted(u"\"[^\"]*\"|'.*"_s);
    int seen = 0;
    for (const QString& folder : {u"/../../samples"_s, u"/../../resources/texts"_s}) {
        const QDir texts(QStringLiteral(OB_TEST_DATA) + folder);
        for (const QString& file : texts.entryList({u"*.bas"_s, u"*.snip"_s, u"*.txt"_s}, QDir::Files)) {
            QFile source(texts.filePath(file));
            QVERIFY(source.open(QIODevice::ReadOnly));
            while (!source.atEnd()) {
                const QString line = QString::fromLatin1(source.readLine()).remove(quoted);
                for (auto match = name.globalMatch(line); match.hasNext(); ++seen) {
                    const QByteArray constant = match.next().captured().toLatin1();
                    double value = 0;
                    QVERIFY2(FindConstant(View(constant), value), (file.toUtf8() + ": " + constant).constData());
                }
            }
        }
    }
    QVERIFY(seen > 0);
}

QTEST_APPLESS_MAIN(tst_modConstants)
#include "tst_modConstants.moc"
