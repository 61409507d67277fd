// SPDX-License-Identifier: GPL-3.0-or-later
// The stylebits maker: the lists of every object, and whole statements.
#include "codetools/modStylebits.h"

#include "codetools/MakerFiles.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray ListBytes(const QString& object, StyleKind kind)
{
    QString text;
    for (const QString& entry : StylebitEntries(object, kind))
        text += entry + u"\r\n"_s;
    return BytesOf(text);
}

QStringList Entries(const char* object, StyleKind kind, const QList<int>& rows)
{
    const QStringList list = StylebitEntries(QString::fromLatin1(object), kind);
    QStringList entries;
    for (const int row : rows)
        entries.append(list[row]);
    return entries;
}

} // namespace

class tst_modStylebits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theObjectsAreInOrder()
    {
        QCOMPARE(StylebitObjects().join(u' '),
                 u"Button Checkbox Combobox Dialog Graphicbox Groupbox Listbox Radiobutton StaticText "
                 "Textbox Window"_s);
    }

    void eachObjectHasItsLists_data()
    {
        QTest::addColumn<QString>("object");
        for (const QString& object : StylebitObjects())
            QTest::newRow(qPrintable(object)) << object;
    }

    void eachObjectHasItsLists()
    {
        QFETCH(QString, object);
        const QByteArray name = "stylebits/" + object.toLatin1();
        QCOMPARE(ListBytes(object, StyleKind::Regular), MakerBytes(name + ".list"));
        QCOMPARE(ListBytes(object, StyleKind::Extended), MakerBytes(name + "-extended.list"));
    }

    void theStaticBitsAreUnderAnotherSpelling()
    {
        QCOMPARE(ListBytes(u"Statictext"_s, StyleKind::Regular), MakerBytes("stylebits/static.list"));
        QCOMPARE(StylebitEntries(u"StaticText"_s, StyleKind::Regular).size(), 5);
        QCOMPARE(StylebitEntries(u"window"_s, StyleKind::Regular).size(), 5);
        QCOMPARE(StylebitEntries(u"dialog"_s, StyleKind::Extended).size(), 4);
    }

    void aNameEndsAtTheFirstSpace()
    {
        QCOMPARE(StylebitName(u"WS_BORDER = has border"_s), u"WS_BORDER"_s);
        QCOMPARE(StylebitName(u"CBS_AUTOHSCROLL  = x"_s), u"CBS_AUTOHSCROLL"_s);
    }

    void theWholeStatementMatches_data()
    {
        QTest::addColumn<StyleKind>("kind");
        QTest::addColumn<StyleChange>("change");
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* file, StyleKind kind, StyleChange change, const char* object,
                            const QList<int>& rows) {
            QTest::newRow(file) << kind << change << Entries(object, kind, rows) << MakerBytes(file);
        };
        row("stylebits/add.txt", StyleKind::Regular, StyleChange::Add, "Button", {2, 8, 14});
        row("stylebits/remove.txt", StyleKind::Regular, StyleChange::Remove, "StaticText", {0});
        row("stylebits/add-extended.txt", StyleKind::Extended, StyleChange::Add, "Dialog", {8, 10});
        row("stylebits/remove-extended.txt", StyleKind::Extended, StyleChange::Remove, "Textbox", {1});
        row("stylebits/double-space.txt", StyleKind::Regular, StyleChange::Add, "Combobox", {0, 7});
    }

    void theWholeStatementMatches()
    {
        QFETCH(StyleKind, kind);
        QFETCH(StyleChange, change);
        QFETCH(QStringList, entries);
        QTEST(BytesOf(StylebitsCode({kind, change, entries}).value()), "expected");
    }

    void withoutBitsThereIsNoStatement()
    {
        for (const StyleKind kind : {StyleKind::Regular, StyleKind::Extended})
            for (const StyleChange change : {StyleChange::Add, StyleChange::Remove})
                QVERIFY(!StylebitsCode({kind, change, {}}));
    }

    void theHelpHasItsWording()
    {
        QCOMPARE(BytesOf(StylebitsHelp()), MakerBytes("stylebits/help.txt"));
        QCOMPARE(StylebitsSyntax, u"stylebits #handle, AddBits, RemoveBits, AddExBits, RemoveExBits"_s);
    }
};

QTEST_GUILESS_MAIN(tst_modStylebits)
#include "tst_modStylebits.moc"
