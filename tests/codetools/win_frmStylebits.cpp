// SPDX-License-Identifier: GPL-3.0-or-later
// The Stylebits Wizard and its help, by their controls.
#include "codetools/MakerBench.h"

#include "codetools/modStylebits.h"
#include "shell/state/frmLoss.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The program with the wizard open over it while the script runs.
class WizardScript {
public:
    WizardScript() { bench.Start(); }

    void Play(const std::function<void(QDialog&)>& script)
    {
        QApplication::clipboard()->setText(u"before"_s);
        bench.ExpectModal(u"frmStylebits"_s, script);
        bench.Choose(u"mnuToolStylebit"_s);
    }

    void ExpectCopied(BoxAnswer answer)
    {
        bench.dialogs.ExpectMessage(StylebitsCopiedText, answer, BoxIcon::None, BoxButtons::OkCancel,
                                    u"Copied to Clipboard"_s);
    }

    TestBench bench;
};

QListWidget* Bits(const QDialog& wizard)
{
    return Find<QListWidget>(wizard, "lstBits");
}

QByteArray ListBytes(const QDialog& wizard)
{
    QString text;
    for (int row = 0; row < Bits(wizard)->count(); ++row)
        text += Bits(wizard)->item(row)->text() + u"\r\n"_s;
    return BytesOf(text);
}

// Selects like the arrow keys and the mouse; selecting the same one again counts, too.
void ChooseObject(const QDialog& wizard, const char* object)
{
    auto* box = Find<QComboBox>(wizard, "cboObject");
    box->setCurrentText(QString::fromLatin1(object));
    Q_EMIT box->activated(box->currentIndex());
}

void Tick(const QDialog& wizard, std::initializer_list<int> rows)
{
    for (const int row : rows) {
        Bits(wizard)->setCurrentRow(row);
        QTest::keyClick(Bits(wizard), Qt::Key_Space);
    }
}

int Ticked(const QDialog& wizard)
{
    int ticked = 0;
    for (int row = 0; row < Bits(wizard)->count(); ++row)
        ticked += Bits(wizard)->item(row)->checkState() == Qt::Checked ? 1 : 0;
    return ticked;
}

} // namespace

class win_frmStylebits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowStartsWithItsDefaults();
    void eachObjectShowsItsBits();
    void checkedBitsBecomeAStatementOnTheClipboard_data();
    void checkedBitsBecomeAStatementOnTheClipboard();
    void anotherListUnchecksAll();
    void cancelInTheMessageStays();
    void withoutBitsThereIsAMessage();
    void aBusyClipboardKeepsTheWindowOpen();
    void theMouseChecksToo();
    void helpShowsTheInstructions();
    void enterCopiesAndEscapeCloses();
    void tabFollowsTheReadingOrder();
    void aClickOnTheTextTicksTheRow();
    void escapeAsksBeforeTicksAreLost();
};

void win_frmStylebits::theWindowStartsWithItsDefaults()
{
    WizardScript s;
    s.Play([](QDialog& wizard) {
        QCOMPARE(Find<QComboBox>(wizard, "cboObject")->currentText(), u"Button"_s);
        QCOMPARE(Find<QComboBox>(wizard, "cboObject")->count(), 11);
        QVERIFY(Find<QRadioButton>(wizard, "optAdd")->isChecked());
        QVERIFY(!Find<QCheckBox>(wizard, "chkEx")->isChecked());
        QVERIFY(wizard.isModal());
        QCOMPARE(ListBytes(wizard), MakerBytes("stylebits/Button.list"));
        Press(wizard, "cmdCancel");
    });
    QCOMPARE(OnClipboard(), u"before"_s);
}

void win_frmStylebits::eachObjectShowsItsBits()
{
    WizardScript s;
    s.Play([](QDialog& wizard) {
        auto* box = Find<QComboBox>(wizard, "cboObject");
        box->setFocus();
        for (int i = 1; i < box->count(); ++i) {
            QTest::keyClick(box, Qt::Key_Down);
            const QByteArray name = "stylebits/" + box->itemText(i).toLatin1();
            QCOMPARE(ListBytes(wizard), MakerBytes(name + ".list"));
            Press(wizard, "chkEx");
            QCOMPARE(ListBytes(wizard), MakerBytes(name + "-extended.list"));
            Press(wizard, "chkEx");
        }
        Press(wizard, "cmdCancel");
    });
}

