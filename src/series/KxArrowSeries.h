// The job of KxArrowSeries is an arrow at each point, as long as two more vectors say.
#pragma once

#include <array>

#include "series/KxNotCalculatedSeries.h"
#include "series/KxReachingSeries.h"

namespace plotkit {

/// Displacements are data units of the axes, drawn by their scale at linear axes; a logarithmic axis takes them for
/// decades. An arrow with a displacement that is not finite is not drawn.
class TKxArrowSeries : public TKxReachingSeries<TKxNotCalculatedSeries>
{
public:
    explicit TKxArrowSeries(TComponent* owner);
    ~TKxArrowSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    int GetTipLength() const { return FTipLength; }
    /// 1/96 inches; 0 is an arrow without a head.
    void SetTipLength(int length);
    int GetTipWidth() const { return FTipWidth; }
    /// 1/96 inches from the shaft to a corner of the head.
    void SetTipWidth(int width);
    TKxCustomRealVector* GetdXData() const { return FShifts[0].Data; }
    void SetDX(TKxCustomRealVector* vector) { LinkExtraVector(*this, FShifts, FShifts[0], vector); }
    TKxCustomRealVector* GetdYData() const { return FShifts[1].Data; }
    void SetDY(TKxCustomRealVector* vector) { LinkExtraVector(*this, FShifts, FShifts[1], vector); }

    /// 0 without a displacement and while the line is invisible.
    double GetDX(int i) const { return ShiftOf(FShifts[0], i); }
    double GetDY(int i) const { return ShiftOf(FShifts[1], i); }
    /// Where the arrows end, device pixels like `Points`.
    const TKxIntegerVector& EndX() const { return FShifts[0].Pixels; }
    const TKxIntegerVector& EndY() const { return FShifts[1].Pixels; }

    void SetXData(TKxCustomRealVector* vector) override;
    void SetYData(TKxCustomRealVector* vector) override;
    void DrawLine() override;
    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;
    const TKxAreaStyle* SampleArea() const override { return nullptr; }
    TKxSampleForm SampleForm() const override { return {skArrow}; }

protected:
    void GetNewXStartStop() override;
    void GetNewYStartStop() override;
    void CalculatePoint(int index) override;
    void CalculateAllPoints() override;
    TKxExtent ExtentOf(bool isX, int i) const override;
    bool AreExtentsShown() const override { return SampleLine()->GetVisible(); }
    std::span<const TKxExtraVector> Extras() const override { return FShifts; }
    void Notification(TComponent* component, TOperation operation) override;

private:
    double ShiftOf(const TKxExtraVector& shift, int i) const;
    void CalculateEnds(int first, int end);

    std::array<TKxExtraVector, 2> FShifts;
    int FTipLength = 10, FTipWidth = 3;
};

}  // namespace plotkit
