#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/PixelSheet.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

constexpr TColor LineColor{0x0000FF};
constexpr int Width = 400, Height = 300;

class TLongLine : public testing::Test
{
protected:
    TLongLine()
    {
        Form.SetBounds(0, 0, Width, Height);
        Graph->SetParent(&Form);
        Graph->SetAlign(alClient);
        Series = new TKxLineSeries(&Form);
        Series->SetXAxis(Graph->GetPrimaryXAxis());
        Series->SetYAxis(Graph->GetPrimaryYAxis());
        Series->SetXData(X);
        Series->SetYData(Y);
        Series->GetLineStyle().SetColor(LineColor);
    }

    static QImage Drawn(const TRecording& picture, bool smooth = false)
    {
        TPixelSheet sheet(Width, Height);
        sheet.Painter().setRenderHint(QPainter::Antialiasing, smooth);
        TQtDevice device(sheet.Painter());
        picture.Replay(device);
        return sheet.Image();
    }
    /// The picture with every point of the line in it.
    TRecording Full()
    {
        TRecording picture = Form.Picture(), full;
        const TPolylineCommand* line = nullptr;
        for (const TDrawCommand& command : picture.Commands) {
            const auto* polyline = std::get_if<TPolylineCommand>(&command);
            const bool isLine = polyline && polyline->Pen.Color == LineColor;
            if (isLine && !line)
                AddAllPoints(*(line = polyline), full);
            if (!isLine)
                full.Commands.push_back(command);
        }
        return full;
    }
    void AddAllPoints(const TPolylineCommand& like, TRecording& full)
    {
        const TPoint origin = Graph->World().DataRect().TopLeft();
        std::vector<TPoint> run;
        const auto end = [&] {
            for (std::size_t i = 0; i + 1 < run.size(); i += 1999)
                full.Polyline(std::span(run).subspan(i, std::min<std::size_t>(2000, run.size() - i)), like.Pen,
                              like.State);
            run.clear();
        };
        for (int i = 0; i < std::min(X->GetCount(), Y->GetCount()); ++i) {
            const double x = X->GetValue(i), y = Y->GetValue(i);
            if (std::isfinite(x) && std::isfinite(y))
                run.push_back({origin.X + Series->GetXAxis()->RealToIntPosition(x),
                               origin.Y + Series->GetYAxis()->RealToIntPosition(y)});
            else
                end();
        }
        end();
    }
    std::size_t PointsDrawn()
    {
        std::size_t count = 0;
        for (const TDrawCommand& command : Form.Picture().Commands)
            if (const auto* polyline = std::get_if<TPolylineCommand>(&command))
                count += polyline->Points.size();
        return count;
    }
    /// How much of the ink of the full line stands in other places.
    double Differing(bool smooth = false)
    {
        const QImage reduced = Drawn(Form.Picture(), smooth), full = Drawn(Full(), smooth);
        double different = 0, ink = 0;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x) {
                different += std::abs(qGreen(reduced.pixel(x, y)) - qGreen(full.pixel(x, y)));
                ink += std::abs(qRed(full.pixel(x, y)) - qGreen(full.pixel(x, y)));
            }
        return different / std::max(ink, 1.0);
    }

    TForm Form{nullptr};
    TKx2DGraph* Graph = new TKx2DGraph(&Form);
    TKxLiveVector* X = new TKxLiveVector(&Form);
    TKxLiveVector* Y = new TKxLiveVector(&Form);
    TKxLineSeries* Series;
};

enum TKind
{
    Walk,
    Spikes,
    Gaps,
    Plateaus,
    Duplicates,
    Backward,
    Bursts,
    KindCount
};

/// Ascending abscissae (but `Backward`) and ordinates of one kind.
void Fill(TKind kind, std::mt19937& random, int count, std::vector<double>& xs, std::vector<double>& ys)
{
    std::normal_distribution<double> step;
    const auto oneIn = [&](unsigned n) { return random() % n == 0; };
    double x = 1, y = 500;
    for (int i = 0; i < count; ++i) {
        x += kind == Duplicates ? oneIn(3) * std::abs(step(random)) : kind == Bursts ? (oneIn(900) ? 2000 : 0.01) : 1;
        if (kind != Plateaus || oneIn(40))
            y += step(random);
        const double shown = kind == Spikes && oneIn(500) ? y + 300 * step(random) : y;
        const bool isGap = kind == Gaps && (oneIn(30) || i / 1000 % 7 == 3);
        xs.push_back(kind == Backward ? -x : x);
        ys.push_back(isGap ? (oneIn(2) ? NAN : INFINITY) : shown);
    }
}

