// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own boxes, answered by their real buttons and keys.
#include "support/BenchTest.h"

#include "platform/dialogs/dlgStandard.h"
#include "platform/dialogs/frmManners.h"
#include "platform/dialogs/modFileBox.h"
#include "platform/language/cRuntimeError.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBoundaryFinder>
#include <QTimer>

#include <functional>
#include <utility>

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

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail("the test's own file cannot be written", __FILE__, __LINE__);
}

// What the file box says about a file's type.
QString TypeOf(const QWidget& box, const QString& path)
{
    auto* model = box.findChild<QFileSystemModel*>();
    const QModelIndex index = model->index(path);
    return index.isValid() ? model->type(index) : u"not listed"_s;
}

QStringList FiltersOf(const QWidget& box)
{
    return dynamic_cast<const QFileDialog&>(box).nameFilters();
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

    void aFailureGivesFileAndReasonBelowItsWords()
    {
        dlgStandard boxes;
        cDialogs* const before = SetDialogs(&boxes);
        const QString file = u"/home/me/a<b>&c.bas"_s;
        const QString words = u"Run-time error '75':\nPath/File access error"_s;
        WithBox([&](QWidget& box) {
            QCOMPARE(dynamic_cast<QMessageBox&>(box).text(), words);
            QCOMPARE(dynamic_cast<QMessageBox&>(box).informativeText(), file + u": Permission denied"_s);
            const auto* details = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s);
            QVERIFY(details->isVisible());
            QCOMPARE(details->textFormat(), Qt::PlainText);
            Press(box, QMessageBox::Ok);
        });
        (void)RunCommand([&] { throw RuntimeErrorOf(ErrorNumber::PathFileAccess, file, u"Permission denied"_s); });
        WithBox([&](QWidget& box) {
            QCOMPARE(dynamic_cast<QMessageBox&>(box).informativeText(), QString());
            Press(box, QMessageBox::Ok);
        });
        MsgBox(u"No code window is active!"_s);
        SetDialogs(before);
    }

    void aShortBoxShowsItsWholeTitle()
    {
        dlgStandard boxes;
        const auto needed = [](const QWidget& box) {
            QFont bold = box.font();
            bold.setBold(true);
            return QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + 150;
        };
        for (const QString& title : {u"Error"_s, u"Cannot Remove Item"_s, u"A title much longer than its text"_s}) {
            WithBox([&](QWidget& box) {
                QVERIFY2(box.width() >= needed(box), qPrintable(title));
                Press(box, QMessageBox::Ok);
            });
            boxes.Message({u"No."_s, BoxIcon::None, BoxButtons::Ok, title});
            WithBox([&](QWidget& box) {
                QVERIFY2(box.width() >= needed(box), qPrintable(title));
                QTest::keyClick(&box, Qt::Key_Escape);
            });
            boxes.Input({u"?"_s, title, {}});
        }
    }

    void namesInPathsAreNotBroken()
    {
        dlgStandard boxes;
        const QString path = QDir::toNativeSeparators(u"/home/me/My old-games (2)/Space-Race/game-one.exe"_s);
        const QString text = u"The engine is now called "_s + path + u"  All is well-made"_s;
        WithBox([&](QWidget& box) {
            const QString shown = dynamic_cast<QMessageBox&>(box).text();
            const qsizetype start = shown.indexOf(QDir::separator());
            const qsizetype end = shown.indexOf(u"  All"_s);
            QTextBoundaryFinder ends(QTextBoundaryFinder::Line, shown);
            bool isAfterSeparator = false;
            for (qsizetype place = ends.toNextBoundary(); place > 0; place = ends.toNextBoundary()) {
                if (place <= start || place >= end)
                    continue;
                QVERIFY2(shown[place - 1] == QDir::separator(), qPrintable(shown.sliced(place)));
                isAfterSeparator = true;
            }
            QVERIFY(isAfterSeparator);
            // What holds the names together is not seen and not copied.
            const QFontMetrics metrics(box.findChild<QLabel*>(u"qt_msgbox_label"_s)->font());
            QCOMPARE(metrics.horizontalAdvance(shown), metrics.horizontalAdvance(text));
            QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QApplication::clipboard()->text(), text);
            Press(box, QMessageBox::Ok);
        });
        boxes.Message({text, BoxIcon::None, BoxButtons::Ok, {}, {}, {path}});
    }

    void theEndingFollowsTheFilter()
    {
        const QTemporaryDir folder;
        dlgStandard boxes;
        int filter = 0;
        FileSpec spec;
        spec.purpose = FilePurpose::Save;
        spec.folder = folder.path();
        spec.filter = u"Icons (*.ico)|*.ico|Bitmaps (*.bmp)|*.bmp"_s;
        spec.extension = u"ico"_s;
        spec.filterIndex = &filter;
        for (const char* ending : {"ico", "bmp"}) {
            WithBox([&](QWidget& box) {
                auto* filters = box.findChild<QComboBox*>(u"fileTypeCombo"_s);
                const int place = QLatin1String(ending) == QLatin1String("bmp") ? 1 : 0;
                filters->setCurrentIndex(place);
                Q_EMIT filters->textActivated(filters->currentText());
                Q_EMIT dynamic_cast<QFileDialog&>(box).filterSelected(filters->currentText());
                box.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"drawn"_s);
                dynamic_cast<QFileDialog&>(box).findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
            });
            QCOMPARE(QFileInfo(boxes.File(spec)).fileName(), u"drawn."_s + QLatin1String(ending));
        }
        QCOMPARE(filter, 1);
    }

    void severalFilesAreChosenInOneBox()
    {
        const QTemporaryDir folder;
        for (const char* name : {"a.bmp", "b.bmp"})
            Write(folder.filePath(QLatin1String(name)), "x");
        dlgStandard boxes;
        FileSpec spec;
        spec.folder = folder.path();
        spec.filter = u"BMP Files|*.bmp"_s;
        WithBox([&](QWidget& box) {
            box.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"\"a.bmp\" \"b.bmp\""_s);
            dynamic_cast<QFileDialog&>(box).findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
        });
        QCOMPARE(boxes.Files(spec), QStringList({folder.filePath(u"a.bmp"_s), folder.filePath(u"b.bmp"_s)}));
    }

    void aQuestionThatNeedsAnAnswerHasNoCloseButton()
    {
        dlgStandard boxes;
        const auto hasClose = [&boxes](BoxButtons buttons) {
            bool has = false;
            WithBox([&has](QWidget& box) {
                has = box.windowFlags().testFlag(Qt::WindowCloseButtonHint);
                dynamic_cast<QDialog&>(box).reject();
            });
            boxes.Message({u"Save?"_s, BoxIcon::Question, buttons, {}});
            return has;
        };
        QVERIFY(!hasClose(BoxButtons::YesNo));
        QVERIFY(!hasClose(BoxButtons::AbortRetryIgnore));
        QVERIFY(hasClose(BoxButtons::YesNoCancel));
        QVERIFY(hasClose(BoxButtons::Ok));
    }

    void aBoxWithoutATitleBearsTheProgramsName()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(box.windowTitle(), u"OB Bench"_s);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        boxes.Input({u"Panel Caption?"_s, {}, {}});
    }

    void noBoxHasIconsOnItsButtons()
    {
        const frmManners manners;
        dlgStandard boxes;
        const auto look = [](QWidget& box) {
            const auto buttons = box.findChild<QDialogButtonBox*>()->buttons();
            QVERIFY(!buttons.isEmpty());
            for (const QAbstractButton* button : buttons)
                QVERIFY2(button->icon().isNull(), qPrintable(button->text()));
            dynamic_cast<QDialog&>(box).reject();
        };
        WithBox(look);
        boxes.Message({u"Save?"_s, BoxIcon::Question, BoxButtons::YesNoCancel, {}});
        WithBox(look);
        boxes.Input({u"?"_s, {}, {}});
        WithBox(look);
        boxes.File({FilePurpose::Save, u"Save"_s, QDir::tempPath(), {}, {}});
        WithBox(look);
        boxes.Color({u"Color"_s, 0});
        WithBox(look);
        boxes.Font({u"Liberation Sans"_s, 10, false, false});
    }

    void aFilesTypeComesFromItsNameAlone()
    {
        const QTemporaryDir folder;
        const QByteArray picture = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452");
        Write(folder.filePath(u"picture"_s), picture);
        Write(folder.filePath(u"notes.txt"_s), picture);
        dlgStandard boxes;
        WithBox([&](QWidget& box) {
            QTRY_COMPARE(TypeOf(box, folder.filePath(u"picture"_s)), u"File"_s);
            QTRY_COMPARE(TypeOf(box, folder.filePath(u"notes.txt"_s)),
                         QMimeDatabase().mimeTypeForName(u"text/plain"_s).comment());
            dynamic_cast<QDialog&>(box).reject();
        });
        boxes.File({FilePurpose::Open, u"Open"_s, folder.path(), {}, {}});
    }

    void allFilesCanAlwaysBeChosen()
    {
        dlgStandard boxes;
        const auto filters = [&boxes](FilePurpose purpose, const QString& filter) {
            QStringList shown;
            WithBox([&shown](QWidget& box) {
                shown = FiltersOf(box);
                dynamic_cast<QDialog&>(box).reject();
            });
            boxes.File({purpose, u"Box"_s, QDir::tempPath(), {}, filter});
            return shown;
        };
        const QStringList bitmaps = {u"Bitmap (*.bmp)"_s, u"All Files (*)"_s};
        QCOMPARE(filters(FilePurpose::Open, u"Bitmap |*.bmp"_s), bitmaps);
        QCOMPARE(filters(FilePurpose::Save, u"Bitmap |*.bmp"_s), bitmaps);
        // One that the caller gives is not doubled.
        QCOMPARE(filters(FilePurpose::Save, u"A|*.a|All Files (*.*)| *.*"_s).size(), 2);
    }

    void aFileBoxStartsWhereItsHostSaysAndKeepsItsSize()
    {
        const QTemporaryDir folder;
        QSize kept;
        SetFileBoxHost({[&] { return folder.path(); }, [&] { return kept; }, [&](const QSize& size) { kept = size; }});
        dlgStandard boxes;
        const auto open = [&](const QString& start, const QSize& leave) {
            std::pair<QString, QSize> seen;
            WithBox([&](QWidget& box) {
                seen = {dynamic_cast<QFileDialog&>(box).directory().path(), box.size()};
                if (!leave.isEmpty())
                    box.resize(leave);
                dynamic_cast<QDialog&>(box).reject();
            });
            boxes.File({FilePurpose::Open, u"Open"_s, start, {}, {}});
            return seen;
        };
        QCOMPARE(open({}, {}).first, folder.path());
        QCOMPARE(open(folder.filePath(u"gone"_s), {}).first, folder.path());
        QVERIFY(kept.isEmpty());
        QCOMPARE(open(QDir::tempPath(), QSize(733, 455)).first, QDir::tempPath());
        QCOMPARE(kept, QSize(733, 455));
        QCOMPARE(open({}, {}).second, QSize(733, 455));
        SetFileBoxHost({});
        QCOMPARE(open({}, {}).first, QDir::currentPath());
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
