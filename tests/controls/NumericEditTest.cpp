#include "ControlsFixture.h"
#include "controls/ControlsClasses.h"
#include "controls/KxFloatEdit.h"
#include "controls/KxIntegerEdit.h"
#include "host/Streaming.h"

namespace plotkit {
namespace {

TEST(IntegerEdit, AnswersWhatIsTyped)
{
    struct TCase
    {
        int Min, Max;
        const char* Keys;
        const char* Text;
        int Value, Beeps;
        const char* Left;  ///< the text after leaving
    };
    const std::vector<TCase> cases{
        {0, 100, "500", "50", 100, 1, "100"},
        {0, 100, "50", "50", 50, 0, "50"},
        {10, 100, "5", "5", 10, 0, "10"},
        {10, 100, "55", "55", 55, 0, "55"},
        {0, 0, "123456", "123456", 123456, 0, "123456"},
        {0, 100, "x", "0", 0, 1, "0"},
        {-5, 5, "-", "-", 0, 0, "0"},
        {-5, 5, "-3", "-3", -3, 0, "-3"},
        {-5, 5, "+4", "+4", 4, 0, "+4"},
        {0, 100, "4x2", "42", 42, 1, "42"},
        {0, 0, "99999999999", "999999999", 999999999, 2, "999999999"},
        {0, 100, "", "", 0, 0, "0"},
        {100, 0, "50", "50", 0, 0, "0"},
    };
    for (const TCase& one : cases) {
        SCOPED_TRACE(one.Keys);
        TOnForm<TKxIntegerEdit> form;
        form.Control->SetMinValue(one.Min);
        form.Control->SetMaxValue(one.Max);
        form.Control->SetFocus();
        form.Type(one.Keys);
        EXPECT_EQ(form.Control->GetText(), one.Text);
        EXPECT_EQ(form.Control->GetValue(), one.Value);
        EXPECT_EQ(form.Fake.Beeps, one.Beeps);
        form.Form.KillFocus();
        EXPECT_EQ(form.Control->GetText(), one.Left);
        EXPECT_EQ(form.Control->GetValue(), one.Value);
        EXPECT_EQ(form.Fake.Beeps - one.Beeps, std::string(one.Text) != one.Left);
    }
}

TEST(IntegerEdit, TellsEachChangeOnceAndKeepsUndo)
{
    TOnForm<TKxIntegerEdit> form;
    int changes = 0;
    form.Control->SetMinValue(0);
    form.Control->SetMaxValue(100);
    form.Control->OnChange = [&] { ++changes; };
    form.Control->SetFocus();
    form.Type("500");
    EXPECT_EQ(changes, 3);
    form.Control->SetValue(7);
    EXPECT_EQ(changes, 4);
    form.Control->SetValue(700);
    EXPECT_EQ(form.Control->GetText() + " " + std::to_string(form.Control->GetValue()), "100 100");
    EXPECT_EQ(changes, 5);
    form.Press(kyEnd);
    form.Type("x");  // refused: nothing to undo, the caret where it was
    EXPECT_FALSE(form.Control->CanUndo());
    EXPECT_EQ(form.Control->CaretPos(), 3);
    form.Press(kyBackspace);
    form.Ctrl('Z');
    EXPECT_EQ(form.Control->GetValue(), 100);
    form.Fake.SetClipboardText(std::string(3 << 20, '9'));
    form.Control->PasteFromClipBoard();
    EXPECT_EQ(form.Control->GetText(), "100");
}

TEST(SpinEdit, StepsByKeysButtonsAndWheel)
{
    TOnForm<TKxSpinIntegerEdit> form;
    TKxSpinIntegerEdit& edit = *form.Control;
    int keys = 0;
    edit.OnKeyDown = [&](int, TShiftState) { ++keys; };
    edit.SetIncrement(40);
    edit.SetMinValue(-100);
    edit.SetMaxValue(100);
    form.Down(95);  // the upper half is at 20 to 31 of the form
    EXPECT_TRUE(edit.HasFocus());
    EXPECT_EQ(edit.GetValue(), 40);
    form.Fake.Advance(std::chrono::milliseconds(465));
    EXPECT_EQ(edit.GetText(), "100");
    form.Up(95);
    form.Fake.Advance(std::chrono::seconds(2));
    form.Press(kyDown);
    EXPECT_EQ(edit.GetValue(), 60);
    EXPECT_EQ(keys, 1);
    form.Form.DispatchMouseWheel({}, -120, 20, 30);
    EXPECT_EQ(edit.GetText(), "20");
    EXPECT_EQ(edit.EditRect().Right, 100 - 2 - 15);
    edit.SetMaxValue(-100);  // no bound: at the ends of 32 bits it stays
    edit.SetIncrement(-2147483647);
    form.Press(kyUp);
    form.Press(kyUp);
    EXPECT_EQ(edit.GetText(), "-2147483648");
}

TEST(NumericEdits, UndoTakesTextAndValueBack)
{
    TOnForm<TKxSpinIntegerEdit> form;
    TKxSpinIntegerEdit& edit = *form.Control;
    const auto state = [&] { return edit.GetText() + "=" + std::to_string(edit.GetValue()); };
    edit.SetMinValue(0);
    edit.SetMaxValue(100);
    edit.SetFocus();
    form.Type("500");
    edit.SetIncrement(-7);
    form.Press(kyUp);
    form.Down(95);
    form.Up(95);
    form.Form.DispatchMouseWheel({}, 60, 20, 30);
    form.Form.DispatchMouseWheel({}, 60, 20, 30);
    std::vector<std::string> seen{state()};
    for (int i = 0; i < 4; ++i) {
        form.Ctrl('Z');
        seen.push_back(state());
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"79=79", "86=86", "93=93", "50=100", "=0"}));
    form.Type("x");
    EXPECT_EQ(state(), "0=0") << "the last valid text";
    form.Ctrl('Z');
    form.Ctrl('Y');
    form.Ctrl('Y');
    EXPECT_FALSE(edit.CanRedo()) << "another text was typed";
    edit.SetValue(20);
    form.Press(kyUp);
    form.Ctrl('Z');
    form.Type("x");
    form.Ctrl('Y');
    EXPECT_EQ(state(), "13=13") << "what was refused changed nothing";
    edit.SetReadOnly(true);
    form.Press(kyUp);
    EXPECT_EQ(state(), "13=13");

