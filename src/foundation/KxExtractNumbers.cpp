#include <algorithm>

#include "foundation/KxStrings.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"

namespace plotkit {

namespace {

constexpr std::string_view NumberCharacters = "+-.0123456789Ee";

[[noreturn]] void RaiseNoNumber()
{
    throw EConvertError("Error during integer extraction");
}

void DropFront(std::string_view& s, std::size_t length)
{
    s.remove_prefix(std::min(length, s.size()));
}

void EraseNumber(std::string_view& s)
{
    DropFront(s, s.find_first_not_of(NumberCharacters));
}

/// Runs `act` on a view of `text` and then deletes what the view has left behind, also after an error.
template <class TAct>
auto OnView(std::string& text, TAct act)
{
    struct TKeeper
    {
        std::string& Text;
        std::string_view View;
        ~TKeeper() { Text.erase(0, Text.size() - View.size()); }
    } keeper{text, text};
    return act(keeper.View);
}

int ExtractInt(std::string_view& s)
{
    EraseToNumber(s);
    const std::string_view before = s;
    const TIntegerPrefix whole = ScanInteger(s);
    if (whole.ErrorPosition == 0)
        return whole.Value;
    DropFront(s, static_cast<std::size_t>(whole.ErrorPosition));
    const TIntegerPrefix front = ScanInteger(before.substr(0, static_cast<std::size_t>(whole.ErrorPosition - 1)));
    if (front.ErrorPosition != 0)
        RaiseNoNumber();
    return front.Value;
}

}  // namespace

void EraseToNumber(std::string_view& s)
{
    DropFront(s, s.find_first_of(NumberCharacters));
}

void EraseToNumber(std::string& s)
{
    OnView(s, [](std::string_view& view) { EraseToNumber(view); });
}

void EraseToNextNumber(std::string& s)
{
    OnView(s, [](std::string_view& view) {
        EraseToNumber(view);
        EraseNumber(view);
        EraseToNumber(view);
    });
}

int ExtractOneInt(std::string& s)
{
    return OnView(s, ExtractInt);
}

double ExtractOneReal(std::string_view& s)
{
    EraseToNumber(s);
    const std::string_view before = s;
    const TNumberPrefix whole = ScanReal(s);
    if (whole.ErrorPosition == 0) {
        s = {};
        return whole.Value;
    }
    DropFront(s, static_cast<std::size_t>(whole.ErrorPosition));
    EraseToNumber(s);
    const TNumberPrefix front = ScanReal(before.substr(0, static_cast<std::size_t>(whole.ErrorPosition - 1)));
    if (front.ErrorPosition != 0)
        RaiseNoNumber();
    return front.Value;
}

double ExtractOneReal(std::string& s)
{
    return OnView(s, [](std::string_view& view) { return ExtractOneReal(view); });
}

}  // namespace plotkit
