#include "calculated/KxDifferential.h"

#include "graph/KxAxis.h"

namespace plotkit {

namespace {

constexpr std::array SecondaryProperties{
    Reference<&TKxInterpolatedSecondary::GetYAxis, &TKxInterpolatedSecondary::SetYAxis>("YAxis"),
};

}  // namespace

constinit const TClassInfo TKxInterpolatedSecondary::Class{"TKxInterpolatedSecondary", &TKxAkimaFunction::Class,
                                                           SecondaryProperties};
constinit const TClassInfo TKxDifferential::Class{
    "TKxDifferential", &TKxInterpolatedSecondary::Class, {}, &CreateComponent<TKxDifferential>};

TKxInterpolatedSecondary::~TKxInterpolatedSecondary()
{
    BeginDestroy();
    GiveBackYAxis();
}

TKxDifferential::~TKxDifferential()
{
    BeginDestroy();
}

std::string TKxDifferential::GetFormula() const
{
    return "Differentiation";
}

std::string TKxDifferential::CalculationID() const
{
    return "Differentiation";
}

void TKxDifferential::CalculateFunction()
{
    RecalculateCoeffs();
    FAkima.FindDiffExtrema();
    GetContinousLine();
}

}  // namespace plotkit
