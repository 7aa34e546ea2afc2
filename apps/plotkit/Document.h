// The job of Document is one open data file: its table, the columns chosen from it and their graph.
#pragma once

#include <string>
#include <vector>

#include "plotkit/ColumnChoice.h"
#include "plotkit/GraphBuilder.h"

namespace plotkit {

/// Every operation raises before it changes anything: EFileError, EConvertError as those of reading, choosing,
/// building.
class TDocument
{
public:
    explicit TDocument(const TOptions& options);

    const TOptions& Options() const { return FOptions; }
    const TPlot& Plot() const { return FPlot; }
    /// Which columns are plotted and how many values.
    std::string Description() const { return DescribeChoice(FChoice); }
    /// What the user should know of the latest reading or building, a line each.
    const std::vector<std::string>& Notes() const { return FNotes; }

    std::vector<std::string> ColumnNames() const;
    /// Numbers from 0; -1 where no single column is the abscissa.
    int XColumn() const;
    std::vector<int> YColumns() const;

    // Each makes a new graph in the place of the present one.
    /// An `x` of -1 leaves the choice to the program.
    void Choose(int x, const std::vector<int>& ys);
    void SetScales(TScaleChoice x, TScaleChoice y);
    /// In the colours for a light or a dark desktop, with the look and the view that the graph has now.
    void SetScheme(TSchemeChoice scheme);

    /// Gives the graph the look that a file keeps, and keeps to that file for graphs to come; looks are kept in the
    /// colours for light desktops. The notes say what could not be used.
    void UseLook(const std::string& fileName);
    void SaveLookAs(const std::string& fileName);

private:
    int NumberOf(const std::string& name) const;
    void Build(const TOptions& options);

    TOptions FOptions;
    TCsvTable FTable;
    TColumnChoice FChoice;
    TPlot FPlot;
    std::vector<std::string> FNotes;
};

}  // namespace plotkit
