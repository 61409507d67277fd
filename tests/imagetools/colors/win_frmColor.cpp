// SPDX-License-Identifier: GPL-3.0-or-later
// The colour sliders and the chart of the colour names.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/colors/frmColor.h"
#include "imagetools/colors/frmColorChart.h"
#include "imagetools/colors/frmColorNames.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmColor : public QObject {
    Q_OBJECT

private:
    template <class Control>
    Control* Find(const char* name) const
    {
        return window->findChild<Control*>(QString::fromLatin1(name));
    }
    QString Status() { return bench->Frame().findChild<QLabel*>(u"statusText"_s)->text(); }
    QColor Pane() const
    {
        auto* pane = Find<QLabel>("Colbox");
        return pane->grab().toImage().pixelColor(pane->rect().center());
    }

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmColor> window;

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        bench->Start();
        window = std::make_unique<frmColor>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup()
    {
        window.reset();
        bench.reset();
    }

    void itStartsWithGrey()
    {
        QCOMPARE(window->windowTitle(), u"Color Choice"_s);
        QCOMPARE(Find<QLabel>("Label1")->text(), u"Red - 128"_s);
        QCOMPARE(Find<QLabel>("Label2")->text(), u"Green - 128"_s);
        QCOMPARE(Find<QLabel>("Label3")->text(), u"Blue - 128"_s);
        QCOMPARE(Find<QLabel>("Colbox")->toolTip(), u"Color Preview Pane"_s);
        QCOMPARE(Find<QPushButton>("Command1")->toolTip(), u"Exit Color Choice"_s);
        QCOMPARE(Pane(), QColor(128, 128, 128));
        for (const char* name : {"Slider1_0", "Slider1_1", "Slider1_2"}) {
            QCOMPARE(Find<QSlider>(name)->minimum(), 0);
            QCOMPARE(Find<QSlider>(name)->maximum(), 255);
        }
    }

    void theSlidersMixTheColor()
    {
        Find<QSlider>("Slider1_0")->setValue(1);
        Find<QSlider>("Slider1_1")->setValue(200);
        QTest::keyClick(Find<QSlider>("Slider1_2"), Qt::Key_End);
        QCOMPARE(Pane(), QColor(1, 200, 255));
        QCOMPARE(Find<QLabel>("Label1")->text(), u"Red - 1"_s);
        QCOMPARE(Find<QLabel>("Label2")->text(), u"Green - 200"_s);
        QCOMPARE(Find<QLabel>("Label3")->text(), u"Blue - 255"_s);
    }

    void exitShowsTheNumbers()
    {
        Find<QSlider>("Slider1_0")->setValue(1);
        Find<QSlider>("Slider1_1")->setValue(2);
        Find<QSlider>("Slider1_2")->setValue(3);
        Find<QPushButton>("Command1")->click();
        QVERIFY(!window->isVisible());
        QCOMPARE(Status(), u"R-1     G-2     B-3     Long-197121"_s);
    }

    void enterShowsTheNumbersToo()
    {
        QTest::keyClick(window.get(), Qt::Key_Return);
        QCOMPARE(Status(), u"R-128     G-128     B-128     Long-8421504"_s);
    }

    void escapeLeavesTheStatusAlone()
    {
        const QString before = Status();
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(!window->isVisible());
        QCOMPARE(Status(), before);
    }

    void theMenuItemShowsOneWindow()
    {
        mnuToolRGB_Click();
        mnuToolRGB_Click();
        const auto shown = bench->Frame().findChildren<frmColor*>();
        QCOMPARE(shown.size(), 1);
        QVERIFY(!shown.first()->isModal());
    }

    void theChartHasAFieldForEachColor()
    {
        bench->ExpectModal(u"frmColorNames"_s, [](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Orchard BASIC Color Names"_s);
            auto* chart = dialog.findChild<frmColorChart*>(u"chart"_s);
            const QImage picture = chart->grab().toImage();
            for (int color = 0; color < ColorCount - 1; ++color) {
                const ColorRef value = ColorValue[static_cast<std::size_t>(color)];
                const QColor expected(static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
                                      static_cast<int>((value >> 16) & 0xFF));
                const QRect field = chart->FieldOf(color);
                QVERIFY(chart->rect().contains(field));
                // Next to the text.
                QCOMPARE(picture.pixelColor(field.left() + 3, field.center().y()), expected);
            }
            QVERIFY(chart->accessibleDescription().startsWith(
                QLatin1String("Black 0 0 0, White 255 255 255, Lightgray 192 192 192, ")));
            QTest::keyClick(&dialog, Qt::Key_Escape);
            QVERIFY(!dialog.isVisible());
        });
        mnuColorNames_Click();
    }

    void fieldsOfTheChartDoNotOverlap()
    {
        frmColorChart chart;
        for (const QSize size : {chart.minimumSizeHint(), QSize(733, 411)}) {
            chart.resize(size);
            for (int color = 0; color < ColorCount; ++color) {
                for (int other = 0; other < color; ++other)
                    QVERIFY(!chart.FieldOf(color).intersects(chart.FieldOf(other)));
            }
        }
    }
};

OB_BENCH_TEST(win_frmColor)
#include "win_frmColor.moc"
