// SPDX-License-Identifier: GPL-3.0-or-later
// The tips of the day: the fixed table, where a show of them begins and how it goes on.
#pragma once

#include <QStringList>

#include <functional>

namespace ob {

// The tips in their order.
QStringList LoadTips();

// The index of the first tip shown, from 1: the one behind a pick by a random number in [0, 1). 0 when there is none.
int FirstTip(double random, int count);

// The index behind an index, both from 1; the first follows the last. 0 when there is none.
int NextTip(int index, int count);

// Keeps ShowTips in the store.
void StoreShowTips();

// A random number in [0, 1).
double RandomNumber();

// For tests: another source of random numbers from here on. An empty one brings the usual one back.
void SetRandomSource(std::function<double()> source);

} // namespace ob
