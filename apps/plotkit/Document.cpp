#include "plotkit/Document.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "host/Errors.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/DateCaption.h"
#include "plotkit/LogColumns.h"
#include "plotkit/LookFile.h"
#include "plotkit/TableNotes.h"
#include "plotkit/fit/FitBuilder.h"
#include "plotkit/fit/FitLabels.h"
#include "plotkit/fit/FitWishes.h"

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

/// Weights that a look names are those of other data where there is no such column.
std::optional<TChosenColumn> ChooseWeights(const TCsvTable& table, const TOptions& options,
                                           std::vector<std::string>& notes)
{
    if (!options.Fit.Weights.empty())
        return ChooseColumn(table, options.Fit.Weights, "--weights");
    if (options.LookFile.empty() || !options.Fit.Fits.empty())
        return std::nullopt;
    std::vector<std::string> unread;
    const std::string weights = LoadFits(options.LookFile, unread).Weights;
    try {
        return weights.empty() ? std::nullopt : std::optional(ChooseColumn(table, weights, "weights of the look"));
    } catch (const EConvertError& error) {
        notes.push_back(error.Message());
        return std::nullopt;
    }
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
    options.Fit.Results.clear();
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
    TColumnChoice choice = ChooseColumns(FTable, options.X, options.Ys, options.Kind.Columns);
    std::vector<std::string> notes;
    choice.Weights = ChooseWeights(FTable, options, notes);
    for (std::string& doubt : DescribeDoubts(FTable, choice))
        notes.push_back(std::move(doubt));
    const TOptions scaled = options.LookFile.empty() ? options : WithScalesOf(BuildPlot(choice, options), options);
    for (std::string& note : FitToLogScales(choice, scaled))
        notes.push_back(std::move(note));
    TPlot plot = BuildPlot(choice, options);
    FFollowed.reset();
    notes.insert(notes.end(), plot.Notes.begin(), plot.Notes.end());
    FOptions = options;
    FChoice = std::move(choice);
    FNotes = std::move(notes);
    Take(std::move(plot));
    StartFollowing();
}

void TDocument::Take(TPlot plot)
{
    FPlot = std::move(plot);
    FOptions.Fit = FPlot.Fit;
    FPlot.News->OnFailure = [this](const std::string& message) {
        if (OnNote)
            OnNote(message);
    };
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

std::vector<std::string> TDocument::YNames() const
{
    std::vector<std::string> names;
    for (const TChosenColumn& column : FChoice.Ys)
        names.push_back(column.Name);
    return names;
}

void TDocument::Choose(int x, const std::vector<int>& ys)
{
    TOptions options = FOptions;
    options.X = x < 0 ? std::nullopt : std::optional(std::to_string(x + 1));
    options.Ys.clear();
    for (const int y : ys)
        options.Ys.push_back(std::to_string(y + 1));
    const TColumnChoice choice = ChooseColumns(FTable, options.X, options.Ys);
    std::erase_if(options.Fit.Fits, [&](const TFitWish& wish) { return !HasOrdinates(wish, choice); });
    // They named other columns.
    options.XCaption.reset();
    options.YCaption.reset();
    Build(options);
}

TKxAxScaling TDocument::ScalingFor(bool isX, TScaleChoice scale) const
{
    return ScalingOf(scale, FChoice.X.IsDateTime && isX != FOptions.Kind.Horizontal);
}

TScaleChoice TDocument::Scale(bool isX) const
{
    const TKxAxis& axis = isX ? *FPlot.Graph->GetPrimaryXAxis() : *FPlot.Graph->GetPrimaryYAxis();
    const TScaleChoice wished = isX ? FOptions.XScale : FOptions.YScale;
    for (const TScaleChoice choice : {wished, scLinear, scLog, scLogEE})
        if (ScalingFor(isX, choice) == axis.GetScaling())
            return choice;
    return scTime;
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
    TOptions undressed = options;
    undressed.LookFile.clear();
    TPlot plot = BuildPlot(FChoice, undressed);
    plot.DateName = FPlot.DateName;
    plot.Graph->LoadOutfit("Graph", look);
    if (FPlot.Graph->GetPrimaryXAxis()->GetUserCaption() == FPlot.DateCaption)
        plot.DateCaption = FPlot.DateCaption;
    if (scheme == ccDark)
        Recolour(*plot.Form, LightScheme(), DarkScheme());
    else
        Recolour(*plot.Form, DarkScheme(), LightScheme());
    FFollowed.reset();
    FOptions = options;
    Take(std::move(plot));
    // What the file got since it was read comes with the first look at it.
    StartFollowing();
}

void TDocument::SetFits(const TFitOptions& fits)
{
    TOptions options = FOptions;
    options.Fit = fits;
    options.Fit.TakeFromLook = false;
    plotkit::SetFits(FPlot, FChoice, options);
    FOptions.Fit = FPlot.Fit;
    FPlot.Form->Picture();
    PlaceLabels(FPlot);
}

void TDocument::KeepLabelsInside()
{
    plotkit::KeepLabelsInside(FPlot);
}

void TDocument::UseLook(const std::string& fileName)
{
    TOptions options = FOptions;
    options.LookFile = fileName;
    std::vector<std::string> unread;
    if (!LoadFits(fileName, unread).Fits.empty())
        options.Fit = {};
    Build(options);
}

void TDocument::SaveLookAs(const std::string& fileName)
{
    const TPlot plain = BuildPlot(FChoice, Undressed(FOptions));
    // The dates of the caption are those of the present view.
    if (FPlot.DateName && FPlot.Graph->GetPrimaryXAxis()->GetUserCaption() == FPlot.DateCaption)
        plain.Graph->GetPrimaryXAxis()->SetUserCaption(FPlot.Graph->GetPrimaryXAxis()->GetUserCaption());
    const TLightColours light(*FPlot.Form, FOptions.Scheme == ccDark);
    SaveLook(*FPlot.Graph, *plain.Graph, FPlot.Fit, fileName);
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
