// SPDX-License-Identifier: GPL-3.0-or-later
// What every window has beyond the desktop's style: the keyboard is seen in lists, icons on selected menu items, and
// fields hold what they show.
#include "support/BenchTest.h"

#include "shell/state/frmStyle.h"
#include "shell/state/modColors.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QSpinBox>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

void PasteInto(QLineEdit& field, const QString& text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

QPalette DarkPalette()
{
    QPalette dark(QColor(45, 45, 45));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    return dark;
}

// The contrast between the icon of a selected item, drawn in brown, and its row.
double ContrastOfIcon(const QPalette& palette)
{
    QMenu menu;
    menu.setPalette(palette);
    QPixmap brown(16, 16);
    brown.fill(QColor(0x9c, 0x73, 0x58));
    QAction* item = menu.addAction(QIcon(brown), u" "_s); // no text that could be taken for the icon
    menu.popup(QPoint(20, 20));
    menu.setActiveAction(item);
    const QImage row = menu.grab(menu.actionGeometry(item)).toImage();
    const QColor ground = palette.color(QPalette::Highlight);
    const int middle = row.height() / 2;
    double most = 0;
    for (int x = 2; x < row.width() - 2; ++x)
        most = std::max(most, ContrastOf(ground, row.pixelColor(x, middle)));
    return row.pixelColor(row.width() - 4, middle) == ground ? most : 0;
}

} // namespace

class win_frmStyle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UseBenchStyle(); }

    void hintsCanBeSeenInADarkPalette()
    {
        QPalette dark = DarkPalette();
        dark.setColor(QPalette::Base, QColor(27, 30, 32));
        dark.setColor(QPalette::Text, Qt::white);
        dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
        frmStyle().polish(dark);
        QCOMPARE(dark.color(QPalette::PlaceholderText), QColor(255, 255, 255, 128));
        QPalette light;
        light.setColor(QPalette::Base, Qt::white);
        light.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
        frmStyle().polish(light);
        QCOMPARE(light.color(QPalette::PlaceholderText), QColor(0, 0, 0, 128));
    }

    void aListWithTheKeyboardHasAFrame()
    {
        for (const QPalette& palette : {QPalette(), DarkPalette()}) {
            QWidget window;
            window.setPalette(palette);
            QVBoxLayout layout(&window);
            QLineEdit other;
            QListWidget list;
            QListView empty;
            QTreeWidget tree;
            QTableWidget table(2, 2);
            list.addItems({u"a"_s, u"b"_s});
            layout.addWidget(&other);
            const QList<QWidget*> lists = {&list, &empty, &tree, &table};
            for (QWidget* each : lists)
                layout.addWidget(each);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            const auto frameOf = [](QWidget* each) {
                return each->grab().toImage().pixelColor(each->width() / 2, each->height() - 1);
            };
            for (QWidget* each : lists) {
                each->setFocus();
                QCOMPARE(frameOf(each), palette.color(QPalette::Highlight));
                other.setFocus();
                QVERIFY(frameOf(each) != palette.color(QPalette::Highlight));
            }
        }
    }

    void anIconCanBeSeenOnTheSelectedRow()
    {
        for (const QPalette& palette : {QPalette(), DarkPalette()}) {
            const double contrast = ContrastOfIcon(palette);
            QVERIFY2(contrast >= 2.9, qPrintable(QString::number(contrast)));
        }
    }

    void aFieldHoldsWhatItShows()
    {
        QLineEdit field;
        field.show();
        PasteInto(field, u"one\r\ntwo\nthree\n"_s);
        QCOMPARE(field.text(), u"one two three"_s);
        field.setCursorPosition(3);
        PasteInto(field, u"\n!\n"_s);
        QCOMPARE(field.text(), u"one !  two three"_s);
        QCOMPARE(field.cursorPosition(), 6);
        QCOMPARE(field.displayText(), field.text());
        PasteInto(field, u"\ttab"_s);
        QCOMPARE(field.text(), u"one ! \ttab two three"_s);
    }

    void theFieldOfAQuestionHoldsWhatItShows()
    {
        QInputDialog box;
        box.show();
        PasteInto(*box.findChild<QLineEdit*>(), u"save\nas"_s);
        QCOMPARE(box.textValue(), u"save as"_s);
    }

    void theNameInAFileBoxMayHoldAnyCharacter()
    {
        QFileDialog box;
        box.setOption(QFileDialog::DontUseNativeDialog);
        box.show();
        auto* name = box.findChild<QLineEdit*>(u"fileNameEdit"_s);
        PasteInto(*name, u"a\nb"_s);
        QCOMPARE(name->text(), u"a\nb"_s);
    }

    void aFieldCanKeepLineEndsOrItsOwnValidator()
    {
        QLineEdit field;
        field.setProperty("keepsLineEnds", true);
        field.show();
        PasteInto(field, u"one\ntwo"_s);
        QCOMPARE(field.text(), u"one\ntwo"_s);
        QSpinBox number;
        number.show();
        PasteInto(*number.findChild<QLineEdit*>(), u"x"_s);
        QCOMPARE(number.text(), u"0"_s);
    }
};

OB_BENCH_TEST(win_frmStyle)
#include "win_frmStyle.moc"
