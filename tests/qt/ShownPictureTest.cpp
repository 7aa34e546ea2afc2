#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <cmath>
#include <random>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLegend.h"
#include "host/Form.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxShownPicture.h"
#include "series/KxDataSeries.h"
#include "series/KxGraphCursor.h"

namespace plotkit {
namespace {

constexpr int Width = 300, Height = 220;

/// Tells how often a whole picture was painted.
class TPaintCounter : public TGraphicControl
{
public:
    using TGraphicControl::TGraphicControl;
    int Paints = 0;

protected:
    void Paint() override { ++Paints; }
};

struct TLine
{
    TKxLiveVector *X, *Y;
    TKxDataSeries* Series;
};
/// A graph of two lines as a window shows it.
struct TScene : TControlSite
{
    TScene()
    {
        Form.SetBounds(0, 0, Width, Height);
        Graph->SetParent(&Form);
        Graph->SetAlign(alClient);
        Counter->SetParent(&Form);
        for (TKxAxis* axis : {Graph->GetPrimaryXAxis(), Graph->GetPrimaryYAxis()}) {
            axis->SetStartEnd(AxFixed);
            axis->SetStopEnd(AxFixed);
        }
        for (TLine& line : Lines) {
            line = {new TKxLiveVector(&Form), new TKxLiveVector(&Form), new TKxDataSeries(&Form)};
            line.Series->SetXAxis(Graph->GetPrimaryXAxis());
            line.Series->SetYAxis(Graph->GetPrimaryYAxis());
            line.Series->SetXData(line.X);
            line.Series->SetYData(line.Y);
            line.Series->GetPointStyle().SetVisible(false);
        }
        Lines[1].Series->GetLineStyle().SetColor(clBlue);
        Form.SetSite(this);
    }
    ~TScene() override { Form.SetSite(nullptr); }

    void TreeInvalidated() override { Picture.PictureChanged(); }
    void TreePartsInvalidated() override { Picture.PartsChanged(); }
    void OverlayChanged() override { Picture.OverlayChanged(); }
    void PointerChanged(TControl*) override {}

    const QImage& Shown()
    {
        Picture.Update(Form);
        return Picture.Image();
    }

    TForm Form{nullptr};
    TKx2DGraph* Graph = new TKx2DGraph(&Form);
    TPaintCounter* Counter = new TPaintCounter(&Form);
    std::array<TLine, 2> Lines{};
    TKxShownPicture Picture;
};

/// The same is done to two scenes; one of them is always painted as a whole.
struct TTwins
{
    template <class TAction>
    void Do(TAction action)
    {
        action(Live);
        action(Whole);
    }
    /// Whether both show the same.
    bool AreEqual()
    {
        Whole.Form.Invalidate();
        return Live.Shown() == Whole.Shown();
    }

    TScene Live, Whole;
};

enum TKind
{
    Walk,
    Spikes,
    Gaps,
    Plateaus,
    Duplicates,
    Backward,
    Unsorted,
    KindCount
};

/// Makes values of one kind; those of `Room` values fit on the axes.
class TGrower
{
public:
    static constexpr double Room = 300;

    TGrower(TKind kind, unsigned seed, double step) : FKind(kind), FStep(step), FRandom(seed) {}

    void Append(TTwins& twins, std::size_t line, int count, bool atOnce)
    {
        std::vector<double> xs, ys;
        for (int i = 0; i < count; ++i)
            Next(xs, ys);
        twins.Do([&](TScene& scene) {
            if (atOnce) {
                scene.Lines[line].X->Append(xs);
                scene.Lines[line].Y->Append(ys);
            }
            for (std::size_t i = 0; i < xs.size() && !atOnce; ++i) {
                scene.Lines[line].X->Add(xs[i]);
                scene.Lines[line].Y->Add(ys[i]);
            }
        });
    }

private:
    bool OneIn(unsigned n) { return FRandom() % n == 0; }
    void Next(std::vector<double>& xs, std::vector<double>& ys)
    {
        std::normal_distribution<double> normal;
        if (FKind != Duplicates || OneIn(3))
            FX += FStep;
        if (FKind != Plateaus || OneIn(10))
            FY = std::clamp(FY + 3 * normal(FRandom), -90.0, 90.0);
        xs.push_back(FKind == Backward ? Room - FX : FKind == Unsorted ? FRandom() % 1000 * Room / 1000 : FX);
        ys.push_back(FKind == Gaps && OneIn(4) ? NAN : FKind == Spikes && OneIn(9) ? 80 * normal(FRandom) : FY);
    }

