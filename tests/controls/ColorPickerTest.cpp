#include <cmath>
#include <limits>

#include "ControlsFixture.h"
#include "controls/KxColorBtn.h"
#include "controls/KxColorPickCombo.h"

namespace plotkit {
namespace {

constexpr TColor Teal = RgbColor(0x12, 0x80, 0x7F);

TEST(Colors, TextAndBack)
{
    const std::vector<std::pair<const char*, std::optional<TColor>>> cases{
        {"#12807F", Teal},
        {"12807f", Teal},
        {" 18, 128 ,127 ", Teal},
        {"rgb(18,128,127)", Teal},
        {"#fff", clWhite},
        {"bluish GREEN", RgbColor(0, 0x9E, 0x73)},
        {"Window text", clWindowText},
        {"#12807", {}},
        {"1,2,256", {}},
        {"1,2,3,4", {}},
        {"1,2", {}},
        {"#", {}},
        {"rgb(", {}},
        {"", {}},
        {"#12\xFF"
         "807",
         {}},
    };
    for (const auto& [text, color] : cases)
        EXPECT_EQ(ParseColor(text), color) << text;
    for (const auto offer : {DistinctColors(), PlainColors(), DesktopColors()})
        for (const TKxNamedColor& one : offer)
            EXPECT_EQ(ParseColor(ColorName(one.Color)), one.Color) << one.Name;
}

/// Linear light of a colour as an eye without one kind of cones has it (Machado, Oliveira and Fernandes 2009), at full
/// strength: `eye` 0 to 2 lack red, green and blue cones.
std::array<double, 3> SeenBy(std::size_t eye, TColor color)
{
    constexpr double Eyes[3][3][3] = {
        {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}},
        {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}},
        {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};
    const auto linear = [](std::uint8_t part) { return std::pow(part / 255.0, 2.2); };
    const std::array<double, 3> light{linear(RedOf(color)), linear(GreenOf(color)), linear(BlueOf(color))};
    std::array<double, 3> seen{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            seen[i] += Eyes[eye][i][k] * light[k];
    for (double& part : seen)
        part = std::pow(std::max(part, 0.0), 1 / 2.2);
    return seen;
}

TEST(Colors, AreToldApartByAllEyes)
{
    const auto colors = DistinctColors();
    for (std::size_t eye = 0; eye < 3; ++eye)
        for (std::size_t i = 0; i < colors.size(); ++i)
            for (std::size_t k = 0; k < i; ++k) {
                const auto a = SeenBy(eye, colors[i].Color), b = SeenBy(eye, colors[k].Color);
                EXPECT_GT(std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), 0.1)
                    << colors[i].Name << ", " << colors[k].Name << " for eye " << eye;
            }
}

TEST(ColorPickerForm, PartsFollowEachOther)
{
    TFakeHost fake;
    const THostGuard guard(fake);
    TKxRecentColors recent(nullptr);
    TKxColorPickerForm form(nullptr);
    form.SetRecent(&recent);
    form.Open(RgbColor(0xE6, 0x9F, 0));
    EXPECT_EQ(form.TextEdit().GetText(), "Orange");
    EXPECT_EQ(form.Swatches(TKxColorPickerForm::rwDistinct).GetItemIndex(), 1);
    form.TextEdit().SelectAll();
    for (const char key : std::string_view("#12807F"))
        form.DispatchKeyDown(key, {});
    EXPECT_EQ(form.GetSelected(), Teal);
    EXPECT_EQ(form.TextEdit().GetText(), "#12807F") << "what is typed stays";
    EXPECT_EQ(form.PartEdit(1).GetValue(), 128);
    form.PartEdit(0).SetFocus();
    form.DispatchKeyDown(kyUp, {});
    EXPECT_EQ(form.TextEdit().GetText(), "#13807F");
    form.DispatchKeyDown(kyTab, {});
    EXPECT_EQ(form.Focused(), &form.PartEdit(1));
    form.DispatchKeyDown(kyEnter, {});
    EXPECT_FALSE(form.IsShown());
    EXPECT_EQ(recent.GetText(), "#13807F");
    form.Open(clWindowText);
    EXPECT_EQ(form.Swatches(TKxColorPickerForm::rwRecent).ItemCount(), 1);
    EXPECT_EQ(form.GetSelected(), clWindowText) << "it still follows the desktop";
    const TRect row = form.Swatches(TKxColorPickerForm::rwRecent).Bounds();
    form.DispatchMouseDown(mbLeft, {}, row.Left + 10, row.Top + 10);
    form.DispatchMouseUp(mbLeft, {}, row.Left + 10, row.Top + 10);
    EXPECT_EQ(form.PartEdit(0).GetValue(), 19);
    form.DispatchKeyDown(kyEscape, {});
    EXPECT_EQ(form.GetSelected(), clWindowText);
    for (int i = 0; i < 9; ++i)
        recent.Use(RgbColor(1, 1, static_cast<std::uint8_t>(i)));
    recent.SetText(recent.GetText() + ";x;;#010105");
    EXPECT_EQ(recent.GetText(), "#010108;#010107;#010106;#010105;#010104;#010103;#010102;#010101");
}

TEST(ColorBtn, OpensTheWindow)
{
    TOnForm<TKxColorBtn> form;
    int changes = 0;
    form.Control->OnChange = [&] { ++changes; };
    form.Control->SetSelected(Teal);
    form.Down(10);
    EXPECT_TRUE(form.Control->IsPressed());
    form.Up(10);
    TKxColorPickerForm& window = form.Control->PickerForm();
    ASSERT_TRUE(window.IsShown());
    window.DispatchKeyDown(kyEnter, {});
    EXPECT_EQ(changes, 0);
    form.Press(kyEnter);
    window.SetSelected(clRed);
    window.Accept();
    EXPECT_EQ(form.Control->GetSelected(), clRed);
    EXPECT_EQ(changes, 1);
}

TEST(ColorPickCombo, OffersAndKeepsAnyColour)
{
    TOnForm<TKxColorPickCombo> form;
    TKxColorPickCombo& combo = *form.Control;
    TKxRecentColors recent(nullptr);
    int changes = 0;
    combo.OnChange = [&] { ++changes; };
    combo.SetRecent(&recent);
    combo.SetFocus();
    const int offered = combo.ItemCount();
    combo.SetSelected(Teal);
    EXPECT_EQ(combo.Items()[combo.GetItemIndex()], "#12807F");
    EXPECT_EQ(combo.ItemCount(), offered + 1);
    form.Press(kyHome);
    EXPECT_EQ(combo.GetSelected(), clBlack);
    form.Press(kyEnd);
    EXPECT_EQ(combo.GetSelected(), clBlack) << "a key alone opens no window";
    combo.DropDown();
    form.Press(kyEnd);
    form.Press(kyEnter);
    ASSERT_TRUE(combo.PickerForm().IsShown());
    combo.PickerForm().SetSelected(Teal);
    combo.PickerForm().Accept();
    EXPECT_EQ(combo.GetSelected(), Teal);
    recent.Use(RgbColor(1, 2, 3));
    combo.DropDown();
    EXPECT_EQ(combo.DropList().Items()[16], "#010203");
    EXPECT_EQ(combo.DropList().Items()[17], "#12807F");
    EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace plotkit
