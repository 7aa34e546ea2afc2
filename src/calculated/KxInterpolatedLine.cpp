#include "calculated/KxInterpolatedLine.h"

#include "foundation/KxLargeIni.h"
#include "foundation/KxStrings.h"
#include "graph/KxAxis.h"

namespace plotkit {

namespace {

// The range stands in front of the flag that setting it changes.
constexpr std::array AkimaFunctionProperties{
    Property<&TKxAkimaFunction::GetSmoothRange, &TKxAkimaFunction::SetSmoothRange>("SmoothRange"),
    Property<&TKxAkimaFunction::GetDoSmoothing, &TKxAkimaFunction::SetDoSmoothing,
             &TKxAkimaFunction::IsDoSmoothingStored>("DoSmoothing"),
};

using TEntries = std::vector<std::pair<std::string, std::string>>;

void AddExtrema(const std::string& kind, const TKxRealPosArray& extrema, TEntries& entries)
{
    int number = 0;
    for (const TKxRealPos& extremum : extrema.Span()) {
        const std::string key = kind + "(" + std::to_string(++number) + ")";
        entries.emplace_back("X-" + key, RealToAmericanStr(extremum.Position));
        entries.emplace_back("Y-" + key, RealToAmericanStr(extremum.Value));
    }
}

/// Each step of the grid divided into equal parts.
std::vector<double> Refined(std::span<const double> grid, std::size_t parts)
{
    std::vector<double> samples;
    samples.reserve(grid.size() * parts);
    for (std::size_t k = 0; k + 1 < grid.size(); ++k)
        for (std::size_t part = 0; part < parts; ++part)
            samples.push_back(grid[k] +
                              (grid[k + 1] - grid[k]) * static_cast<double>(part) / static_cast<double>(parts));
    samples.push_back(grid.back());
    return samples;
}

}  // namespace

constinit const TClassInfo TKxInterpolatedFunction::Class{"TKxInterpolatedFunction", &TKxCalculatedSeries::Class, {}};
constinit const TClassInfo TKxAkimaFunction::Class{"TKxAkimaFunction", &TKxInterpolatedFunction::Class,
                                                   AkimaFunctionProperties};
constinit const TClassInfo TKxInterpolatedLine::Class{
    "TKxInterpolatedLine", &TKxAkimaFunction::Class, {}, &CreateComponent<TKxInterpolatedLine>};

void TKxInterpolatedFunction::WriteResults(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteResults(list, section);
    TEntries entries;  // noisy points have an extremum for every one or two of them
    AddExtrema("Minima", GetMinima(), entries);
    AddExtrema("Maxima", GetMaxima(), entries);
    list.WriteStrings(section, entries);
}

void TKxInterpolatedFunction::RecalculateCoeffs(TKxIntPolynom& curve) const
{
    const TKxSeries* const parent = GetParentSeries();
    const TKxCustomRealVector* const weight = GetWeight();
    using TValues = std::span<const double>;
    curve.RecalculateCoeffs(GetCalculationStart(), GetCalculationStop(), parent ? parent->XValues() : TValues(),
                            parent ? parent->YValues() : TValues(),
                            weight ? std::optional(weight->Values()) : std::nullopt);
}

void TKxInterpolatedFunction::GetRunningIntegral(TKxIntPolynom& curve)
{
    GetXSpacings();
    const auto grid = XResult().Values();
    std::vector<double> integral;
    // A sum goes over no more nodes than it has samples: where pixels are fewer than points there are samples between.
    const auto nodes = static_cast<std::size_t>(curve.Count());
    if (grid.size() < 2 || grid.size() >= nodes + 2) {
        curve.Integrate(grid, integral);
    } else {
        const std::size_t parts = nodes / (grid.size() - 1) + 1;
        curve.Integrate(Refined(grid, parts), integral);
        for (std::size_t k = 0; k < grid.size(); ++k)
            integral[k] = integral[k * parts];
        integral.resize(grid.size());
    }
    SetResult({grid.begin(), grid.end()}, std::move(integral));
}

void TKxAkimaFunction::SetDoSmoothing(bool smooth)
{
    if (smooth == GetDoSmoothing())
        return;
    FAkima.SetDoSmoothing(smooth);
    SettingsChanged();
}

void TKxAkimaFunction::SetSmoothRange(double range)
{
    if (range == GetSmoothRange())
        return;
    FAkima.SetSmoothRange(range);
    FAkima.SetDoSmoothing(true);
    SettingsChanged();
}

void TKxAkimaFunction::RecalculateCoeffs()
{
    const TKxAxis* const axis = GetXAxis();
    FAkima.SetSmoothLog(axis && axis->GetScaling() != AxNormal);
    TKxInterpolatedFunction::RecalculateCoeffs(FAkima);
}

void TKxAkimaFunction::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxInterpolatedFunction::WriteToIni(list, section);
    list.WriteBool(section, "DoSmoothing", GetDoSmoothing());
    list.WriteReal(section, "SmoothM", GetSmoothRange());
}

void TKxAkimaFunction::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxInterpolatedFunction::ReadFromIni(list, section);
    FAkima.SetDoSmoothing(list.ReadBool(section, "DoSmoothing", false));
    FAkima.SetSmoothRange(list.ReadReal(section, "SmoothM", 0));
}

TKxInterpolatedLine::~TKxInterpolatedLine()
{
    BeginDestroy();
}

std::string TKxInterpolatedLine::GetFormula() const
{
    return "Interpolation";
}

std::string TKxInterpolatedLine::CalculationID() const
{
    return "Interpolation";
}

void TKxInterpolatedLine::CalculateFunction()
{
    RecalculateCoeffs();
    FAkima.FindExtrema();
    GetContinousLine();
}

}  // namespace plotkit
