#include "qt/KxLiveFeed.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <numeric>
#include <optional>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Errors.h"
#include "host/Form.h"
#include "host/Host.h"
#include "qt/KxGraphWidget.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

TReals Elements(const TKxCustomRealVector& vector)
{
    return {vector.Values().begin(), vector.Values().end()};
}

TReals CountedTo(int count)
{
    TReals values(static_cast<std::size_t>(count));
    std::iota(values.begin(), values.end(), 0);
    return values;
}

/// Follows a vector: counts the notes and does what it is told.
struct TFollower
{
    explicit TFollower(TKxLiveVector& vector)
    {
        vector.ChangedList().Add(TKxValueIChangedEvent::Bind<&TFollower::Changed>(this));
    }
    void Changed(int, bool)
    {
        ++Notes;
        if (Action)
            std::exchange(Action, nullptr)();
    }

    int Notes = 0;
    std::function<void()> Action;
};

bool RunUntil(const std::function<bool()>& isDone)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isDone() && std::chrono::steady_clock::now() < end)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    return isDone();
}

struct LiveFeed : testing::Test
{
    TFakeHost Fake;
    THostGuard Guard{Fake};
    std::optional<TKxLiveVector> X{nullptr}, Y{nullptr};
    std::optional<TKxLiveFeed> Feed{std::in_place, std::vector<TKxRealVector*>{&*X, &*Y}};
    std::shared_ptr<TKxRowQueue> Queue = Feed->Queue();
    std::atomic<std::size_t> Pushed = 0;

    /// Pushes until nothing is taken any more.
    std::jthread Measure(int number)
    {
        return std::jthread([this, number, queue = Queue] {
            for (std::size_t i = 0; queue->Push(number, i); ++i)
                ++Pushed;
        });
    }
};

TEST_F(LiveFeed, TellsEachVectorAndPaintsOncePerBatch)
{
    struct TWidget : KxGraphWidget
    {
        using KxGraphWidget::KxGraphWidget;
        void paintEvent(QPaintEvent* event) override
        {
            ++Paints;
            KxGraphWidget::paintEvent(event);
        }
        int Paints = 0;
    };
    TForm form(nullptr);
    auto* graph = new TKx2DGraph(&form);
    graph->SetParent(&form);
    auto* series = new TKxDataSeries(&form);
    series->SetXAxis(graph->GetPrimaryXAxis());
    series->SetYAxis(graph->GetPrimaryYAxis());
    series->SetXData(&*X);
    series->SetYData(&*Y);
    TWidget widget(&form);
    widget.show();
    ASSERT_TRUE(RunUntil([&] { return widget.Paints > 0; }));
    const TFollower x(*X), y(*Y);
    widget.Paints = 0;
    std::vector<std::size_t> batches;
    Feed->OnRows = [&](std::size_t rows) { batches.push_back(rows); };
    Feed->SetInterval(100);
    for (int i = 0; i < 1000; ++i)
        Queue->Push(i, i);
    ASSERT_TRUE(RunUntil([&] { return widget.Paints > 0; }));
    // The first batch of a while comes at once, what follows waits for the next frame.
    Queue->Push(1000, 1000);
    Queue->Push(1001, 1001);
    ASSERT_TRUE(RunUntil([&] { return batches.size() > 1 && widget.Paints > 1; }));
    EXPECT_EQ(batches, (std::vector<std::size_t>{1000, 2}));
    EXPECT_EQ(widget.Paints, 2);
    widget.hide();
    Queue->Push(1002, 1002);
    ASSERT_TRUE(RunUntil([&] { return batches.size() > 2; }));
    EXPECT_EQ(Elements(*Y), CountedTo(1003));
    EXPECT_EQ(x.Notes, 3);
    EXPECT_EQ(y.Notes, 3);
    EXPECT_EQ(widget.Paints, 2);
}

