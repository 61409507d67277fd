// SPDX-License-Identifier: GPL-3.0-or-later
// The font box, operated by its own lists and buttons, in particular with a font that is not installed.
#include "support/BenchTest.h"

#include "platform/dialogs/dlgStandard.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Missing = u"No Such, Font"_s;

// Runs in the font box, which that button then closes.
void WithBox(const std::function<void(QFontDialog&)>& script,
             QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok)
{
    QTimer::singleShot(50, [script, button] {
        auto* box = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            QTest::qFail("no font box came up", __FILE__, __LINE__);
            return;
        }
        script(*box);
        QTest::mouseClick(box->findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    });
}

// The lists of the box in their order on the screen: families, styles, sizes.
QListView& List(const QFontDialog& box, qsizetype place)
{
    return *box.findChildren<QListView*>()[place];
}

QString Pick(QListView& list, int row)
{
    const QModelIndex index = list.model()->index(row, 0);
    list.setCurrentIndex(index);
    return index.data().toString();
}

} // namespace

class win_dlgFont : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(!QFontDatabase::families().contains(Missing));
        QVERIFY(QFontDatabase::families().size() >= 2);
    }

    void fontThatIsNotInstalledIsShownByItsName()
    {
        dlgStandard boxes;
        WithBox([](QFontDialog& box) { QCOMPARE(box.findChildren<QLineEdit*>().first()->text(), Missing); });
        const auto font = boxes.Font({Missing, 12, false, false});
        QVERIFY(font.has_value());
        QCOMPARE(font->name, Missing);
        QCOMPARE(font->size, 12);
    }

    void anotherSizeKeepsItsName()
    {
        dlgStandard boxes;
        int size = 0;
        WithBox([&](QFontDialog& box) { size = Pick(List(box, 2), 0).toInt(); });
        const auto font = boxes.Font({Missing, 12, false, false});
        QVERIFY(font.has_value() && size > 0 && size != 12);
        QCOMPARE(font->name, Missing);
        QCOMPARE(font->size, size);
    }

    void anotherFamilyTakesItsPlace()
    {
        dlgStandard boxes;
        QString family;
        WithBox([&](QFontDialog& box) {
            QListView& families = List(box, 0);
            family = Pick(families, families.currentIndex().row() == 0 ? 1 : 0);
        });
        const auto font = boxes.Font({Missing, 12, false, false});
        QVERIFY(font.has_value());
        QCOMPARE(font->name, family);
    }

    void installedFontIsReturnedUnchanged()
    {
        dlgStandard boxes;
        // Some families have bold styles alone; this one is always installed for the tests.
        const QString family = u"Liberation Sans"_s;
        WithBox([](QFontDialog&) {});
        const auto font = boxes.Font({family, 17, false, false});
        QVERIFY(font.has_value());
        QCOMPARE(font->name, family);
        QCOMPARE(font->size, 17);
        QVERIFY(!font->bold);
    }

    void cancelGivesNothing()
    {
        dlgStandard boxes;
        WithBox([](QFontDialog& box) { Pick(List(box, 0), 0); }, QDialogButtonBox::Cancel);
        QVERIFY(!boxes.Font({Missing, 12, false, false}).has_value());
    }

    void aSizeOfNothingDoesNoHarm()
    {
        dlgStandard boxes;
        WithBox([](QFontDialog&) {});
        const auto font = boxes.Font({Missing, 0, false, false});
        QVERIFY(font.has_value() && font->size > 0);
    }
};

OB_BENCH_TEST(win_dlgFont)
#include "win_dlgFont.moc"
