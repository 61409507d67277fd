// SPDX-License-Identifier: GPL-3.0-or-later
// The statement sort.
#pragma once

#include "orchard/machine/cMachine.h"

namespace ob::basic {

// Sorts the items from one index to the other, in falling order where from is above to; with two dimensions whole rows,
// by the items in a column. Equal items keep their order. IndexOutside beyond the array; ends early, with the array as
// it was, when the machine is stopped.
void SortArray(cArray<double>& array, double from, double to, double column, const cMachine& machine);
void SortArray(cArray<cText>& array, double from, double to, double column, const cMachine& machine);

} // namespace ob::basic
