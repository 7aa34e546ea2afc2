#include "calculated/KxASplineIntegral.h"

namespace plotkit {

constinit const TClassInfo TKxASplineIntegral::Class{
    "TKxASplineIntegral", &TKxApproxSplineSecondary::Class, {}, &CreateComponent<TKxASplineIntegral>};

TKxASplineIntegral::~TKxASplineIntegral()
{
    BeginDestroy();
}

std::string TKxASplineIntegral::GetFormula() const
{
    return "Integration";
}

std::string TKxASplineIntegral::CalculationID() const
{
    return "Approximative Spline Integral";
}

void TKxASplineIntegral::CalculateFunction()
{
    RecalculateCoeffs();
    GetRunningIntegral(FSpline);
}

}  // namespace plotkit
