// SPDX-License-Identifier: GPL-3.0-or-later
// Copying texts to the clipboard.
#include "support/BenchTest.h"
#include "support/ScriptedDialogs.h"

#include "platform/desktop/modClipboard.h"

#include <QClipboard>

using namespace Qt::StringLiterals;

using namespace ob;

class win_modClipboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QApplication::clipboard()->setText(u"before"_s); }
    void cleanup() { SetClipboardWriter({}); }

    void aTextReplacesThePreviousOne_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("one line") << u"print"_s;
        QTest::newRow("lines") << u"    a\r\n\r\n    b\r\n\r\n"_s;
        QTest::newRow("beyond ASCII") << QString::fromUtf8("Grüße, 日本, 😀");
        QTest::newRow("empty") << QString();
        QTest::newRow("long") << QString(2'000'000, u'x');
    }

    void aTextReplacesThePreviousOne()
    {
        QFETCH(QString, text);
        const ScriptedDialogs dialogs;
        QVERIFY(CopyText(text));
        QCOMPARE(QApplication::clipboard()->text(), text);
    }

    void aClipboardInUseIsReported()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
        QString asked;
        SetClipboardWriter([&asked](const QString& text) {
            asked = text;
            return false;
        });
        QVERIFY(!CopyText(u"mine"_s));
        QVERIFY(dialogs.Finished());
        QCOMPARE(asked, u"mine"_s);
        QCOMPARE(QApplication::clipboard()->text(), u"before"_s);
        SetClipboardWriter({});
        QVERIFY(CopyText(u"mine"_s));
        QCOMPARE(QApplication::clipboard()->text(), u"mine"_s);
    }
};

OB_BENCH_TEST(win_modClipboard)
#include "win_modClipboard.moc"