void win_frmStylebits::checkedBitsBecomeAStatementOnTheClipboard_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<bool>("extended");
    QTest::addColumn<QByteArray>("option");
    QTest::addColumn<QList<int>>("rows");
    const auto row = [](const char* file, const char* object, bool extended, const char* option,
                        const QList<int>& rows) {
        QTest::newRow(file) << QByteArray(object) << extended << QByteArray(option) << rows;
    };
    row("stylebits/add.txt", "Button", false, "optAdd", {14, 2, 8});
    row("stylebits/remove.txt", "StaticText", false, "optRemove", {0});
    row("stylebits/add-extended.txt", "Dialog", true, "optAdd", {10, 8});
    row("stylebits/remove-extended.txt", "Textbox", true, "optRemove", {1});
    row("stylebits/double-space.txt", "Combobox", false, "optAdd", {7, 0});
}

void win_frmStylebits::checkedBitsBecomeAStatementOnTheClipboard()
{
    QFETCH(QByteArray, object);
    QFETCH(bool, extended);
    QFETCH(QByteArray, option);
    QFETCH(QList<int>, rows);
    const QString expected = MakerText(QTest::currentDataTag());
    WizardScript s;
    s.ExpectCopied(BoxAnswer::Ok);
    s.Play([&](QDialog& wizard) {
        QCOMPARE(Previewed(wizard), QString());
        ChooseObject(wizard, object);
        if (extended)
            Press(wizard, "chkEx");
        for (const int row : rows)
            Tick(wizard, {row});
        Press(wizard, option);
        QCOMPARE(Previewed(wizard), expected);
        Press(wizard, "cmdCopy");
        QVERIFY(!wizard.isVisible());
    });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), expected);
}

void win_frmStylebits::anotherListUnchecksAll()
{
    WizardScript s;
    s.Play([](QDialog& wizard) {
        Tick(wizard, {0, 1});
        QCOMPARE(Ticked(wizard), 2);
        ChooseObject(wizard, "Radiobutton");
        QCOMPARE(Ticked(wizard), 0);
        QCOMPARE(Previewed(wizard), QString());
        Tick(wizard, {0, 1});
        Press(wizard, "chkEx");
        QCOMPARE(Ticked(wizard), 0);
        Press(wizard, "chkEx");
        QCOMPARE(Ticked(wizard), 0);
        Tick(wizard, {0});
        ChooseObject(wizard, "Radiobutton");
        QCOMPARE(Ticked(wizard), 0);
        Tick(wizard, {0});
        Press(wizard, "optRemove");
        QCOMPARE(Ticked(wizard), 1);
        Press(wizard, "cmdCancel");
    });
}

void win_frmStylebits::cancelInTheMessageStays()
{
    WizardScript s;
    s.ExpectCopied(BoxAnswer::Cancel);
    s.Play([](QDialog& wizard) {
        ChooseObject(wizard, "StaticText");
        Press(wizard, "optRemove");
        Tick(wizard, {0});
        Press(wizard, "cmdCopy");
        QVERIFY(wizard.isVisible());
        QCOMPARE(Ticked(wizard), 1);
        QCOMPARE(OnClipboard(), MakerText("stylebits/remove.txt"));
        Press(wizard, "cmdCancel");
    });
    QVERIFY(s.bench.dialogs.Finished());
}

void win_frmStylebits::withoutBitsThereIsAMessage()
{
    WizardScript s;
    s.bench.dialogs.ExpectMessage(NoStylebitsText, BoxAnswer::Ok, BoxIcon::None, BoxButtons::Ok, u"Error."_s);
    s.Play([](QDialog& wizard) {
        Tick(wizard, {0});
        Tick(wizard, {0});
        Press(wizard, "cmdCopy");
        QVERIFY(wizard.isVisible());
        Press(wizard, "cmdCancel");
    });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), u"before"_s);
}

void win_frmStylebits::aBusyClipboardKeepsTheWindowOpen()
{
    WizardScript s;
    s.bench.dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
    s.Play([](QDialog& wizard) {
        Tick(wizard, {0});
        const TakenClipboard taken;
        Press(wizard, "cmdCopy");
        QVERIFY(wizard.isVisible());
        QCOMPARE(Ticked(wizard), 1);
        Press(wizard, "cmdCancel");
    });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), u"before"_s);
}

