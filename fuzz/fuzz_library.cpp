// SPDX-License-Identifier: GPL-3.0-or-later
// Functions of texts, numbers and dates, and the splitting of input, on any bytes. The first byte chooses; the rest is
// the arguments, split at the first line feed.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "orchard/library/cScriptedHost.h"
#include "orchard/library/cWordFinder.h"
#include "orchard/library/modConstants.h"
#include "orchard/library/modDates.h"
#include "orchard/library/modFileNames.h"
#include "orchard/library/modNumbers.h"
#include "orchard/library/modTexts.h"

using namespace ob::basic;

namespace {

void Hold(bool condition)
{
    if (!condition)
        std::abort();
}

// The bytes as they are, or a number as it is read.
double NumberFrom(std::string_view bytes)
{
    double value = 0;
    if (bytes.size() < sizeof value)
        return Val(bytes);
    std::memcpy(&value, bytes.data(), sizeof value);
    return std::isfinite(value) ? value : 0;
}

void TryNumbers(std::string_view first, std::string_view second)
{
    Hold(std::isfinite(Val(first)) && std::isfinite(HexDec(first)));
    const double value = NumberFrom(second);
    NumberBuffer buffer;
    const std::string_view text = NumberText(value, buffer);
    const double read = Val(text);
    Hold(!text.empty() && std::fabs(read - value) <= std::fabs(value) * 1e-7);
    Hold(HexDec(DecHex(std::fabs(value))) == std::trunc(std::fabs(value)));
    const std::string shown = Using(first.substr(0, 2000), value);
    Hold(shown.size() == first.substr(0, 2000).size() || shown[0] == '%');
}

void TryTexts(std::string_view first, std::string_view second)
{
    const double number = Val(second);
    const double at = Instr(first, second, number);
    Hold(at == 0 || first.substr(static_cast<std::size_t>(at) - 1).starts_with(second));
    Hold(Upper(Lower(first)).size() == first.size());
    cWordFinder words;
    for (const double word : {number, 1.0, 2.0, 3.0, number + 1, number - 1})
        Hold(words.Find(first, word, second) == Word(first, word, second));
    double value = 0;
    (void)FindConstant(first, value);
    Hold(Utf8OfAnsi(first).size() >= first.size() && AnsiOfUtf8(first).size() <= first.size());
    Hold(first.find('\0') != std::string_view::npos || AnsiOfUtf8(Utf8OfAnsi(first)) == first);
    (void)FitsPattern(first.substr(0, 300), second.substr(0, 300));
    (void)Mid(first, number, std::fabs(number));
    (void)Left(first, number);
}

void TryDates(std::string_view first, std::string_view second)
{
    const LocalTime now = {2026, 11, 21, 14, 5, 9, 42};
    (void)DateOfDays(NumberFrom(second));
    (void)Time(second, now);
    const NumberOrText answer = Date(first, now);
    Hold(std::holds_alternative<double>(answer) == GivesNumberAsDate(first));
    if (const double* days = std::get_if<double>(&answer); days != nullptr && first.find('/') != std::string_view::npos)
        Hold(std::get<double>(Date(DateOfDays(*days), now)) == *days);
}

void TryInput(std::string_view first, std::string_view second)
{
    std::size_t count = 0;
    for (cItems items(first); !items.IsEmpty(); ++count)
        Hold(items.Take().size() <= first.size());
    Hold(count <= first.size() + 1);
    cScriptedHost host{std::string(first)};
    cConsole& console = host.Console();
    for (std::size_t step = 0; step < second.size(); ++step) {
        const auto choice = static_cast<unsigned char>(second[step]);
        if (choice % 6 == 0)
            (void)cQuestion(console, "?").Next();
        else if (choice % 6 == 1)
            (void)console.Line();
        else if (choice % 6 == 2)
            (void)console.Bytes(choice);
        else if (choice % 6 == 3)
            (void)console.UpTo(second.substr(step, 3));
        else if (choice % 6 == 4)
            console.Tab(choice);
        else
            console.Comma();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view all(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t end = all.find('\n');
    const std::string_view first = all.substr(0, end);
    const std::string_view second = end == std::string_view::npos ? std::string_view() : all.substr(end + 1);
    constexpr void (*tries[])(std::string_view, std::string_view) = {TryNumbers, TryTexts, TryDates, TryInput};
    try {
        tries[data[0] % 4](data[0] % 8 < 4 ? first : second, data[0] % 8 < 4 ? second : first);
    } catch (const cProgramError&) {
        // What a program would get.
    }
    return 0;
}
