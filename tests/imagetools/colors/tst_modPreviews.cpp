// SPDX-License-Identifier: GPL-3.0-or-later
// The colour and the font that the status bar shows.
#include "imagetools/colors/modPreviews.h"

#include "core/CoreBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modPreviews : public QObject {
    Q_OBJECT

private:
    const QString title = u"Color Previewer"_s;
    const FontSpec start = {u"MS Sans Serif"_s, 10, false, false};

    std::unique_ptr<CoreBench> bench;

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void aColorIsShownWithLeadingSpacesAndIsTheNextStart()
    {
        bench->dialogs.ExpectColor(title, 0, 197121);
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, u"R- 1     G- 2     B- 3     Long- 197121"_s);
        bench->dialogs.ExpectColor(title, 197121, 0xFFFFFF);
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, u"R- 255     G- 255     B- 255     Long- 16777215"_s);
        bench->dialogs.ExpectColor(title, 0xFFFFFF, std::nullopt);
        bench->form.status = u"as it was"_s;
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, u"as it was"_s);
        bench->dialogs.ExpectColor(title, 0xFFFFFF, 0);
        mnuColorDialog_Click();
        QCOMPARE(bench->form.status, u"R- 0     G- 0     B- 0     Long- 0"_s);
        QVERIFY(bench->dialogs.Finished());
    }

    void theSameTextIsShownWithoutSpaces()
    {
        QCOMPARE(ColorStatus(Rgb(1, 2, 3), NumberForm::Plain), u"R-1     G-2     B-3     Long-197121"_s);
        QCOMPARE(ColorStatus(0, NumberForm::Plain), u"R-0     G-0     B-0     Long-0"_s);
    }

    void aFontIsShownWithItsSize()
    {
        bench->dialogs.ExpectFont(start, FontSpec{u"Courier New"_s, 12, true, false});
        mnuToolFont_Click();
        QCOMPARE(bench->form.status, u"Font:  Courier New     size:  12"_s);
        bench->form.status = u"as it was"_s;
        bench->dialogs.ExpectFont(start, std::nullopt);
        mnuToolFont_Click();
        bench->dialogs.ExpectFont(start, FontSpec{QString(), 12, false, false});
        mnuToolFont_Click();
        QCOMPARE(bench->form.status, u"as it was"_s);
        QVERIFY(bench->dialogs.Finished());
    }
};

QTEST_GUILESS_MAIN(tst_modPreviews)
#include "tst_modPreviews.moc"
