// SPDX-License-Identifier: GPL-3.0-or-later
// The message box maker: whole texts for every icon and every set of buttons.
#include "codetools/modMessageBox.h"

#include "codetools/MakerFiles.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modMessageBox : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWholeTextMatches_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        QTest::addColumn<BoxIcon>("icon");
        QTest::addColumn<BoxButtons>("buttons");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* file, const char* title, const char* message, BoxIcon icon,
                            BoxButtons buttons) {
            QTest::newRow(file) << QString::fromUtf8(title) << QString::fromUtf8(message) << icon << buttons
                                << MakerBytes(file);
        };
        row("messagebox/defaults.bas", "", "", BoxIcon::None, BoxButtons::Ok);
        row("messagebox/critical-okcancel.bas", "Halt", "Stop?", BoxIcon::Critical, BoxButtons::OkCancel);
        row("messagebox/exclamation-yesno.bas", "Only a title", "", BoxIcon::Exclamation, BoxButtons::YesNo);
        row("messagebox/question-yesnocancel.bas", "My \"title\"", "Save \"it\"?", BoxIcon::Question,
            BoxButtons::YesNoCancel);
        row("messagebox/information-retrycancel.bas", "", "Only a message", BoxIcon::Information,
            BoxButtons::RetryCancel);
        row("messagebox/none-abortretryignore.bas", "[Grüße | spaces ]", " ", BoxIcon::None,
            BoxButtons::AbortRetryIgnore);
    }

    void theWholeTextMatches()
    {
        QFETCH(QString, title);
        QFETCH(QString, message);
        QFETCH(BoxIcon, icon);
        QFETCH(BoxButtons, buttons);
        QTEST(BytesOf(MessageBoxCode(WithDefaultTexts({title, message, icon, buttons}))), "expected");
    }

    void emptyTextsStayEmptyUntilTheyAreFilled()
    {
        const QString code = MessageBoxCode({});
        QCOMPARE(code.count(u"    \"\" as ptr, _"_s), 2);
    }

    void onlyEmptyTextsAreFilled()
    {
        const MessageBoxSpec filled = WithDefaultTexts({u" "_s, {}, BoxIcon::Question, BoxButtons::YesNo});
        QCOMPARE(filled.title, u" "_s);
        QCOMPARE(filled.message, u"Message text goes here!"_s);
        QCOMPARE(filled.icon, BoxIcon::Question);
        QCOMPARE(filled.buttons, BoxButtons::YesNo);
    }
};

QTEST_GUILESS_MAIN(tst_modMessageBox)
#include "tst_modMessageBox.moc"