    TKind FKind;
    double FStep, FX = 0, FY = 0;
    std::mt19937 FRandom;
};

/// How the scenes look; each is another reason why a part may be painted in a wrong way.
struct TLook
{
    const char* Name;
    void (*Apply)(TScene&);
    bool GrowsAlone = true, IsForLong = false;
};

constexpr TLook Looks[] = {
    {"plain", [](TScene&) {}, true, true},
    {"symbols on both",
     [](TScene& s) {
         for (const TLine& line : s.Lines)
             line.Series->GetPointStyle().SetVisible(true);
         s.Lines[0].Series->GetPointStyle().SetStyle(Sy5Star);
         s.Lines[0].Series->GetPointStyle().SetSize(9);
     }},
    {"grid, title, legend over the lines",
     [](TScene& s) {
         s.Graph->GetMajorGridX().SetVisible(true);
         s.Graph->GetMajorGridY().SetVisible(true);
         s.Graph->SetShowTitle(true);
         s.Graph->SetCaption("Growing");
         auto* const legend = new TKxLegend(&s.Form);
         legend->SetParent(s.Graph);
     }},
    {"wide", [](TScene& s) { s.Lines[0].Series->GetLineStyle().SetWidth(5); }, true, true},
    {"dashed", [](TScene& s) { s.Lines[0].Series->GetLineStyle().SetStyle(psDashDot); }},
    {"fine resolution", [](TScene& s) { s.Form.SetPixelScale(1.5); }, true, true},
    {"finer resolution, symbols",
     [](TScene& s) {
         s.Form.SetPixelScale(2);
         s.Lines[0].Series->GetPointStyle().SetVisible(true);
     }},
    {"markers, twisted",
     [](TScene& s) {
         s.Graph->GetPrimaryXAxis()->SetTwisted(true);
         s.Graph->World().SetStartMarkerX(120);
         s.Graph->World().SetStopMarkerX(180);
         s.Graph->World().ShowStartStopMarkers();
     }},
    {"rings",
     [](TScene& s) {
         for (TKxLiveVector* vector : {s.Lines[0].X, s.Lines[0].Y})
             vector->SetNewest(720);
     },
     false},
    {"area", [](TScene& s) { s.Lines[0].Series->GetAreaStyle().SetVisible(true); }, false},
};

void PutAxes(TScene& scene)
{
    scene.Graph->GetPrimaryXAxis()->SetStart(0);
    scene.Graph->GetPrimaryXAxis()->SetStop(TGrower::Room);
    scene.Graph->GetPrimaryYAxis()->SetStart(-100);
    scene.Graph->GetPrimaryYAxis()->SetStop(100);
}

TEST(ShownPicture, GrowsToThePixelsOfAWholePicture)
{
    unsigned seed = 1;
    for (const TLook& look : Looks)
        for (int kind = 0; kind < KindCount; ++kind)
            for (const int begin : {0, 1, 700, 49'990, 60'000}) {
                if (begin > 700 && !(look.IsForLong && (kind == Walk || kind == Gaps)))
                    continue;
                TTwins twins;
                TGrower grower(static_cast<TKind>(kind), ++seed, 150.0 / std::max(begin, 40)), other(Walk, seed, 2);
                twins.Do(PutAxes);
                twins.Do(look.Apply);
                grower.Append(twins, 0, begin, true);
                other.Append(twins, 1, 60, true);
                const std::string at =
                    std::string(look.Name) + ", kind " + std::to_string(kind) + ", from " + std::to_string(begin);
                for (int step = 0; step < 8; ++step) {
                    ASSERT_TRUE(twins.AreEqual()) << at << ", step " << step;
                    grower.Append(twins, 0, step < 3 ? 1 : step * step, step % 2 == 0);
                    if (step % 3 == 2)
                        other.Append(twins, 1, 2, false);
                }
                // The first two pictures are whole ones; more only where that is known to be needed.
                if (look.GrowsAlone && begin == 700) {
                    EXPECT_LE(twins.Live.Counter->Paints, 3) << at;
                }
                EXPECT_GE(twins.Whole.Counter->Paints, 8);
            }
}

TEST(ShownPicture, SeesChangesThatLookLikeGrowth)
{
    TTwins twins;
    twins.Do(PutAxes);
    twins.Do([](TScene& s) {
        s.Lines[0].Y->SetNewest(200);
        s.Lines[1].Series->GetLineStyle().SetWidth(9);
    });
    TGrower grower(Walk, 3, 0.5);
    grower.Append(twins, 0, 400, true);
    // A figure of few points has sharp corners while it is closed.
    for (const TPoint p : {TPoint{50, 0}, {250, -80}, {250, 80}, {52, 10}, {50, 0}, {40, -5}, {35, -6}}) {
        twins.Do([&](TScene& s) {
            s.Lines[1].X->Add(p.X);
            s.Lines[1].Y->Add(p.Y);
        });
        EXPECT_TRUE(twins.AreEqual()) << p.X;
    }
    twins.Do([](TScene& s) {
        s.Lines[0].X->Append(std::vector(50, 250.0));
        s.Lines[0].X->SetValue(350, 110);  // a point that is drawn; those before 200 have no partner
    });
    EXPECT_TRUE(twins.AreEqual());
}

/// Everything else that happens to a graph meanwhile.
TEST(ShownPicture, FollowsWhateverElseChanges)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        TTwins twins;
        twins.Do(PutAxes);
        std::mt19937 random(seed);
        TGrower first(static_cast<TKind>(seed % KindCount), seed, 0.7), second(Walk, seed + 50, 0.7);
        TKxGraphCursor cursor(*twins.Live.Graph), wholeCursor(*twins.Whole.Graph);
        first.Append(twins, 0, 50, true);
        second.Append(twins, 1, 50, true);
        for (int step = 0; step < 60; ++step) {
            const int number = static_cast<int>(random() % 1000);
            (number % 2 ? first : second)
                .Append(twins, static_cast<std::size_t>(number % 2 ? 0 : 1), number % 5, step % 3 == 0);
            const unsigned what = random() % 24;
            twins.Do([&](TScene& s) {
                TKxDataSeries& series = *s.Lines[number % 3 == 0].Series;
                TKxAxis& axis = *s.Graph->GetPrimaryXAxis();
                const auto steps = std::array<std::function<void()>, 14>{
                    [&] { series.GetLineStyle().SetWidth(1 + number % 3); },
                    [&] { series.GetPointStyle().SetVisible(number % 2 == 0); },
                    [&] { s.Lines[0].Y->SetValue(number % s.Lines[0].Y->GetCount(), number % 90); },
                    [&] { s.Form.SetBounds(0, 0, Width + number % 40, Height); },
                    [&] { axis.ZoomIn(number % 30, 100 + number % 100); },
                    [&] { axis.LeaveZoom(); },
                    [&] { axis.SetStopEnd(number % 2 ? AxAutoRange : AxFixed); },
                    [&] { s.Lines[1].Y->Delete(number % s.Lines[1].Y->GetCount()); },
                    [&] { series.SetShown(number % 2 == 0); },
                    [&] { s.Graph->GetMajorGridY().SetVisible(number % 2 == 0); },
                    [&] { (&s == &twins.Live ? cursor : wholeCursor).SetShown(number % 4 != 0); },
                    [&] {
                        (&s == &twins.Live ? cursor : wholeCursor).MoveTo({number % Width, 80});
                    },
                    [&] { s.Form.Picture(); },
                    [&] { s.Graph->CopyToClipboard(); },
                };
                if (what < steps.size())
                    steps[what]();
            });
            ASSERT_TRUE(twins.AreEqual()) << "seed " << seed << " step " << step << " what " << what;
        }
    }
}