TEST_F(TLongLine, PixelsAreThoseOfAllPoints)
{
    std::mt19937 random(5);
    for (int seed = 0; seed < 8; ++seed)
        for (int kind = 0; kind < KindCount; ++kind) {
            std::vector<double> xs, ys;
            Fill(static_cast<TKind>(kind), random, 50'001 + seed * 4000, xs, ys);
            const double from = xs.front(), to = xs.back();
            Series->GetLineStyle().SetWidth(1 + seed);
            Graph->GetPrimaryXAxis()->SetTwisted(seed % 2 == 1);
            Graph->GetPrimaryYAxis()->SetScaling(seed % 3 == 2 ? AxLog : AxNormal);
            Graph->GetPrimaryXAxis()->SetScaling(seed % 4 == 3 && kind != Backward ? AxLog : AxNormal);
            X->Take(std::move(xs));
            Y->Take(std::move(ys));
            for (const double share : {1.0, 0.5, 0.1, 0.01, 0.0005}) {
                Graph->GetPrimaryXAxis()->LeaveZoom();
                Graph->GetPrimaryYAxis()->LeaveZoom();
                Form.Picture();
                if (share < 1) {
                    const double at = from + (to - from) * static_cast<double>(random() % 1000) / 1000;
                    const double half = std::abs(to - from) * share / 2;
                    Graph->GetPrimaryXAxis()->ZoomIn(std::max(at - half, from > 0 ? 0.5 : -1e9), at + half);
                    Graph->GetPrimaryYAxis()->ZoomIn(ys.empty() ? 400 : 0, 600);
                    Series->Modified();
                }
                EXPECT_EQ(Differing(), 0) << "seed " << seed << " kind " << kind << " share " << share;
                if (kind != Backward && share == 1) {
                    EXPECT_LT(PointsDrawn(), 20'000U) << kind;
                }
            }
        }
}

TEST_F(TLongLine, SmoothAndWideLinesDifferLittleAndDashedOnesNot)
{
    std::mt19937 random(9);
    std::vector<double> xs, ys;
    Fill(Spikes, random, 60'000, xs, ys);
    X->Take(std::move(xs));
    Y->Take(std::move(ys));
    Form.Picture();
    for (const int width : {1, 2, 3, 10}) {
        Series->GetLineStyle().SetWidth(width);
        EXPECT_EQ(Differing(), 0) << width;
        EXPECT_LT(Differing(true), 0.03) << width;
    }
    Series->GetLineStyle().SetWidth(1);
    Series->GetLineStyle().SetStyle(psDash);
    EXPECT_GT(PointsDrawn(), 60'000U);
    EXPECT_EQ(Differing(), 0);
}

TEST_F(TLongLine, FollowsChangesWhetherItHearsOfThemOrNot)
{
    std::mt19937 random(13);
    auto* const other = new TKxLineSeries(&Form);  // from now on hears of X in the place of the first
    for (const bool isHeard : {true, false}) {
        std::vector<double> xs, ys;
        Fill(Gaps, random, 60'000, xs, ys);
        X->Take(std::move(xs));
        Y->Take(std::move(ys));
        if (!isHeard) {
            other->SetXAxis(Graph->GetPrimaryXAxis());
            other->SetXData(X);
        }
        Form.Picture();
        for (TKxAxis* axis : {Graph->GetPrimaryXAxis(), Graph->GetPrimaryYAxis()}) {
            axis->SetStopEnd(isHeard ? AxFixed : AxAutoRange);
            axis->SetStop(axis->GetStop() * 1.1);
        }
        for (int step = 0; step < 60; ++step) {
            const int count = Y->GetCount(), at = static_cast<int>(random() % static_cast<unsigned>(count));
            switch (random() % 6) {
                case 0:
                    X->Add(X->GetValue(count - 1) + (random() % 2 ? 0.5 : 200));
                    Y->Add(random() % 4 ? 700 : NAN);
                    break;
                case 1:
                    Y->SetValue(at, random() % 2 ? NAN : 900);
                    break;
                case 2:
                    X->Delete(at);
                    Y->Delete(at);
                    break;
                case 3:
                    X->Append(std::vector<double>(300, X->GetValue(count - 1) + 1));
                    Y->Append(std::vector<double>(300, 450));
                    break;
                case 4:
                    X->SetValue(at, X->GetValue(at) + (random() % 2 ? 0.5 : 5));
                    break;
                default:
                    X->Insert(at, X->GetValue(at));
                    Y->Insert(at, 100);
            }
            if (!isHeard)
                Series->Modified();
            EXPECT_EQ(Differing(), 0) << isHeard << step;
        }
    }
}

TEST_F(TLongLine, FindsPointsThatWereNeverMade)
{
    std::mt19937 random(17);
    std::vector<double> xs, ys;
    Fill(Gaps, random, 60'000, xs, ys);
    X->Take(std::move(xs));
    Y->Take(std::move(ys));
    Form.Picture();
    std::vector<int> found;
    const auto ask = [&](std::size_t i) {
        return Series->FindPoint(static_cast<int>(i * 7 % Width), 60 + static_cast<int>(i % 180), 6);
    };
    for (std::size_t i = 0; i < 300; ++i)
        found.push_back(ask(i));
    EXPECT_GT(*std::max_element(found.begin(), found.end()), 0);
    EXPECT_EQ(Series->Points().GetCount(), 60'000);
    for (std::size_t i = 0; i < 300; ++i)
        EXPECT_EQ(ask(i), found[i]);
}

}  // namespace
}  // namespace plotkit
