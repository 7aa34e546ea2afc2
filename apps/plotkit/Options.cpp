#include "plotkit/Options.h"

#include <CLI/CLI.hpp>
#include <array>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "plotkit/db/DatabaseOptions.h"

namespace plotkit {
namespace {

constexpr std::array<std::string_view, 4> ScaleNames{"linear", "log", "logee", "time"};
constexpr std::array<std::string_view, 3> SchemeNames{"auto", "light", "dark"};
constexpr std::array<std::string_view, 6> LegendNames{"none", "top", "bottom", "left", "right", "free"};
// What a raster picture may have: QPainter counts its coordinates with 16 bits.
constexpr long long MaxPixels = 32767;
constexpr long long MaxArea = 200'000'000;
// The largest page of PDF is 200 inches wide.
constexpr int MaxVectorSide = 19200;

/// What the command line holds before it is understood.
struct TTexts
{
    std::string X, XScale, YScale, Title, XCaption, YCaption, Size, Dpi, Scheme, Legend;
    std::string Separator, Decimal, Header, Comment, Skip, Dates, Follow;
    TKindTexts Kind;
    std::vector<std::string> Fits, Labels;
    std::string StartValues, FitRange;
    bool Points = false, NoPoints = false, NoLine = false, Grid = false, NoGrid = false;
};

[[noreturn]] void Fail(const std::string& option, const std::string& what)
{
    throw EConvertError(option + ": " + what);
}

TScaleChoice ScaleOf(const std::string& option, const std::string& text)
{
    for (std::size_t i = 0; i < ScaleNames.size(); ++i)
        if (SameText(ScaleNames[i], text))
            return static_cast<TScaleChoice>(scLinear + static_cast<int>(i));
    Fail(option, "\"" + text + "\" is no scale; there are linear, log, logee and time");
}

TSchemeChoice SchemeOf(const std::string& text)
{
    for (std::size_t i = 0; i < SchemeNames.size(); ++i)
        if (SameText(SchemeNames[i], text))
            return static_cast<TSchemeChoice>(i);
    Fail("--colours", "\"" + text + "\" are no colours; there are auto, light and dark");
}

TLegendChoice LegendOf(const std::string& text)
{
    for (std::size_t i = 0; i < LegendNames.size(); ++i)
        if (SameText(LegendNames[i], text))
            return static_cast<TLegendChoice>(lcNone + static_cast<int>(i));
    Fail("--legend", "\"" + text + "\" is no place; there are none, top, bottom, left, right and free");
}

long long IntegerOf(const std::string& text, const std::string& option, const std::string& what)
{
    const auto value = ParseInteger(text);
    if (!value)
        Fail(option, what);
    return *value;
}

char SeparatorOf(const std::string& text)
{
    constexpr std::array<std::pair<std::string_view, char>, 9> names{{{"comma", ','},
                                                                      {"semicolon", ';'},
                                                                      {"tab", '\t'},
                                                                      {"\\t", '\t'},
                                                                      {"blank", ' '},
                                                                      {"blanks", ' '},
                                                                      {"space", ' '},
                                                                      {"bar", '|'},
                                                                      {"pipe", '|'}}};
    for (const auto& [name, separator] : names)
        if (SameText(name, text))
            return separator;
    constexpr std::string_view never = "\"'.+-_#%\r\n";
    const auto code = text.empty() ? 0 : static_cast<unsigned char>(text[0]);
    if (text.size() != 1 || code >= 0x7F || std::isalnum(code) || never.find(text[0]) != std::string_view::npos)
        Fail("--separator", "\"" + text + "\" is no separator; there are comma, semicolon, tab, blank and bar");
    return text[0];
}

/// Which of the words `text` is: the first or the second.
bool IsFirst(const std::string& option, const std::string& text, std::array<std::string_view, 4> words)
{
    for (std::size_t i = 0; i < words.size(); ++i)
        if (SameText(words[i], text))
            return i % 2 == 0;
    Fail(option, "\"" + text + "\" is neither " + std::string(words[0]) + " nor " + std::string(words[1]));
}

void ReadReading(const CLI::App& command, const TTexts& texts, TDialectWish& wish)
{
    if (command.count("--separator"))
        wish.Separator = SeparatorOf(texts.Separator);
    if (command.count("--decimal"))
        wish.Decimal = IsFirst("--decimal", texts.Decimal, {"point", "comma", ".", ","}) ? '.' : ',';
    if (command.count("--header") && !SameText(texts.Header, "auto"))
        wish.Header = IsFirst("--header", texts.Header, {"yes", "no", "1", "0"});
    if (command.count("--comment"))
        wish.Comments = texts.Comment;
    if (command.count("--dates"))
        wish.DayFirst = IsFirst("--dates", texts.Dates, {"dmy", "mdy", "dmy", "mdy"});
    if (command.count("--skip")) {
        const std::string bad = "\"" + texts.Skip + "\" is no number of lines";
        const long long skip = IntegerOf(texts.Skip, "--skip", bad);
        if (skip < 0)
            Fail("--skip", bad);
        wish.Skip = static_cast<std::size_t>(skip);
    }
}

/// The file, which may stand where --follow could have a number.
void ReadFile(const CLI::App& command, const TTexts& texts, TOptions& options)
{
    constexpr double slowest = 86400;
    if (options.Command == pcShow && command.count("--follow")) {
        std::string seconds = texts.Follow;
        if (options.File.empty() && !ParseReal(seconds))
            options.File.swap(seconds);
        options.Follow = seconds.empty() ? 1 : ParseReal(seconds).value_or(0);
        if (!(*options.Follow >= 0.01 && *options.Follow <= slowest))
            Fail("--follow", "\"" + seconds + "\" is no time; it is a number of seconds from 0.01 to 86400");
        if (options.File == "-")
            Fail("--follow", "standard input cannot be followed, only a file can");
    }
    if (options.Follow && options.Kind.HasBars)
        Fail("--bars", "goes not together with --follow");
    // A window can wait for its file.
    if (options.File.empty() && (options.Command == pcRender || options.Follow))
        Fail("FILE", "name the file with the data");
}

void ReadSize(const TTexts& texts, TOptions& options)
{
    const std::string badSize =
        "\"" + texts.Size + "\" is no size; write it as WIDTHxHEIGHT in 1/96 inch, such as 800x600, from 16 to 32767";
    if (!texts.Size.empty()) {
        const std::size_t x = texts.Size.find_first_of("xX");
        if (x == std::string::npos)
            Fail("--size", badSize);
        const long long width = IntegerOf(texts.Size.substr(0, x), "--size", badSize);
        const long long height = IntegerOf(texts.Size.substr(x + 1), "--size", badSize);
        if (std::min(width, height) < 16 || std::max(width, height) > MaxPixels)
            Fail("--size", badSize);
        options.Width = static_cast<int>(width);
        options.Height = static_cast<int>(height);
        options.HasSize = true;
    }
    if (!texts.Dpi.empty()) {
        const std::string badDpi = "\"" + texts.Dpi + "\" is no resolution; it is a number from 10 to 4800";
        const long long dpi = IntegerOf(texts.Dpi, "--dpi", badDpi);
        if (dpi < 10 || dpi > 4800)
            Fail("--dpi", badDpi);
        options.Dpi = static_cast<int>(dpi);
    }
    const long long width = (1LL * options.Width * options.Dpi + 95) / 96;
    const long long height = (1LL * options.Height * options.Dpi + 95) / 96;
    if (std::max(width, height) > MaxPixels || width * height > MaxArea)
        Fail("--size and --dpi",
             "a picture of " + std::to_string(width) + " x " + std::to_string(height) + " pixels is too large");
}

void AddCommonOptions(CLI::App& app, TOptions& options, TTexts& texts)
{
    app.add_option("FILE", options.File, "The data, a table as text; - is standard input");
    app.add_option("--x", texts.X, "Column of the abscissae, by name or by number from 1")->type_name("COLUMN");
    app.add_option("--y", options.Ys, "Columns of the ordinates, separated by commas; may be repeated")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("COLUMN[,COLUMN...]");
    app.add_option("--x-scale", texts.XScale, "linear, log, logee (log, labels as powers of ten) or time")
        ->type_name("SCALE");
    app.add_option("--y-scale", texts.YScale, "The same for the Y axis")->type_name("SCALE");
    app.add_option("--title", texts.Title,
                   "Title; \\b bold, \\i italic, \\+ superscript, \\- subscript, \\s Greek, each on and off");
    app.add_option("--x-caption", texts.XCaption, "Caption of the X axis, with the codes of a title");
    app.add_option("--y-caption", texts.YCaption, "Caption of the Y axis, with the codes of a title");
    app.add_option("--size", texts.Size, "Size in 1/96 inch (800x600)")->type_name("WxH");
    app.add_flag("--points", texts.Points, "Draw a symbol at every point, however many there are");
    app.add_flag("--no-points", texts.NoPoints, "Draw no symbols");
    app.add_flag("--no-line", texts.NoLine, "Draw no line between the points");
    app.add_flag("--area", options.Area, "Fill the area between curve and zero");
    app.add_flag("--grid", texts.Grid, "Draw grid lines at the minor ticks too");
    app.add_flag("--no-grid", texts.NoGrid, "Draw no grid lines");
    app.add_option("--colours", texts.Scheme, "light, dark or auto: as the desktop in a window, light in pictures")
        ->type_name("SCHEME");
    app.add_option("--outfit", options.LookFile,
                   "Look of the graph, as saved in the window; other options go before it")
        ->type_name("FILE");
    AddKindOptions(app, texts.Kind);
    app.add_option("--legend", texts.Legend,
                   "none, top, bottom, left, right or free (top or right for several columns)")
        ->type_name("PLACE");
}

void AddReadingOptions(CLI::App& app, TTexts& texts)
{
    app.add_option("--separator", texts.Separator,
                   "Between the cells: comma, semicolon, tab, blank, bar or a character")
        ->type_name("CHARACTER");
    app.add_option("--decimal", texts.Decimal, "Decimal mark: point or comma")->type_name("MARK");
    app.add_option("--header", texts.Header, "Whether a line names the columns: yes, no or auto")->type_name("ANSWER");
    app.add_option("--comment", texts.Comment, "Characters that start a remark (#%//); none when empty")
        ->type_name("CHARACTERS");
    app.add_option("--skip", texts.Skip, "Lines at the start of the file that do not count")->type_name("LINES");
    app.add_option("--dates", texts.Dates, "How 1/2/2012 is read: dmy or mdy")->type_name("ORDER");
}

void AddFitOptions(CLI::App& app, TOptions& options, TTexts& texts)
{
    app.add_option("--fit", texts.Fits,
                   "Curve through every Y: linear[:OFFSET], poly:ORDER, akima, smooth:RANGE, spline:WEIGHT, "
                   "derivative, integral or a formula such as \"a*exp(-b*x)+c\"; @COLUMN: through that one; may be "
                   "repeated")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("CURVE[@COLUMN]");
    app.add_option("--start", texts.StartValues, "Where fits of formulas start: a=1,b=0.5 (1)")->type_name("VALUES");
    app.add_option("--range", texts.FitRange, "Abscissae, numbers or dates, between which points are fitted")
        ->type_name("FROM..TO");
    app.add_option("--weights", options.Fit.Weights, "Column with the weights of the points")->type_name("COLUMN");
    app.add_option("--label", texts.Labels, "Results of the fits that the graph shows, such as Slope,R")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("NAME[,NAME...]");
}

void ReadFits(const CLI::App& command, const TTexts& texts, TOptions& options)
{
    TFitOptions& fit = options.Fit;
    const auto guarded = [](const char* option, const auto& read) {
        try {
            read();
        } catch (const EConvertError& error) {
            Fail(option, error.Message());
        }
    };
    guarded("--fit", [&] {
        for (const std::string& text : texts.Fits)
            fit.Fits.push_back(ParseFit(text));
    });
    guarded("--start", [&] { fit.Start = ParseStartValues(texts.StartValues); });
    guarded("--range", [&] {
        if (command.count("--range"))
            fit.Range = ParseFitRange(texts.FitRange, options.Reading.DayFirst);
    });
    guarded("--label", [&] {
        for (const std::string& text : texts.Labels)
            for (std::string& name : ParseResultNames(text))
                fit.Results.push_back(std::move(name));
    });
    if (!fit.Fits.empty() || !options.LookFile.empty())
        return;
    for (const char* option : {"--start", "--range", "--weights", "--label"})
        if (command.count(option))
            Fail(option, "there is no --fit that it could be for");
}

/// What is written and how.
void ReadPicture(const CLI::App& command, TOptions& options)
{
    const std::string noPixels = "a picture in SVG or PDF has no pixels; leave it out";
    options.PrintResults = options.PrintResults || options.AsJson;
    if (options.Output.empty() && options.PrintResults)
        return;
    if (options.Output.empty())
        Fail("--output", "name the picture to be written, such as -o graph.png");
    const auto format = PictureFormatOf(options.Output);
    if (!format)
        Fail("--output", "\"" + options.Output + "\" does not end in .png, .svg or .pdf, which say what is written");
    options.Format = *format;
    if (options.Format != pfPng && command.count("--dpi"))
        Fail("--dpi", noPixels);
    if (options.Format != pfPng && options.Antialias)
        Fail("--antialias", noPixels);
    if (options.Format != pfPng && std::max(options.Width, options.Height) > MaxVectorSide)
        Fail("--size", "a page is at most " + std::to_string(MaxVectorSide) + " 1/96 inches wide and high");
}

void Understand(const CLI::App& command, const TTexts& texts, TOptions& options)
{
    const auto given = [&](const char* name, const std::string& text) {
        return command.count(name) ? std::optional(text) : std::nullopt;
    };
    options.X = given("--x", texts.X);
    options.Title = given("--title", texts.Title);
    options.XCaption = given("--x-caption", texts.XCaption);
    options.YCaption = given("--y-caption", texts.YCaption);
    if (command.count("--x-scale"))
        options.XScale = ScaleOf("--x-scale", texts.XScale);
    if (command.count("--y-scale"))
        options.YScale = ScaleOf("--y-scale", texts.YScale);
    if (command.count("--colours"))
        options.Scheme = SchemeOf(texts.Scheme);
    if (command.count("--legend"))
        options.Legend = LegendOf(texts.Legend);
    const auto notBoth = [&](const char* one, const char* other) {
        if (command.count(one) && command.count(other))
            Fail(one, std::string("goes not together with ") + other);
    };
    notBoth("--points", "--no-points");
    notBoth("--grid", "--no-grid");
    options.Points = texts.Points ? ooOn : texts.NoPoints ? ooOff : ooAuto;
    options.Line = !texts.NoLine;
    options.Grid = !texts.NoGrid;
    options.MinorGrid = texts.Grid;
    if (!options.Line && options.Points == ooOff)
        Fail("--no-line", "with --no-points nothing would be drawn");
    options.Kind = ReadKind(command, texts.Kind);
    ReadSize(texts, options);
    ReadReading(command, texts, options.Reading);
    ReadFile(command, texts, options);
    ReadFits(command, texts, options);
    if (options.Command == pcRender)
        ReadPicture(command, options);
}

}  // namespace

std::optional<TPictureFormat> PictureFormatOf(std::string_view fileName)
{
    constexpr std::array<std::string_view, 3> endings{".png", ".svg", ".pdf"};
    for (std::size_t i = 0; i < endings.size(); ++i)
        if (fileName.size() >= endings[i].size() &&
            SameText(fileName.substr(fileName.size() - endings[i].size()), endings[i]))
            return static_cast<TPictureFormat>(i);
    return std::nullopt;
}

std::string ProgramVersion()
{
    return PLOTKIT_VERSION;
}

TOptions ParseOptions(int count, const char* const* arguments)
{
    TOptions options;
    TTexts texts;
    CLI::App app("plotkit: scientific graphs of measured data", "plotkit");
    app.set_version_flag("--version", "plotkit " PLOTKIT_VERSION);
    CLI::App* render = app.add_subcommand("render", "Write the graph of a file as a picture");
    CLI::App* show = app.add_subcommand("show", "Show the graph of a file in a window");
    for (CLI::App* command : {render, show})
        AddCommonOptions(*command, options, texts);
    TDatabaseTexts database;
    for (CLI::App* command : {render, show}) {
        AddReadingOptions(*command, texts);
        AddDatabaseOptions(*command, database);
        AddFitOptions(*command, options, texts);
    }
    show->add_option("--listen", database.Channel, "Read again when PostgreSQL tells of this channel (NOTIFY)")
        ->type_name("CHANNEL");
    show->add_option("--follow", texts.Follow, "Follow a file that grows; looks every SECONDS (1)")
        ->expected(0, 1)
        ->type_name("[SECONDS]");
    render->add_option("-o,--output", options.Output, "The picture to be written: .png, .svg or .pdf")
        ->type_name("FILE");
    render->add_flag("--results", options.PrintResults, "Print every result of every fit");
    render->add_flag("--json", options.AsJson, "Print the results for other programs, with all digits");
    render->add_option("--dpi", texts.Dpi, "Pixels per inch of a PNG (96)")->type_name("NUMBER");
    render->add_flag("--antialias", options.Antialias, "Smooth the edges of a PNG");
    render->add_flag("--light", options.Light, "Colours for white paper where the ground is dark");
    try {
        app.parse(count, arguments);
        if (app.get_subcommands().empty())
            Fail("command line", "say what to do: render or show; plotkit --help lists the options");
    } catch (const CLI::CallForHelp&) {
        options.Answer = app.help();
        return options;
    } catch (const CLI::CallForVersion& version) {
        options.Answer = std::string(version.what()) + "\n";
        return options;
    } catch (const CLI::ParseError& error) {
        if (app.get_subcommands().empty() && count > 1 && arguments[1][0] != '-')
            Fail("command line",
                 "\"" + std::string(arguments[1]) + "\" is no command; say render or show before the file");
        throw EConvertError(WithoutPasswords(error.what()));
    }
    options.Command = app.got_subcommand(render) ? pcRender : pcShow;
    ReadDatabase(*app.get_subcommands().front(), database, options);
    Understand(*app.get_subcommands().front(), texts, options);
    return options;
}

}  // namespace plotkit
