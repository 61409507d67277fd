// SPDX-License-Identifier: GPL-3.0-or-later
// The syntax tip and the keyword list, as the control receives them.
#include "support/ScriptedDialogs.h"

#include "editor/document/cDocument.h"
#include "editor/document/modSyntaxTable.h"
#include "editor/modEdit.h"

#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// A control of two lines with characters ten pixels wide; it records its requests.
class RecordingControl : public cSciControl {
public:
    explicit RecordingControl(QByteArray controlText) : text(std::move(controlText)) {}
    virtual ~RecordingControl() = default;

    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        const auto position = static_cast<qsizetype>(wParam);
        const auto* words = reinterpret_cast<const char*>(lParam);
        switch (message) {
        case SCI_GETCURRENTPOS:
            return caret;
        case SCI_GETSELECTIONSTART:
            return std::min(caret, anchor);
        case SCI_GETSELECTIONEND:
            return std::max(caret, anchor);
        case SCI_WORDSTARTPOSITION:
            return WordStart(position);
        case SCI_GETRANGEPOINTER:
            return reinterpret_cast<std::intptr_t>(text.constData() + position);
        case SCI_TEXTWIDTH:
            measured = words;
            return 10 * measured.size();
        case SCI_POINTXFROMPOSITION:
            return 10 * (lParam - LineStart(lParam));
        case SCI_LINEFROMPOSITION:
            return LineStart(position) == 0 ? 0 : 1;
        case SCI_POSITIONFROMLINE:
            return position == 0 ? 0 : LineStart(text.size());
        case SCI_SETSEL:
            caret = lParam;
            anchor = position;
            return 0;
        case SCI_CALLTIPSHOW:
            tip = words;
            tipPosition = position;
            break;
        case SCI_CALLTIPSETHLT:
            highlight = {position, lParam};
            break;
        case SCI_AUTOCSHOW:
            list = words;
            entered = position;
            break;
        case SCI_AUTOCSETIGNORECASE:
            ignoresCase = wParam != 0;
            break;
        case SCI_AUTOCSETAUTOHIDE:
            autoHide = position;
            break;
        default:
            break;
        }
        requests.append(message);
        return 0;
    }

    QByteArray text;
    qsizetype caret = 0;
    qsizetype anchor = 0;
    QList<unsigned> requests;
    QByteArray tip;
    QByteArray measured;
    qsizetype tipPosition = -1;
    std::pair<qsizetype, std::intptr_t> highlight;
    QByteArray list;
    qsizetype entered = -1;
    qsizetype autoHide = -1;
    bool ignoresCase = false;

private:
    qsizetype LineStart(qsizetype position) const { return text.lastIndexOf('\n', position - text.size() - 1) + 1; }
    qsizetype WordStart(qsizetype position) const
    {
        const auto isWord = [](char character) {
            return std::isalnum(character) != 0 || character == '$' || character == '?';
        };
        while (position > 0 && isWord(text[position - 1]))
            --position;
        return position;
    }
};

class BrokenControl final : public RecordingControl {
public:
    using RecordingControl::RecordingControl;
    std::intptr_t Send(unsigned, std::uintptr_t, std::intptr_t) override { throw std::runtime_error("broken"); }
};

class WideWindow final : public cDocumentWindow {
public:
    explicit WideWindow(int pixels) : width(pixels) {}
    void ShowCaption(const QString&) override {}
    void FillLabelLists() override {}
    void FillBranchBox() override {}
    int WidthInPixels() const override { return width; }

private:
    int width;
};

// Presses F4 with the caret there, in a window of that width.
// Whether a tip is shown afterwards.
bool Show(RecordingControl& control, qsizetype anchor, qsizetype caret, int width = 10'000)
{
    WideWindow window(width);
    cDocument document(1);
    document.sci = &control;
    document.window = &window;
    control.anchor = anchor;
    control.caret = caret;
    ShowSyntax(document);
    return document.SyntaxTipShown;
}

} // namespace

