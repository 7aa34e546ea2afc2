#include "qt/KxPicture.h"

#include "host/Host.h"
#include "host/RecordingColors.h"

namespace plotkit {

namespace {

/// Puts a root back to the resolution and place it had.
class TRootGuard
{
public:
    explicit TRootGuard(TWindowControl& root) : FRoot(root), FScale(root.OwnPixelScale()), FBounds(root.Bounds()) {}
    TRootGuard(const TRootGuard&) = delete;
    TRootGuard& operator=(const TRootGuard&) = delete;
    ~TRootGuard()
    {
        try {
            FRoot.SetPixelScale(FScale);
            FRoot.SetBounds(FBounds.Left, FBounds.Top, FBounds.Width(), FBounds.Height());
        } catch (const std::exception& error) {
            Host().HandleError(error);
        }
    }

private:
    TWindowControl& FRoot;
    double FScale;
    TRect FBounds;
};

/// Whether the picture begins with a filling of all of it.
bool HasGround(const TRecording& picture, const TRect& page)
{
    const auto* box = picture.Commands.empty() ? nullptr : std::get_if<TRectangleCommand>(picture.Commands.data());
    return box && box->State.Mode == dmCopy && box->Brush.Style == bsSolid &&
           page.Intersected(box->Box).Intersected(box->State.Clip) == page;
}

}  // namespace

double Inches96(double length, TLengthUnit unit, double dpi)
{
    return unit == luInch96 ? length : length * 96 / (unit == luPixels ? dpi : InchMillimetres);
}

TMetafile PaintPicture(TWindowControl& root, TSize pixels, double scale, bool light)
{
    const TRootGuard guard(root);
    root.SetPixelScale(scale);
    root.SetBounds(root.GetLeft(), root.GetTop(), pixels.Width, pixels.Height);
    TMetafile picture;
    picture.Width = pixels.Width;
    picture.Height = pixels.Height;
    picture.PixelScale = scale;
    picture.Recording = root.Picture();
    const TRect page{0, 0, pixels.Width, pixels.Height};
    if (!HasGround(picture.Recording, page)) {
        const TPenState none{clBlack, psClear, 1};
        picture.Recording.Commands.insert(picture.Recording.Commands.begin(),
                                          TRectangleCommand{page, none, {root.GetColor(), bsSolid}, {}});
    }
    if (light)
        picture.Recording = LightColors(std::move(picture.Recording), pixels, root.GetColor());
    return picture;
}

}  // namespace plotkit
