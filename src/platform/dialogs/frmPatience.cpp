// SPDX-License-Identifier: GPL-3.0-or-later
// Waits for work in the background.
#include "platform/dialogs/frmPatience.h"

#include "platform/dialogs/frmHold.h"

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QTimer>

#include <limits>

using namespace Qt::StringLiterals;

namespace ob {

frmPatience::End frmPatience::Wait()
{
    using namespace std::chrono_literals;
    constexpr auto untilShown = 500ms;
    QProgressDialog box(shownWords, u"Cancel"_s, 0, 0, QApplication::activeWindow());
    box.setObjectName(u"dlgPatience"_s);
    box.setWindowTitle(u"Orchard Bench"_s);
    box.setWindowModality(Qt::ApplicationModal);
    // It counts nothing, so it would not know when to come up.
    box.setMinimumDuration(std::numeric_limits<int>::max());
    QTimer::singleShot(untilShown, &box, &QWidget::show);
    frmHold hold([this] { loop.quit(); });
    hold.Except(&box);
    QObject::connect(&box, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    loop.exec();
    return end;
}

void frmPatience::Finish()
{
    end = End::Done;
    loop.quit();
}

} // namespace ob
