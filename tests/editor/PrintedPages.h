// SPDX-License-Identifier: GPL-3.0-or-later
// A printer that records its requests, and a watch that allows some pages.
#pragma once

#include "editor/modPrint.h"
#include "platform/dialogs/modPrinter.h"

#include <QImage>
#include <QPainter>
#include <QStringList>

#include <functional>
#include <limits>

namespace ob {

class FakeJob final : public cPrintJob {
public:
    explicit FakeJob(QStringList& log) : entries(log), painter(&page) {}

    QPainter& Painter() override { return painter; }
    QSize ScaleSize() const override { return page.size(); }

    PrinterState NewPage() override
    {
        entries.append(QStringLiteral("page"));
        return newPage;
    }

    PrinterState End(const SendingTurn& turn) override
    {
        entries.append(QStringLiteral("end"));
        for (SendingPlace place{1, pagesToSend}; place.page <= place.pages; ++place.page)
            if (turn(place) == SendingRequest::TakeBack)
                return PrinterState::TakenBack;
        return end;
    }

    PrinterState newPage = PrinterState::Ready;
    PrinterState end = PrinterState::Ready;
    int pagesToSend = 0;

private:
    QStringList& entries;
    QImage page{400, 200, QImage::Format_RGB32};
    QPainter painter;
};

class FakePrinting final : public cPrinting {
public:
    bool HasDefaultPrinter() override { return hasPrinter; }

    std::unique_ptr<cPrintJob> StartOnDefaultPrinter(const QString& title) override
    {
        log.append(QStringLiteral("start ") + title);
        if (!takesJobs)
            return nullptr;
        auto job = std::make_unique<FakeJob>(log);
        if (prepare)
            prepare(*job);
        return job;
    }

    bool hasPrinter = true;
    bool takesJobs = true;
    std::function<void(FakeJob&)> prepare;
    QStringList log;
};

class CountingWatch final : public cPrintWatch {
public:
    PrintRequest NextPage(const PrintPlace& place) override
    {
        places.append(place);
        if (turn)
            turn();
        return places.size() <= allowed ? PrintRequest::GoOn : PrintRequest::Stop;
    }

    QList<PrintPlace> places;
    qsizetype allowed = std::numeric_limits<qsizetype>::max();
    std::function<void()> turn;
};

} // namespace ob
