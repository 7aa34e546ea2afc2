#include "plotkit/SeriesKind.h"

#include <CLI/CLI.hpp>
#include <cmath>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {
namespace {

/// Blocks without a gap would hide a part of each other's front.
constexpr double GapOfBlocks = 20;

[[noreturn]] void Fail(const std::string& option, const std::string& what)
{
    throw EConvertError(option + ": " + what);
}

std::vector<std::string> Parts(const std::string& text)
{
    std::vector<std::string> parts;
    for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
        end = text.find(',', start);
        parts.push_back(text.substr(start, end == std::string::npos ? end : end - start));
    }
    return parts;
}

void ReadErrors(const std::string& text, std::size_t ordinate, TSeriesKind& kind)
{
    std::vector<std::string> names = Parts(text);
    if (names.size() == 1)
        names = {"", "", names[0], names[0]};
    const std::size_t before = kind.Columns.size();
    for (std::size_t i = 0; i < names.size() && names.size() == 4; ++i)
        if (!names[i].empty())
            kind.Columns.push_back({"--errors", names[i], ordinate, static_cast<int>(i)});
    if (kind.Columns.size() == before)
        Fail("--errors", "\"" + text +
                             "\" names no errors; write one column for up and down, or four, x+,x-,y+,y-, where some "
                             "may be empty");
}

void ReadArrows(const std::string& text, TSeriesKind& kind)
{
    const std::vector<std::string> names = Parts(text);
    if (names.size() != 2 || names[0].empty() || names[1].empty())
        Fail("--arrows", "\"" + text + "\" is no pair of columns; write DX,DY");
    for (int i = 0; i < 2; ++i)
        kind.Columns.push_back({"--arrows", names[static_cast<std::size_t>(i)], 0, i});
}

/// The number of "gap=20"; false when `word` is something else.
bool ReadPercent(const std::string& word, const std::string& name, double most, double& percent)
{
    if (!SameText(std::string_view(word).substr(0, name.size() + 1), name + "="))
        return false;
    const auto value = ParseReal(word.substr(name.size() + 1));
    if (!value || !(*value >= 0 && *value <= most))
        Fail("--bars", "\"" + word + "\": " + name + " is a percentage from 0 to " + std::to_string(std::lround(most)));
    percent = *value;
    return true;
}

void ReadBars(const std::string& text, TSeriesKind& kind)
{
    bool hasGap = false;
    for (const std::string& word : Parts(text)) {
        if (SameText(word, "horizontal"))
            kind.Horizontal = true;
        else if (SameText(word, "stacked"))
            kind.Stacked = true;
        else if (SameText(word, "shifted"))
            kind.Shifted = true;
        else if (SameText(word, "3d"))
            kind.Solid = true;
        else if (ReadPercent(word, "gap", 99, kind.Gap))
            hasGap = true;
        else if (!ReadPercent(word, "depth", 400, kind.Depth) && !SameText(word, "plain"))
            Fail("--bars", "\"" + word +
                               "\" is no kind of bars; there are plain, horizontal, stacked, shifted, 3d, gap=PERCENT "
                               "and depth=PERCENT");
    }
    if (kind.Stacked && kind.Shifted)
        Fail("--bars", "bars are stacked or shifted, not both");
    if (kind.Solid && !hasGap)
        kind.Gap = GapOfBlocks;
}

}  // namespace

void AddKindOptions(CLI::App& app, TKindTexts& texts)
{
    app.add_option("--errors", texts.Errors,
                   "Columns of the errors, x+,x-,y+,y-, or one for up and down; repeated for further ordinates")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("COLUMN[,...]");
    app.add_option(
           "--bars", texts.Bars,
           "Draw bars: plain (also without a word), horizontal, stacked, shifted, 3d, gap=PERCENT, depth=PERCENT")
        ->expected(0, 1)
        ->type_name("KIND[,...]");
    app.add_option("--arrows", texts.Arrows, "Draw arrows, as long as two columns say in units of the axes")
        ->type_name("DX,DY");
}

TSeriesKind ReadKind(const CLI::App& command, const TKindTexts& texts)
{
    TSeriesKind kind;
    kind.HasErrors = command.count("--errors") > 0;
    kind.HasBars = command.count("--bars") > 0;
    kind.HasArrows = command.count("--arrows") > 0;
    if (kind.HasErrors + kind.HasBars + kind.HasArrows > 1)
        Fail("--errors, --bars and --arrows", "only one of them can be drawn at a time");
    if (kind.HasErrors && command.count("--no-points"))
        Fail("--errors", "error bars belong to symbols and are not drawn with --no-points");
    for (std::size_t i = 0; i < texts.Errors.size(); ++i)
        ReadErrors(texts.Errors[i], i, kind);
    if (kind.HasBars && !texts.Bars.empty())
        ReadBars(texts.Bars, kind);
    if (kind.HasArrows)
        ReadArrows(texts.Arrows, kind);
    return kind;
}

}  // namespace plotkit
