// SPDX-License-Identifier: GPL-3.0-or-later
// Places of windows and folders of tools in the settings store.
#include "shell/state/modPlaces.h"
#include "shell/state/modSettings.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modPlaces : public QObject {
    Q_OBJECT

    QTemporaryDir folder;

private Q_SLOTS:
    void init() { SetSettingsFile(folder.filePath(u"settings.ini"_s)); }
    void cleanup()
    {
        SetSettingsFile({});
        QFile::remove(folder.filePath(u"settings.ini"_s));
    }

    void aWindowIsPulledOntoTheRoomWhole_data()
    {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QRect>("pulled");
        QTest::newRow("within") << QRect(20, 30, 400, 300) << QRect(20, 30, 400, 300);
        QTest::newRow("off the right and the bottom") << QRect(900, 700, 400, 300) << QRect(610, 410, 400, 300);
        QTest::newRow("off the left and the top") << QRect(-50, -80, 400, 300) << QRect(10, 10, 400, 300);
        QTest::newRow("too wide") << QRect(100, 100, 5000, 300) << QRect(10, 100, 1000, 300);
        QTest::newRow("too large") << QRect(-9000, 9000, 5000, 3000) << QRect(10, 10, 1000, 700);
    }
    void aWindowIsPulledOntoTheRoomWhole()
    {
        QFETCH(QRect, window);
        QTEST(PulledOnto(QRect(10, 10, 1000, 700), window), "pulled");
    }

    void aPlaceComesBack()
    {
        QVERIFY(!RememberedPlace(u"frmWav"_s));
        RememberPlace(u"frmWav"_s, {-4, 30, 500, 300});
        QCOMPARE(RememberedPlace(u"frmWav"_s), QRect(-4, 30, 500, 300));
        QVERIFY(!RememberedPlace(u"frmMask"_s));
        // The settings that other programs of the product share are not touched.
        QCOMPARE(ReadSetting(u"frmWav"_s, u"none"_s), u"none"_s);
    }

    void nonsenseIsNoPlace_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"", "1 2 3", "1 2 3 x", "1 2 3 4 5", "1 2 0 4", "1 2 3 -4", "1 2 3 99999999999", "2000000000 2 3 4"})
            QTest::newRow(text) << QString::fromLatin1(text);
    }
    void nonsenseIsNoPlace()
    {
        QFETCH(QString, text);
        WriteRemembered(u"Windows"_s, u"frmWav"_s, text);
        QVERIFY(!RememberedPlace(u"frmWav"_s));
    }

    void aFolderComesBack()
    {
        QCOMPARE(LastFolder(u"frmIcon"_s), QString());
        RememberFolder(u"frmIcon"_s, u"/a folder, with a comma/ü"_s);
        QCOMPARE(LastFolder(u"frmIcon"_s), u"/a folder, with a comma/ü"_s);
    }
};

QTEST_GUILESS_MAIN(tst_modPlaces)
#include "tst_modPlaces.moc"
