// SPDX-License-Identifier: GPL-3.0-or-later
// The tips of the day: the fixed table, where a display of them begins and how it continues.
#pragma once

#include <QStringList>

#include <functional>

namespace ob {

// The tips in their order.
QStringList LoadTips();

// The index of the first tip to show, from 1: the one after a random pick by a number in [0, 1). 0 when there is none.
int FirstTip(double random, int count);

// The index after an index, both from 1; the last is followed by the first. 0 when there is none.
int NextTip(int index, int count);

// Saves ShowTips to the store.
void StoreShowTips();

// A random number in [0, 1).
double RandomNumber();

// For tests: replaces the source of random numbers. An empty function restores the default.
void SetRandomSource(std::function<double()> source);

} // namespace ob
