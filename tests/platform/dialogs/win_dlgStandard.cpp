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

using namespace Qt::StringLiterals;

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
        QCOMPARE(boxes.Message({u"Save?"_s, BoxIcon::Question, BoxButtons::YesNo, {}}), BoxAnswer::No);
    }

    void enterSaysYes()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(box.windowTitle(), u"OB Bench"_s);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QCOMPARE(boxes.Message({u"Save?"_s, BoxIcon::Question, BoxButtons::YesNo, {}}), BoxAnswer::Yes);
    }

    void escapeCancels()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message({u"Find?"_s, BoxIcon::None, BoxButtons::OkCancel, {}}), BoxAnswer::Cancel);
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message({u"Done."_s, BoxIcon::Critical, BoxButtons::Ok, {}}), BoxAnswer::Ok);
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
        boxes.Message({u"Copied."_s, BoxIcon::None, BoxButtons::Ok, {}});
    }

    void textIsShownUnchanged()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(dynamic_cast<QMessageBox&>(box).text(), u"<b>a & b</b>"_s);
            QCOMPARE(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
            Press(box, QMessageBox::Ok);
        });
        boxes.Message({u"<b>a & b</b>"_s, BoxIcon::None, BoxButtons::Ok, u"T"_s});
    }

    void retryIsPressedByEnterAndCancelByEscape()
    {
        dlgStandard boxes;
        const MessageSpec spec{u"Again?"_s, BoxIcon::None, BoxButtons::RetryCancel, {}};
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Retry);
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message(spec), BoxAnswer::Cancel);
    }

    void abortRetryIgnoreIsClosedOnlyByItsButtons()
    {
        dlgStandard boxes;
        const MessageSpec spec{u"Failed."_s, BoxIcon::None, BoxButtons::AbortRetryIgnore, {}};
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
            QCOMPARE(field->text(), u"1"_s);
            field->setText(u"42"_s);
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(boxes.Input({u"Line number?"_s, u"Go to Line"_s, u"1"_s}), std::optional(u"42"_s));
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Input({u"Line number?"_s, {}, {}}), std::optional<QString>());
    }

    void aSavedNameGetsTheExtensionAndReturnsItsFilter()
    {
        const QTemporaryDir folder;
        dlgStandard boxes;
        int filterIndex = 1;
        FileSpec spec{FilePurpose::Save, u"Save"_s, folder.path(), {}, {}, u"bmp"_s};
        spec.filter = u"Icons (*.ico)|*.ico|Bitmaps (*.bmp)|*.bmp"_s;
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
        QCOMPARE(saveAs("strip", 0), folder.filePath(u"strip.bmp"_s));
        QCOMPARE(filterIndex, 0);
        QCOMPARE(saveAs("strip.ico", 1), folder.filePath(u"strip.ico"_s));
        QCOMPARE(filterIndex, 1);
    }

    void theOfferedNameIsInTheField()
    {
        const QTemporaryDir folder;
        dlgStandard boxes;
        FileSpec spec{FilePurpose::Save, u"Save"_s, folder.path(), u"a.txt"_s, {}};
        WithBox([](QWidget& box) {
            auto* field = box.findChild<QLineEdit*>();
            QCOMPARE(field->text(), u"a.txt"_s);
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(QDir::fromNativeSeparators(boxes.File(spec)), folder.filePath(u"a.txt"_s));
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QVERIFY(boxes.File(spec).isEmpty());
    }
};

OB_BENCH_TEST(win_dlgStandard)
#include "win_dlgStandard.moc"
