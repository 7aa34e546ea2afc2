// The job of KxFittingFkt is the model of a fit: a function of an abscissa and coefficients that the application gives.
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>

#include "host/Event.h"
#include "host/VectorState.h"

namespace plotkit {

/// A callback double(double x, std::span<double> coefs) or with const coefficients; what it does to the coefficients
/// stays done. It is run for many abscissae at a time, so that a compiled model is inlined into the loop. Copies share
/// the callable; an unset one is empty, and so is one whose target, when that has a lifeline, is gone.
class TKxFittingFkt
{
public:
    /// Writes the ordinates of all abscissae.
    using TRun = std::function<void(std::span<const double> x, std::span<double> coefs, double* y)>;

    TKxFittingFkt() = default;
    TKxFittingFkt(std::nullptr_t) {}

    template <class TCallable>
    requires(std::is_invocable_r_v<double, TCallable&, double, std::span<double>> &&
             !std::same_as<std::decay_t<TCallable>, TKxFittingFkt>) TKxFittingFkt(TCallable&& callable)
        : TKxFittingFkt(TRun([call = std::forward<TCallable>(callable)](std::span<const double> x,
                                                                        std::span<double> coefs, double* y) mutable {
              for (std::size_t i = 0; i < x.size(); ++i)
                  y[i] = call(x[i], coefs);
          }))
    {}

    /// Of a function that computes many ordinates at once.
    explicit TKxFittingFkt(TRun run) : FRun(std::make_shared<const TRun>(std::move(run))) {}

    /// `TKxFittingFkt::Bind<&TThing::Decay>(thing)`.
    template <auto Member, class TObject>
    static TKxFittingFkt Bind(TObject* object)
    {
        TKxFittingFkt function([object](double x, std::span<double> coefs) { return (object->*Member)(x, coefs); });
        if constexpr (THasLifeline<TObject>) {
            function.FWatched = true;
            function.FLife = object->Lifeline().Watch();
        }
        return function;
    }

    explicit operator bool() const { return FRun && !(FWatched && FLife.expired()); }

    /// The callable must be there.
    double operator()(double x, std::span<double> coefs) const
    {
        double y = 0;
        Run({&x, 1}, coefs, &y);
        return y;
    }
    void Run(std::span<const double> x, std::span<double> coefs, double* y) const
    {
        EndSlowVectorState();
        const auto kept = FRun;  // the callable may replace this function while it runs
        (*kept)(x, coefs, y);
    }

    /// Copies of the same callable.
    friend bool operator==(const TKxFittingFkt& a, const TKxFittingFkt& b) { return a.FRun == b.FRun; }

private:
    std::shared_ptr<const TRun> FRun;
    std::weak_ptr<const void> FLife;
    bool FWatched = false;
};

}  // namespace plotkit
