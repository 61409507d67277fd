// SPDX-License-Identifier: GPL-3.0-or-later
// The font box, operated by its own lists and buttons, in particular with a font that is not installed.
#include "support/BenchTest.h"

#include "platform/dialogs/dlgStandard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QFile>
#include <QFontDatabase>
#include <QFontDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStandardPaths>
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

// The font's file with another maker in it.
QByteArray WithMaker(QByteArray font, const QByteArray& maker)
{
    const auto number = [&](qsizetype at, int bytes) {
        qsizetype value = 0;
        for (int i = 0; i < bytes; ++i)
            value = value * 256 + static_cast<unsigned char>(font[at + i]);
        return value;
    };
    const qsizetype record = font.indexOf("OS/2");
    return font.replace(number(record + 8, 4) + 58, maker.size(), maker);
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
        QCOMPARE(font->name, family.section(u" ["_s, 0, 0));
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

    void stylesAreOfferedOnlyWhereTheyCount()
    {
        dlgStandard boxes;
        const auto isVisible = [](const QFontDialog& box, qsizetype place) {
            return List(box, place).isVisible() && box.findChildren<QLineEdit*>()[place]->isVisible();
        };
        const auto check = [&](FontStyles styles) {
            WithBox([&](QFontDialog& box) {
                QVERIFY(isVisible(box, 0) && isVisible(box, 2));
                QCOMPARE(isVisible(box, 1), styles == FontStyles::Offered);
                for (const QCheckBox* effect : box.findChildren<QCheckBox*>())
                    QVERIFY(!effect->isVisible());
            });
            return boxes.Font({u"Liberation Sans"_s, 17, false, false, styles});
        };
        QVERIFY(check(FontStyles::Offered).has_value());
        QVERIFY(check(FontStyles::Ignored).has_value());
    }

    void theMakerIsNoPartOfTheName()
    {
        QFile file;
        for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::FontsLocation)) {
            QDirIterator fonts(folder, {u"LiberationSans-Regular.ttf"_s}, QDir::Files, QDirIterator::Subdirectories);
            if (fonts.hasNext())
                file.setFileName(fonts.next());
        }
        QVERIFY(file.open(QIODevice::ReadOnly));
        const int added = QFontDatabase::addApplicationFontFromData(WithMaker(file.readAll(), "ADBE"));
        QVERIFY(added >= 0);
        dlgStandard boxes;
        QString shown;
        WithBox([&](QFontDialog& box) {
            QListView& families = List(box, 0);
            const QModelIndex first = families.model()->index(0, 0);
            const auto found = families.model()->match(first, Qt::DisplayRole, u"Liberation Sans ["_s);
            QVERIFY(!found.isEmpty());
            shown = Pick(families, found.first().row());
        });
        const auto font = boxes.Font({Missing, 12, false, false});
        QFontDatabase::removeApplicationFont(added);
        QVERIFY(shown.endsWith(u']'));
        QCOMPARE(font->name, u"Liberation Sans"_s);
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
