#include "graph/KxLabel.h"

#include <gtest/gtest.h>

#include "graph/GraphClasses.h"
#include "graph/KxResultLabel.h"
#include "host/Form.h"
#include "host/List.h"
#include "host/Streaming.h"

namespace plotkit {
namespace {

/// Size 9 is 12 pixels high and 6 a character.
std::unique_ptr<TKxLabel> MakeLabel()
{
    auto label = std::make_unique<TKxLabel>(nullptr);
    label->GetFont().SetSize(9);
    return label;
}

TEST(LabelTest, TheAnchorStandsWhileTheTextGrows)
{
    const std::vector<std::tuple<TAlignment, int, int, int, int>> cases{{taLeftJustify, 0, 200, 200, 10},
                                                                        {taRightJustify, 0, 170, 158, 41},
                                                                        {taCenter, 0, 185, 179, 25},
                                                                        {taRightJustify, 900, 200, 200, 10},
                                                                        {taCenter, -100, 200, 200, 10}};
    for (const auto& [alignment, angle, shortLeft, longLeft, xOfBounds] : cases) {
        const auto label = MakeLabel();
        label->SetAlignment(alignment);
        label->SetAngle(angle);
        label->SetCaption("12345");
        label->SetXPosition(200);
        EXPECT_EQ(label->GetLeft(), shortLeft) << alignment;
        label->SetCaption("1234567");
        EXPECT_EQ(label->GetLeft(), longLeft) << alignment;
        EXPECT_EQ(label->GetXPosition(), 200) << alignment;
        label->SetBounds(10, 20, 31, 40);
        EXPECT_EQ(label->GetXPosition(), xOfBounds) << alignment;
    }
}

TEST(LabelTest, PenAndSizeFollowTheAngleUnlessTheyAreFixed)
{
    // 60 by 12 pixels; sine and cosine of 30 degrees are 0.5 and 0.866. Angle, kept, pen, size.
    const std::vector<std::array<int, 6>> cases{
        {0, 0, 0, 0, 60, 12},          {900, 900, 0, 60, 12, 60},      {1800, 1800, 60, 12, 60, 12},
        {2700, 2700, 12, 0, 12, 60},   {300, 300, 0, 30, 58, 40},      {1200, 1200, 30, 58, 40, 58},
        {2100, 2100, 58, 10, 58, 40},  {3000, 3000, 10, 0, 40, 58},    {3600, 0, 0, 0, 60, 12},
        {-300, -300, 0, -30, 46, -20}, {-3900, -300, 0, -30, 46, -20}, {3900, 300, 0, 30, 58, 40},
    };
    for (const auto& [angle, kept, penX, penY, width, height] : cases) {
        const auto label = MakeLabel();
        label->SetBounds(7, 8, 0, 0);
        label->SetAngle(angle);
        EXPECT_EQ(label->GetAngle(), kept);
        label->SetCaption("1234567890");
        label->SetAutoSize(false);
        for (const bool changed : {false, true}) {
            if (changed) {
                label->SetCaption("abc");
                label->SetAngle(1800);
            }
            EXPECT_EQ(label->PenX(), penX) << angle;
            EXPECT_EQ(label->PenY(), penY) << angle;
            EXPECT_EQ(label->Bounds(), (TRect{7, 8, 7 + width, 8 + std::max(height, 0)})) << angle;
        }
    }
}

TEST(LabelTest, PaintsTheCaptionOnItsColour)
{
    TForm form(nullptr);
    TKxLabel label(&form);
    label.SetParent(&form);
    label.GetFont().SetSize(9);
    label.SetColor(clBlue);
    label.SetAngle(900);
    label.SetCaption("a\\bc");
    label.SetBounds(20, 30, 12, 12);
    const auto painted = form.Picture().Commands;  // after the form's own colour
    ASSERT_EQ(painted.size(), 4U);
    EXPECT_EQ(std::get<TRectangleCommand>(painted[1]).Box, (TRect{20, 30, 32, 42}));
    const TTextRun& first = std::get<TTextCommand>(painted[2]).Run;
    EXPECT_EQ(first.At, (TPoint{20, 42}));
    EXPECT_EQ(first.Font.Angle, 900);
    EXPECT_EQ(first.Background.Style, bsClear);
    EXPECT_EQ(std::get<TTextCommand>(painted[3]).Run.At, (TPoint{20, 36}));
    label.SetTransparent(true);
    EXPECT_EQ(form.Picture().Commands.size(), 3U);
}

TEST(LabelTest, AnchorsSurviveSavingAndLoading)
{
    for (const bool autoSize : {true, false})
        for (const TAlignment alignment : {taLeftJustify, taRightJustify, taCenter}) {
            TForm form(nullptr), again(nullptr);
            TKxLabel label(&form);
            label.SetName("Label1");
            label.SetParent(&form);
            label.SetAlignment(alignment);
            label.SetCaption("Some text");
            label.SetXPosition(0);
            label.SetAutoSize(autoSize);
            EXPECT_TRUE(ReadIntoComponent(WriteComponentTree(form), GraphClasses(), again).empty());
            const auto* read = dynamic_cast<TKxLabel*>(again.FindComponent("Label1"));
            ASSERT_TRUE(read);
            EXPECT_EQ(read->Bounds(), label.Bounds()) << alignment;
            EXPECT_EQ(read->GetXPosition(), 0) << alignment;
        }
}

class TTestSource : public TComponent, public TKxResultSource
{
public:
    using TComponent::TComponent;
    ~TTestSource() override { BeginDestroy(); }

