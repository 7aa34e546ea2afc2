#include "controls/KxCaptionEdit.h"

#include "ControlsFixture.h"
#include "controls/ControlsClasses.h"
#include "host/Streaming.h"
#include "support/Commands.h"

namespace plotkit {
namespace {

struct TCaptionEditTest : testing::Test, TOnForm<TKxCaptionEdit>
{
    TKxCaptionEdit& Edit = *Control;
    std::string State;  ///< the attributes at the caret, as letters

    TCaptionEditTest()
    {
        Edit.OnCaretChanged = [this](bool bold, bool italic, bool underline, bool strikeOut, bool sub, bool super,
                                     bool symbol) {
            State = std::string(bold ? "b" : "") + (italic ? "i" : "") + (underline ? "u" : "") +
                    (strikeOut ? "o" : "") + (sub ? "-" : "") + (super ? "+" : "") + (symbol ? "s" : "");
        };
        Edit.SetFocus();
    }
    void Show(const TKxCaption& caption, int anchor, int caret)
    {
        Edit.SetText({});
        Edit.SetInsertMode(true);
        Edit.SetText(caption);
        Edit.Select(anchor, caret);
    }
    void Toggle(char code)
    {
        switch (code) {
            case 's':
                return Edit.SymbolAtrribute();
            case 'b':
                return Edit.BoldAtrribute();
            case 'i':
                return Edit.ItalicAtrribute();
            case 'u':
                return Edit.UnderlineAtrribute();
            case 'o':
                return Edit.StrikeoutAtrribute();
            case '+':
                return Edit.SuperscriptAtrribute();
            default:
                return Edit.SubscriptAtrribute();
        }
    }
};

TEST_F(TCaptionEditTest, TogglesTheSelection)
{
    struct TCase
    {
        const char* Before;
        int From, To;
        char Code;
        const char* After;
    };
    const std::vector<TCase> cases{
        {"abcd", 1, 3, 'b', "a\\bbc\\bd"},
        {"a\\bb\\bc\\bd\\be", 1, 4, 'b', "abcde"},
        {"ab\\bcd", 1, 4, 'b', "a\\bbcd"},
        {"abc", 2, 3, 'i', "ab\\ic"},
        {"a\\-bc\\-d", 1, 3, '+', "a\\+bc\\+d"},
        {"a\\-bc\\-d", 2, 3, '+', "a\\-b\\-\\+c\\+d"},
        {"a\\+bc\\+d", 2, 3, '-', "a\\+b\\+\\-c\\-d"},
        {"a bc", 0, 1, 's', "\\sa\\s  bc"},
        {"\\ua\\u\\\\  b", 1, 2, 'o', "\\ua\\u\\o\\\\\\o  b"},
        {"\\bab", 0, 2, 'u', "\\b\\uab"},
    };
    for (const TCase& one : cases) {
        SCOPED_TRACE(one.Before);
        Show(one.Before, one.From, one.To);
        const std::string text = Edit.GetText();
        Toggle(one.Code);
        EXPECT_EQ(Edit.GetCaption(), one.After);
        EXPECT_EQ(Edit.GetText(), text);
        EXPECT_EQ(Edit.SelectedText(), TKxCaptionText(one.Before).Part(one.From, one.To).Text());
        Ctrl('Z');
        EXPECT_EQ(Edit.GetCaption(), one.Before);
        EXPECT_EQ(Edit.SelStart(), one.From);
    }
}

TEST_F(TCaptionEditTest, TogglesWhatIsTypedNext)
{
    struct TCase
    {
        const char* Before;
        int Caret;
        const char* Keys;  ///< with Ctrl
        const char* Caption;
        int Pending;
        const char* State;
        const char* Typed;  ///< the caption after "x", "y"
    };
    const std::vector<TCase> cases{
        {"ab", 2, "B", "ab\\b", 5, "b", "ab\\bxy"},
        {"ab", 1, "B", "a\\b\\bb", 4, "b", "a\\bxy\\bb"},
        {"ab", 0, "I", "\\i\\iab", 3, "i", "\\ixy\\iab"},
        {"a\\bb", 1, "U", "a\\u\\u\\bb", 4, "u", "a\\uxy\\b\\ub"},
        {"x\\+2", 2, "-", "x\\+2\\+\\-", 9, "-", "x\\+2\\+\\-xy"},
        {"x\\+23", 2, "-", "x\\+2\\+\\-\\-\\+3", 9, "-", "x\\+2\\+\\-xy\\-\\+3"},
        {"ab", 2, "BB", "ab", -1, "", "abxy"},
        {"ab", 2, "BI", "ab\\b\\i", 7, "bi", "ab\\b\\ixy"},
        {"", 0, "+", "\\+", 3, "+", "\\+xy"},
    };
    for (const TCase& one : cases) {
        SCOPED_TRACE(std::string(one.Before) + " " + one.Keys);
        Show(one.Before, one.Caret, one.Caret);
        for (const char* key = one.Keys; *key; ++key)
            Ctrl(*key);
        EXPECT_EQ(Edit.GetCaption(), one.Caption);
        EXPECT_EQ(Edit.PendingPosition(), one.Pending);
        EXPECT_EQ(State, one.State);
        Type("xy");
        EXPECT_EQ(Edit.GetCaption(), one.Typed);
        EXPECT_EQ(Edit.PendingPosition(), -1);
        EXPECT_EQ(State, one.State);
        Ctrl('Z');
        EXPECT_EQ(Edit.GetCaption(), one.Before);
        Ctrl('Y');
        EXPECT_EQ(Edit.GetCaption(), one.Typed);
    }
    Show("ab", 2, 2);
    Ctrl('B');
    Press(kyLeft);
    EXPECT_EQ(Edit.GetCaption(), "ab") << "markers of a place that was left";
    Show("a\\ib\\o", 1, 1);
    EXPECT_TRUE(Edit.IsStrikeout(2) && !Edit.IsStrikeout(1)) << "codes at the end";
    Ctrl('U');
    Edit.RebuildText();
    EXPECT_EQ(Edit.GetCaption() + State, "a\\ib");
    Edit.SetText("ab");
    Edit.GetFont().SetBold(true);
    Press(kyHome);
    EXPECT_EQ(State, "b") << "the font's own";
    Press(kyInsert);
    Ctrl('B');
    EXPECT_EQ(Edit.GetCaption(), "\\bab") << "while typing replaces, the rest follows";
    Type("x");
    EXPECT_EQ(Edit.GetCaption(), "\\bxb");
}

TEST_F(TCaptionEditTest, TextIsPublishedToBeRead)
{
    const TReadResult read = ReadComponentTree(
        "object TKxCaptionEdit\n  Caption = \"a\\\\+1\"\n  Text = \"a1\"\n  Text = \"b\"\nend\n", ControlsClasses());
    const std::unique_ptr<TComponent> root(read.Root);
    ASSERT_EQ(read.Problems.size(), 1U);
    EXPECT_EQ(read.Problems[0].Line, 4);
    EXPECT_EQ(dynamic_cast<TKxCaptionEdit&>(*root).GetCaption(), "a\\+1");
}

TEST_F(TCaptionEditTest, KeysMoveSelectAndTakeOut)
{
    struct TKeyPress
    {
        int Key;
        TShiftState Shift = {};
    };
    struct TCase
    {
        const char* Before;
        int Anchor, Caret;
        std::vector<TKeyPress> Keys;
        const char* After;  ///< the selection in brackets, or the caret as a bar
    };
    const std::vector<TCase> cases{
        {"one two", 7, 7, {{kyLeft, WithCtrl}}, "one |two"},
        {"one  two", 0, 0, {{kyRight, WithCtrl}}, "one  |two"},
        {"f(x) = 1", 0, 0, {{kyRight, WithCtrl}, {kyRight, WithCtrl}, {kyRight, WithBoth}}, "f([x]) = 1"},
        {"abc", 1, 1, {{kyEnd, WithShift}, {kyLeft}}, "a|bc"},
        {"abc", 0, 2, {{kyRight}}, "ab|c"},
        {"abc", 3, 3, {{kyHome, WithShift}, {kyBackspace}}, "|"},
        {"a\u00B5\u4E2Db", 3, 3, {{kyBackspace}, {kyBackspace}}, "a|b"},
        {"one two", 7, 7, {{kyBackspace, WithCtrl}}, "one |"},
        {"one two", 0, 0, {{kyDelete, WithCtrl}}, "|two"},
        {"a\xFF\xFEz", 2, 2, {{kyDelete}}, "a\xFF|z"},
        {"abc", 1, 2, {{kyDelete, WithShift}, {kyEnd}, {kyInsert, WithShift}}, "acb|"},
        {"abc", 1, 2, {{'C', WithCtrl}, {'V', WithCtrl}, {'v', WithCtrl}}, "abb|c"},
        {"abc", 1, 2, {{0xE4}, {kyUp}}, "a\u00E4|c"},
        {"abc", 1, 1, {{kyInsert}, {'x'}, {'y'}, {'z'}}, "axyz|"},
        {"abc", 1, 1, {{'A', WithCtrl}}, "[abc]"},
        {"abc", 0, 0, {{kyLeft}, {kyBackspace}, {'Z', WithCtrl}}, "|abc"},
    };
    for (const TCase& one : cases) {
        SCOPED_TRACE(std::string(one.Before) + " -> " + one.After);
        Show(one.Before, one.Anchor, one.Caret);
        for (const TKeyPress& key : one.Keys)
            Press(key.Key, key.Shift);
        const std::string middle = Edit.HasSelection() ? "[" + Edit.SelectedText() + "]" : "|";
        EXPECT_EQ(Edit.TextOf(0, Edit.SelStart()) + middle + Edit.TextOf(Edit.SelEnd(), Edit.CharCount()), one.After);
    }
}

TEST_F(TCaptionEditTest, UndoesWordByWord)
{
    Type("one two");
    Press(kyBackspace);
    Press(kyBackspace);
    std::vector<std::string> seen;
    for (int i = 0; i < 4; ++i) {
        Ctrl('Z');
        seen.push_back(Edit.GetText());
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"one two", "one ", "", ""}));
    Press('Z', WithBoth);
    EXPECT_EQ(Edit.GetText(), "one ");
    Type("x");
    EXPECT_FALSE(Edit.CanRedo());
    Edit.SetReadOnly(true);
    Press(kyBackspace);
    Ctrl('B');
    Ctrl('Z');
    EXPECT_EQ(Edit.GetCaption(), "one x");
    EXPECT_EQ(Fake.Beeps, 2);
}

