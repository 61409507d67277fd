// SPDX-License-Identifier: GPL-3.0-or-later
// A bench with the preferences open, and ways to press their controls.
#pragma once

#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "shell/bench/frmOptions.h"
#include "shell/state/Module1.h"
#include "shell/state/modSettings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColor>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTabWidget>
#include <QTest>

namespace ob {

inline QString Stored(const char* key)
{
    return ReadSetting(QString::fromLatin1(key), QStringLiteral("(none)"));
}

inline QColor Shown(ColorRef color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

class OptionsBench {
public:
    explicit OptionsBench(const QStringList& files = {})
    {
        bench.Start(files);
        Open();
    }

    void Open()
    {
        mnuShowOptions_Click();
        QApplication::processEvents();
        form = bench.Frame().findChild<frmOptions*>();
        QVERIFY(form != nullptr && form->isVisible());
    }

    template <class Widget>
    Widget* Find(const char* name) const
    {
        auto* widget = form->findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr)
            qFatal("no such control: %s", name);
        return widget;
    }

    void Click(const char* name) const { Find<QAbstractButton>(name)->click(); }
    QString Text(const char* name) const { return Find<QLineEdit>(name)->text(); }
    bool On(const char* name) const { return Find<QAbstractButton>(name)->isChecked(); }

    void Type(const char* name, const QString& text) const
    {
        auto* box = Find<QLineEdit>(name);
        Find<QTabWidget>("tbsOptions")->setCurrentIndex(PageOf(*box));
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
        QTest::keyClicks(box, text);
    }

    void ClickSample(const char* name) const
    {
        auto* sample = Find<QLabel>(name);
        Find<QTabWidget>("tbsOptions")->setCurrentIndex(2);
        QTest::mouseClick(sample, Qt::LeftButton);
    }

    QColor Fore(const char* name) const { return Find<QLabel>(name)->palette().color(QPalette::WindowText); }
    QColor Back(const char* name) const { return Find<QLabel>(name)->palette().color(QPalette::Window); }

    // Deletes a closed window.
    void Settle() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }

    std::intptr_t Sci(std::size_t slot, unsigned message, std::uintptr_t wParam = 0) const
    {
        return SendSci(Documents[slot]->sci, message, wParam);
    }

    TestBench bench;
    QPointer<frmOptions> form;

private:
    int PageOf(const QWidget& control) const
    {
        const auto* pages = Find<QTabWidget>("tbsOptions");
        for (int page = 0; page < pages->count(); ++page)
            if (pages->widget(page)->isAncestorOf(&control))
                return page;
        return -1;
    }
};

} // namespace ob
