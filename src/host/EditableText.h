// The job of EditableText is a line of characters with caret and selection, and all that changes it: typing, clipboard,
// undo.
#pragma once

#include <functional>

#include "host/EditHistory.h"
#include "host/WindowControl.h"

namespace plotkit {

/// Characters are code points (an invalid byte is one of its own) and count from 0; the caret stands before the
/// character of its number. Line breaks and other control characters become blanks on their way in.
class TEditableText : public TWindowControl
{
public:
    using TWindowControl::TWindowControl;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Characters that a user can have in it; 0 is no limit. What a program sets may be longer.
    int GetMaxLength() const { return FMaxLength; }
    void SetMaxLength(int length) { FMaxLength = std::max(length, 0); }
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool readOnly) { FReadOnly = readOnly; }
    /// While off, typing replaces the character under the caret.
    bool GetInsertMode() const { return FInsertMode; }
    virtual void SetInsertMode(bool insert);
    bool GetModified() const { return FModified; }
    void SetModified(bool modified) { FModified = modified; }
    TEvent<> OnChange;

    virtual int CharCount() const { return static_cast<int>(FStarts.size()) - 1; }
    /// Byte in the text where a character starts; of `CharCount` the length of the text.
    virtual int CharStart(int index) const { return FStarts[static_cast<std::size_t>(index)]; }
    std::string_view CharAt(int index) const;
    /// Characters [from, to).
    std::string TextOf(int from, int to) const;

    /// Selected are the characters from `SelStart` up to, not including, `SelEnd`; the caret stands at one of them.
    int SelStart() const { return std::min(FAnchor, FCaret); }
    int SelEnd() const { return std::max(FAnchor, FCaret); }
    int CaretPos() const { return FCaret; }
    bool HasSelection() const { return FAnchor != FCaret; }
    /// Places are clamped to the text.
    void Select(int anchor, int caret);
    void MoveCaret(int caret, bool extend) { Select(extend ? FAnchor : caret, caret); }
    void SelectAll() { Select(0, CharCount()); }
    void NoSelection() { Select(FCaret, FCaret); }
    std::string SelectedText() const { return TextOf(SelStart(), SelEnd()); }
    /// The caret to the begin of the word before it, or of the next one; with `extend` the selection goes along.
    void CursorBeginWord(bool extend = false) { MoveCaret(WordBegin(FCaret), extend); }
    void CursorBeginNextWord(bool extend = false) { MoveCaret(NextWord(FCaret), extend); }
    /// First character, and the one behind the last, of the word (or the row of blanks or signs) at `index`.
    std::pair<int, int> WordAt(int index) const;

    /// In place of the selection, or at the caret.
    void Insert(std::string_view text) { ReplaceSelection(text, ekOther); }
    /// The same with what its markup says about it, where the text has any: made by `SelectedMarkup`.
    virtual void InsertMarkup(const std::string& text, const std::string&) { Insert(text); }
    virtual std::string SelectedMarkup() const { return {}; }
    /// The selected characters to another place, where they stay selected: one change.
    void MoveSelection(int to);
    /// The same for what is typed, in which a row of characters is undone together.
    void Type(std::string_view text) { ReplaceSelection(text, ekTyping); }
    /// Takes out the selection, or the character before the caret.
    void DoBackspace();
    void DoDelete();
    /// Takes the selected characters out; false when there were none.
    bool SelectionCleared() { return HasSelection() && TakeOut(SelStart(), SelEnd(), ekOther); }
    virtual void CopyToClipBoard();
    void CutToClipBoard();
    virtual void PasteFromClipBoard() { Insert(Host().ClipboardText()); }
    void Undo() { Restore(CanUndo() ? FHistory.Undo(State()) : std::nullopt); }
    void Redo() { Restore(CanRedo() ? FHistory.Redo(State()) : std::nullopt); }
    bool CanUndo() const { return FHistory.CanUndo() && !FReadOnly; }
    bool CanRedo() const { return FHistory.CanRedo() && !FReadOnly; }

    /// The caret has moved, or what it stands in has changed.
    virtual void DoCaret() = 0;

protected:
    /// The text has changed, whoever changed it.
    virtual void Change() { OnChange(); }
    /// What undo keeps and restores.
    virtual std::string Content() const { return GetText(); }
    virtual void SetContent(const std::string& content) { SetText(content); }
    /// Characters [from, to) become `text`.
    virtual void ReplaceRange(int from, int to, std::string_view text);
    /// The caret goes elsewhere.
    virtual void LeavePlace() {}
    /// The characters, or their look, have changed.
    virtual void LayoutChanged() { Invalidate(); }

    /// A change by the user that can be undone; false when the text is read-only. The caret then stands before the last
    /// `behind` characters; with -1 the selection stays.
    bool Edit(int behind, TEditKind kind, bool startsWord, const std::function<void()>& change);
    bool TakeOut(int from, int to, TEditKind kind);
    /// What follows every change of the content.
    void ContentChanged();
    /// A text as it may take the place of `replaced` characters: one line, no longer than allowed.
    std::string Admitted(std::string_view text, int replaced) const;
    int WordBegin(int from) const;
    int NextWord(int from) const;
    void CMTextChanged() override;

private:
    void ReplaceSelection(std::string_view text, TEditKind kind);
    void Restore(std::optional<TEditState> state);
    TEditState State() const { return {Content(), FAnchor, FCaret}; }

    std::vector<std::int32_t> FStarts{0};
    TEditHistory FHistory;
    int FMaxLength = 0;
    int FAnchor = 0;
    int FCaret = 0;
    int FBehind = -1;  ///< while the user changes something, as in `Edit`
    bool FEditing = false;
    bool FReadOnly = false;
    bool FInsertMode = true;
    bool FModified = false;
};

}  // namespace plotkit
