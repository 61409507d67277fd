// SPDX-License-Identifier: GPL-3.0-or-later
// What the edit control reports to assistive tools.
#include "SciBench.h"

#include <QAccessible>
#include <QLineEdit>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace ob;

class win_SciAccessible : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void assistiveToolsReadTheText();
    void anotherControlKeepsItsOwnInterface();
};

void win_SciAccessible::assistiveToolsReadTheText()
{
    const QString text = u"print \"\u00E4\U0001F600\"\r\nlet b = 2. Then c\r\n"_s;
    SciBench bench(text.toUtf8().toStdString());
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(bench.control);
    QVERIFY(accessible != nullptr);
    QCOMPARE(accessible->role(), QAccessible::EditableText);
    QAccessibleTextInterface* reader = accessible->textInterface();
    QVERIFY(reader != nullptr);
    QCOMPARE(reader->characterCount(), static_cast<int>(text.size()));
    for (int from = 0; from <= text.size(); ++from)
        for (const int to : {from, from + 1, static_cast<int>(text.size())})
            if (!text.mid(from, 1).startsWith(QChar(0xDE00)) && !text.mid(to, 1).startsWith(QChar(0xDE00)))
                QCOMPARE(reader->text(from, to), text.mid(from, to - from));

    int start = 0;
    int end = 0;
    QCOMPARE(reader->textAtOffset(14, QAccessible::WordBoundary, &start, &end), u"let"_s);
    QCOMPARE(start, text.indexOf(u"let"_s));
    QCOMPARE(end, start + 3);
    QCOMPARE(reader->textAtOffset(2, QAccessible::LineBoundary, &start, &end), text.left(13));
    QCOMPARE(reader->textAfterOffset(2, QAccessible::LineBoundary, &start, &end), text.mid(13));
    QCOMPARE(reader->textBeforeOffset(20, QAccessible::LineBoundary, &start, &end), text.left(13));
    QCOMPARE(reader->textBeforeOffset(2, QAccessible::LineBoundary, &start, &end), QString());
    QCOMPARE(reader->textAtOffset(8, QAccessible::CharBoundary, &start, &end), text.mid(8, 2));
    QCOMPARE(reader->textAtOffset(reader->characterCount(), QAccessible::LineBoundary, &start, &end), QString());

    reader->setSelection(0, 0, 5);
    QCOMPARE(reader->selectionCount(), 1);
    reader->selection(0, &start, &end);
    QCOMPARE(QPoint(start, end), QPoint(0, 5));
    reader->setCursorPosition(13);
    QCOMPARE(reader->cursorPosition(), 13);
    QCOMPARE(reader->offsetAtPoint(reader->characterRect(13).center()), 13);

    accessible->editableTextInterface()->replaceText(13, 16, u"\u00DC"_s);
    accessible->editableTextInterface()->deleteText(0, 6);
    QString expected = text;
    expected.replace(13, 3, u"\u00DC"_s).remove(0, 6);
    QCOMPARE(bench.Text(), expected.toUtf8().toStdString());
    QCOMPARE(reader->text(0, reader->characterCount()), expected);
}

// The plugin's interface is for its own control only.
void win_SciAccessible::anotherControlKeepsItsOwnInterface()
{
    SciBench bench("text");
    QLineEdit other(u"words"_s);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&other);
    QVERIFY(accessible != nullptr && accessible->textInterface() != nullptr);
    QCOMPARE(accessible->textInterface()->text(0, 5), u"words"_s);
}

QTEST_MAIN(win_SciAccessible)
#include "win_SciAccessible.moc"
