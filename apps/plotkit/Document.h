// The job of Document is one open data file: its table, the columns chosen from it and their graph.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "plotkit/ColumnChoice.h"
#include "plotkit/FollowedPlot.h"
#include "plotkit/GraphBuilder.h"
#include "plotkit/TableOrigin.h"

namespace plotkit {

/// The file is followed when the options say so. Every operation raises before it changes anything: EFileError,
/// EConvertError as those of reading, choosing, building.
class TDocument
{
public:
    explicit TDocument(const TOptions& options, const TReadProgress& progress = {});
    TDocument(const TDocument&) = delete;
    TDocument& operator=(const TDocument&) = delete;

    const TOptions& Options() const { return FOptions; }
    const TPlot& Plot() const { return FPlot; }
    /// How the file was read, a line, and which columns are plotted and how many values, another.
    std::string Description() const;
    std::string ChoiceDescription() const { return DescribeChoice(FChoice); }
    /// What the user should know of the latest reading or building, a line each.
    const std::vector<std::string>& Notes() const { return FNotes; }

    std::vector<std::string> ColumnNames() const;
    /// Numbers from 0; -1 where not one single column is the abscissa.
    int XColumn() const;
    std::vector<int> YColumns() const;
    std::vector<std::string> YNames() const;

    /// What a scale shows, whoever has chosen it, and what a choice makes of it.
    TScaleChoice Scale(bool isX) const;
    TKxAxScaling ScalingFor(bool isX, TScaleChoice scale) const;

    // Each makes a new graph in the place of the present one.
    /// An `x` of -1 leaves the choice to the program.
    void Choose(int x, const std::vector<int>& ys);
    void SetScales(TScaleChoice x, TScaleChoice y);
    /// In the colours for a light or a dark desktop, with the look and the view that the graph has now.
    void SetScheme(TSchemeChoice scheme);

    /// In the present graph; the fits' own settings, and those of all. Errors as those of SetFits.
    void SetFits(const TFitOptions& fits);
    /// After the graph, or its axes, got another size.
    void KeepLabelsInside();

    /// With the look that a file keeps and, where it has some, its fits, also for graphs to come; looks are kept in the
    /// colours for light desktops. The notes say what could not be used.
    void UseLook(const std::string& fileName);

    /// The same for the present graph alone; returns what could not be used.
    std::vector<std::string> Wear(const std::string& fileName);

    /// Captions and scales that are there because of the data are no look.
    void SaveLookAs(const std::string& fileName);
    /// The look of the present graph, changed by hand, is that of graphs to come; the file keeps it meanwhile. What the
    /// options wished for has become part of it.
    void KeepLook(const std::string& fileName);
    /// Brings the caption of a date axis up to date, unless somebody has written another one.
    void RefreshDates();

    /// Of a file that is followed as the options say: something in it could not be read; the graph has grown. Also told
    /// of fits that fail from now on, perhaps while the graph is painted.
    std::function<void(const std::string&)> OnNote;
    std::function<void()> OnGrown;

private:
    void Build(const TOptions& options);
    void Take(TPlot plot);
    void StartFollowing();
    void Count(const TFollowedRows& rows);

    TOptions FOptions;
    std::unique_ptr<TTableOrigin> FOrigin;
    TCsvTable FTable;
    TColumnChoice FChoice;
    TPlot FPlot;
    std::unique_ptr<TFollowedPlot> FFollowed;
    std::vector<std::string> FNotes;
};

}  // namespace plotkit
