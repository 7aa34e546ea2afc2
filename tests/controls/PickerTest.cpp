#include "ControlsFixture.h"
#include "controls/KxSelectBrushStyle.h"
#include "controls/KxSelectLine.h"
#include "controls/KxSelectPoints.h"
#include "support/Commands.h"

namespace plotkit {
namespace {

template <class T>
struct TPickerTest : testing::Test
{};
using TBrushPickers = testing::Types<TKxBrushStylesList, TKxBrushStylesCombo>;
TYPED_TEST_SUITE(TPickerTest, TBrushPickers);

TYPED_TEST(TPickerTest, SelectsByPlace)
{
    TypeParam picker(nullptr);
    EXPECT_EQ(picker.GetItemIndex(), -1);
    EXPECT_EQ(picker.GetBrushStyle(), bsSolid);
    EXPECT_EQ(picker.GetItemIndex(), 0);
    picker.SetBrushStyle(bsHorizontal);
    EXPECT_EQ(picker.GetItemIndex(), 1);
    picker.SetShowBSClear(true);
    EXPECT_EQ(picker.GetBrushStyle(), bsClear);
    picker.SetShowBSClear(false);
    EXPECT_EQ(picker.GetBrushStyle(), bsHorizontal);
    picker.SetBrushStyle(bsClear);
    EXPECT_EQ(picker.GetBrushStyle(), bsSolid);
    picker.SetBrushStyle(bsDiagonalCross);
    EXPECT_EQ(picker.GetBrushStyle(), bsDiagonalCross);
    picker.SetShowBSClear(true);
    picker.SetBrushStyle(bsDiagonalCross);
    picker.SetShowBSClear(false);
    EXPECT_EQ(picker.GetBrushStyle(), bsSolid) << "the eighth place is gone";
}

TEST(LinePicker, DrawsEachStyle)
{
    for (const double scale : {1.0, 2.0}) {
        TOnForm<TKxLineStylesList> form;
        form.Control->SetLineColor(clBlue);
        form.Form.SetPixelScale(scale);
        const auto lines = CommandsOf<TLineCommand>(form.Control->Picture());
        ASSERT_EQ(lines.size(), 2U) << "an edit's height holds one item and a half";
        const int s = static_cast<int>(scale);
        EXPECT_EQ(lines[1].Pen, (TPenState{clBlue, psDash, s == 1 ? 0 : 2}));
        EXPECT_EQ(lines[1].From, (TPoint{3 * s, 25 * s}));
        EXPECT_EQ(lines[1].To, (TPoint{97 * s, 25 * s}));
    }
}

TEST(PointPicker, FourColumnsByKeysAndMouse)
{
    TOnForm<TKxPointSymbolsList> form;
    TKxPointSymbolsList& list = *form.Control;
    list.SetBounds(10, 20, 102, 66);
    int changes = 0;
    list.OnChange = [&] { ++changes; };
    EXPECT_EQ(list.ItemRect(5), (TRect{26, 17, 51, 33}));
    EXPECT_EQ(CommandsOf<TPolygonCommand>(form.Form.Picture()).size(), 8U) << "stars, diamonds and triangles";
    form.Form.DispatchMouseDown(mbLeft, {}, 10 + 60, 20 + 40);
    form.Form.DispatchMouseUp(mbLeft, {}, 10 + 60, 20 + 40);
    EXPECT_EQ(list.GetPointSymbol(), SyDiamond);
    for (const auto& [key, symbol] : std::vector<std::pair<int, TKxPointSymbol>>{{kyRight, SyNabla},
                                                                                 {kyRight, SyNabla},
                                                                                 {kyDown, SyNablaFilled},
                                                                                 {kyDown, SyNablaFilled},
                                                                                 {kyHome, SyPoint},
                                                                                 {kyLeft, SyPoint}}) {
        form.Press(key);
        EXPECT_EQ(list.GetPointSymbol(), symbol);
    }
    EXPECT_EQ(changes, 4);
    list.SetHeight(34);  // two rows: eight columns, of which four are seen
    form.Press(kyEnd);
    EXPECT_EQ(list.GetTopIndex(), 8);
    EXPECT_EQ(list.ItemAtPos(3, 3), 8);
    form.Form.DispatchMouseWheel({}, 120, 20, 30);
    EXPECT_EQ(list.GetTopIndex(), 6);
}

TEST(PointPicker, DropsDown)
{
    TOnForm<TKxPointSymbolsCombo> form;
    TKxPointSymbolsCombo& combo = *form.Control;
    std::string log;
    combo.OnChange = [&] { log += "change "; };
    combo.OnDropDown = [&] { log += "down "; };
    combo.OnCloseUp = [&] { log += "up "; };
    combo.SetPointSymbol(SyCross);
    form.Down(50);
    form.Up(50);
    TCustomListBox& list = combo.DropList();
    EXPECT_EQ(list.Bounds(), (TRect{0, 0, 100, 130}));
    list.DispatchMouseMove({}, 5, 40);
    list.DispatchMouseDown(mbLeft, {}, 5, 40);
    list.DispatchMouseUp(mbLeft, {}, 5, 40);
    EXPECT_EQ(combo.GetPointSymbol(), SyX);
    EXPECT_EQ(CommandsOf<TLineCommand>(combo.Picture()).size(), 4U) << "an X is four lines";
    TShiftState alt;
    alt.Alt = true;
    form.Press(kyDown, alt);
    list.DispatchKeyDown(kyEnd, {});
    form.Press(kyEscape);
    EXPECT_EQ(combo.GetPointSymbol(), SyX);
    form.Press(' ');
    form.Press(kyUp);
    form.Press(kyEnter);
    EXPECT_EQ(combo.GetPointSymbol(), SyCross);
    form.Press(kyPageDown);
    EXPECT_EQ(log, "down up change down up down up change change ");
}

}  // namespace
}  // namespace plotkit
