// A look is changed in steps that lead back to the very same saved look.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>

#include "design/LookHistory.h"
#include "design/LookPages.h"
#include "design/LookTree.h"
#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Errors.h"
#include "host/Form.h"
#include "series/KxSeries.h"
#include "support/AllClasses.h"

namespace plotkit {
namespace {

class TLook : public testing::Test
{
protected:
    TLook() { Read(); }

    void Read()
    {
        const TReadResult read =
            ReadComponentTree(ReadWholeFile(PLOTKIT_SOURCE_DIR "/tests/corpus/regression_results.form"), AllClasses());
        Form.reset(dynamic_cast<TForm*>(read.Root));
        Graph = dynamic_cast<TKx2DGraph*>(Form->FindComponent("Graph1"));
        Form->Picture();
    }

    TComponent& Part(std::string_view name) const { return *Form->FindComponent(name); }

    std::string Saved() const
    {
        TKxIniList list;
        Graph->World().ReorderSeriesList();
        Graph->SaveOutfit("G", list);
        return list.Text();
    }

    std::unique_ptr<TForm> Form;
    TKx2DGraph* Graph = nullptr;
};

/// Another value that an editor of the row could give.
TLookValue OtherValue(TKx2DGraph& graph, TComponent& part, const std::string& path, const TLookRow& row,
                      std::mt19937& random)
{
    const TLookProperty property = FindLookProperty(part, path);
    const auto number = [&] {
        return std::uniform_real_distribution(std::max(row.Min, -1000.0), std::min(row.Max, 1000.0))(random);
    };
    switch (property.Row->Kind) {
        case pkBoolean:
            return TPropertyValue(random() % 2 == 0);
        case pkReal:
            return TPropertyValue(number());
        case pkText:
            return TPropertyValue("text " + std::to_string(random() % 100));
        case pkReference: {
            const auto candidates = LookCandidates(graph, part, path);
            return candidates[random() % candidates.size()];
        }
        case pkEnumeration:
            return TPropertyValue(static_cast<std::int64_t>(random() % property.Row->ValueNames.size()));
        case pkColor:
            return TPropertyValue(static_cast<std::int64_t>(random() % 0x1000000));
        default:
            return TPropertyValue(static_cast<std::int64_t>(number()));
    }
}

TEST_F(TLook, EveryRowOfThePagesBelongsToAClass)
{
    std::set<std::pair<std::string, const TLookRow*>> missing, found;
    std::vector<std::unique_ptr<TComponent>> parts;
    for (const TClassInfo* info : AllClasses())
        if (info->Create && info->Name != "TKxDrawingWorld")
            parts.emplace_back(info->Create(nullptr));
    for (const auto& part : parts)
        for (const TLookPage& page : LookPages(*part))
            for (const TLookRow& row : page.Rows) {
                const auto key = std::pair(page.PathOf(row), &row);
                const TLookProperty property = FindLookProperty(*part, key.first);
                (property ? found : missing).insert(key);
                if (!property)
                    continue;
                if (!row.Choices.empty()) {
                    EXPECT_EQ(row.Choices.size(), property.Row->ValueNames.size()) << key.first;
                }
                const std::string needs(row.Needs);
                EXPECT_TRUE(needs.empty() || FindLookProperty(*part, std::string(page.Prefix) + needs)) << needs;
            }
    for (const auto& key : missing)
        EXPECT_TRUE(found.contains(key)) << "no class has " << key.first;
}

TEST_F(TLook, EveryPublishedPropertyIsOnAPageOrLeftOutForAReason)
{
    const std::set<std::string> leftOut{
        "Left",
        "Top",
        "Width",
        "Height",
        "Align",  // decided by the layout unless a page has them
        "Cursor",
        "Hint",
        "ShowHint",
        "Enabled",
        "AutoZoom",  // how a program works, not how it looks
        "Font.Charset",
        "Font.Pitch",
        "ParentFont",
        "ParentColor",  // follow from the font and colour that are chosen
        "CaptionFont.Charset",
        "CaptionFont.Pitch",
        "TitleFont.Charset",
        "TitleFont.Pitch",
        "PrimaryXAxis",
        "PrimaryYAxis",  // would send the axes to other sides
        "DoCovariance",  // results, not the look
    };
    const std::set<std::string> ofOthers{"TKxLabel.AutoSize", "TKxResultLabel.AutoSize", "TKx2DGraph.Visible"};
    for (const TClassInfo* info : AllClasses()) {
        const std::unique_ptr<TComponent> part(info->Create ? info->Create(nullptr) : nullptr);
        const auto pages = part ? LookPages(*part) : std::vector<TLookPage>();
        std::set<std::string> shown;
        for (const TLookPage& page : pages)
            for (const TLookRow& row : page.Rows)
                shown.insert(page.PathOf(row));
        for (const TLookPath& path : pages.empty() ? std::vector<TLookPath>() : LookPaths(*part)) {
            const std::string name = std::string(info->Name) + "." + path.Text;
            const bool isOfPanel = name.starts_with("TKx2DGraph.Font.");  // nothing is written in it
            EXPECT_TRUE(shown.contains(path.Text) || leftOut.contains(path.Text) || ofOthers.contains(name) ||
                        isOfPanel)
                << name;
        }
    }
}

TEST_F(TLook, EditsUndoneGiveTheSameSavedLookAndRedoneTheChangedOne)
{
    for (const unsigned seed : {1, 2, 3, 4, 5, 6, 7, 8, 87, 150}) {
        Read();
        std::mt19937 random(seed);
        TLookHistory history(*Graph);
        std::vector<std::string> saved{Saved()};
        for (int edit = 0; edit < 40; ++edit) {
            const auto parts = LookParts(*Graph);
            TComponent& part = *parts[random() % parts.size()];
            const auto pages = LookPages(part);
            const TLookPage& page = pages[random() % pages.size()];
            const TLookRow& row = page.Rows[random() % page.Rows.size()];
            if (!HasLookRow(part, page, row) || page.PathOf(row) == "Expression")
                continue;
            const std::string path = page.PathOf(row);
            const std::string undo = history.UndoText();
            history.Change(part, path, OtherValue(*Graph, part, path, row, random));
            if (history.UndoText() != undo || Saved() != saved.back())
                saved.push_back(Saved());
        }
        Form->Picture();
        const std::string changed = Saved();
        history.Revert();
        EXPECT_FALSE(history.CanUndo());
        Form->Picture();
        EXPECT_EQ(Saved(), saved.front()) << "seed " << seed;
        while (history.CanRedo())
            history.Redo();
        Form->Picture();
        EXPECT_EQ(Saved(), changed) << "redone, seed " << seed;
    }
}

TEST_F(TLook, StepsJoinAreNamedAndApplied)
{
    TLookHistory history(*Graph);
    TComponent& series = Part("Measured");
    const auto width = [](std::int64_t value) { return TLookValue(TPropertyValue(value)); };
    history.Change(series, "LineStyle.Width", width(2), true);
    history.Change(series, "LineStyle.Width", width(3), true);
    EXPECT_EQ(history.UndoText(), "Width (Line) of Series: measured");
    history.Apply();
    history.Change(series, "LineStyle.Width", width(4), true);
    history.Undo();
    EXPECT_EQ(FindLookProperty(series, "LineStyle.Width").Value(), width(3));
    history.Undo();
    EXPECT_EQ(FindLookProperty(series, "LineStyle.Width").Value(), width(1));
    EXPECT_FALSE(history.IsApplied());
    history.Revert();
    EXPECT_EQ(FindLookProperty(series, "LineStyle.Width").Value(), width(3));
    EXPECT_TRUE(history.IsApplied());
    EXPECT_THROW(history.Change(series, "LineStyle.Weight", width(1)), EConvertError);
}

TEST_F(TLook, AFailedChangeAndAVanishedPartLoseNothing)
{
    TLookHistory history(*Graph);
    const std::string before = Saved();
    EXPECT_THROW(history.Perform("Fails",
                                 [&] {
                                     Graph->SetCaption("half");
                                     throw EConvertError("no");
                                 }),
                 EConvertError);
    EXPECT_EQ(Saved(), before);
    EXPECT_FALSE(history.CanUndo());

    history.Change(Part("Start"), "Caption", TPropertyValue(std::string("a")));
    history.Change(Part("Decay"), "Caption", TPropertyValue(std::string("b")));
    delete &Part("Start");
    history.Revert();
    EXPECT_NE(dynamic_cast<TKxSeries&>(Part("Decay")).GetCaption(), "b");
}

TEST_F(TLook, StepsGoOnInAGraphMadeAnew)
{
    TLookHistory history(*Graph);
    const auto standing = [&](const char* part, const char* path) {
        return FindLookProperty(Part(part), path).Value();
    };
    const auto integer = [](std::int64_t value) { return TLookValue(TPropertyValue(value)); };
    const TLookValue width = standing("XAxis1", "AxisThicknes"), color = standing("Measured", "LineStyle.Color");
    history.Change(Part("XAxis1"), "AxisThicknes", integer(3));
    history.Change(Part("Decay"), "Caption", TPropertyValue(std::string("gone")));
    history.Apply();
    history.Change(Part("Measured"), "LineStyle.Color", integer(ColorToInt(clGray)));
    history.Hold();
    Read();
    EXPECT_FALSE(history.CanUndo());
    delete &Part("Decay");
    EXPECT_EQ(history.GoOnWith(*Graph, [](TColor old) { return old == clGray ? clBlue : old; }), 1U);
    EXPECT_EQ(standing("XAxis1", "AxisThicknes"), integer(3));
    EXPECT_EQ(standing("Measured", "LineStyle.Color"), integer(ColorToInt(clBlue)));
    history.Revert();
    EXPECT_EQ(standing("Measured", "LineStyle.Color"), color);
    EXPECT_EQ(standing("XAxis1", "AxisThicknes"), integer(3));
    history.Undo();
    EXPECT_EQ(standing("XAxis1", "AxisThicknes"), width);
    EXPECT_FALSE(history.CanUndo());
    history.Redo();
    history.Redo();
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(standing("Measured", "LineStyle.Color"), integer(ColorToInt(clBlue)));
}

TEST_F(TLook, PlacesDoNotDependOnTheScreen)
{
    TLookHistory history(*Graph);
    const TLookValue before = FindLookProperty(Part("Slope1"), "Top").Value();
    history.Change(Part("Slope1"), "Top", TPropertyValue(std::int64_t{31}));
    Form->SetPixelScale(2);
    EXPECT_EQ(FindLookProperty(Part("Slope1"), "Top").Value(), TLookValue(TPropertyValue(std::int64_t{31})));
    history.Undo();
    EXPECT_EQ(FindLookProperty(Part("Slope1"), "Top").Value(), before);
    EXPECT_EQ(dynamic_cast<TControl&>(Part("Slope1")).GetTop(),
              2 * std::get<std::int64_t>(std::get<TPropertyValue>(before)));
}

TEST_F(TLook, OutlineAndPartUnderThePointer)
{
    const TLookNode tree = LookTree(*Graph);
    std::string outline;
    for (const TLookNode& node : tree.Parts) {
        outline += node.Text + "\n";
        for (const TLookNode& part : node.Parts)
            outline += "  " + part.Text.substr(0, 6) + "\n";
    }
    EXPECT_EQ(outline,
              "X axis: Depth / m\nY axis: Intensity\nSeries: measured\n  Curve:\n  Curve:\nLegend: Legend1\n"
              "Result: -0.236\nResult: 1.2\n")
        << outline;

    auto& series = dynamic_cast<TKxSeries&>(Part("Measured"));
    const TPoint at{series.RealToIntX(2.5), series.RealToIntY(255)};
    EXPECT_EQ(&LookPartAt(*Graph, at.X, at.Y, 4), &Part("Decay"));
    const auto& axis = dynamic_cast<TKxAxis&>(Part("XAxis1"));
    EXPECT_EQ(&LookPartAt(*Graph, 200, axis.Bounds().Bottom - 3, 4), &axis);
    EXPECT_EQ(&LookPartAt(*Graph, 360, 62, 4), &Part("Slope1"));
    EXPECT_EQ(&LookPartAt(*Graph, series.RealToIntX(4.5), series.RealToIntY(700), 4), Graph);
}

}  // namespace
}  // namespace plotkit
