// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own boxes, answered by their real buttons and keys.
#include "support/BenchTest.h"

#include "platform/dialogs/dlgStandard.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

using namespace ob;

namespace {

// Runs once the next modal box is shown.
void WithBox(const std::function<void(QWidget&)>& script)
{
    QTimer::singleShot(50, [script] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr)
            QTest::qFail("no box came up", __FILE__, __LINE__);
        else
            script(*box);
        // A box left open by a failed check would wait for ever.
        if (QTest::currentTestFailed())
            dynamic_cast<QDialog&>(*box).done(0);
    });
}

void Press(QWidget& box, QMessageBox::StandardButton button)
{
    QTest::mouseClick(dynamic_cast<QMessageBox&>(box).button(button), Qt::LeftButton);
}

} // namespace

class win_dlgStandard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void questionIsClosedOnlyByItsButtons()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            QVERIFY(box.isVisible());
            box.close();
            QVERIFY(box.isVisible());
            Press(box, QMessageBox::No);
        });
        QCOMPARE(boxes.Message({QStringLiteral("Save?"), BoxIcon::Question, BoxButtons::YesNo, {}}), BoxAnswer::No);
    }

    void enterSaysYes()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(box.windowTitle(), QStringLiteral("OB Bench"));
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QCOMPARE(boxes.Message({QStringLiteral("Save?"), BoxIcon::Question, BoxButtons::YesNo, {}}), BoxAnswer::Yes);
    }

    void escapeCancels()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message({QStringLiteral("Find?"), BoxIcon::None, BoxButtons::OkCancel, {}}), BoxAnswer::Cancel);
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message({QStringLiteral("Done."), BoxIcon::Critical, BoxButtons::Ok, {}}), BoxAnswer::Ok);
    }

    void theBoxOfAToolThatHasClosedBelongsToTheMainWindow()
    {
        QMainWindow main;
        main.show();
        QDialog tool(&main);
        tool.show();
        QTRY_COMPARE(QApplication::activeWindow(), &tool);
        dlgStandard boxes;
        tool.accept();
        WithBox([&](QWidget& box) {
            QCOMPARE(box.parentWidget(), &main);
            QVERIFY(box.isVisible());
            Press(box, QMessageBox::Ok);
        });
        boxes.Message({QStringLiteral("Copied."), BoxIcon::None, BoxButtons::Ok, {}});
    }

    void textIsShownUnchanged()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(dynamic_cast<QMessageBox&>(box).text(), QStringLiteral("<b>a & b</b>"));
            QCOMPARE(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
            Press(box, QMessageBox::Ok);
        });
        boxes.Message({QStringLiteral("<b>a & b</b>"), BoxIcon::None, BoxButtons::Ok, QStringLiteral("T")});
    }

    void retryIsPressedByEnterAndCancelByEscape()
    {
        dlgStandard boxes;
        const MessageSpec spec{QStringLiteral("Again?"), BoxIcon::None, BoxButtons::RetryCancel, {}};
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Retry);
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Cancel);
    }

    void abortRetryIgnoreIsClosedOnlyByItsButtons()
    {
        dlgStandard boxes;
        const MessageSpec spec{QStringLiteral("Failed."), BoxIcon::None, BoxButtons::AbortRetryIgnore, {}};
        WithBox([](QWidget& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            box.close();
            QVERIFY(box.isVisible());
            Press(box, QMessageBox::Ignore);
        });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Ignore);
        WithBox([](QWidget& box) { Press(box, QMessageBox::Retry); });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Retry);
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Abort);
    }

    void inputGivesTheTextOrNothing()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            auto* field = box.findChild<QLineEdit*>();
            QCOMPARE(field->text(), QStringLiteral("1"));
            field->setText(QStringLiteral("42"));
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(boxes.Input({QStringLiteral("Line number?"), QStringLiteral("Go to Line"), QStringLiteral("1")}),
                 std::optional(QStringLiteral("42")));
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Input({QStringLiteral("Line number?"), {}, {}}), std::optional<QString>());
    }

    void aSavedNameGetsTheExtensionAndReturnsItsFilter()
    {
        const QTemporaryDir folder;
        dlgStandard boxes;
        int filterIndex = 1;
        FileSpec spec{FilePurpose::Save, QStringLiteral("Save"), folder.path(), {}, {}, QStringLiteral("bmp")};
        spec.filter = QStringLiteral("Icons (*.ico)|*.ico|Bitmaps (*.bmp)|*.bmp");
        spec.filterIndex = &filterIndex;
        const auto saveAs = [&](const char* name, int filter) {
            WithBox([name, filter, &filterIndex](QWidget& box) {
                auto& dialog = dynamic_cast<QFileDialog&>(box);
                QVERIFY(dialog.nameFilters().at(filterIndex).startsWith(dialog.selectedNameFilter()));
                dialog.selectNameFilter(dialog.nameFilters().at(filter));
                auto* field = box.findChild<QLineEdit*>();
                field->setText(QString::fromLatin1(name));
                QTest::keyClick(field, Qt::Key_Return);
            });
            return QDir::fromNativeSeparators(boxes.File(spec));
        };
        QCOMPARE(saveAs("strip", 0), folder.filePath(QStringLiteral("strip.bmp")));
        QCOMPARE(filterIndex, 0);
        QCOMPARE(saveAs("strip.ico", 1), folder.filePath(QStringLiteral("strip.ico")));
        QCOMPARE(filterIndex, 1);
    }

    void theOfferedNameIsInTheField()
    {
        const QTemporaryDir folder;
        dlgStandard boxes;
        FileSpec spec{FilePurpose::Save, QStringLiteral("Save"), folder.path(), QStringLiteral("a.txt"), {}};
        WithBox([](QWidget& box) {
            auto* field = box.findChild<QLineEdit*>();
            QCOMPARE(field->text(), QStringLiteral("a.txt"));
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(QDir::fromNativeSeparators(boxes.File(spec)), folder.filePath(QStringLiteral("a.txt")));
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QVERIFY(boxes.File(spec).isEmpty());
    }
};

OB_BENCH_TEST(win_dlgStandard)
#include "win_dlgStandard.moc"
