// SPDX-License-Identifier: GPL-3.0-or-later
// Connects what the user does in a window to the commands of that window.
#pragma once

#include "platform/dialogs/modDialogs.h"

#include <QAbstractButton>

#include <functional>
#include <type_traits>
#include <utility>

namespace ob {

// The routine as a slot that runs it as a command.
template <class Result, class... Arguments>
auto AsCommand(std::function<Result(Arguments...)> routine)
{
    return [routine = std::move(routine)](Arguments... arguments) { RunCommand([&] { routine(arguments...); }); };
}

// Connects as QObject::connect does, and runs the handler as a command: an error that it does not catch is shown and
// does not reach the event loop.
template <class Sender, class Signal, class Receiver, class Window, class... Arguments>
void On(const Sender* sender, Signal signal, Receiver* receiver, void (Window::*handler)(Arguments...))
{
    QObject::connect(sender, signal, receiver, [receiver, handler](Arguments... arguments) {
        RunCommand([&] { (receiver->*handler)(arguments...); });
    });
}

// The same with a routine that is no member: a lambda or a function.
template <class Sender, class Signal, class Routine>
requires(!std::is_member_pointer_v<Routine>) void On(const Sender* sender, Signal signal, const QObject* receiver,
                                                     Routine routine)
{
    QObject::connect(sender, signal, receiver, AsCommand(std::function(std::move(routine))));
}

// A click on the button runs the handler.
template <class Receiver, class Handler>
void On(const QAbstractButton* button, Receiver* receiver, Handler handler)
{
    On(button, &QAbstractButton::clicked, receiver, handler);
}

} // namespace ob
