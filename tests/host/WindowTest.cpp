#include <gtest/gtest.h>

#include "host/Errors.h"
#include "host/Form.h"
#include "host/Panel.h"
#include "support/Commands.h"

namespace plotkit {
namespace {

class TBlock : public TGraphicControl
{
public:
    using TGraphicControl::TGraphicControl;
    std::function<void()> OnPaint;

protected:
    void Paint() override
    {
        Canvas().MoveTo(0, 0);
        Canvas().LineTo(3, 0);
        if (OnPaint)
            OnPaint();
    }
};

class TSiteLog : public TControlSite
{
public:
    void TreeInvalidated() override { Log += "paint "; }
    void OverlayChanged() override { Log += "overlay "; }
    void PointerChanged(TControl* under) override { Under = under; }
    std::string Log;
    TControl* Under = nullptr;
};

class TCountingHost : public TFakeHost
{
public:
    void HandleError(const std::exception& error) override { Errors += std::string(error.what()) + ";"; }
    std::string Errors;
};

struct TWindow : testing::Test
{
    TWindow()
    {
        Form.SetBounds(0, 0, 100, 80);
        Form.SetSite(&Site);
        Panel->SetParent(&Form);
        Panel->SetBounds(10, 20, 50, 30);
        Block->SetParent(Panel);
        Block->SetBounds(5, 6, 10, 10);
    }
    ~TWindow() override { Form.SetSite(nullptr); }
    std::string Logged() { return std::exchange(Log, ""); }