TEST_F(LiveFeed, FeedsVectorsWhileADialogIsOpen)
{
    QDialog dialog;
    Feed->OnRows = [&](std::size_t) {
        if (Y->GetCount() > 300)
            dialog.accept();
    };
    const std::jthread thread = Measure(1);
    QTimer::singleShot(20000, &dialog, &QDialog::reject);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    Feed.reset();
}

TEST_F(LiveFeed, RowsWaitWhileAHandlerRunsAnEventLoop)
{
    TFollower follower(*X);
    follower.Action = [&] {
        Queue->Push(1, 1);
        QEventLoop loop;
        QTimer::singleShot(50, &loop, &QEventLoop::quit);
        loop.exec();
        Feed->Look();
        EXPECT_EQ(X->GetCount(), 1);
    };
    Queue->Push(0, 0);
    ASSERT_TRUE(RunUntil([&] { return Y->GetCount() == 2; }));
    EXPECT_EQ(Elements(*X), CountedTo(2));
    EXPECT_EQ(Elements(*Y), CountedTo(2));
}

TEST_F(LiveFeed, VectorsMayGoFirst)
{
    const std::jthread thread = Measure(7);
    ASSERT_TRUE(RunUntil([&] { return X->GetCount() > 0; }));
    X.reset();
    const int before = Y->GetCount();
    ASSERT_TRUE(RunUntil([&] { return Y->GetCount() > before; }));
    const TReals values = Elements(*Y);
    EXPECT_EQ(values, CountedTo(static_cast<int>(values.size())));
    Y.reset();
    EXPECT_FALSE(Queue->Push(7, 0));
    Feed->Look();
}

TEST_F(LiveFeed, MayGoWhileThreadsPush)
{
    for (const int way : {0, 1, 2}) {
        X->Clear();
        Y->Clear();
        Feed.emplace(std::vector<TKxRealVector*>{&*X, &*Y}, TKxRowBound{1000, wfWait});
        Queue = Feed->Queue();
        Pushed = 0;
        TFollower follower(*X);
        {
            const std::jthread first = Measure(1), second = Measure(2);
            ASSERT_TRUE(RunUntil([&] { return Y->GetCount() > 1000; }));
            // From outside, behind a batch, in the middle of one.
            if (way == 1)
                Feed->OnRows = [this](std::size_t) { Feed.reset(); };
            else if (way == 2)
                follower.Action = [this] { Feed.reset(); };
            else
                Feed.reset();
            ASSERT_TRUE(RunUntil([&] { return !Feed; }));
        }
        EXPECT_EQ(static_cast<std::size_t>(X->GetCount()), Pushed) << way;
        ASSERT_EQ(X->GetCount(), Y->GetCount()) << way;
        double next[3] = {};
        for (int i = 0; i < Y->GetCount(); ++i)
            ASSERT_EQ(Y->GetValue(i), next[static_cast<int>(X->GetValue(i))]++) << way;
        X->ChangedList().Clear();
    }
}

TEST_F(LiveFeed, HandsErrorsOverAndGoesOn)
{
    EXPECT_THROW(TKxLiveFeed({}), EComponentError);
    EXPECT_THROW(TKxLiveFeed({&*X, nullptr}), EComponentError);
    TFollower follower(*X);
    follower.Action = [] { throw EMathError("too steep"); };
    Queue->Push(0, 0);
    Feed->Look();
    EXPECT_EQ(Fake.LastError, "too steep");
    EXPECT_EQ(Elements(*Y), CountedTo(1));
    std::jthread([queue = Queue] { queue->Push(1, 2, 3); }).join();
    ASSERT_TRUE(RunUntil([&] { return Fake.LastError != "too steep"; }));
    EXPECT_EQ(Fake.LastError, "Live data: 3 values are no rows of 2 columns");
    Queue->Push(1, 1);
    Feed->Close();
    EXPECT_EQ(Elements(*Y), CountedTo(2));
    EXPECT_FALSE(Queue->Push(2, 2));
}

}  // namespace
}  // namespace plotkit
