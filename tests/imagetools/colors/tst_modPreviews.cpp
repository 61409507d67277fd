// SPDX-License-Identifier: GPL-3.0-or-later
// The colour and the font that the status bar shows.
#include "imagetools/colors/modPreviews.h"

#include "core/CoreBench.h"

using namespace ob;

class tst_modPreviews : public QObject {
    Q_OBJECT

private:
    const QString title = QStringLiteral("Color Previewer");
    const FontSpec start = {QStringLiteral("MS Sans Serif"), 10, false, false};

    std::unique_ptr<CoreBench> bench;

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void aColorIsShownWithLeadingSpacesAndIsTheNextStart()
    {
        bench->dialogs.ExpectColor(title, 0, 197121);
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, QStringLiteral("R- 1     G- 2     B- 3     Long- 197121"));
        bench->dialogs.ExpectColor(title, 197121, 0xFFFFFF);
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, QStringLiteral("R- 255     G- 255     B- 255     Long- 16777215"));
        bench->dialogs.ExpectColor(title, 0xFFFFFF, std::nullopt);
        bench->form.status = QStringLiteral("as it was");
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, QStringLiteral("as it was"));
        bench->dialogs.ExpectColor(title, 0xFFFFFF, 0);
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, QStringLiteral("R- 0     G- 0     B- 0     Long- 0"));
        QVERIFY(bench->dialogs.Finished());
    }

    void theSameTextIsShownWithoutSpaces()
    {
        QCOMPARE(ColorStatus(Rgb(1, 2, 3), NumberForm::Plain), QStringLiteral("R-1     G-2     B-3     Long-197121"));
        QCOMPARE(ColorStatus(0, NumberForm::Plain), QStringLiteral("R-0     G-0     B-0     Long-0"));
    }

    void aFontIsShownWithItsSize()
    {
        bench->dialogs.ExpectFont(start, FontSpec{QStringLiteral("Courier New"), 12, true, false});
        mnuToolFont_Click();
        QCOMPARE(bench->form.status, QStringLiteral("Font:  Courier New     size:  12"));
        bench->form.status = QStringLiteral("as it was");
        bench->dialogs.ExpectFont(start, std::nullopt);
        mnuToolFont_Click();
        bench->dialogs.ExpectFont(start, FontSpec{QString(), 12, false, false});
        mnuToolFont_Click();
        QCOMPARE(bench->form.status, QStringLiteral("as it was"));
        QVERIFY(bench->dialogs.Finished());
    }
};

QTEST_GUILESS_MAIN(tst_modPreviews)
#include "tst_modPreviews.moc"
