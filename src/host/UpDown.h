// The job of UpDown is a pair of small buttons that step a number up and down, for as long as they are held.
#pragma once

#include "host/Timer.h"
#include "host/WindowControl.h"

namespace plotkit {

enum TUpDownButton : std::uint8_t
{
    udUp,
    udDown
};

class TUpDown : public TWindowControl
{
public:
    explicit TUpDown(TComponent* owner);
    ~TUpDown() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The edit beside the buttons, which gets the focus when they are pressed.
    TWindowControl* GetAssociate() const { return FAssociate; }
    void SetAssociate(TWindowControl* associate);
    /// The own count of the buttons, kept between the bounds.
    int GetMin() const { return FMin; }
    void SetMin(int min);
    int GetMax() const { return FMax; }
    void SetMax(int max);
    int GetPosition() const { return FPosition; }
    void SetPosition(int position);

    /// Counts, and tells `OnStep`, whether the count could go on or not.
    void Step(TUpDownButton button);
    TEvent<TUpDownButton> OnStep;

    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;

protected:
    void Paint() override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    void Repeat();
    void PaintButton(TCanvas& canvas, TUpDownButton button, const TRect& box);

    TWindowControl* FAssociate = nullptr;
    std::unique_ptr<TTimer> FTimer;
    int FMin = -32768;
    int FMax = 32767;
    int FPosition = 0;
    TUpDownButton FPressed = udUp;  ///< while the timer runs
};

}  // namespace plotkit
