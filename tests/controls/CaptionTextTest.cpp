#include "controls/KxCaptionText.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

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
        rc::gen::element<std::string>("a", "\u00E4", "\xC3", "\xA4", "\xE2\x82", "\xAC", "\xF0", "\xFF", "\n"),
        rc::gen::string<std::string>());
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), [](const std::vector<std::string>& all) {
        std::string caption;
        for (const std::string& one : all)
            caption += one;
        return caption;
    });
}

/// Each character as the renderer draws it, without its place.
std::vector<std::pair<std::string, TFontState>> Drawn(const TKxCaption& caption)
{
    TRecording picture;
    const TFixedTextMeasurer measurer;
    TCanvas canvas(picture, measurer);
    TKxCaptionRec rec;
    rec.Text = caption;
    rec.Canvas = &canvas;
    rec.DoPaint = true;
    RichPaintTo(rec);
    std::vector<std::pair<std::string, TFontState>> drawn;
    for (const TTextCommand& command : CommandsOf<TTextCommand>(picture)) {
        const std::string& text = command.Run.Text;
        TFontState font = command.Run.Font;
        font.Size = 0;  // scripts within scripts depend on the order of their codes
        for (std::size_t at = 0; at < text.size(); at += static_cast<std::size_t>(CodePointLength(text, at)))
            drawn.emplace_back(text.substr(at, static_cast<std::size_t>(CodePointLength(text, at))), font);
    }
    return drawn;
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
        const TKxCaption rebuilt = parts.Markup();
        const TKxCaptionText again(rebuilt);
        RC_ASSERT(again.Text() == parts.Text());
        RC_ASSERT(AttributesOf(again) == AttributesOf(parts));
        RC_ASSERT(again.Markup() == rebuilt);
        RC_ASSERT(Drawn(rebuilt) == Drawn(caption));
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
