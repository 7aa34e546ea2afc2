#include "calculated/KxPolinomial.h"

#include <algorithm>
#include <cctype>

#include "foundation/KxLargeIni.h"
#include "foundation/KxStrings.h"

namespace plotkit {

namespace {

constexpr int LowestOrder = 2;

constexpr std::array PolynomLineProperties{
    Property<&TKxPolynomLine::GetOrder, &TKxPolynomLine::SetOrder>("Order"),
};

// a, b, ... z, aa, ab, ...
std::string CoefficientName(std::size_t i)
{
    std::string name = ColumnToCharHeader(static_cast<int>(i) + 1);
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name;
}

}  // namespace

constinit const TClassInfo TKxPolynomLine::Class{"TKxPolynomLine", &TKxCalculatedSeries::Class, PolynomLineProperties,
                                                 &CreateComponent<TKxPolynomLine>};

TKxPolynomLine::TKxPolynomLine(TComponent* owner) : TKxCalculatedSeries(owner)
{
    FResults.Order = LowestOrder;
    FResults.Coeffs.Resize(CoefficientCount(LowestOrder));
}

TKxPolynomLine::~TKxPolynomLine()
{
    BeginDestroy();
}

void TKxPolynomLine::SetOrder(int order)
{
    order = std::max(order, LowestOrder);
    if (order == FResults.Order)
        return;
    FResults.Order = order;
    FResults.Coeffs.Resize(CoefficientCount(order));
    if (GetParentSeries())
        GetParentSeries()->ChildModified();
}

double TKxPolynomLine::GetCoeff(int i) const
{
    if (i < 0 || i > FResults.Order)
        throw ERangeError("Polynomial: Index of variable out of range");
    const auto index = static_cast<std::size_t>(i);
    return index < FResults.Coeffs.Length() ? FResults.Coeffs[index] : 0;
}

std::string TKxPolynomLine::GetFormula() const
{
    std::string formula = "Y=a+bX";
    for (std::size_t k = 2; k < FResults.Coeffs.Length(); ++k)
        formula += "+" + CoefficientName(k) + "X\\+" + std::to_string(k) + "\\+";
    return formula;
}

void TKxPolynomLine::CalculateFunction()
{
    const TKxNotCalculatedSeries* const parent = GetParentSeries();
    if (parent && IsDesigning() && parent->PointsCount() <= FResults.Order)
        return;
    const auto x = parent ? parent->XValues() : std::span<const double>();
    const auto y = parent ? parent->YValues() : std::span<const double>();
    TKxPolynomRegessionResults results;
    results.Order = FResults.Order;
    if (const TKxCustomRealVector* const weight = GetWeight())
        PolynomRegressionWithWeight(GetCalculationStart(), GetCalculationStop(), x, y, weight->Values(), results);
    else
        PolynomRegression(GetCalculationStart(), GetCalculationStop(), x, y, results);
    FResults = results;
    GetContinousLine();
}

void TKxPolynomLine::WriteResults(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteResults(list, section);
    list.WriteInteger(section, "Order", FResults.Order);
    list.WriteReal(section, "AverageX", FResults.AverageX);
    list.WriteReal(section, "VarianceX", FResults.VarianceX);
    list.WriteReal(section, "AverageY", FResults.AverageY);
    list.WriteReal(section, "VarianceY", FResults.VarianceY);
    list.WriteReal(section, "r2", FResults.r2);
    list.WriteReal(section, "ChiSquare", FResults.ChiSquare);
    list.WriteReal(section, "QRel%", FResults.QRel * 100);
    for (std::size_t i = 0; i < FResults.Coeffs.Length(); ++i) {
        const std::string number = "(" + std::to_string(i + 1) + ")";
        list.WriteString(section, "CoeffName" + number, CoefficientName(i));
        list.WriteReal(section, "Coeff" + number, FResults.Coeffs[i]);
    }
}

void TKxPolynomLine::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteToIni(list, section);
    list.WriteInteger(section, "Order", FResults.Order);
}

void TKxPolynomLine::ReadFromIni(TKxIniList& list, const std::string& section)
{
    SetOrder(list.ReadInteger(section, "Order", FResults.Order));
    TKxCalculatedSeries::ReadFromIni(list, section);
}

}  // namespace plotkit
