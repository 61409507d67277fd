// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does becomes a command, and no error reaches the event loop.
#include "platform/dialogs/frmCommand.h"

#include "platform/dialogs/frmApplication.h"
#include "platform/language/cRuntimeError.h"
#include "support/ScriptedDialogs.h"

#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Unexpected = u"This command ended with an unexpected error:\nmelted"_s;

// A window whose handlers fail.
class Window final : public QWidget {
public:
    QPushButton* button = new QPushButton(this);
    QSlider* slider = new QSlider(this);
    int clicks = 0;
    int value = 0;
    bool fails = false;

    void button_Click()
    {
        ++clicks;
        throw RuntimeErrorOf(ErrorNumber::FileNotFound);
    }
    void slider_Change(int now)
    {
        value = now;
        throw std::runtime_error("melted");
    }

protected:
    void paintEvent(QPaintEvent*) override { Fail(); }
    void keyPressEvent(QKeyEvent*) override { Fail(); }
    void closeEvent(QCloseEvent*) override { Fail(); }

private:
    void Fail() const
    {
        if (fails)
            throw std::runtime_error("melted");
    }
};

} // namespace

class win_frmCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aClickRunsItsHandlerAsACommand()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(u"Run-time error '53':\nFile not found"_s);
        Window window;
        On(window.button, &window, &Window::button_Click);
        window.button->click();
        QCOMPARE(window.clicks, 1);
        QVERIFY(dialogs.Finished());
    }

    void aHandlerGetsWhatTheSignalHolds()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(Unexpected);
        Window window;
        On(window.slider, &QSlider::valueChanged, &window, &Window::slider_Change);
        window.slider->setValue(7);
        QCOMPARE(window.value, 7);
        QVERIFY(dialogs.Finished());
    }

    void aRoutineRunsAsACommandToo()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(Unexpected);
        dialogs.ExpectMessage(Unexpected);
        Window window;
        int seen = 0;
        On(window.slider, &QSlider::valueChanged, &window, [&](int now) {
            seen = now;
            throw std::runtime_error("melted");
        });
        On(window.button, &window, [] { throw std::runtime_error("melted"); });
        window.slider->setValue(5);
        window.button->click();
        QCOMPARE(seen, 5);
        QVERIFY(dialogs.Finished());
    }

    void connectionsEndWithTheWindow()
    {
        QPushButton button;
        auto window = std::make_unique<Window>();
        On(&button, window.get(), &Window::button_Click);
        window.reset();
        button.click();
    }

    void anErrorOfAnEventIsShown()
    {
        ScriptedDialogs dialogs;
        Window window;
        window.show();
        window.fails = true;
        dialogs.ExpectMessage(Unexpected);
        QTest::keyClick(&window, Qt::Key_A);
        dialogs.ExpectMessage(Unexpected);
        window.close();
        QVERIFY(dialogs.Finished());
    }

    void anErrorOfATimerIsShown()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(Unexpected);
        bool wentOn = false;
        QTimer::singleShot(1, this, [] { throw std::runtime_error("melted"); });
        QTimer::singleShot(2, this, [&] { wentOn = true; });
        QTRY_VERIFY(wentOn);
        QVERIFY(dialogs.Finished());
    }

    void anErrorOfPaintingIsNoBox()
    {
        const ScriptedDialogs dialogs;
        Window window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.fails = true;
        QTest::ignoreMessage(
            QtWarningMsg, "An error was not shown, as it came while something was painted or another one was shown.");
        window.repaint();
        window.fails = false;
        window.repaint();
    }
};

int main(int argc, char** argv)
{
    frmApplication application(argc, argv);
    win_frmCommand test;
    return QTest::qExec(&test, argc, argv);
}

#include "win_frmCommand.moc"
