#include "plotkit/Document.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/DateCaption.h"
#include "plotkit/LogColumns.h"
#include "plotkit/LookFile.h"
#include "plotkit/TableNotes.h"

namespace plotkit {
namespace {

/// A look may make an axis logarithmic too.
TOptions WithScalesOf(const TPlot& plot, TOptions options)
{
    const auto fit = [](TScaleChoice& scale, const TKxAxis* axis) {
        if (axis->GetScaling() == AxLog || axis->GetScaling() == AxLogEE)
            scale = axis->GetScaling() == AxLog ? scLog : scLogEE;
    };
    fit(options.XScale, plot.Graph->GetPrimaryXAxis());
    fit(options.YScale, plot.Graph->GetPrimaryYAxis());
    return options;
}

/// What the columns alone ask for.
TOptions Undressed(TOptions options)
{
    options.LookFile.clear();
    options.Title.reset();
    options.XCaption.reset();
    options.YCaption.reset();
    options.XScale = options.YScale = scAuto;
    options.Follow.reset();
    return options;
}

/// A dark form in the colours for light desktops while it lasts.
class TLightColours
{
public:
    TLightColours(TForm& form, bool isDark) : FForm(form), FIsDark(isDark)
    {
        if (FIsDark)
            Recolour(FForm, DarkScheme(), LightScheme());
    }
    TLightColours(const TLightColours&) = delete;
    TLightColours& operator=(const TLightColours&) = delete;
    ~TLightColours()
    {
        if (FIsDark)
            Recolour(FForm, LightScheme(), DarkScheme());
    }

private:
    TForm& FForm;
    bool FIsDark;
};

/// What a look made by hand leaves of them.
TOptions WithoutWishes(const TPlot& plot, TOptions options)
{
    const TOptions plain;
    options.Title.reset();
    options.XCaption.reset();
    options.YCaption.reset();
    options.Grid = plain.Grid;
    options.MinorGrid = plain.MinorGrid;
    options.Area = plain.Area;
    options.Line = plain.Line;
    options.Points = plain.Points;
    if (options.Legend != lcNone)
        options.Legend = plain.Legend;
    const auto free = [](TScaleChoice& scale, const TKxAxis* axis) {
        if (scale != scAuto && ScalingOf(scale, false) != axis->GetScaling())
            scale = scAuto;
    };
    free(options.XScale, plot.Graph->GetPrimaryXAxis());
    free(options.YScale, plot.Graph->GetPrimaryYAxis());
    return options;
}

}  // namespace

TDocument::TDocument(const TOptions& options, const TReadProgress& progress)
    : FOrigin(OriginOf(options)), FTable(FOrigin->Read({options.Reading, progress, options.Follow.has_value()}))
{
    Build(options);
}

std::string TDocument::Description() const
{
    return DescribeReading(FTable) + "\n" + ChoiceDescription();
}

void TDocument::Build(const TOptions& options)
{
    TColumnChoice choice = ChooseColumns(FTable, options.X, options.Ys);
    std::vector<std::string> notes = DescribeDoubts(FTable, choice);
    const TOptions scaled = options.LookFile.empty() ? options : WithScalesOf(BuildPlot(choice, options), options);
    for (std::string& note : FitToLogScales(choice, scaled))
        notes.push_back(std::move(note));
    TPlot plot = BuildPlot(choice, options);
    FFollowed.reset();
    notes.insert(notes.end(), plot.Notes.begin(), plot.Notes.end());
    FOptions = options;
    FChoice = std::move(choice);
    FPlot = std::move(plot);
    FNotes = std::move(notes);
    StartFollowing();
}

void TDocument::StartFollowing()
{
    if (!FOptions.Follow)
        return;
    FFollowed = std::make_unique<TFollowedPlot>(
        FPlot, FOrigin->Follow(FTable, FollowedColumns(FChoice), FOptions.Reading), WithScalesOf(FPlot, FOptions));
    FFollowed->OnNote = [this](const std::string& note) {
        if (OnNote)
            OnNote(note);
    };
    FFollowed->OnGrown = [this](const TFollowedRows& rows) {
        Count(rows);
        if (OnGrown)
            OnGrown();
    };
    FFollowed->Start();
}

void TDocument::Count(const TFollowedRows& rows)
{
    const auto count = [&](TChosenColumn& column, const std::vector<double>& values) {
        if (rows.IsRestart)
            column.RowCount = column.ValueCount = column.BadCount = 0;
        column.RowCount += values.size();
        column.ValueCount += static_cast<std::size_t>(
            std::count_if(values.begin(), values.end(), [](double value) { return !std::isnan(value); }));
    };
    count(FChoice.X, rows.Values.at(0));
    for (std::size_t i = 0; i < FChoice.Ys.size(); ++i)
        count(FChoice.Ys[i], rows.Values.at(i + 1));
}

std::vector<std::string> TDocument::ColumnNames() const
{
    std::vector<std::string> names;
    for (const TCsvColumn& column : FTable.Columns)
        names.push_back(column.Name);
    return names;
}

int TDocument::XColumn() const
{
    return FChoice.X.Sources.size() == 1 ? static_cast<int>(FChoice.X.Sources[0]) : -1;
}

std::vector<int> TDocument::YColumns() const
{
    std::vector<int> numbers;
    for (const TChosenColumn& column : FChoice.Ys)
        if (!column.Sources.empty())
            numbers.push_back(static_cast<int>(column.Sources[0]));
    return numbers;
}

void TDocument::Choose(int x, const std::vector<int>& ys)
{
    TOptions options = FOptions;
    options.X = x < 0 ? std::nullopt : std::optional(std::to_string(x + 1));
    options.Ys.clear();
    for (const int y : ys)
        options.Ys.push_back(std::to_string(y + 1));
    // They named other columns.
    options.XCaption.reset();
    options.YCaption.reset();
    Build(options);
}

void TDocument::SetScales(TScaleChoice x, TScaleChoice y)
{
    TOptions options = FOptions;
    options.XScale = x;
    options.YScale = y;
    Build(options);
}

void TDocument::SetScheme(TSchemeChoice scheme)
{
    if (scheme == FOptions.Scheme)
        return;
    TOptions options = FOptions;
    options.Scheme = scheme;
    TKxIniList look;
    FPlot.Graph->SaveOutfit("Graph", look);
    TPlot plot = BuildPlot(FChoice, options);
    plot.Graph->LoadOutfit("Graph", look);
    if (FPlot.Graph->GetPrimaryXAxis()->GetUserCaption() == FPlot.DateCaption)
        plot.DateCaption = FPlot.DateCaption;
    if (scheme == ccDark)
        Recolour(*plot.Form, LightScheme(), DarkScheme());
    else
        Recolour(*plot.Form, DarkScheme(), LightScheme());
    FFollowed.reset();
    FOptions = options;
    FPlot = std::move(plot);
    // What the file got since it was read comes with the first look at it.
    StartFollowing();
}

void TDocument::UseLook(const std::string& fileName)
{
    TOptions options = FOptions;
    options.LookFile = fileName;
    Build(options);
}

void TDocument::SaveLookAs(const std::string& fileName)
{
    const TPlot plain = BuildPlot(FChoice, Undressed(FOptions));
    // The dates of the caption are those of the present view.
    if (FPlot.DateName && FPlot.Graph->GetPrimaryXAxis()->GetUserCaption() == FPlot.DateCaption)
        plain.Graph->GetPrimaryXAxis()->SetUserCaption(FPlot.Graph->GetPrimaryXAxis()->GetUserCaption());
    const TLightColours light(*FPlot.Form, FOptions.Scheme == ccDark);
    SaveLook(*FPlot.Graph, *plain.Graph, fileName);
}

std::vector<std::string> TDocument::Wear(const std::string& fileName)
{
    return DressPlot(FPlot, FOptions, fileName);
}

void TDocument::KeepLook(const std::string& fileName)
{
    // Of an earlier look nothing stays.
    std::filesystem::remove(fileName);
    SaveLookAs(fileName);
    FOptions = WithoutWishes(FPlot, FOptions);
    FOptions.LookFile = fileName;
}

void TDocument::RefreshDates()
{
    TKxAxis& axis = *FPlot.Graph->GetPrimaryXAxis();
    if (!FPlot.DateName || axis.GetUserCaption() != FPlot.DateCaption)
        return;
    RefreshDateCaption(*FPlot.Graph, *FPlot.DateName);
    FPlot.DateCaption = axis.GetUserCaption();
}

}  // namespace plotkit
