// SPDX-License-Identifier: GPL-3.0-or-later
// Dragging between the lists of the packaging wizard, with the mouse and on a display server of its own, as the
// offscreen platform does not support dragging.
#include "engine/package/WizardBench.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// Moves the mouse from one place to another like a user who drags.
void Drag(QAbstractItemView* from, const QModelIndex& item, QWidget* to, const QPoint& place)
{
    QWindow* window = from->window()->windowHandle();
    const auto inWindow = [&](QWidget* widget, const QPoint& point) { return widget->mapTo(from->window(), point); };
    const QPoint start = inWindow(from->viewport(), from->visualRect(item).center());
    const QPoint end = inWindow(to, place);
    // The drag has an event loop of its own, which processes these.
    QTimer::singleShot(200, window, [=] { QTest::mouseMove(window, end - QPoint(3, 3)); });
    QTimer::singleShot(300, window, [=] { QTest::mouseMove(window, end); });
    QTimer::singleShot(400, window, [=] { QTest::mouseRelease(window, Qt::LeftButton, {}, end); });
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, start + QPoint(QApplication::startDragDistance() + 2, 0));
    QTest::mouseMove(window, start + QPoint(QApplication::startDragDistance() + 12, 2));
    QTest::qWait(500);
}

// A virtual display server for this test; its number is in DISPLAY.
class DisplayServer {
public:
    DisplayServer()
    {
        server.start(u"Xvfb"_s, u"-displayfd 1 -screen 0 1280x1024x24 -nolisten tcp"_s.split(QLatin1Char(' ')));
        QByteArray number;
        while (!number.endsWith('\n') && server.waitForReadyRead(20'000))
            number += server.readAllStandardOutput();
        if (!number.endsWith('\n'))
            qFatal("Xvfb did not start");
        qputenv("DISPLAY", ":" + number.trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
    DisplayServer(const DisplayServer&) = delete;
    DisplayServer& operator=(const DisplayServer&) = delete;
    ~DisplayServer()
    {
        server.terminate();
        server.waitForFinished();
    }

private:
    QProcess server;
};

} // namespace

class win_frmPackageDrag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesAreDraggedIn();
    void linesAreDraggedOut();
    void linesDroppedOnTheFormAreOut();
};

void win_frmPackageDrag::filesAreDraggedIn()
{
    const PackageBench files(1);
    PutFile(files.At("work/a.txt"), "a");
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        const QStringList before = Lines(dialog);
        auto* list = Find<QListView>(dialog, "FileList");
        QTRY_COMPARE(list->model()->rowCount(), 2);
        QWidget* target = Find<QListWidget>(dialog, "TEMPList")->viewport();
        Drag(list, list->model()->index(0, 0), target, target->rect().center());
        QCOMPARE(Lines(dialog), before + Words("a.txt"));
        QCOMPARE(list->model()->rowCount(), 2);
        QCOMPARE(Find<QListWidget>(dialog, "TEMPList")->item(static_cast<int>(before.size()))->toolTip(),
                 files.At("work/a.txt"));
        // A drop onto itself changes nothing.
        Drag(list, list->model()->index(0, 0), list->viewport(), list->viewport()->rect().center());
        QCOMPARE(Lines(dialog), before + Words("a.txt"));
        QCOMPARE(list->model()->rowCount(), 2);
    });
}

void win_frmPackageDrag::linesAreDraggedOut()
{
    const PackageBench files(1);
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        QStringList expected = Lines(dialog);
        auto* list = Find<QListWidget>(dialog, "TEMPList");
        QWidget* target = Find<QListView>(dialog, "FileList")->viewport();
        Drag(list, list->model()->index(3, 0), target, target->rect().center());
        expected.removeAt(3);
        QCOMPARE(Lines(dialog), expected);
        QTRY_COMPARE(Find<QListView>(dialog, "FileList")->model()->rowCount(), 1);
        // Within its list a line keeps its position.
        Drag(list, list->model()->index(3, 0), list->viewport(), list->visualRect(list->model()->index(0, 0)).center());
        QCOMPARE(Lines(dialog), expected);
    });
}

void win_frmPackageDrag::linesDroppedOnTheFormAreOut()
{
    const PackageBench files(1);
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        QStringList expected = Lines(dialog);
        auto* list = Find<QListWidget>(dialog, "TEMPList");
        QWidget* target = Find<QLabel>(dialog, "lblInstruct");
        Drag(list, list->model()->index(0, 0), target, target->rect().center());
        expected.removeAt(0);
        QCOMPARE(Lines(dialog), expected);
    });
}

int main(int argc, char** argv)
{
    const DisplayServer server;
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    win_frmPackageDrag test;
    return QTest::qExec(&test, argc, argv);
}
#include "win_frmPackageDrag.moc"