class tst_modEdit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { BuildSyntaxTable(); }

    void theTipIsTheRowOfTheWordBeforeTheCaret_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QByteArray>("tip");
        QTest::addColumn<int>("position");
        const QByteArray none(NoSyntaxHelp.data(), static_cast<qsizetype>(NoSyntaxHelp.size()));
        const auto rowOf = [](const char* term) {
            const std::string_view row = SyntaxTip(term);
            return QByteArray(row.data(), static_cast<qsizetype>(row.size()));
        };
        const auto row = [](const char* name, const char* text, int anchor, int caret, const QByteArray& tip, int at) {
            QTest::newRow(name) << QByteArray(text) << anchor << caret << tip << at;
        };
        row("after the word", "x = left$", 9, 9, rowOf("left$"), 4);
        row("in any case", "  PRINT", 7, 7, rowOf("print"), 2);
        row("in the middle only what is before counts", "print", 3, 3, none, 0);
        row("which may be a word", "fillet", 4, 4, rowOf("fill"), 0);
        row("two rows of one key: the first", "select", 6, 6, rowOf("select"), 0);
        row("on the second line", "x\r\ncls", 6, 6, rowOf("cls"), 3);
        row("after a space", "print ", 6, 6, none, 6);
        row("a key that no term can be", "txcount", 7, 7, none, 0);
        row("an empty text", "", 0, 0, none, 0);
        row("a selection, at the text's start", "x = left$(a$, 1)", 4, 9, rowOf("left$"), 0);
        row("selected backwards", "x = left$(a$, 1)", 9, 4, rowOf("left$"), 0);
        row("a selection with a space", "x = left$ ", 4, 10, none, 0);
    }

    void theTipIsTheRowOfTheWordBeforeTheCaret()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, anchor);
        QFETCH(int, caret);
        QFETCH(QByteArray, tip);
        RecordingControl control(text);
        const bool isShown = Show(control, anchor, caret);
        QCOMPARE(control.tip, tip);
        QTEST(static_cast<int>(control.tipPosition), "position");
        const qsizetype lineFeed = tip.indexOf('\n');
        QCOMPARE(control.highlight, std::pair(qsizetype{0}, std::max<std::intptr_t>(lineFeed, 0)));
        QCOMPARE(control.measured, lineFeed < 0 ? tip : tip.first(lineFeed + 1));
        QCOMPARE(control.caret, caret);
        QCOMPARE(control.anchor, caret);
        QCOMPARE(control.text, text);
        QVERIFY(isShown);
        QCOMPARE(control.requests,
                 (QList<unsigned>{SCI_AUTOCCANCEL, SCI_CALLTIPCANCEL, SCI_CALLTIPSHOW, SCI_CALLTIPSETHLT}));
    }

    void aLongSelectionHasNoHelp()
    {
        RecordingControl control("print" + QByteArray(2000, ' '));
        Show(control, 0, 2005);
        QCOMPARE(control.tip.toStdString(), std::string(NoSyntaxHelp));
        QCOMPARE(control.caret, 2005);
    }

    void aTipTooWideForTheWindowStartsAtTheLinesStart()
    {
        const QByteArray before = "x\r\na = a + a: ";
        RecordingControl control(before + "cls");
        Show(control, before.size() + 3, before.size() + 3);
        QCOMPARE(control.tipPosition, before.size());
        const int right = static_cast<int>(10 * (before.size() - 3) + 10 * control.measured.size());
        Show(control, before.size() + 3, before.size() + 3, right + 12);
        QCOMPARE(control.tipPosition, before.size());
        Show(control, before.size() + 3, before.size() + 3, right + 11);
        QCOMPARE(control.tipPosition, qsizetype{3});
    }

    void anErrorMidwayIsReported()
    {
        ScriptedDialogs dialogs;
        dialogs.ExpectMessage(u"Error in Syntax Helper, no help available."_s, BoxAnswer::Ok, BoxIcon::None);
        BrokenControl control("beep");
        QVERIFY(!Show(control, 4, 4));
    }

    void theKeywordListIsShownWithTheStartOfTheWord()
    {
        RecordingControl control("x = le");
        control.caret = control.anchor = 6;
        InsertKeyword(&control);
        QCOMPARE(control.list + ' ', Words().KeywordList);
        QCOMPARE(control.entered, qsizetype{2});
        QVERIFY(control.ignoresCase);
        QCOMPARE(control.autoHide, qsizetype{0});
        QCOMPARE(control.requests, (QList<unsigned>{SCI_CALLTIPCANCEL, SCI_AUTOCCANCEL, SCI_AUTOCSETIGNORECASE,
                                                    SCI_AUTOCSETORDER, SCI_AUTOCSETAUTOHIDE, SCI_AUTOCSHOW}));
    }

    void withoutAStartTheListHidesByItself()
    {
        RecordingControl control("x = ");
        control.caret = control.anchor = 4;
        InsertKeyword(&control);
        QCOMPARE(control.entered, qsizetype{0});
        QVERIFY(!control.requests.contains(SCI_AUTOCSETAUTOHIDE));
    }
};

QTEST_APPLESS_MAIN(tst_modEdit)
#include "tst_modEdit.moc"