TEST_F(TCaptionEditTest, ClipboardKeepsAttributesWithinTheProgram)
{
    Show("a\\bb\\\\\\bc", 1, 4);
    Ctrl('C');
    EXPECT_EQ(Fake.ClipboardText(), "b\\c");
    Show("x\\iz", 1, 1);
    Ctrl('V');
    EXPECT_EQ(Edit.GetCaption(), "x\\bb\\\\\\bc\\iz");
    Fake.SetClipboardText("\\b\t\xC3\xA4\r\nx\n");
    Ctrl('V');
    EXPECT_EQ(Edit.GetCaption(), "x\\bb\\\\\\bc\\\\b \xC3\xA4 x\\iz") << "text from elsewhere has no codes";
    Edit.SetMaxLength(12);
    Form.DispatchText("\u03B1\u03B2");
    EXPECT_EQ(Edit.CharCount(), 12);
    Edit.SetMaxLength(0);
    Fake.SetClipboardText(std::string(2 << 20, '\\'));
    Ctrl('V');
    Type("y");
    EXPECT_EQ(Edit.CharCount(), 13 + (2 << 20));
    static_cast<TControl&>(Edit).SetText("a\\bc");
    EXPECT_EQ(Edit.GetCaption(), "a\\\\bc") << "a text that is no caption";
}