    TCountingHost FakeHost;
    THostGuard Guard{FakeHost};
    TSiteLog Site;
    TForm Form{nullptr};
    TPanel* Panel = new TPanel(&Form);
    TBlock* Block = new TBlock(&Form);
    std::string Log;
};

TEST_F(TWindow, PaintsAtTheRightPlaceAndClip)
{
    Block->OnPaint = [this] {
        Block->SetCanvasOrigin({100, 0});
        Block->Canvas().SetClipRect({0, 0, 500, 1});
        Block->Canvas().MoveTo(0, 0);
        Block->Canvas().LineTo(2, 0);
    };
    TBlock behind(&Form), hidden(&Form);
    behind.SetParent(Panel);
    behind.SendToBack();
    hidden.SetParent(Panel);
    hidden.SetVisible(false);
    const auto lines = CommandsOf<TLineCommand>(Form.Picture());
    ASSERT_EQ(lines.size(), 3U);
    const TRect panel{10, 20, 60, 50};
    EXPECT_EQ(lines[0], (TLineCommand{{10, 20}, {13, 20}, {}, {dmCopy, panel}}));
    // Not cut at its own edges, but at those of the window that it stands in.
    EXPECT_EQ(lines[1], (TLineCommand{{15, 26}, {18, 26}, {}, {dmCopy, panel}}));
    EXPECT_EQ(lines[2].From, (TPoint{115, 26}));
    EXPECT_TRUE(lines[2].State.Clip.IsEmpty());
    // A part on its own: the same drawing from the part's own corner.
    Block->OnPaint = nullptr;
    EXPECT_EQ(CommandsOf<TLineCommand>(Panel->Picture())[1],
              (TLineCommand{{5, 6}, {8, 6}, {}, {dmCopy, {0, 0, 50, 30}}}));
}

TEST_F(TWindow, PaintsUntilNothingAsksAgain)
{
    Form.Picture();
    Site.Log.clear();
    for (const auto& [asks, expected] : {std::pair{3, 4}, {1000, 8}, {0, 1}}) {
        int paints = 0;
        Block->OnPaint = [&, most = asks] {
            if (++paints <= most)
                Block->Invalidate();
        };
        EXPECT_EQ(CommandsOf<TLineCommand>(Form.Picture()).size(), 1U);
        EXPECT_EQ(paints, expected);
        Block->OnPaint = nullptr;
    }
    EXPECT_FALSE(Form.NeedsPaint());
    EXPECT_EQ(Site.Log, "");  // the picture itself answers what its passes ask for
    Block->Invalidate();
    EXPECT_EQ(Site.Log, "paint ");
    Panel->Picture();
    EXPECT_TRUE(Form.NeedsPaint());  // a picture of a part leaves the rest waiting
}

TEST_F(TWindow, AnErrorIsReportedOnceAndTheRestIsPainted)
{
    TBlock other(&Form);
    other.SetParent(Panel);
    Block->OnPaint = [this] {
        Block->Invalidate();
        throw EMathError("no result");
    };
    EXPECT_EQ(CommandsOf<TLineCommand>(Form.Picture()).size(), 2U);
    Form.Picture();
    EXPECT_EQ(FakeHost.Errors, "no result;");
    Block->OnPaint = nullptr;
    Form.Picture();
    Block->OnPaint = [] { throw EMathError("again"); };
    Form.Picture();
    EXPECT_EQ(FakeHost.Errors, "no result;again;");
}

TEST_F(TWindow, DrawingOutsideAPaintGoesToTheOverlay)
{
    const TRecording before = Form.Picture();
    Site.Log.clear();
    const auto draw = [this] {
        Block->Canvas().Pen.Mode = dmXor;
        Block->Canvas().MoveTo(1, 1);
        Block->Canvas().LineTo(4, 1);
    };
    draw();
    const TLineCommand line{{16, 27}, {19, 27}, {}, {dmXor, {10, 20, 60, 50}}};
    EXPECT_EQ(Form.Overlay().Commands, (std::vector<TDrawCommand>{line}));
    EXPECT_EQ(Form.Picture(), before);
    draw();
    EXPECT_TRUE(Form.Overlay().Commands.empty());
    EXPECT_EQ(Site.Log, "overlay overlay ");
}

TEST_F(TWindow, ControlsMayGoWhileTheyAreServed)
{
    auto* victim = new TBlock(&Form);
    victim->SetParent(Panel);
    Block->OnPaint = [&] { delete std::exchange(victim, nullptr); };
    EXPECT_EQ(CommandsOf<TLineCommand>(Form.Picture()).size(), 1U);
    Block->OnClick = [this] { delete std::exchange(Block, nullptr); };
    Form.DispatchMouseDown(mbLeft, {}, 16, 27);
    EXPECT_EQ(Site.Under, Block);
    Form.DispatchMouseUp(mbLeft, {}, 16, 27);
    EXPECT_EQ(Panel->Controls().size(), 0U);
    Form.DispatchMouseMove({}, 16, 27);
    EXPECT_EQ(Site.Under, Panel);
    Panel->SetFocus();
    delete Panel;
    EXPECT_EQ(Form.Focused(), nullptr);
    EXPECT_EQ(Site.Under, nullptr);
}

TEST_F(TWindow, MouseGoesToTheOneInFrontAndStaysWhilePressed)
{
    const auto log = [this](const char* name) {
        return [this, name](TMouseButton, TShiftState, int x, int y) {
            Log += name + std::to_string(x) + "," + std::to_string(y) + " ";
        };
    };
    Block->OnMouseDown = log("down");
    Block->OnMouseUp = log("up");
    Block->OnMouseMove = [this](TShiftState, int x, int) { Log += "move" + std::to_string(x) + " "; };
    Block->OnClick = [this] { Log += "click "; };
    Block->OnDblClick = [this] { Log += "double "; };
    Panel->OnMouseMove = [this](TShiftState, int, int) { Log += "panel "; };
    Form.DispatchMouseDown(mbLeft, {}, 16, 28);
    Form.DispatchMouseMove({}, 90, 70);
    Form.DispatchMouseUp(mbLeft, {}, 17, 28);
    EXPECT_EQ(Logged(), "down1,2 move75 click up2,2 ");
    TShiftState twice;
    twice.Double = true;
    Form.DispatchMouseDown(mbLeft, twice, 16, 28);
    Form.DispatchMouseUp(mbLeft, {}, 16, 28);
    EXPECT_EQ(Logged(), "double down1,2 up1,2 ");
    // No click when the release is elsewhere, or of another button; captured until the last button is up.
    Form.DispatchMouseDown(mbLeft, {}, 16, 28);
    Form.DispatchMouseDown(mbRight, {}, 16, 28);
    Form.DispatchMouseUp(mbLeft, {}, 80, 70);
    Form.DispatchMouseUp(mbRight, {}, 80, 70);
    EXPECT_EQ(Logged(), "down1,2 down1,2 up65,44 up65,44 ");
    Block->SetEnabled(false);
    Form.DispatchMouseMove({}, 16, 28);
    Block->SetEnabled(true);
    Block->SetVisible(false);
    Form.DispatchMouseMove({}, 16, 28);
    EXPECT_EQ(Logged(), "panel panel ");
}

TEST_F(TWindow, WheelAndPopupGoUpToWhoWantsThemAndKeysToTheFocus)
{
    Form.OnMouseWheel = [this](TShiftState, int delta, int x, int) { Log += std::to_string(delta + x) + " "; };
    Panel->OnContextPopup = [this](TPoint at) { Log += "popup" + std::to_string(at.X) + " "; };
    Form.OnContextPopup = [this](TPoint) { Log += "form "; };
    Form.DispatchMouseWheel({}, 120, 16, 28);
    Form.DispatchContextPopup(16, 28);
    Form.DispatchContextPopup(1, 1);
    TComponent menu(nullptr);
    Block->SetPopupMenu(&menu);
    Form.DispatchContextPopup(16, 28);
    EXPECT_EQ(Logged(), "136 popup6 form ");
    Form.OnKeyDown = [this](int key, TShiftState) { Log += "form" + std::to_string(key) + " "; };
    Panel->OnKeyDown = [this](int key, TShiftState) { Log += "panel" + std::to_string(key) + " "; };
    Form.DispatchKeyDown('a', {});
    Panel->SetFocus();
    Form.DispatchKeyDown('b', {});
    Panel->SetEnabled(false);
    Panel->SetFocus();
    Form.DispatchKeyDown('c', {});
    EXPECT_EQ(Logged(), "form97 panel98 form99 ");
}

}  // namespace
}  // namespace plotkit
