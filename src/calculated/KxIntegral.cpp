#include "calculated/KxIntegral.h"

namespace plotkit {

constinit const TClassInfo TKxIntegral::Class{
    "TKxIntegral", &TKxInterpolatedSecondary::Class, {}, &CreateComponent<TKxIntegral>};

TKxIntegral::~TKxIntegral()
{
    BeginDestroy();
}

std::string TKxIntegral::GetFormula() const
{
    return "Integration";
}

std::string TKxIntegral::CalculationID() const
{
    return "Integration";
}

void TKxIntegral::CalculateFunction()
{
    RecalculateCoeffs();
    GetRunningIntegral(FAkima);
}

}  // namespace plotkit
