// The job of KxColorPickCombo is a drop-down of colours, the ones that all eyes tell apart first.
#pragma once

#include "controls/KxColorPickerForm.h"
#include "host/CustomComboBox.h"

namespace plotkit {

/// Distinct, plain, recent and desktop colours with their names, each kind behind a line; the last item opens the
/// window for any other colour. A selected colour that is none of them stands among the recent ones.
class TKxColorPickCombo : public TCustomComboBox
{
public:
    explicit TKxColorPickCombo(TComponent* owner);
    ~TKxColorPickCombo() noexcept override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TColor GetSelected() const { return FSelected; }
    void SetSelected(TColor color);
    TKxRecentColors* GetRecent() const { return FRecent; }
    void SetRecent(TKxRecentColors* recent);

    /// The window, made on first use: whoever shows windows puts a site on it at its `OnShow`.
    TKxColorPickerForm& PickerForm();
    void DropDown() override;

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override;
    void ItemTaken(int index, bool fromList) override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    struct TItem
    {
        TColor Color;
        bool IsFirst;  ///< of its kind
    };

    void FillItems();
    void Offer(std::span<const TKxNamedColor> colors);
    bool IsOther(int index) const { return index == static_cast<int>(FColors.size()); }
    void TakeAccepted();

    std::vector<TItem> FColors;
    std::unique_ptr<TKxColorPickerForm> FForm;
    TKxRecentColors* FRecent = nullptr;
    TColor FSelected = clBlack;
};

}  // namespace plotkit
