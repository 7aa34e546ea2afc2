#include <algorithm>

#include "foundation/KxLargeIni.h"
#include "host/Application.h"
#include "host/Form.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

/// Far beyond every screen, and no sum of two leaves 32 bits.
constexpr int FarthestPixel = 1 << 29;

std::string Key(std::string_view prefix, std::string_view name)
{
    std::string key(prefix);
    key += name;
    return key;
}

}  // namespace

void TKxIniList::WriteFont(TText section, TText prefix, const TFont& font)
{
    WriteString(section, Key(prefix, ".Name"), font.GetName());
    WriteInteger(section, Key(prefix, ".Charset"), font.GetCharset());
    WriteInteger(section, Key(prefix, ".Color"), ColorToInt(font.GetColor()));
    WriteInteger(section, Key(prefix, ".Size"), font.GetSize());
    WriteBool(section, Key(prefix, ".Bold"), font.GetBold());
    WriteBool(section, Key(prefix, ".Italic"), font.GetItalic());
    WriteBool(section, Key(prefix, ".Underline"), font.GetUnderline());
    WriteBool(section, Key(prefix, ".StrikeOut"), font.GetStrikeOut());
}

void TKxIniList::ReadFont(TText section, TText prefix, TFont& font) const
{
    font.SetName(ReadString(section, Key(prefix, ".Name"), font.GetName()));
    font.SetCharset(ReadInteger(section, Key(prefix, ".Charset"), font.GetCharset()));
    font.SetColor(IntToColor(ReadInteger(section, Key(prefix, ".Color"), ColorToInt(font.GetColor()))));
    font.SetSize(ReadInteger(section, Key(prefix, ".Size"), font.GetSize()));
    font.SetBold(ReadBool(section, Key(prefix, ".Bold"), font.GetBold()));
    font.SetItalic(ReadBool(section, Key(prefix, ".Italic"), font.GetItalic()));
    font.SetUnderline(ReadBool(section, Key(prefix, ".Underline"), font.GetUnderline()));
    font.SetStrikeOut(ReadBool(section, Key(prefix, ".StrikeOut"), font.GetStrikeOut()));
}

void TKxIniList::WriteFormPrms(TText section, TText prefix, TForm& form)
{
    const TWindowState state = form.GetWindowState();
    WriteInteger(section, Key(prefix, ".State"), state);
    const bool shown = form.IsShown();
    if (state != wsNormal) {
        form.Show();
        form.SetWindowState(wsNormal);
    }
    WriteInteger(section, Key(prefix, ".Top"), form.GetTop());
    WriteInteger(section, Key(prefix, ".Left"), form.GetLeft());
    WriteInteger(section, Key(prefix, ".Height"), form.GetHeight());
    WriteInteger(section, Key(prefix, ".Width"), form.GetWidth());
    if (state != wsNormal) {
        form.SetWindowState(state);
        if (!shown)
            form.Hide();
    }
}

void TKxIniList::ReadFormPrms(TText section, TText prefix, TForm& form) const
{
    const auto state = ReadOrdinal(section, Key(prefix, ".State"), form.GetWindowState(), WindowStateNames.size());
    const TRect before = form.NormalBounds();
    const auto pixel = [&](std::string_view name, int present, int least) {
        return std::clamp(ReadInteger(section, Key(prefix, name), present), least, FarthestPixel);
    };
    const int top = pixel(".Top", before.Top, -FarthestPixel);
    const int left = pixel(".Left", before.Left, -FarthestPixel);
    const int height = pixel(".Height", before.Height(), 0);
    const int width = pixel(".Width", before.Width(), 0);
    if (before != TRect{left, top, left + width, top + height}) {
        form.SetWindowState(wsNormal);
        form.SetBounds(left, top, width, height);
    }
    form.SetWindowState(state);
}

void TKxIniList::ReadFormPos(TText section, TText prefix, TForm& form) const
{
    int top = ReadInteger(section, Key(prefix, ".Top"), form.GetTop());
    int left = ReadInteger(section, Key(prefix, ".Left"), form.GetLeft());
    const TRect screen = Host().ScreenRect();
    const TRect place{left, top, AddPixels(left, form.GetWidth()), AddPixels(top, form.GetHeight())};
    if (place.Intersected(screen).IsEmpty()) {
        left = screen.Left + (screen.Width() - form.GetWidth()) / 2;
        top = screen.Top + (screen.Height() - form.GetHeight()) / 2;
    }
    form.SetBounds(left, top, form.GetWidth(), form.GetHeight());
}

TComponent* TKxIniList::ReadComponent(TText section, TText ident, TComponent* present) const
{
    const TText path = FindValue(section, ident);
    TComponent* const found = path.empty() ? nullptr : Application().FindByPath(path);
    return found ? found : present;
}

void TKxIniList::WriteComponentRef(TText section, TText ident, const TComponent* component)
{
    WriteString(section, ident, component ? component->NamePath() : std::string());
}

}  // namespace plotkit
