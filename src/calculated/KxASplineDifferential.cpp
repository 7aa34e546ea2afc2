#include "calculated/KxASplineDifferential.h"

#include "graph/KxAxis.h"

namespace plotkit {

namespace {

constexpr std::array SecondaryProperties{
    Reference<&TKxApproxSplineSecondary::GetYAxis, &TKxApproxSplineSecondary::SetYAxis>("YAxis"),
};

}  // namespace

constinit const TClassInfo TKxApproxSplineSecondary::Class{"TKxApproxSplineSecondary", &TKxApproxSplineFunction::Class,
                                                           SecondaryProperties};
constinit const TClassInfo TKxASplineDifferential::Class{
    "TKxASplineDifferential", &TKxApproxSplineSecondary::Class, {}, &CreateComponent<TKxASplineDifferential>};

TKxApproxSplineSecondary::~TKxApproxSplineSecondary()
{
    BeginDestroy();
    GiveBackYAxis();
}

TKxASplineDifferential::~TKxASplineDifferential()
{
    BeginDestroy();
}

std::string TKxASplineDifferential::GetFormula() const
{
    return "Differentiation";
}

std::string TKxASplineDifferential::CalculationID() const
{
    return "Approximative Spline Differentiation";
}

void TKxASplineDifferential::CalculateFunction()
{
    RecalculateCoeffs();
    FSpline.FindDiffExtrema();
    GetContinousLine();
}

}  // namespace plotkit
