// The job of KxColorPickerForm is the window in which a user chooses any colour: from palettes, by its parts, as text.
#pragma once

#include <array>

#include "controls/KxColorSwatches.h"
#include "controls/KxColors.h"
#include "controls/KxIntegerEdit.h"
#include "host/CustomButton.h"
#include "host/Form.h"
#include "host/TextLabel.h"

namespace plotkit {

/// Rows of distinct, plain, recent and desktop colours, spin edits for red, green and blue, and an edit for names and
/// hexadecimal colours: all of them follow each other. Enter, OK or a double click on a colour accepts, Escape or
/// Cancel does not; Tab goes round.
class TKxColorPickerForm : public TForm
{
public:
    explicit TKxColorPickerForm(TComponent* owner);
    ~TKxColorPickerForm() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TColor GetSelected() const { return FSelected; }
    void SetSelected(TColor color);
    TKxRecentColors* GetRecent() const { return FRecent; }
    void SetRecent(TKxRecentColors* recent);

    /// Shows the form with a colour to begin with.
    void Open(TColor color);
    void Accept();
    void Cancel();
    TEvent<> OnAccept;

    /// Where swatches stand, in the order of the rows.
    enum TRow : std::uint8_t
    {
        rwDistinct,
        rwPlain,
        rwRecent,
        rwDesktop
    };
    TKxColorSwatches& Swatches(TRow row) { return FRows[row]; }
    TKxSpinIntegerEdit& PartEdit(int part) { return FParts[static_cast<std::size_t>(part)]; }
    TCustomEdit& TextEdit() { return FText; }
    TCustomButton& AcceptButton() { return FAccept; }
    TCustomButton& CancelButton() { return FCancel; }

protected:
    void Paint() override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    void PlaceLabel(std::size_t index, const char* text, int left, int top);
    void Place(TWindowControl& control, const TRect& box);
    void PlaceRows();
    void PlaceEdits();
    void PlaceButtons();
    void FillRecent();
    /// A new colour, which everything but `from` is to show.
    void Take(TColor color, const TWindowControl* from);
    void TakeParts(const TWindowControl* from);
    void ServeKey(int key, TShiftState shift);

    /// A part of the form that is no component of its own.
    template <class T>
    struct TPart : T
    {
        TPart() : T(nullptr) {}
    };

    std::array<TPart<TTextLabel>, 8> FLabels;
    std::array<TPart<TKxColorSwatches>, 4> FRows;
    std::array<TPart<TKxSpinIntegerEdit>, 3> FParts;
    TPart<TCustomEdit> FText;
    TPart<TCustomButton> FAccept, FCancel;
    std::vector<TWindowControl*> FTabOrder;
    TKxRecentColors* FRecent = nullptr;
    TColor FSelected = clBlack;
    TColor FBefore = clBlack;  ///< when it was opened
    bool FTaking = false;
};

}  // namespace plotkit
