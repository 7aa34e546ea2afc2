// The job of KxLiveFeed is to append to vectors of the window's thread what other threads measure.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "data/KxRowQueue.h"
#include "data/KxVector.h"

namespace plotkit {

/// Made, used and destroyed in one thread with an event loop, that of its vectors; other threads hold the queue and
/// push rows of one value per vector, in the order of the vectors. The feed takes all that waits at most once per
/// frame, with one wake-up under way for however many rows, and appends it with one `Append` per vector: a live vector
/// tells its series once per batch, and the window paints once. Nothing is polled while no rows come.
///
/// - A row whose push returned true is in the vectors once the feed has looked or is gone, in the order of its thread,
///   unless the bound drops the oldest.
/// - Vectors, feed and threads may go in any order. A vector that goes takes its column along; when the last one or the
///   feed is gone, pushing returns false.
/// - No lock is held while vectors grow or anything is painted.
/// - Windows that are hidden and modal dialogs hold nothing up. While a handler of a vector's note runs an event loop
///   rows wait, so that batches do not overtake each other.
/// - Errors go to Host().HandleError, those of rows that were not taken too; the other vectors still get their values.
class TKxLiveFeed
{
public:
    /// One column per vector. EComponentError without vectors and for nullptr.
    explicit TKxLiveFeed(const std::vector<TKxRealVector*>& vectors, TKxRowBound bound = {});
    TKxLiveFeed(const TKxLiveFeed&) = delete;
    TKxLiveFeed& operator=(const TKxLiveFeed&) = delete;
    /// As `Close`.
    ~TKxLiveFeed();

    /// For the threads that measure; it may outlive the feed.
    const std::shared_ptr<TKxRowQueue>& Queue() const;

    /// Milliseconds between two batches, 16 at first; 0: as soon as the event loop comes round.
    int GetInterval() const;
    void SetInterval(int milliSeconds);

    /// Takes what waits now, as behind the last row of a measurement.
    void Look();
    /// From now on pushing returns false; what was pushed before is appended.
    void Close();

    /// Called behind each batch with its number of rows, again when it runs an event loop meanwhile. The feed may be
    /// destroyed in it.
    std::function<void(std::size_t rows)> OnRows;

private:
    class TReceiver;
    std::unique_ptr<TReceiver> FReceiver;
};

}  // namespace plotkit
