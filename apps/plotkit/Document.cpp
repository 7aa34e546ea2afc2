#include "plotkit/Document.h"

#include "foundation/KxLargeIni.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/DateCaption.h"
#include "plotkit/LogColumns.h"
#include "plotkit/LookFile.h"

namespace plotkit {

TDocument::TDocument(const TOptions& options) : FTable(ReadCsvFile(options.File))
{
    Build(options);
}

void TDocument::Build(const TOptions& options)
{
    TColumnChoice choice = ChooseColumns(FTable, options.X, options.Ys);
    std::vector<std::string> notes = DescribeBadCells(FTable, choice);
    for (std::string& note : FitToLogScales(choice, options))
        notes.push_back(std::move(note));
    TPlot plot = BuildPlot(choice, options);
    notes.insert(notes.end(), plot.Notes.begin(), plot.Notes.end());
    FOptions = options;
    FChoice = std::move(choice);
    FPlot = std::move(plot);
    FNotes = std::move(notes);
}

std::vector<std::string> TDocument::ColumnNames() const
{
    std::vector<std::string> names;
    for (const TCsvColumn& column : FTable.Columns)
        names.push_back(column.Name);
    return names;
}

int TDocument::NumberOf(const std::string& name) const
{
    for (std::size_t i = 0; i < FTable.Columns.size(); ++i)
        if (FTable.Columns[i].Name == name)
            return static_cast<int>(i);
    return -1;
}

int TDocument::XColumn() const
{
    return NumberOf(FChoice.X.Name);
}

std::vector<int> TDocument::YColumns() const
{
    std::vector<int> numbers;
    for (const TChosenColumn& column : FChoice.Ys)
        numbers.push_back(NumberOf(column.Name));
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
    FOptions = options;
    FPlot = std::move(plot);
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
