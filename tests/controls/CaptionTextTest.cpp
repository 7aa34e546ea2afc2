#include "controls/KxCaptionText.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <tuple>

#include "ControlsFixture.h"
#include "controls/KxCaptionEdit.h"
#include "support/Commands.h"

namespace plotkit {
namespace {

/// Codes, blanks, backslashes and broken UTF-8 far more often than chance would have them.
rc::Gen<std::string> Captions()
{
    const auto piece = rc::gen::oneOf(
        rc::gen::element<std::string>("\\b", "\\I", "\\u", "\\o", "\\s", "\\+", "\\-", "\\\\", "\\", " ", "  ", "\\x"),
        rc::gen::element<std::string>("\\+a\\+\\-b\\-", "\\-a\\-\\+b\\+"),
        rc::gen::element<std::string>("a", "\u00E4", "\xC3", "\xA4", "\xE2\x82", "\xAC", "\xF0", "\xFF", "\n"),
        rc::gen::string<std::string>());
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), [](const std::vector<std::string>& all) {
        std::string caption;
        for (const std::string& one : all)
            caption += one;
        return caption;
    });
}

using TDrawn = std::tuple<std::string, TFontState, TPoint>;

/// Each character as the renderer draws it.
std::vector<TDrawn> Drawn(const TKxCaption& caption, bool withScripts)
{
    TRecording picture;
    const TFixedTextMeasurer measurer;
    TCanvas canvas(picture, measurer);
    TKxCaptionRec rec;
    rec.Text = caption;
    rec.Canvas = &canvas;
    rec.DoPaint = true;
    RichPaintTo(rec);
    std::vector<TDrawn> drawn;
    for (const TTextCommand& command : CommandsOf<TTextCommand>(picture)) {
        const TTextRun& run = command.Run;
        TFontState font = run.Font;
        font.Size = withScripts ? font.Size : 0;
        std::size_t length = 0;
        int advance = 0;
        for (std::size_t at = 0, i = 0; at < run.Text.size(); at += length, advance = run.Advances[i++]) {
            length = static_cast<std::size_t>(CodePointLength(run.Text, at));
            const TPoint place{run.At.X + advance, run.At.Y};
            drawn.emplace_back(run.Text.substr(at, length), font, withScripts ? place : TPoint{});
        }
    }
    return drawn;
}

/// Sizes of scripts within scripts depend on the order of their codes.
bool HasNestedScripts(const TKxCaption& caption)
{
    bool isSuper = false, isSub = false, isNested = false;
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != '\\')
            continue;
        const char code = caption[++at];
        isSuper ^= code == '+';
        isSub ^= code == '-';
        isNested |= isSuper && isSub;
    }
    return isNested;
}

std::vector<TKxCaptionAttributes> AttributesOf(const TKxCaptionText& text)
{
    std::vector<TKxCaptionAttributes> all;
    for (int i = 0; i < text.Count(); ++i)
        all.push_back(text.Attributes(i));
    return all;
}

TEST(CaptionText, IsRebuiltEquivalent)
{
    EXPECT_TRUE(rc::check("taking apart and putting together", [] {
        const TKxCaption caption = *Captions();
        const TKxCaptionText parts(caption);
        TKxCaptionEdit edit(nullptr);
        edit.SetText(caption);
        edit.RebuildText();
        const TKxCaption rebuilt = edit.GetCaption();
        RC_ASSERT(edit.GetText() == parts.Text());
        const TKxCaptionText again(rebuilt);
        RC_ASSERT(again.Text() == parts.Text());
        RC_ASSERT(AttributesOf(again) == AttributesOf(parts));
        RC_ASSERT(again.Markup() == rebuilt);
        const bool isPlain = !HasNestedScripts(caption);
        RC_CLASSIFY(isPlain);
        RC_ASSERT(Drawn(rebuilt, isPlain) == Drawn(caption, isPlain));
        for (int i = 0; i < again.Count(); ++i)
            RC_ASSERT(rebuilt[static_cast<std::size_t>(again.Source(i)) - 1] ==
                      again.Text()[static_cast<std::size_t>(again.Start(i))]);
    }));
}

TEST(CaptionText, SurvivesAnyEdits)
{
    EXPECT_TRUE(rc::check("undoing everything", [] {
        TOnForm<TKxCaptionEdit> form;
        TKxCaptionEdit& edit = *form.Control;
        const TKxCaption caption = *Captions();
        edit.SetText(caption);
        edit.SetFocus();
        const auto keys = *rc::gen::container<std::vector<std::pair<int, int>>>(
            rc::gen::pair(rc::gen::element<int>('a', ' ', '\\', 'A', 'B', 'U', 'V', 'X', 'Y', '+', '-', kyLeft, kyRight,
                                                kyHome, kyEnd, kyDelete, kyBackspace, kyInsert),
                          rc::gen::inRange(0, 4)));
        for (const auto& [key, held] : keys) {
            form.Press(key, TShiftState{.Shift = (held & 1) != 0, .Ctrl = (held & 2) != 0});
            const TKxCaptionText parts(edit.GetCaption());
            RC_ASSERT(parts.Text() == edit.GetText());
            RC_ASSERT(edit.CaretPos() <= edit.CharCount());
            RC_ASSERT(edit.Picture().Commands.size() > 1);
            for (int i = 0; i < edit.CharCount(); ++i)
                RC_ASSERT(edit.IsBold(i) == bool(parts.Attributes(i) & caBold) || i == edit.CaretPos() - 1);
        }
        while (edit.CanUndo())
            edit.Undo();
        // Leaving a place drops its markers, and with them codes without effect.
        RC_ASSERT(TKxCaptionText(edit.GetCaption()).Markup() == TKxCaptionText(caption).Markup());
    }));
}

}  // namespace
}  // namespace plotkit
