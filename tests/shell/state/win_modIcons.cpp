// SPDX-License-Identifier: GPL-3.0-or-later
// The bench's icons: each can be seen on what is behind it, in light and dark.
#include "shell/state/modColors.h"
#include "shell/state/modIcons.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPalette>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr double Seen = 2.5;

// The share of an icon's own pixels that can be seen on the ground.
double SeenShare(const QIcon& icon, const QColor& ground)
{
    const QImage picture = icon.pixmap(QSize(24, 24), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    int all = 0;
    int seen = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.alpha() < 250)
                continue;
            ++all;
            seen += ContrastOf(color, ground) >= Seen ? 1 : 0;
        }
    }
    return all == 0 ? 0 : static_cast<double>(seen) / all;
}

QStringList Names()
{
    QStringList names;
    for (const QFileInfo& file : QDir(u":/icons"_s).entryInfoList({u"*.svg"_s}))
        if (file.baseName() != QLatin1String("app"))
            names.append(file.baseName());
    return names;
}

QPalette DarkPalette()
{
    return {QColor(49, 54, 59), QColor(42, 46, 50)};
}

} // namespace

class win_modIcons : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void iconsAreSeenOnButtons_data()
    {
        QTest::addColumn<QPalette>("palette");
        QTest::newRow("light") << QPalette(QColor(239, 239, 239), QColor(239, 239, 239));
        QTest::newRow("dark") << DarkPalette();
    }

    void iconsAreSeenOnButtons()
    {
        QFETCH(QPalette, palette);
        QApplication::setPalette(palette);
        QVERIFY(Names().size() > 100);
        for (const QString& name : Names()) {
            QVERIFY2(SeenShare(BenchIcon(name), palette.color(QPalette::Window)) > 0.9, qPrintable(name));
        }
        QApplication::setPalette(QPalette());
    }

    void iconOfATitleBringsItsBackground()
    {
        const QImage picture = BenchIcon(u"form"_s, IconGround::Title).pixmap(16, 16).toImage();
        QCOMPARE(picture.pixelColor(0, 0).alpha(), 255);
    }

    void unknownNameIsNoIcon() { QVERIFY(BenchIcon(u"no-such-icon"_s).isNull()); }
};

QTEST_MAIN(win_modIcons)
#include "win_modIcons.moc"
