#include "controls/ControlsClasses.h"

#include <array>

#include "controls/KxCaptionEdit.h"
#include "controls/KxColorBtn.h"
#include "controls/KxColorPickCombo.h"
#include "controls/KxFloatEdit.h"
#include "controls/KxIntegerEdit.h"
#include "controls/KxSelectBrushStyle.h"
#include "controls/KxSelectLine.h"
#include "controls/KxSelectPoints.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 14> Classes{
    &TKxColorBtn::Class,        &TKxColorPickCombo::Class,   &TKxColorPickerForm::Class,  &TKxRecentColors::Class,
    &TKxCaptionEdit::Class,     &TKxIntegerEdit::Class,      &TKxSpinIntegerEdit::Class,  &TKxFloatEdit::Class,
    &TKxLineStylesList::Class,  &TKxLineStylesCombo::Class,  &TKxPointSymbolsList::Class, &TKxPointSymbolsCombo::Class,
    &TKxBrushStylesList::Class, &TKxBrushStylesCombo::Class,
};

}  // namespace

std::span<const TClassInfo* const> ControlsClasses()
{
    return Classes;
}

}  // namespace plotkit