TEST_F(TCaptionEditTest, MouseSelectsAndScrolls)
{
    Edit.SetText("Velocity \\iv\\i  in m s\\+-1\\+ over time");
    Down(2 + 6 * 3 + 4);
    EXPECT_EQ(Edit.CaretPos(), 3);
    Up(20);
    Down(60, true);
    Up(60);
    EXPECT_EQ(Edit.SelectedText(), "v");
    Down(20);
    EXPECT_EQ(Edit.CaretPos(), 3) << "elsewhere it is a first time";
    Up(20);
    Down(60, true);
    Up(60);
    Down(60);  // a third time
    EXPECT_EQ(Edit.SelEnd(), Edit.CharCount());
    Fake.Advance(std::chrono::seconds(1));
    Up(60);
    Press(kyHome);
    Down(50);
    const int from = Edit.CaretPos();
    Move(130);
    const int first = Edit.CaretPos();
    Fake.Advance(std::chrono::milliseconds(200));
    EXPECT_GT(Edit.CaretPos(), first + 4) << "the text runs on under a pointer that rests beyond the edge";
    Up(130);
    const int last = Edit.CaretPos();
    Fake.Advance(std::chrono::milliseconds(200));
    EXPECT_EQ(Edit.CaretPos(), last);
    EXPECT_EQ(Edit.SelStart(), from);
    EXPECT_LE(Edit.CaretRect().Right, Edit.EditRect().Right);
    Press(kyHome);
    EXPECT_EQ(Edit.GapX(0), Edit.EditRect().Left + 1);
}

