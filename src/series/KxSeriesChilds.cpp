#include <exception>
#include <vector>

#include "host/Errors.h"
#include "series/KxSeries.h"

namespace plotkit {

void TKxSeries::AddChild(TKxSeries* child)
{
    FChilds.Remove(child);
    FChilds.Add(child);
    WatchFor(child);
}

void TKxSeries::RemoveChild(TKxSeries* child)
{
    FChilds.Remove(child);
    StopWatching(child);
}

void TKxSeries::RecalculateChilds()
{
    // Cleared first: what a handler of a child changes in the meantime counts for the next paint.
    FChildsNeedRecalc = false;
    std::exception_ptr first;
    std::string messages;
    bool several = false;
    for (TKxPlottable* const item : std::vector(FChilds.Items())) {
        auto* const child = FChilds.IndexOf(item) < 0 ? nullptr : dynamic_cast<TKxSeries*>(item);
        if (!child || !child->IsCalculated())
            continue;
        try {
            child->Calculate();
        } catch (const std::exception& error) {
            several = first != nullptr;
            messages += (several ? "\n" : "") + std::string(error.what());
            if (!several)
                first = std::current_exception();
        }
    }
    if (several)
        throw EMathError(messages);
    if (first)
        std::rethrow_exception(first);
}

/// An error that stays the same is passed on once: each paint of live data would bring it up again.
void TKxSeries::BringChildsUpToDate()
{
    try {
        RecalculateChilds();
        FChildError.clear();
    } catch (const std::exception& error) {
        if (FChildError == error.what())
            return;
        FChildError = error.what();
        throw;
    }
}

}  // namespace plotkit
