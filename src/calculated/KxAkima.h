// The job of KxAkima is the curve through measured points that does not swing where the points do not.
#pragma once

#include "calculated/KxInterpol.h"

namespace plotkit {

/// H. Akima, A new method of interpolation and smooth curve fitting based on local procedures, J. ACM 17 (1970) 589.
class TKxAkima : public TKxIntPolynom
{
public:
    /// Whether the ordinates are smoothed before.
    bool GetDoSmoothing() const { return FDoSmoothing; }
    void SetDoSmoothing(bool smooth) { FDoSmoothing = smooth; }
    /// Whether smoothing measures distances in decades.
    bool GetSmoothLog() const { return FSmoothLog; }
    void SetSmoothLog(bool log) { FSmoothLog = log; }
    /// Half width of the smoothing window.
    double GetSmoothRange() const { return FSmoothRange; }
    void SetSmoothRange(double range) { FSmoothRange = range; }

    using TKxIntPolynom::RecalculateCoeffs;
    /// Points of weight 0 take no part, other weights make no difference. At least three abscissae have to differ.
    /// Raises what `RequireJoints` raises.
    void RecalculateCoeffs(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                           std::optional<std::span<const double>> w) override;

    /// Slopes of the chords, from the one between the two phantom points in front of the nodes on.
    const TKxRealArray& M() const { return FM; }

private:
    struct TGathered
    {
        std::size_t Count;
        bool IsAscending;  ///< nothing to sort, nothing to merge
    };

    TGathered Gather(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                     std::optional<std::span<const double>> w);
    std::size_t MergeEqualAbscissae(std::size_t taken);
    void Smooth(std::size_t nodes);
    void Extrapolate(std::size_t n);
    void CalcCoeffs(std::size_t n);
    static void Require(std::size_t nodes);

    TKxRealArray FM;
    bool FDoSmoothing = false;
    bool FSmoothLog = false;
    double FSmoothRange = 0;
};

}  // namespace plotkit
