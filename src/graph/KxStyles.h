// The job of KxStyles is the small objects that say how a line, an area or the symbols of points look.
#pragma once

#include "graph/KxPointSymbol.h"
#include "host/Component.h"
#include "host/DrawDevice.h"

namespace plotkit {

/// What all styles share: the component that hears of changes. A plottable or a graph panel is told by its `Modified`,
/// any other control is invalidated; a style without owner just stores.
class TKxStyle : public TPersistent
{
public:
    explicit TKxStyle(TComponent* owner) : FOwner(owner) {}
    TComponent* Owner() const { return FOwner; }

protected:
    void TellOwner();

    template <class T>
    void Change(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        TellOwner();
    }

private:
    TComponent* FOwner;
};

class TKxLineStyle : public TKxStyle
{
public:
    using TKxStyle::TKxStyle;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
    /// From another line style; the owner hears of it once.
    void Assign(const TPersistent& source) override;

    bool GetVisible() const { return FValues.Visible; }
    void SetVisible(bool visible) { Change(FValues.Visible, visible); }
    TColor GetColor() const { return FValues.Color; }
    void SetColor(TColor color) { Change(FValues.Color, color); }
    TPenStyle GetStyle() const { return FValues.Style; }
    void SetStyle(TPenStyle style) { Change(FValues.Style, style); }
    int GetWidth() const { return FValues.Width; }
    /// Pixels of 1/96 inch; negative widths are taken as 0.
    void SetWidth(int width) { Change(FValues.Width, width < 0 ? 0 : width); }

private:
    struct TValues
    {
        bool Visible = true;
        TColor Color = clRed;
        TPenStyle Style = psSolid;
        int Width = 1;
        friend bool operator==(const TValues&, const TValues&) = default;
    };
    TValues FValues;
};

class TKxAreaStyle : public TKxStyle
{
public:
    using TKxStyle::TKxStyle;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
    /// From another area style; the owner hears of it once.
    void Assign(const TPersistent& source) override;

    bool GetVisible() const { return FValues.Visible; }
    void SetVisible(bool visible) { Change(FValues.Visible, visible); }
    bool GetDrawXOred() const { return FValues.DrawXOred; }
    /// Exclusive-or keeps what lies below visible.
    void SetDrawXOred(bool xored) { Change(FValues.DrawXOred, xored); }
    TColor GetColor() const { return FValues.Color; }
    void SetColor(TColor color) { Change(FValues.Color, color); }
    TBrushStyle GetStyle() const { return FValues.Style; }
    void SetStyle(TBrushStyle style) { Change(FValues.Style, style); }

private:
    struct TValues
    {
        bool Visible = true;
        bool DrawXOred = true;
        TColor Color = clGray;
        TBrushStyle Style = bsSolid;
        friend bool operator==(const TValues&, const TValues&) = default;
    };
    TValues FValues;
};

class TKxPointStyle : public TKxStyle
{
public:
    using TKxStyle::TKxStyle;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
    /// From another point style; the owner hears of it once.
    void Assign(const TPersistent& source) override;

    bool GetVisible() const { return FValues.Visible; }
    void SetVisible(bool visible) { Change(FValues.Visible, visible); }
    TColor GetColor() const { return FValues.Color; }
    void SetColor(TColor color) { Change(FValues.Color, color); }
    TKxPointSymbol GetStyle() const { return FValues.Style; }
    void SetStyle(TKxPointSymbol style) { Change(FValues.Style, style); }
    int GetSize() const { return FValues.Size; }
    /// Pixels of 1/96 inch from the centre to the symbol's edge; negative sizes are taken as 5.
    void SetSize(int size) { Change(FValues.Size, size < 0 ? 5 : size); }
    int GetWidth() const { return FValues.Width; }
    /// Pixels of 1/96 inch; negative widths are taken as 0.
    void SetWidth(int width) { Change(FValues.Width, width < 0 ? 0 : width); }

private:
    struct TValues
    {
        bool Visible = true;
        TColor Color = clBlue;
        TKxPointSymbol Style = SyCircle;
        int Size = 5;
        int Width = 1;
        friend bool operator==(const TValues&, const TValues&) = default;
    };
    TValues FValues;
};

}  // namespace plotkit