    std::string ResultText(const std::string& identifier) const override
    {
        const auto found = Results.find(identifier);
        return found == Results.end() ? "..." : found->second;
    }
    void AddResultLabel(TKxResultLabel* label) override { Labels.Add(label); }
    void RemoveResultLabel(TKxResultLabel* label) override { Labels.Remove(label); }

    std::map<std::string, std::string> Results{{"Slope", "1.23456789"}, {"Comma", "2,71828"}, {"Text", "not enough"}};
    TList<TKxResultLabel> Labels;
};

TEST(ResultLabelTest, ShowsNumbersWithDigitsAndTextsAsTheyStand)
{
    TFakeHost host;
    host.Formats.DecimalSeparator = ',';
    const THostGuard guard(host);
    TTestSource source(nullptr);
    TKxResultLabel label(nullptr);
    label.SetSeries(&source);
    const std::vector<std::tuple<const char*, int, const char*>> cases{
        {"Slope", 0, "1,23456789"}, {"Slope", 4, "1,23"},  {"Comma", 4, "2,72"},
        {"Text", 4, "not enough"},  {"Nothing", 4, "..."}, {"", 4, "..."}};
    for (const auto& [identifier, digits, shown] : cases) {
        label.SetIdentifier(identifier);
        label.SetDigits(digits);
        EXPECT_EQ(label.GetCaption(), shown) << identifier;
    }
    label.SetIdentifier("Slope");
    source.Results["Slope"] = "7";
    EXPECT_EQ(label.GetCaption(), "1,23");
    label.SetResult();
    EXPECT_EQ(label.GetCaption(), "7");
    for (const auto& [digits, kept] : {std::pair{25, 18}, {-3, 0}}) {
        label.SetDigits(digits);
        EXPECT_EQ(label.GetDigits(), kept);
    }
}

TEST(ResultLabelTest, TheLinkEndsWithEitherSide)
{
    auto source = std::make_unique<TTestSource>(nullptr);
    TTestSource other(nullptr);
    auto label = std::make_unique<TKxResultLabel>(nullptr);
    label->SetSeries(&other);
    label->SetSeries(source.get());
    EXPECT_EQ(other.Labels.Count(), 0);
    source.reset();
    EXPECT_EQ(label->GetSeries(), nullptr);
    EXPECT_EQ(label->GetCaption(), "...");
    label->SetSeries(&other);
    EXPECT_EQ(other.Labels.Count(), 1);
    label.reset();
    EXPECT_EQ(other.Labels.Count(), 0);
}

}  // namespace
}  // namespace plotkit