TEST_F(TCaptionEditTest, PaintsSelectionScriptsAndCaret)
{
    Edit.SetText("ab\\+cd\\+");
    Edit.Select(1, 3);
    TRecording picture = Edit.Picture();
    const auto runs = CommandsOf<TTextCommand>(picture);
    ASSERT_EQ(runs.size(), 4U);
    EXPECT_EQ(runs[2].Run.Text, "c");
    EXPECT_EQ(runs[2].Run.Font.Color, clHighlightText);
    EXPECT_EQ(runs[2].Run.At, (TPoint{3 + 12, 5 - 1}));
    EXPECT_EQ(Edit.CaretRect(), (TRect{3 + 16 - 1, 5, 3 + 16 + 1, 17}));
    Fake.Advance(std::chrono::milliseconds(530));
    const TRecording dark = Edit.Picture();
    EXPECT_EQ(dark.Commands.size() + 1, picture.Commands.size()) << "the caret blinks";
    Press(kyInsert);
    EXPECT_EQ(Edit.CaretRect(), (TRect{19, 5, 19 + 4, 17}));
    Form.KillFocus();
    picture = Edit.Picture();
    for (const auto& run : CommandsOf<TTextCommand>(picture))
        EXPECT_EQ(run.Run.Font.Color, clWindowText) << "no selection colour without the focus";
    Edit.SetText("\\u" + std::string(20000, 'x') + "\\b end");
    Edit.SetFocus();
    Press(kyEnd);
    const auto tail = CommandsOf<TTextCommand>(Edit.Picture());
    ASSERT_EQ(tail.size(), 2U);
    EXPECT_LT(tail[0].Run.Text.size(), 20U) << "only what shows is painted";
    EXPECT_TRUE(tail[1].Run.Font.Bold && tail[1].Run.Font.Underline);
    EXPECT_EQ(tail[1].Run.At.X + tail[1].Run.Advances.back(), Edit.CaretRect().Left);
}

}  // namespace
}  // namespace plotkit
