// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard on a system without one.
#include "platform/desktop/modClipboard.h"
#include "support/ScriptedDialogs.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modClipboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutWindowsNothingIsCopiedAndAMessageSaysSo()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
        QVERIFY(!CopyText(u"mine"_s));
        QVERIFY(dialogs.Finished());
    }
};

QTEST_GUILESS_MAIN(tst_modClipboard)
#include "tst_modClipboard.moc"