class TSeenWidget : public KxGraphWidget
{
public:
    using KxGraphWidget::KxGraphWidget;
    QRegion Painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        Painted += event->region();
        KxGraphWidget::paintEvent(event);
    }
};

TEST(ShownPicture, WindowUpdatesThePartsThatChanged)
{
    TScene scene;
    PutAxes(scene);
    TSeenWidget widget(&scene.Form);
    widget.resize(Width, Height);
    widget.show();
    const double ratio = widget.devicePixelRatioF();
    const auto settle = [] {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 20)
            QApplication::processEvents();
    };
    for (int i = 0; i < 12; ++i) {
        const QImage before = widget.Shown().copy();
        settle();
        widget.Painted = {};
        for (const double x : {12.0 * i, 12.0 * i + 5, 12.0 * i + 9}) {
            scene.Lines[0].X->Add(x);
            scene.Lines[0].Y->Add(40 * std::sin(x));
        }
        settle();
        const QImage now = widget.Shown();
        for (int row = 0; row < now.height(); ++row)
            for (int column = 0; column < now.width(); ++column) {
                const QPoint at(static_cast<int>(column / ratio), static_cast<int>(row / ratio));
                ASSERT_TRUE(before.pixel(column, row) == now.pixel(column, row) || widget.Painted.contains(at)) << i;
            }
        EXPECT_TRUE(i < 3 || widget.Painted.boundingRect().width() < Width / 4) << i;
    }
}

}  // namespace
}  // namespace plotkit
