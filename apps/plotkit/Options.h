// The job of Options is to turn the command line of the program into plain values.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plotkit/SeriesKind.h"
#include "plotkit/db/DatabaseWish.h"
#include "plotkit/fit/FitOptions.h"
#include "plotkit/table/TableDialect.h"

namespace plotkit {

enum TProgramCommand
{
    pcRender,
    pcShow
};
enum TScaleChoice
{
    scAuto,
    scLinear,
    scLog,
    scLogEE,
    scTime
};
enum TSchemeChoice
{
    ccAuto,  ///< light, in a window as the desktop
    ccLight,
    ccDark
};
enum TPictureFormat
{
    pfPng,
    pfSvg,
    pfPdf
};
enum TOnOff
{
    ooAuto,
    ooOn,
    ooOff
};

enum TLegendChoice
{
    lcAuto,  ///< one where there are several ordinates
    lcNone,
    lcTop,
    lcBottom,
    lcLeft,
    lcRight,
    lcFree
};

struct TOptions
{
    /// Not empty: help or the version was asked for, this is to be printed and nothing to be done.
    std::string Answer;

    TProgramCommand Command = pcRender;
    std::string File;  ///< of a database what messages call it
    std::optional<TDatabaseWish> Database;
    std::string Output;  ///< of `render`, like the four below
    TPictureFormat Format = pfPng;
    int Dpi = 96;
    bool Antialias = false;
    bool Light = false;  ///< colours for white paper
    std::optional<std::string> X;
    std::vector<std::string> Ys;
    TScaleChoice XScale = scAuto;
    TScaleChoice YScale = scAuto;
    std::optional<std::string> Title, XCaption, YCaption;
    int Width = 800;  ///< 1/96 inch
    int Height = 600;
    bool HasSize = false;  ///< it was wished for
    TOnOff Points = ooAuto;
    bool Line = true;
    bool Area = false;
    bool Grid = true;
    bool MinorGrid = false;
    TSchemeChoice Scheme = ccAuto;
    std::string LookFile;  ///< empty: none
    TLegendChoice Legend = lcAuto;
    TSeriesKind Kind;
    TDialectWish Reading;
    /// Seconds between two looks at a file that grows, of `show`.
    std::optional<double> Follow;
    TFitOptions Fit;
    bool PrintResults = false;  ///< of `render`, like the next; a picture is then not needed
    bool AsJson = false;
};

/// By the end of the name; nothing for another one.
std::optional<TPictureFormat> PictureFormatOf(std::string_view fileName);

std::string ProgramVersion();

/// `arguments[0]` is the program's name. EConvertError with one clear message that names the option.
TOptions ParseOptions(int count, const char* const* arguments);

}  // namespace plotkit
