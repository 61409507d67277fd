// SPDX-License-Identifier: GPL-3.0-or-later
// Work that a window waits for while its thread lives on.
#include "platform/dialogs/frmPatience.h"
#include "platform/language/cRuntimeError.h"
#include "support/HeldThreads.h"

#include <QApplication>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QProgressDialog* Box()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == u"dlgPatience"_s && window->isVisible())
            return static_cast<QProgressDialog*>(window);
    return nullptr;
}

} // namespace

class win_frmPatience : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shortWorkGivesItsResultWithoutABox()
    {
        int turns = 0;
        QTimer::singleShot(0, this, [&] { ++turns; });
        QCOMPARE(RunPatiently(u"Counting..."_s, [] { return 7; }), std::optional(7));
        QCOMPARE(turns, 0);
        QCoreApplication::processEvents();
    }

    void itRunsOnAnotherThread()
    {
        const auto thread = RunPatiently(u"Looking..."_s, [] { return QThread::currentThreadId(); });
        QVERIFY(thread && *thread != QThread::currentThreadId());
    }

    void whatItThrowsArrives()
    {
        const auto fail = []() -> int { throw RuntimeErrorOf(ErrorNumber::InvalidPicture); };
        QVERIFY_EXCEPTION_THROWN(RunPatiently(u"Failing..."_s, fail), RuntimeError);
    }

    void longWorkShowsABoxThatGoesWithIt()
    {
        HeldThreads held;
        QTimer watch;
        QString words;
        connect(&watch, &QTimer::timeout, this, [&] {
            if (Box() == nullptr)
                return;
            words = Box()->labelText();
            held.Release();
        });
        watch.start(20);
        QCOMPARE(RunPatiently(u"Reading ship.wmf..."_s, [] { return 3; }), std::optional(3));
        QCOMPARE(words, u"Reading ship.wmf..."_s);
        QVERIFY(Box() == nullptr);
    }

    void cancelEndsTheWait_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("the key") << true;
        QTest::newRow("the button") << false;
    }
    void cancelEndsTheWait()
    {
        QFETCH(bool, byKey);
        QLineEdit field;
        field.show();
        QVERIFY(QTest::qWaitForWindowActive(&field));
        const HeldThreads held;
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            // Keys for other windows are lost meanwhile.
            QTest::keyClick(&field, Qt::Key_A);
            if (byKey)
                QTest::keyClick(&field, Qt::Key_Escape);
            else if (Box() != nullptr)
                Box()->findChild<QPushButton*>()->click();
        });
        watch.start(20);
        QVERIFY(!RunPatiently(u"Reading..."_s, [] { return 3; }));
        watch.stop();
        QCOMPARE(field.text(), QString());
        QTest::keyClick(&field, Qt::Key_A);
        QCOMPARE(field.text(), u"a"_s);
    }
};

QTEST_MAIN(win_frmPatience)
#include "win_frmPatience.moc"
