#include <gtest/gtest.h>

#include "host/Errors.h"
#include "host/Form.h"
#include "host/Panel.h"
#include "host/Streaming.h"

namespace plotkit {
namespace {

class TProbe : public TGraphicControl
{
public:
    using TGraphicControl::TGraphicControl;
    int FontChanges = 0, ScaleChanges = 0;

protected:
    void CMFontChanged() override { ++FontChanges; }
    void CMScaleChanged() override { ++ScaleChanges; }
};

TEST(Control, LeavesTheOldParentAndOutlivesIt)
{
    TPanel second(nullptr), inner(nullptr);
    TProbe free(nullptr);
    {
        TPanel first(nullptr);
        free.SetParent(&second);
        free.SetParent(&first);
        EXPECT_TRUE(second.Controls().empty());
        (new TProbe(&second))->SetParent(&first);
    }
    EXPECT_EQ(free.Parent(), nullptr);
    EXPECT_TRUE(second.Components().empty());  // the parent took the owned one with it
    inner.SetParent(&second);
    for (TPanel* below : {&second, &inner})
        EXPECT_THROW(second.SetParent(below), EComponentError);
}

TEST(Control, WindowsStandInFrontOfAllOthers)
{
    TPanel panel(nullptr);
    TProbe a(nullptr), b(nullptr);
    TPanel w(nullptr), v(nullptr);
    for (TControl* control : std::initializer_list<TControl*>{&a, &w, &b, &v})
        control->SetParent(&panel);
    using TOrder = std::vector<TControl*>;
    EXPECT_EQ(panel.Controls(), (TOrder{&a, &b, &w, &v}));
    a.BringToFront();
    v.SendToBack();
    EXPECT_EQ(panel.Controls(), (TOrder{&b, &a, &v, &w}));
    a.SendToBack();
    v.BringToFront();
    EXPECT_EQ(panel.Controls(), (TOrder{&a, &b, &w, &v}));
}

TEST(Control, FollowsColourAndFontUntilItHasItsOwn)
{
    TForm form(nullptr);
    form.SetName("Form1");
    auto* middle = new TPanel(&form);
    middle->SetParent(&form);
    middle->SetParentColor(true);
    middle->SetName("Middle");
    auto* panel = new TPanel(&form);
    panel->SetName("Panel");
    panel->SetParent(middle);
    for (const bool color : {true, false})
        for (const bool font : {true, false}) {
            form.SetColor(clRed);
            form.GetFont().SetSize(20);
            panel->SetColor(clBlue);
            panel->GetFont().SetSize(5);
            EXPECT_FALSE(panel->GetParentColor() || panel->GetParentFont());
            panel->SetParentColor(color);
            panel->SetParentFont(font);
            form.SetColor(clWhite);
            form.GetFont().SetSize(9);
            const std::string text = WriteComponentTree(form);
            const TReadResult result = ReadComponentTree(text, HostClasses());
            const std::unique_ptr<TComponent> root(result.Root);
            ASSERT_TRUE(root && result.Problems.empty());
            EXPECT_EQ(WriteComponentTree(*root), text);
            for (const TControl* one : {panel, dynamic_cast<TPanel*>(root->FindComponent("Panel"))}) {
                EXPECT_EQ(one->GetParentColor(), color);
                EXPECT_EQ(one->GetColor(), color ? clWhite : clBlue);
                EXPECT_EQ(one->GetParentFont(), font);
                EXPECT_EQ(one->GetFont().GetSize(), font ? 9 : 5);
            }
        }
}

TEST(Control, AlignsSidesFirstAndTheRestLast)
{
    TForm form(nullptr);
    form.SetBounds(0, 0, 200, 100);
    const std::vector<std::tuple<TAlign, int, int, TRect>> cases{{alClient, 1, 1, {30, 10, 180, 85}},
                                                                 {alLeft, 30, 1, {0, 10, 30, 85}},
                                                                 {alRight, 20, 1, {180, 10, 200, 85}},
                                                                 {alTop, 1, 10, {0, 0, 200, 10}},
                                                                 {alBottom, 1, 15, {0, 85, 200, 100}}};
    std::vector<TPanel*> panels;
    for (const auto& [align, width, height, placed] : cases) {
        panels.push_back(new TPanel(&form));
        panels.back()->SetBounds(0, 0, width, height);
        panels.back()->SetAlign(align);
        panels.back()->SetParent(&form);
    }
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(panels[i]->Bounds(), std::get<TRect>(cases[i])) << i;
    form.DisableAlign();
    form.DisableAlign();
    form.SetWidth(300);
    panels[3]->SetVisible(false);
    form.EnableAlign();
    EXPECT_EQ(panels[0]->Bounds(), (TRect{30, 10, 180, 85}));
    form.EnableAlign();
    EXPECT_EQ(panels[0]->Bounds(), (TRect{30, 0, 280, 85}));
}

TEST(Control, AnotherResolutionAndBackChangesNothing)
{
    TForm form(nullptr);
    form.SetBounds(10, 20, 333, 111);
    auto* panel = new TPanel(&form);
    panel->SetParent(&form);
    panel->SetBounds(7, -3, 101, 55);
    auto* probe = new TProbe(&form);
    probe->SetParent(panel);
    probe->SetBounds(1, 0, 13, 17);
    for (const double scale : {1.1, 2.0, 0.3, 4.17, 1.0}) {
        form.SetPixelScale(scale);
        EXPECT_EQ(panel->GetWidth(), ScalePixels(101, scale));
        EXPECT_EQ(probe->GetFont().State().PixelsPerInch, 96 * scale);
    }
    EXPECT_EQ(form.Bounds(), (TRect{10, 20, 343, 131}));
    EXPECT_EQ(panel->Bounds(), (TRect{7, -3, 108, 52}));
    EXPECT_EQ(probe->Bounds(), (TRect{1, 0, 14, 17}));
    EXPECT_EQ(probe->ScaleChanges, 5);
    EXPECT_TRUE(probe->GetParentFont());
    EXPECT_EQ(probe->FontChanges, 0);  // a resolution is no change of the font's look

    // What moves at another resolution keeps the other sides' exact places.
    form.SetPixelScale(1.5);
    panel->SetLeft(20);
    form.SetPixelScale(1);
    EXPECT_EQ(panel->Bounds(), (TRect{13, -3, 114, 52}));

    // A part that comes into a tree takes its resolution, and leaves it again.
    form.SetPixelScale(2);
    TProbe guest(nullptr);
    guest.SetBounds(3, 4, 5, 6);
    guest.SetParent(panel);
    EXPECT_EQ(guest.Bounds(), (TRect{6, 8, 16, 20}));
    guest.SetParent(nullptr);
    EXPECT_EQ(guest.Bounds(), (TRect{3, 4, 8, 10}));
    EXPECT_THROW(form.SetPixelScale(0), ERangeError);
    guest.SetBounds(2147483600, -2147483647, 2147483647, -5);
    EXPECT_EQ(guest.Bounds(), (TRect{2147483600, -2147483647, 2147483647, -2147483647}));
}

}  // namespace
}  // namespace plotkit
