#include "graph/KxResultLabel.h"

#include <algorithm>

#include "foundation/KxStrings.h"

namespace plotkit {

namespace {

constexpr std::array ResultLabelProperties{
    Reference<&TKxResultLabel::GetSeries, &TKxResultLabel::SetSeries>("Series"),
    Property<&TKxResultLabel::GetIdentifier, &TKxResultLabel::SetIdentifier>("Identifier"),
    Property<&TKxResultLabel::GetDigits, &TKxResultLabel::SetDigits>("Digits"),
};

constexpr const char* NoResult = "...";

}  // namespace

constinit const TClassInfo TKxResultLabel::Class{"TKxResultLabel", &TKxCustomLabel::Class, ResultLabelProperties,
                                                 &CreateComponent<TKxResultLabel>};

TKxResultLabel::~TKxResultLabel()
{
    BeginDestroy();
    if (FSeries)
        FSeries->RemoveResultLabel(this);
}

void TKxResultLabel::SetSeries(TKxResultSource* series)
{
    if (FSeries == series)
        return;
    if (FSeries)
        FSeries->RemoveResultLabel(this);
    if (FSeriesComponent)
        StopWatching(FSeriesComponent);
    FSeries = series;
    FSeriesComponent = dynamic_cast<TComponent*>(series);
    if (FSeriesComponent)
        WatchFor(FSeriesComponent);
    if (FSeries)
        FSeries->AddResultLabel(this);
    SetResult();
}

void TKxResultLabel::SetIdentifier(const TKxIDString& identifier)
{
    if (FIdentifier == identifier)
        return;
    FIdentifier = identifier;
    SetResult();
}

void TKxResultLabel::SetDigits(int digits)
{
    digits = std::clamp(digits, 0, 18);
    if (FDigits == digits)
        return;
    FDigits = digits;
    SetResult();
}

void TKxResultLabel::SetResult()
{
    std::string text = NoResult;
    if (FSeries && !FIdentifier.empty())
        text = FSeries->ResultText(FIdentifier);
    if (IsNumber(text)) {
        std::string rest = Americanize(text);
        text = RealToStrDigits(ExtractOneReal(rest), FDigits);
    }
    SetCaption(text);
}

void TKxResultLabel::Notification(TComponent* component, TOperation operation)
{
    TKxCustomLabel::Notification(component, operation);
    if (operation != opRemove || component != FSeriesComponent || !component)
        return;
    // The series' own list of labels goes with it and is not touched any more.
    FSeries = nullptr;
    FSeriesComponent = nullptr;
    if (!IsDestroying())
        SetResult();
}

}  // namespace plotkit
