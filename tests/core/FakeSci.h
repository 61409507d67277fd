// SPDX-License-Identifier: GPL-3.0-or-later
// A code window's control without a window: a text, a caret, a save point, and a list of the messages received.
#pragma once

#include "scilexer/modSci.h"

#include <QByteArray>
#include <QList>
#include <QTest>

namespace ob {

class FakeSci final : public cSciControl {
public:
    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        messages.append(message);
        switch (message) {
        case SCI_GETLENGTH:
            return text.size();
        case SCI_GETCHARACTERPOINTER:
            return reinterpret_cast<std::intptr_t>(text.constData());
        case SCI_GETMODIFY:
            return modified ? 1 : 0;
        case SCI_GETCURRENTPOS:
            return caret;
        case SCI_GOTOPOS:
            caret = static_cast<qsizetype>(wParam);
            return 0;
        case SCI_SETSAVEPOINT:
            modified = false;
            return 0;
        case SCI_CLEARALL:
            Change(0, text.size(), {});
            caret = 0;
            return 0;
        case SCI_ADDTEXT:
            Change(caret, 0, Given(wParam, lParam));
            caret += static_cast<qsizetype>(wParam);
            return 0;
        case SCI_APPENDTEXT:
            Change(text.size(), 0, Given(wParam, lParam));
            return 0;
        case SCI_EMPTYUNDOBUFFER:
        case SCI_BEGINUNDOACTION:
        case SCI_ENDUNDOACTION:
            return 0;
        default:
            QTest::qFail(qPrintable(QStringLiteral("a message that this control does not know: %1").arg(message)),
                         __FILE__, __LINE__);
            return 0;
        }
    }

    // Simulates typing at the caret.
    void Type(const QByteArray& typed)
    {
        Change(caret, 0, typed);
        caret += typed.size();
    }

    QByteArray text;
    qsizetype caret = 0;
    bool modified = false;
    QList<unsigned> messages;

private:
    static QByteArray Given(std::uintptr_t length, std::intptr_t pointer)
    {
        return {reinterpret_cast<const char*>(pointer), static_cast<qsizetype>(length)};
    }

    void Change(qsizetype at, qsizetype removed, const QByteArray& put)
    {
        if (removed == 0 && put.isEmpty())
            return;
        text.replace(at, removed, put);
        modified = true;
    }
};

} // namespace ob
