// The job of KxCaptionEdit is a line in which a user types a caption and switches its attributes, shown as it will
// look.
#pragma once

#include "controls/KxCaptionText.h"
#include "host/CustomEdit.h"

namespace plotkit {

/// Bold, Italic, Underline, StrikeOut, Subscript, Superscript, SymbolFont.
using TKxOnCaretChangedEvent = TEvent<bool, bool, bool, bool, bool, bool, bool>;

/// `GetText` is the caption without codes; `GetCaption` the markup. What is typed takes the attributes of the character
/// before the caret, what replaces something those of its first character. Ctrl with B, I, U, "+" and "-" toggles bold,
/// italic, underline, superscript and subscript; the Insert key changes between inserting and replacing.
///
/// The clipboard gets the plain text; within the program its attributes come back with it. A backslash in a pasted text
/// is a character.
class TKxCaptionEdit : public TCustomEdit
{
public:
    using TCustomEdit::TCustomEdit;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    const TKxCaption& GetCaption() const { return FCaption; }
    /// Stores the markup as it is; only a different one is a change.
    void SetText(const TKxCaption& caption);
    /// Makes the caption from the characters and their attributes; codes without effect go, also those at the caret.
    void RebuildText();

    /// Toggles one attribute: of the selection, which takes the inverse of its first character's, or of what is typed
    /// next at the caret.
    void BoldAtrribute() { Toggle(caBold); }
    void ItalicAtrribute() { Toggle(caItalic); }
    void UnderlineAtrribute() { Toggle(caUnderline); }
    void StrikeoutAtrribute() { Toggle(caStrikeOut); }
    void SymbolAtrribute() { Toggle(caSymbol); }
    void SubscriptAtrribute() { Toggle(caSubscript); }
    void SuperscriptAtrribute() { Toggle(caSuperscript); }

    /// In force for a character, the control's own font included; at the one before the caret with what has been
    /// toggled there. At -1 the font's own.
    bool IsBold(int index) const { return Has(index, caBold) != GetFont().GetBold(); }
    bool IsItalic(int index) const { return Has(index, caItalic) != GetFont().GetItalic(); }
    bool IsUnderline(int index) const { return Has(index, caUnderline) != GetFont().GetUnderline(); }
    bool IsStrikeout(int index) const { return Has(index, caStrikeOut) != GetFont().GetStrikeOut(); }
    bool IsSubscript(int index) const { return Has(index, caSubscript); }
    bool IsSuperscript(int index) const { return Has(index, caSuperscript); }
    bool IsSymbolFont(int index) const { return Has(index, caSymbol); }

    /// Right behind the markers toggled at the caret, 1-based byte of the caption; -1 when there are none.
    int PendingPosition() const { return FPendingPosition; }
    /// 1-based byte of the caption where a character stands.
    int RichIndex(int index) const { return FModel.Source(index); }

    /// The attributes at the caret, each time that it moves or they change.
    TKxOnCaretChangedEvent OnCaretChanged;

    int CharCount() const override { return FModel.Count(); }
    int CharStart(int index) const override { return FModel.Start(index); }
    void SetInsertMode(bool insert) override;
    void CopyToClipBoard() override;
    void PasteFromClipBoard() override { InsertMarkup(Host().ClipboardText(), Host().ClipboardMarkup()); }
    void InsertMarkup(const std::string& text, const std::string& markup) override;
    std::string SelectedMarkup() const override { return FModel.Part(SelStart(), SelEnd()).Markup(); }
    void DoCaret() override;
    void KeyDown(int key, TShiftState shift) override;
    bool WantsKey(int key, TShiftState shift) const override;

protected:
    std::string Content() const override;
    void SetContent(const std::string& content) override { SetText(content); }
    void ReplaceRange(int from, int to, std::string_view text) override;
    void LeavePlace() override;
    std::vector<std::int32_t> MeasuredChars() const override;
    void PaintChars(TCanvas& canvas, int first, int last, TPoint at) override;
    void CMTextChanged() override;

private:
    bool Has(int index, TKxCaptionAttribute attribute) const;
    void Toggle(TKxCaptionAttribute attribute);
    void ToggleSelection(TKxCaptionAttribute attribute);
    void ToggleAtCaret(TKxCaptionAttribute attribute);
    void Replace(int from, int to, const TKxCaptionText& with);
    /// Takes a stored caption apart and tells of it.
    void CaptionStored();
    /// The caption with other markers at the caret, the characters being the same.
    void StoreMarkers();

    TKxCaption FCaption;
    TKxCaptionText FModel;
    TKxCaptionAttributes FPending = 0;  ///< while there is a pending position
    int FPendingPosition = -1;
    bool FStoring = false;
};

}  // namespace plotkit
