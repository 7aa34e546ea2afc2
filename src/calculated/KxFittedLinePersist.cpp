#include <algorithm>

#include "calculated/KxFittedLine.h"
#include "foundation/KxLargeIni.h"
#include "foundation/KxStrings.h"

namespace plotkit {

namespace {

using TLine = TKxFittedLine;

constexpr TPropertyRow FittingFunctionRow()
{
    TPropertyRow row{"FittingFunction", pkEvent};
    row.IsAssigned = [](const TPersistent& line) { return static_cast<const TLine&>(line).HasCallback(); };
    return row;
}

constexpr std::array FittedLineProperties{
    Property<&TLine::GetDoCovariance, &TLine::SetDoCovariance>("DoCovariance"),
    Property<&TLine::GetIterations, &TLine::SetIterations>("Iterations"),
    Property<&TLine::GetOrder, &TLine::SetOrder>("Order"),
    FittingFunctionRow(),
    Property<&TLine::GetExpression, &TLine::SetExpression>("Expression"),
    Event<TLine, &TLine::OnIteration>("OnIteration"),
    Bulk<&TLine::GetStreamedCoefficients, &TLine::SetStreamedCoefficients, &TLine::HasCoefficients>("Coefficients"),
};

}  // namespace

constinit const TClassInfo TKxFittedLine::Class{"TKxFittedLine", &TKxCalculatedSeries::Class, FittedLineProperties,
                                                &CreateComponent<TKxFittedLine>};

void TKxFittedLine::WriteResults(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteResults(list, section);
    list.WriteString(section, "VarianceCoVariance", FDoCovariance ? "Covariance" : "Variance");
    list.WriteReal(section, "ChiSquare", FChiSquare);
    list.WriteInteger(section, "Order", FOrder);
    list.WriteInteger(section, "Iterations", FIterations);
    for (std::size_t k = 0; k < FVariables.Length(); ++k) {
        const std::string number = '(' + std::to_string(k + 1) + ')';
        std::string name = ColumnToCharHeader(static_cast<int>(k) + 1);
        for (char& c : name)
            c = static_cast<char>(c - 'A' + 'a');
        list.WriteString(section, "CoeffName" + number, name);
        list.WriteReal(section, "Coeff" + number, FVariables[k]);
    }
}

void TKxFittedLine::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteToIni(list, section);
    list.WriteString(section, "Formula", FExpression);
    list.WriteInteger(section, "Order", FOrder);
    list.WriteInteger(section, "Iterations", FIterations);
    list.WriteReal(section, "ChiSquare", FChiSquare);
    list.WriteRealArray(section, "Coefs", FVariables);
}

void TKxFittedLine::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::ReadFromIni(list, section);
    const std::string text = list.ReadString(section, "Coefs", "");
    if (!text.empty()) {
        TKxRealArray coefs(static_cast<std::size_t>(std::ranges::count(text, ';')) + 1);
        list.ReadRealArray(section, "Coefs", coefs);
        SetVariables(coefs);
    }
    SetIterations(list.ReadInteger(section, "Iterations", 300));
    SetExpression(list.ReadString(section, "Formula", ""));
}

}  // namespace plotkit