void win_frmStylebits::theMouseChecksToo()
{
    WizardScript s;
    s.Play([](QDialog& wizard) {
        const QRect row = Bits(wizard)->visualItemRect(Bits(wizard)->item(2));
        QTest::mouseClick(Bits(wizard)->viewport(), Qt::LeftButton, {},
                          QPoint(row.left() + row.height() / 2, row.center().y()));
        QCOMPARE(Bits(wizard)->item(2)->checkState(), Qt::Checked);
        QCOMPARE(Previewed(wizard), u"stylebits #handle.ext, _BS_TOP, 0, 0, 0"_s);
        Press(wizard, "cmdCancel");
    });
}

void win_frmStylebits::helpShowsTheInstructions()
{
    WizardScript s;
    s.Play([&](QDialog& wizard) {
        s.bench.ExpectModal(u"dlgStylebitsHelp"_s, [](QDialog& help) {
            const auto* syntax = Find<QLabel>(help, "lblSyntax");
            QCOMPARE(syntax->text(), StylebitsSyntax);
            QVERIFY(QFontInfo(syntax->font()).fixedPitch());
            QCOMPARE(BytesOf(Find<QLabel>(help, "lblHelp")->text()), MakerBytes("stylebits/help.txt"));
            // Everything fits.
            QVERIFY(Find<QLabel>(help, "lblHelp")->height() >=
                    Find<QLabel>(help, "lblHelp")->heightForWidth(Find<QLabel>(help, "lblHelp")->width()));
            Press(help, "OKButton");
            QVERIFY(!help.isVisible());
        });
        Press(wizard, "cmdHelp");
        QVERIFY(wizard.isVisible());
        Press(wizard, "cmdCancel");
    });
}

void win_frmStylebits::enterCopiesAndEscapeCloses()
{
    WizardScript s;
    s.ExpectCopied(BoxAnswer::Cancel);
    s.Play([](QDialog& wizard) {
        Tick(wizard, {0});
        QTest::keyClick(Bits(wizard), Qt::Key_Return);
        QTest::keyClick(&wizard, Qt::Key_Escape);
        QVERIFY(!wizard.isVisible());
    });
    QVERIFY(s.bench.dialogs.Finished());
}

void win_frmStylebits::tabFollowsTheReadingOrder()
{
    WizardScript s;
    s.Play([](QDialog& wizard) {
        QTRY_COMPARE(QApplication::activeWindow(), &wizard);
        QCOMPARE(TabOrder(wizard, "cboObject").join(u' '),
                 u"cboObject chkEx optAdd lstBits codePreview cmdCopy cmdHelp cmdCancel"_s);
        Press(wizard, "cmdCancel");
    });
}

void win_frmStylebits::aClickOnTheTextTicksTheRow()
{
    WizardScript s;
    s.Play([](QDialog& wizard) {
        const QRect row = Bits(wizard)->visualItemRect(Bits(wizard)->item(2));
        const auto click = [&](Qt::MouseButton button) {
            QTest::mouseClick(Bits(wizard)->viewport(), button, {}, row.center());
        };
        click(Qt::LeftButton);
        QCOMPARE(Bits(wizard)->item(2)->checkState(), Qt::Checked);
        QCOMPARE(Previewed(wizard), u"stylebits #handle.ext, _BS_TOP, 0, 0, 0"_s);
        click(Qt::RightButton);
        QCOMPARE(Ticked(wizard), 1);
        click(Qt::LeftButton);
        QCOMPARE(Ticked(wizard), 0);
        Press(wizard, "cmdCancel");
    });
}

void win_frmStylebits::escapeAsksBeforeTicksAreLost()
{
    WizardScript s;
    s.bench.dialogs.ExpectMessage(LossQuestion(u"2 ticked bits"_s), BoxAnswer::Cancel, BoxIcon::Question,
                                  BoxButtons::OkCancel, u"Stylebits Wizard"_s);
    s.ExpectCopied(BoxAnswer::Cancel);
    s.Play([](QDialog& wizard) {
        Tick(wizard, {0, 1});
        QTest::keyClick(Bits(wizard), Qt::Key_Escape);
        QVERIFY(wizard.isVisible());
        Press(wizard, "cmdCopy");
        QTest::keyClick(Bits(wizard), Qt::Key_Escape);
        QVERIFY(!wizard.isVisible());
    });
    QVERIFY(s.bench.dialogs.Finished());
}

OB_BENCH_TEST(win_frmStylebits)
#include "win_frmStylebits.moc"
