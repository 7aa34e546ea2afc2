#include "host/Streaming.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "host/Application.h"
#include "host/Errors.h"
#include "host/Font.h"
#include "support/PropertyWalk.h"

namespace plotkit {
namespace {

struct TLeaf : TComponent
{
    using TComponent::TComponent;
    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};
constinit const TClassInfo TLeaf::Class{"TLeaf", &TComponent::Class, {}, &CreateComponent<TLeaf>};

std::string LoadedOrder;

/// Stands inside another box, as controls stand in each other.
struct TBox : TComponent
{
    using TComponent::TComponent;
    ~TBox() override { BeginDestroy(); }
    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    template <auto Field>
    auto Get() const
    {
        return this->*Field;
    }
    template <auto Field>
    void Set(std::remove_reference_t<decltype(std::declval<TBox&>().*Field)> value)
    {
        this->*Field = value;
    }
    void SetRatio(double ratio)
    {
        if (ratio < 0)
            throw ERangeError("ratios are not negative");
        Ratio = ratio;
    }
    TFont& GetFont() { return Font; }
    void SetLeaf(TLeaf* leaf)
    {
        StopWatching(Leaf);
        Leaf = leaf;
        WatchFor(Leaf);
    }
    bool KeepsValues() const { return !Values.empty(); }
    void SetValues(std::span<const double> values) { Values.assign(values.begin(), values.end()); }

    std::vector<TComponent*> StreamedChildren(const TComponent& root) const override
    {
        std::vector<TComponent*> children;
        for (TComponent* component : root.Components()) {
            const auto* box = dynamic_cast<const TBox*>(component);
            if (box && box->Outer ? box->Outer == this : this == &root)
                children.push_back(component);
        }
        return children;
    }
    void SetStreamedInside(TComponent* outer) override { Outer = dynamic_cast<TBox*>(outer); }
    double StreamScale() const override { return Outer ? Outer->StreamScale() : Scale; }
    void Loaded() override
    {
        TComponent::Loaded();
        LoadedOrder += GetName() + (Leaf ? "+" : "-") + ' ';
    }
    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation == opRemove && component == Leaf)
            Leaf = nullptr;
        if (operation == opRemove && component == Outer)
            Outer = nullptr;
    }

    TFont Font;
    TLeaf* Leaf = nullptr;
    TBox* Outer = nullptr;
    TEvent<> OnChange;
    std::string Text;
    std::vector<double> Values;
    double Ratio = 0.5, Scale = 1;
    int Width = 10;
    bool Flag = false;
};

constexpr std::array BoxProperties{
    Property<&TBox::Get<&TBox::Flag>, &TBox::Set<&TBox::Flag>>("Flag"),
    Property<&TBox::Get<&TBox::Width>, &TBox::Set<&TBox::Width>>("Width").Pixels(),
    Property<&TBox::Get<&TBox::Ratio>, &TBox::SetRatio>("Ratio"),
    Property<&TBox::Get<&TBox::Text>, &TBox::Set<&TBox::Text>>("Text"),
    Sub<&TBox::GetFont>("Font"),
    Reference<&TBox::Get<&TBox::Leaf>, &TBox::SetLeaf>("Leaf"),
    Event<TBox, &TBox::OnChange>("OnChange"),
    Bulk<&TBox::Get<&TBox::Values>, &TBox::SetValues, &TBox::KeepsValues>("Values"),
};
constinit const TClassInfo TBox::Class{"TBox", &TComponent::Class, BoxProperties, &CreateComponent<TBox>};

const std::array<const TClassInfo*, 2> Classes{&TBox::Class, &TLeaf::Class};

struct TRead
{
    explicit TRead(std::string_view text)
    {
        TReadResult result = ReadComponentTree(text, Classes);
        Problems.swap(result.Problems);
        Root.reset(result.Root);
    }
    TBox* Box() const { return dynamic_cast<TBox*>(Root.get()); }
    /// The problems, each as a line "number: message".
    std::string Report() const
    {
        std::string report;
        for (const TReadProblem& problem : Problems)
            report += std::to_string(problem.Line) + ": " + problem.Message + '\n';
        return report;
    }

    std::vector<TReadProblem> Problems;
    std::unique_ptr<TComponent> Root;
};

