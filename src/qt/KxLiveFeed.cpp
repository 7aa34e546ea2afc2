#include "qt/KxLiveFeed.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <algorithm>

#include "host/Errors.h"
#include "host/Host.h"

namespace plotkit {

namespace {

constexpr int FrameInterval = 16;  // ms

}  // namespace

/// Lives in the window's thread: hears of rows that wait, of frames and of vectors that go.
class TKxLiveFeed::TReceiver : public QObject, public TComponent
{
public:
    TReceiver(TKxLiveFeed& feed, const std::vector<TKxRealVector*>& vectors, TKxRowBound bound)
        : TComponent(nullptr), FFeed(feed), FVectors(vectors)
    {
        FQueue = std::make_shared<TKxRowQueue>(vectors.size(), bound,
                                               [this] { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); });
        for (TKxRealVector* vector : vectors) {
            if (!vector)
                throw EComponentError("A live feed has no vector for one of its columns");
            WatchFor(vector);
        }
    }
    ~TReceiver() override { BeginDestroy(); }

    const std::shared_ptr<TKxRowQueue>& Queue() const { return FQueue; }
    int Interval() const { return FInterval; }
    void SetInterval(int milliSeconds);
    void Look();
    void Close();

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent*) override { Look(); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    bool Append();
    void Tell(std::size_t rows);

    TKxLiveFeed& FFeed;
    std::shared_ptr<TKxRowQueue> FQueue;
    std::vector<TKxRealVector*> FVectors;  ///< nullptr for those that are gone
    const TKxRows* FBatch = nullptr;       ///< being appended
    std::size_t FNext = 0;                 ///< the vector whose turn it is
    std::exception_ptr FError;
    QBasicTimer FFrame;
    int FInterval = FrameInterval;
};

bool TKxLiveFeed::TReceiver::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    Look();
    return true;
}

void TKxLiveFeed::TReceiver::Notification(TComponent* component, TOperation operation)
{
    if (operation == opRemove) {
        std::replace(FVectors.begin(), FVectors.end(), static_cast<TKxRealVector*>(component),
                     static_cast<TKxRealVector*>(nullptr));
        if (std::all_of(FVectors.begin(), FVectors.end(), [](const auto* vector) { return !vector; }))
            FQueue->Close();
    }
    TComponent::Notification(component, operation);
}

void TKxLiveFeed::TReceiver::SetInterval(int milliSeconds)
{
    FInterval = std::max(milliSeconds, 0);
    if (FFrame.isActive())
        FFrame.start(FInterval, Qt::PreciseTimer, this);
}

void TKxLiveFeed::TReceiver::Look()
{
    if (FBatch)
        return;  // the frame's timer goes on
    const auto queue = FQueue;
    FBatch = &queue->Take();
    FNext = 0;
    const std::size_t rows = FBatch->GetCount();
    // Frames go on until one brings nothing; the first row after that wakes this thread.
    if (rows == 0)
        FFrame.stop();
    else if (!FFrame.isActive())
        FFrame.start(FInterval, Qt::PreciseTimer, this);
    if (Append())
        Tell(rows);
}

/// False when a handler destroyed the feed.
bool TKxLiveFeed::TReceiver::Append()
{
    const QPointer<TReceiver> self(this);
    while (FNext < FVectors.size()) {
        const std::size_t i = FNext++;
        if (!FVectors[i])
            continue;
        std::exception_ptr error;
        try {
            FVectors[i]->Append(FBatch->Column(i));
        } catch (...) {
            error = std::current_exception();
        }
        if (!self)
            return false;
        if (error && !FError)
            FError = error;
    }
    FBatch = nullptr;
    return true;
}

void TKxLiveFeed::TReceiver::Tell(std::size_t rows)
{
    const auto error = std::exchange(FError, nullptr);
    const std::string trouble = FQueue->TakeTrouble();
    const auto onRows = FFeed.OnRows;
    // From here on the feed may be gone.
    const auto guarded = [](auto&& action) {
        try {
            action();
        } catch (const std::exception& raised) {
            Host().HandleError(raised);
        }
    };
    if (error)
        guarded([&] { std::rethrow_exception(error); });
    if (!trouble.empty())
        guarded([&] { throw EComponentError("Live data: " + trouble); });
    if (onRows && rows > 0)
        guarded([&] { onRows(rows); });
}

void TKxLiveFeed::TReceiver::Close()
{
    FQueue->Close();
    // A handler of a note may close while a batch is on its way.
    if (FBatch && !Append())
        return;
    const QPointer<TReceiver> self(this);
    Look();
    if (self)
        FFrame.stop();
}

TKxLiveFeed::TKxLiveFeed(const std::vector<TKxRealVector*>& vectors, TKxRowBound bound)
    : FReceiver(std::make_unique<TReceiver>(*this, vectors, bound))
{}

TKxLiveFeed::~TKxLiveFeed()
{
    OnRows = nullptr;
    Close();
}

const std::shared_ptr<TKxRowQueue>& TKxLiveFeed::Queue() const
{
    return FReceiver->Queue();
}

int TKxLiveFeed::GetInterval() const
{
    return FReceiver->Interval();
}

void TKxLiveFeed::SetInterval(int milliSeconds)
{
    FReceiver->SetInterval(milliSeconds);
}

void TKxLiveFeed::Look()
{
    FReceiver->Look();
}

void TKxLiveFeed::Close()
{
    FReceiver->Close();
}

}  // namespace plotkit
