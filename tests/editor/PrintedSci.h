// SPDX-License-Identifier: GPL-3.0-or-later
// A code window's control for printing: a text, a selection, and a page formatter that records its requests.
#pragma once

#include "editor/modPageFormat.h"
#include "scilexer/modSci.h"

#include <QByteArray>
#include <QList>
#include <QTest>

#include <algorithm>

namespace ob {

class PrintedSci final : public cSciControl {
public:
    struct Order {
        std::uintptr_t draw;
        Sci_RangeToFormat record;
    };

    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        messages.append(message);
        switch (message) {
        case SCI_GETLENGTH:
            return text.size();
        case SCI_GETCURRENTPOS:
            return caret;
        case SCI_GETSELECTIONSTART:
            return std::min(anchor, caret);
        case SCI_GETSELECTIONEND:
            return std::max(anchor, caret);
        case SCI_SETSEL:
            anchor = std::min<qsizetype>(static_cast<qsizetype>(wParam), text.size());
            caret = std::min<qsizetype>(lParam, text.size());
            return 0;
        case SCI_GETSELTEXT: {
            const QByteArray selected = text.mid(std::min(anchor, caret), std::abs(caret - anchor)) + '\0';
            std::copy(selected.cbegin(), selected.cend(), reinterpret_cast<char*>(lParam));
            return selected.size();
        }
        case SCI_LINEFROMPOSITION:
            return text.first(std::min<qsizetype>(static_cast<qsizetype>(wParam), text.size())).count('\n');
        case SCI_POSITIONFROMLINE:
            return LineStart(static_cast<qsizetype>(wParam));
        case SCI_GETLINEENDPOSITION: {
            const qsizetype start = LineStart(static_cast<qsizetype>(wParam));
            const qsizetype end = text.indexOf("\r\n", start);
            return end < 0 ? text.size() : end;
        }
        case SCI_SETPRINTCOLOURMODE:
            colorMode = wParam;
            return 0;
        case SCI_FORMATRANGE: {
            const auto& record = *reinterpret_cast<const Sci_RangeToFormat*>(lParam);
            if (wParam != 0)
                orders.append({wParam, record});
            return std::min<std::intptr_t>(record.chrg.cpMin + pageBytes, text.size());
        }
        default:
            QTest::qFail(qPrintable(QStringLiteral("a message that this control does not know: %1").arg(message)),
                         __FILE__, __LINE__);
            return 0;
        }
    }

    void Select(qsizetype from, qsizetype to)
    {
        anchor = from;
        caret = to;
    }

    QByteArray text;
    qsizetype anchor = 0;
    qsizetype caret = 0;
    std::intptr_t pageBytes = 100; // the capacity of a page
    std::uintptr_t colorMode = 0;
    QList<Order> orders;
    QList<unsigned> messages;

private:
    qsizetype LineStart(qsizetype line) const
    {
        qsizetype start = 0;
        while (line-- > 0 && start < text.size()) {
            const qsizetype end = text.indexOf('\n', start);
            start = end < 0 ? text.size() : end + 1;
        }
        return start;
    }
};

} // namespace ob
