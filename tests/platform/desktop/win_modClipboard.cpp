// SPDX-License-Identifier: GPL-3.0-or-later
// Copying texts to the clipboard.
#include "support/BenchTest.h"
#include "support/ScriptedDialogs.h"

#include "platform/desktop/modClipboard.h"

#include <QClipboard>

using namespace ob;

class win_modClipboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QApplication::clipboard()->setText(QStringLiteral("before")); }
    void cleanup() { SetClipboardWriter({}); }

    void aTextReplacesThePreviousOne_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("one line") << QStringLiteral("print");
        QTest::newRow("lines") << QStringLiteral("    a\r\n\r\n    b\r\n\r\n");
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
        QVERIFY(!CopyText(QStringLiteral("mine")));
        QVERIFY(dialogs.Finished());
        QCOMPARE(asked, QStringLiteral("mine"));
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
        SetClipboardWriter({});
        QVERIFY(CopyText(QStringLiteral("mine")));
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("mine"));
    }
};

OB_BENCH_TEST(win_modClipboard)
#include "win_modClipboard.moc"
