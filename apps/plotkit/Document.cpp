#include "plotkit/Document.h"

#include "foundation/KxLargeIni.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/DateCaption.h"
#include "plotkit/LogColumns.h"
#include "plotkit/LookFile.h"
#include "plotkit/TableNotes.h"

namespace plotkit {

TDocument::TDocument(const TOptions& options, const TReadProgress& progress)
    : FTable(ReadCsvFile(options.File, {options.Reading, progress, options.Follow.has_value()}))
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
    for (std::string& note : FitToLogScales(choice, options))
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
    FFollowed = std::make_unique<TFollowedPlot>(FPlot, FTable, FChoice, FOptions);
    FFollowed->OnNote = [this](const std::string& note) {
        if (OnNote)
            OnNote(note);
    };
    FFollowed->OnGrown = [this] {
        if (OnGrown)
            OnGrown();
    };
    FFollowed->Start();
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
    std::vector<std::string> notes = DressPlot(FPlot, FOptions, fileName);
    FOptions.LookFile = fileName;
    if (FPlot.DateName)
        RefreshDateCaption(*FPlot.Graph, *FPlot.DateName);
    FNotes = std::move(notes);
}

void TDocument::SaveLookAs(const std::string& fileName)
{
    const bool isDark = FOptions.Scheme == ccDark;
    if (isDark)
        Recolour(*FPlot.Form, DarkScheme(), LightScheme());
    try {
        SaveLook(*FPlot.Graph, fileName);
    } catch (...) {
        if (isDark)
            Recolour(*FPlot.Form, LightScheme(), DarkScheme());
        throw;
    }
    if (isDark)
        Recolour(*FPlot.Form, LightScheme(), DarkScheme());
}

}  // namespace plotkit