    TOnForm<TKxFloatEdit> other;
    other.Control->SetDigits(4);
    other.Control->SetFocus();
    other.Control->SelectAll();
    other.Type("3.14159");
    other.Form.KillFocus();
    EXPECT_EQ(other.Control->GetText(), "3.14");
    other.Control->SetFocus();
    other.Ctrl('Z');
    EXPECT_EQ(other.Control->GetText(), "3.14159");
    other.Ctrl('Z');
    EXPECT_EQ(other.Control->GetText() + std::to_string(other.Control->GetValue()), "00.000000");
}

TEST(FloatEdit, AnswersWhatIsTyped)
{
    struct TCase
    {
        double Min, Max;
        int Digits;
        const char* Keys;
        const char* Text;
        double Value;
        int Beeps;
        const char* Left;
    };
    const std::vector<TCase> cases{
        {0, 0, 0, "1e-5", "1e-5", 1e-5, 0, "0,00001"},
        {0, 0, 0, "1e", "1e", 1, 0, "1"},
        {0, 0, 0, "-,5", "-,5", -0.5, 0, "-0,5"},
        {0, 0, 0, "2.5", "2.5", 2.5, 0, "2,5"},
        {0, 0, 0, "1e999", "1e99", 1e99, 1, "1E99"},
        {0, 9.5, 0, "12", "12", 9.5, 0, "9,5"},
        {0, 100, 0, "500", "50", 100, 1, "100"},
        {0, 100, 4, "3,14159", "3,14159", 3.14159, 0, "3,14"},
        {0, 0, 0, "nan", "0", 0, 3, "0"},
        {0, 0, 0, "", "", 0, 0, "0"},
    };
    for (const TCase& one : cases) {
        SCOPED_TRACE(one.Keys);
        TOnForm<TKxFloatEdit> form;
        form.Fake.Formats.DecimalSeparator = ',';
        form.Control->SetMinValue(one.Min);
        form.Control->SetMaxValue(one.Max);
        form.Control->SetFocus();
        form.Type(one.Keys);
        EXPECT_EQ(form.Control->GetText(), one.Text);
        EXPECT_EQ(form.Control->GetValue(), one.Value);
        EXPECT_EQ(form.Fake.Beeps, one.Beeps);
        form.Control->SetDigits(0);
        form.Control->SetDigits(one.Digits);
        form.Form.KillFocus();
        EXPECT_EQ(form.Control->GetText(), one.Left);
        EXPECT_EQ(form.Control->GetValue(), one.Value) << "digits that are not shown are kept";
    }
    TKxFloatEdit edit(nullptr);
    edit.SetDigits(25);
    EXPECT_EQ(edit.GetDigits(), 18);
    edit.SetDigits(-1);
    EXPECT_EQ(edit.GetDigits(), 0);
    edit.SetDigits(3);
    edit.SetMinValue(10);
    const TReadResult read = ReadComponentTree(WriteComponentTree(edit), ControlsClasses());
    const std::unique_ptr<TComponent> copy(read.Root);
    EXPECT_EQ(dynamic_cast<TKxFloatEdit&>(*copy).GetValue(), 0) << "no bound is applied to what it found";
}

}  // namespace
}  // namespace plotkit
