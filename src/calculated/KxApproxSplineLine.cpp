#include "calculated/KxApproxSplineLine.h"

#include "foundation/KxLargeIni.h"

namespace plotkit {

namespace {

constexpr std::array ApproxSplineProperties{
    Property<&TKxApproxSplineFunction::GetWeightFactor, &TKxApproxSplineFunction::SetWeightFactor>("WeightFactor"),
};

}  // namespace

constinit const TClassInfo TKxApproxSplineFunction::Class{"TKxApproxSplineFunction", &TKxInterpolatedFunction::Class,
                                                          ApproxSplineProperties};
constinit const TClassInfo TKxApproxSplineLine::Class{
    "TKxApproxSplineLine", &TKxApproxSplineFunction::Class, {}, &CreateComponent<TKxApproxSplineLine>};

void TKxApproxSplineFunction::SetWeightFactor(double factor)
{
    if (factor == GetWeightFactor())
        return;
    FSpline.SetWeightFactor(factor);
    SettingsChanged();
}

void TKxApproxSplineFunction::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxInterpolatedFunction::WriteToIni(list, section);
    list.WriteReal(section, "WeightFactor", GetWeightFactor());
}

void TKxApproxSplineFunction::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxInterpolatedFunction::ReadFromIni(list, section);
    SetWeightFactor(list.ReadReal(section, "WeightFactor", 1));
}

TKxApproxSplineLine::~TKxApproxSplineLine()
{
    BeginDestroy();
}

std::string TKxApproxSplineLine::GetFormula() const
{
    return "Approximative Spline";
}

std::string TKxApproxSplineLine::CalculationID() const
{
    return "Approximative Spline";
}

void TKxApproxSplineLine::CalculateFunction()
{
    RecalculateCoeffs();
    FSpline.FindExtrema();
    GetContinousLine();
}

}  // namespace plotkit
