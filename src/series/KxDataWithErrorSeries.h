// The job of KxDataWithErrorSeries is points with error bars to all four sides.
#pragma once

#include <array>

#include "series/KxDataSeries.h"
#include "series/KxReachingSeries.h"

namespace plotkit {

/// Errors count, for the picture and for the axes, only while the symbols are visible. Of errors absolute values are
/// taken; such as are missing or not finite give no bar.
class TKxDataWithErrorSeries : public TKxReachingSeries<TKxDataSeries>
{
public:
    explicit TKxDataWithErrorSeries(TComponent* owner);
    ~TKxDataWithErrorSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxCustomRealVector* GetdXPlus() const { return FErrors[XPlus].Data; }
    void SetdXPlus(TKxCustomRealVector* vector) { Link(XPlus, vector); }
    TKxCustomRealVector* GetdXMinus() const { return FErrors[XMinus].Data; }
    void SetdXMinus(TKxCustomRealVector* vector) { Link(XMinus, vector); }
    TKxCustomRealVector* GetdYPlus() const { return FErrors[YPlus].Data; }
    void SetdYPlus(TKxCustomRealVector* vector) { Link(YPlus, vector); }
    TKxCustomRealVector* GetdYMinus() const { return FErrors[YMinus].Data; }
    void SetdYMinus(TKxCustomRealVector* vector) { Link(YMinus, vector); }
    TColor GetErrorIndicatorsColor() const { return FErrorColor; }
    void SetErrorColor(TColor color);

    /// 0 where a point has no error.
    double GetXPlusD(int i) const { return ErrorOf(XPlus, i); }
    double GetXMinusD(int i) const { return ErrorOf(XMinus, i); }
    double GetYPlusD(int i) const { return ErrorOf(YPlus, i); }
    double GetYMinusD(int i) const { return ErrorOf(YMinus, i); }

    void SetXData(TKxCustomRealVector* vector) override;
    void SetYData(TKxCustomRealVector* vector) override;
    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;
    TKxSampleForm SampleForm() const override;

protected:
    void CalculatePoint(int index) override;
    void CalculateAllPoints() override;
    TKxExtent ExtentOf(bool isX, int i) const override;
    bool AreExtentsShown() const override { return SamplePoints()->GetVisible(); }
    std::span<const TKxExtraVector> Extras() const override { return FErrors; }
    void DrawMarks(TCanvas& canvas) override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    enum TSide : std::uint8_t
    {
        XPlus,
        XMinus,
        YPlus,
        YMinus,
    };
    /// The bars of one side; their lengths grow by `Step` pixels.
    struct TBars
    {
        std::span<const std::int32_t> Lengths;
        TPoint Step;
        TPoint Cap;  ///< from the end of the bar to that of its cap
    };
    static bool IsPlus(TSide side) { return side == XPlus || side == YPlus; }

    void Link(TSide side, TKxCustomRealVector* vector) { LinkExtraVector(*this, FErrors, FErrors[side], vector); }
    double ErrorOf(TSide side, int i) const;
    void CalculateErrors(int first, int end);
    std::array<TBars, 4> Bars() const;

    std::array<TKxExtraVector, 4> FErrors;
    TColor FErrorColor = clBlack;
};

}  // namespace plotkit
