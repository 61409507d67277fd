// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own boxes, answered by their real buttons and keys.
#include "support/BenchTest.h"

#include "platform/dlgStandard.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <functional>

using namespace ob;

namespace {

// Runs once the next modal box stands.
void WithBox(const std::function<void(QWidget&)>& script)
{
    QTimer::singleShot(50, [script] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr)
            QTest::qFail("no box came up", __FILE__, __LINE__);
        else
            script(*box);
    });
}

void Press(QWidget& box, QMessageBox::StandardButton button)
{
    QTest::mouseClick(dynamic_cast<QMessageBox&>(box).button(button), Qt::LeftButton);
}

} // namespace

class win_dlgStandard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void questionIsLeftByItsButtonsAlone()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            QVERIFY(box.isVisible());
            box.close();
            QVERIFY(box.isVisible());
            Press(box, QMessageBox::No);
        });
        QCOMPARE(boxes.Message({QStringLiteral("Save?"), BoxIcon::Question, BoxButtons::YesNo, {}}), BoxAnswer::No);
    }

    void enterSaysYes()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(box.windowTitle(), QStringLiteral("OB Bench"));
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QCOMPARE(boxes.Message({QStringLiteral("Save?"), BoxIcon::Question, BoxButtons::YesNo, {}}), BoxAnswer::Yes);
    }

    void escapeCancels()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message({QStringLiteral("Find?"), BoxIcon::None, BoxButtons::OkCancel, {}}), BoxAnswer::Cancel);
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Message({QStringLiteral("Told."), BoxIcon::Critical, BoxButtons::Ok, {}}), BoxAnswer::Ok);
    }

    void textIsShownAsItStands()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            QCOMPARE(dynamic_cast<QMessageBox&>(box).text(), QStringLiteral("<b>a & b</b>"));
            QCOMPARE(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
            Press(box, QMessageBox::Ok);
        });
        boxes.Message({QStringLiteral("<b>a & b</b>"), BoxIcon::None, BoxButtons::Ok, QStringLiteral("T")});
    }

    void inputGivesTheTextOrNothing()
    {
        dlgStandard boxes;
        WithBox([](QWidget& box) {
            auto* field = box.findChild<QLineEdit*>();
            QCOMPARE(field->text(), QStringLiteral("1"));
            field->setText(QStringLiteral("42"));
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(boxes.Input({QStringLiteral("Line number?"), QStringLiteral("Go to Line"), QStringLiteral("1")}),
                 std::optional(QStringLiteral("42")));
        WithBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(boxes.Input({QStringLiteral("Line number?"), {}, {}}), std::optional<QString>());
    }
};

OB_BENCH_TEST(win_dlgStandard)
#include "win_dlgStandard.moc"