constexpr std::string_view WholeText = R"(object Root: TBox
  Tag = -7
  Flag = True
  Width = 640
  Ratio = 0.1
  Text = "a \"b\" \\ c\nd µ \x01"
  Font.Color = $80000005
  Font.Pitch = fpFixed
  Leaf = Last
  object Inner: TBox
    Leaf = nil
    Values = (0; 0.5; nan; -inf; 1e+300)
    object TBox
      Leaf = Last
    end
  end
  object Last: TLeaf
  end
end
)";

TEST(StreamingTest, AWholeTreeIsReadAndWrittenAlike)
{
    LoadedOrder.clear();
    const TRead read(WholeText);
    EXPECT_EQ(read.Report(), "");
    ASSERT_TRUE(read.Box());
    EXPECT_EQ(WriteComponentTree(*read.Root), WholeText);
    EXPECT_EQ(LoadedOrder, "+ Inner- Root+ ");
    EXPECT_FALSE(read.Box()->IsLoading());
    EXPECT_EQ(read.Box()->Text, "a \"b\" \\ c\nd \xC2\xB5 \x01");
    EXPECT_EQ(read.Box()->Font.GetColor(), clWindow);
    WalkProperties(Classes);
}

TEST(StreamingTest, LongListsAreWrappedAndReadBack)
{
    TBox box(nullptr);
    box.Values.assign(100, 1 / 3.0);
    const std::string text = WriteComponentTree(box);
    EXPECT_LE(text.find('\n', text.find('(')) - text.find("  Values"), 120u);
    EXPECT_EQ(TRead(text).Box()->Values, box.Values);
}

TEST(StreamingTest, LooseWritingIsUnderstood)
{
    const TRead read(
        "\xEF\xBB\xBF\r\n\tOBJECT : tbox\r\n  flag=false\r\n  FONT.color = $ff\n  Font.Pitch=FPFIXED\n Ratio = +1.50\n"
        "  Values = (1;\r\n\n   2 ;3\n)\n  Leaf = a\n  Object=3\n  object A:TLeaf\nEnd\n  END\r\n\n");
    EXPECT_EQ(read.Report(), "12: Unknown property \"Object\" of TBox\n");
    ASSERT_TRUE(read.Root);
    EXPECT_EQ(WriteComponentTree(*read.Root),
              "object TBox\n  Ratio = 1.5\n  Font.Color = $000000FF\n  Font.Pitch = fpFixed\n  Leaf = A\n"
              "  Values = (1; 2; 3)\n  object A: TLeaf\n  end\nend\n");
}

TEST(StreamingTest, PixelsAreStoredForTheUsualResolution)
{
    TBox root(nullptr), copy(nullptr);
    root.Scale = copy.Scale = 2.5;
    auto* inner = new TBox(&root);
    inner->Outer = &root;
    root.Width = 25;   // what 10, the default, is at this scale
    inner->Width = 8;  // 3 is 7.5
    const std::string text = "object TBox\n  Leaf = nil\n  object TBox\n    Width = 3\n    Leaf = nil\n  end\nend\n";
    EXPECT_EQ(WriteComponentTree(root), text);
    EXPECT_TRUE(ReadIntoComponent(text, Classes, copy).empty());
    EXPECT_EQ(WriteComponentTree(copy), text.substr(0, 12) + "  Width = 4\n" + text.substr(12));
    EXPECT_EQ(dynamic_cast<TBox&>(*copy.Components().at(0)).Width, 8);
}

TEST(StreamingTest, ReferencesLeadOutOfTheTreeByTheirFullPath)
{
    TLeaf owner(&Application());
    owner.SetName("StreamOwner");
    auto* outside = new TLeaf(&owner);
    outside->SetName("Leaf1");
    auto* root = new TBox(&owner);
    root->SetLeaf(outside);
    const std::string header = "object TBox\n  Leaf = ";
    EXPECT_EQ(WriteComponentTree(*root), header + "StreamOwner.Leaf1\nend\n");
    // A component inside that has the outer one's path.
    auto* likeOwner = new TLeaf(root);
    likeOwner->SetName("StreamOwner");
    (new TLeaf(likeOwner))->SetName("Leaf1");
    const std::string text = WriteComponentTree(*root);
    EXPECT_EQ(text.substr(0, text.find("\n  object")), header + ".StreamOwner.Leaf1");
    root = dynamic_cast<TBox*>(ReadComponentTree(text, Classes, &owner).Root);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->Leaf, outside);
}

