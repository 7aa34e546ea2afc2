#include "plotkit/fit/FitOptions.h"

#include "foundation/KxLargeIni.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "plotkit/table/DateText.h"

namespace plotkit {

namespace {

constexpr const char* Section = "Fits";

struct TAbscissa
{
    double Value = 0;
    bool IsDate = false;
};

std::optional<TAbscissa> ReadAbscissa(const std::string& text, std::optional<bool> dayFirst)
{
    if (const auto value = ParseReal(text))
        return TAbscissa{*value, false};
    const auto date = ReadDateText(text);
    if (!date || (date->DayFirst != date->MonthFirst && !dayFirst))
        return std::nullopt;
    return TAbscissa{dayFirst.value_or(true) ? date->DayFirst : date->MonthFirst, true};
}

std::string Numbered(const char* key, std::size_t number)
{
    return key + std::string("(") + std::to_string(number) + ")";
}

TFitWish ReadFit(const TKxIniList& list, std::size_t number)
{
    const auto text = [&](const char* key) { return list.ReadString(Section, Numbered(key, number), {}); };
    TFitWish wish = ParseFit(text("Fit"));
    if (const std::string range = text("Range"); !range.empty())
        wish.Range = ParseFitRange(range, true);
    wish.Start = ParseStartValues(text("Start"));
    wish.Results = ParseResultNames(text("Results"));
    return wish;
}

}  // namespace

TTypedRange ParseFitRange(const std::string& text, std::optional<bool> dayFirst)
{
    if (const std::size_t dots = text.find(".."); dots != std::string::npos) {
        const auto start = ReadAbscissa(text.substr(0, dots), dayFirst),
                   stop = ReadAbscissa(text.substr(dots + 2), dayFirst);
        if (start && stop && start->IsDate == stop->IsDate && start->Value < stop->Value)
            return {{start->Value, stop->Value}, start->IsDate};
    }
    throw EConvertError("\"" + text +
                        "\" is no range; write it as FROM..TO with two numbers or dates, such as 0.5..20 or "
                        "1990-01..1999-12");
}

void WriteFits(TKxIniList& list, const TFitOptions& fits)
{
    list.EraseSection(Section);
    if (fits.Fits.empty())
        return;
    list.WriteInteger(Section, "Count", static_cast<int>(fits.Fits.size()));
    if (!fits.Weights.empty())
        list.WriteString(Section, "Weights", fits.Weights);
    std::size_t number = 0;
    for (const TFitWish& wish : fits.Fits) {
        ++number;
        list.WriteString(Section, Numbered("Fit", number), FitText(wish));
        if (wish.Range)
            list.WriteString(Section, Numbered("Range", number),
                             FormatExact(wish.Range->Start) + ".." + FormatExact(wish.Range->Stop));
        if (!wish.Start.empty())
            list.WriteString(Section, Numbered("Start", number), StartValuesText(wish.Start));
        if (!wish.Results.empty())
            list.WriteString(Section, Numbered("Results", number), ResultNamesText(wish.Results));
    }
}

TFitOptions ReadFits(const TKxIniList& list, std::vector<std::string>& notes)
{
    constexpr int most = 1000;
    TFitOptions fits;
    fits.Weights = list.ReadString(Section, "Weights", {});
    const int count = std::min(list.ReadInteger(Section, "Count", 0), most);
    for (int i = 1; i <= count; ++i) {
        try {
            fits.Fits.push_back(ReadFit(list, static_cast<std::size_t>(i)));
        } catch (const EConvertError& error) {
            notes.push_back(std::string("[") + Section + "] " + Numbered("Fit", static_cast<std::size_t>(i)) + ": " +
                            error.Message());
        }
    }
    return fits;
}

}  // namespace plotkit