TEST(StreamingTest, EveryProblemIsReportedWithItsLineAndTheRestIsKept)
{
    // Lines, and what is wrong with the last of them.
    const std::pair<const char*, const char*> parts[] = {
        {"Width = 1", "A property outside of all objects"},
        {"end", "\"end\" without an object"},
        {"object Root: TBox\nFlag = Yes", "Flag: True or False was expected, not Yes"},
        {"Width = 12345678901", "Width: a number from -2147483648 to 2147483647 was expected"},
        {"Widht = 3", "Unknown property \"Widht\" of TBox"},
        {"Ratio = -1", "Ratio: ratios are not negative"},
        {"Text = no quotes", "Text: a text in double quotes was expected, not no quotes"},
        {"Text = \"\\q\"", "Text: a text in double quotes was expected, not \"\\q\""},
        {"Font = 3", "Font: one of its own properties was expected, as in Font.Name = Value"},
        {"Font.Pitch = Grey", "Font.Pitch: one of fpDefault, fpVariable, fpFixed was expected, not Grey"},
        {"Font.Colour = 3", "Unknown property \"Font.Colour\" of TBox"},
        {"Flag.Sub = 1", "Unknown property \"Flag.Sub\" of TBox"},
        {"Leaf = Nobody", "Leaf: there is no component \"Nobody\""},
        {"OnChange = Me", "OnChange: events cannot be read"},
        {"some words", "A property, \"object\" or \"end\" was expected, not some words"},
        {"object Odd: TUnknown", "Unknown class \"TUnknown\""},
        {"object Root: TBox\nWidth = nonsense\nend\nend\nobject Inner: TBox\nLeaf = Inner",
         "Leaf: a TBox like \"Inner\" does not fit"},
        {"Values = (1;\ntwo; 3)", "Values: a number was expected, not \"two\""},
        {"Tag = 5\nend\nobject INNER: TLeaf", "A component named INNER already exists"},
        {"end\nobject 1st: TLeaf", "\"1st\" is not a valid component name"},
        {"end\nobject Lost: TBox\nValues = (1; 2", "Values: the list has no \")\""},
        {"Tag = 6\nend\nTag = 7\nend\n\nobject Next: TBox", "Text after the end of the outermost object"}};
    std::string text, report;
    for (const auto& [lines, message] : parts) {
        text += std::string(lines) + '\n';
        report += std::to_string(std::ranges::count(text, '\n')) + ": " + message + '\n';
    }
    const TRead read(text + "end\n");
    EXPECT_EQ(read.Report(), report);
    EXPECT_EQ(WriteComponentTree(*read.Root),
              "object Root: TBox\n  Tag = 7\n  Leaf = nil\n  object Inner: TBox\n    Tag = 5\n    Leaf = nil\n  end\n"
              "  object TLeaf\n  end\n  object TLeaf\n  end\n  object Lost: TBox\n    Tag = 6\n    Leaf = nil\n  "
              "end\nend\n");
}

TEST(StreamingTest, ATextThatBreaksOffIsReportedWhereItBegan)
{
    const TRead read("object TBox\n  object A: TBox\n    object TUnknown\n      Width = 3\n");
    EXPECT_EQ(read.Report(),
              "1: The object has no \"end\"\n2: The object has no \"end\"\n"
              "3: Unknown class \"TUnknown\"\n3: The object has no \"end\"\n");
    EXPECT_FALSE(read.Root->FindComponent("A")->IsLoading());
    std::string deep;
    for (int i = 0; i < 101; ++i)
        deep += "object TBox\n";
    EXPECT_NE(TRead(deep).Report().find("\n101: Objects are nested deeper than 100\n"), std::string::npos);
}

TEST(StreamingTest, WithoutAnObjectThereIsNoRoot)
{
    for (const char* text : {"", "\n", "object TUnknown\nend", "object TComponent\nend", "object", "object :"}) {
        const TRead read(text);
        EXPECT_TRUE(!read.Root && !read.Problems.empty()) << text;
    }
    TLeaf leaf(nullptr);
    EXPECT_EQ(ReadIntoComponent("\nobject A: TBox\nend\n", Classes, leaf),
              (std::vector<TReadProblem>{{2, "The text holds a TBox, not a TLeaf"}}));
    EXPECT_EQ(leaf.GetName(), "");
}

}  // namespace
}  // namespace plotkit
