#include "plotkit/window/FitMenu.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "graph/KxCaption.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "plotkit/fit/FitCurve.h"
#include "plotkit/fit/FitResults.h"
#include "plotkit/window/FitDialog.h"
#include "series/KxGraphMarkers.h"
#include "series/KxNotCalculatedSeries.h"
#include "series/KxReadoutText.h"

namespace plotkit {

namespace {

/// As a menu shows it.
QString Plain(const std::string& text)
{
    return QString::fromStdString(text).replace('&', "&&");
}

QString TitleOf(const TFitWish& wish, const TKxAxis& x)
{
    QString title = Plain(GetStrippedString(CaptionOf(wish)));
    if (!wish.Column.empty())
        title += " (" + Plain(wish.Column) + ")";
    if (wish.Range)
        title += ", " + Plain(AxisValueText(x, wish.Range->Start)) + " .. " + Plain(AxisValueText(x, wish.Range->Stop));
    return title;
}

class TWaitCursor
{
public:
    TWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    TWaitCursor(const TWaitCursor&) = delete;
    TWaitCursor& operator=(const TWaitCursor&) = delete;
    ~TWaitCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace

TFitMenu::TFitMenu(const QString& title, QWidget* window) : QMenu(title, window)
{
    AddKinds();
    addSeparator();
    AddSettings();
    FFitsStart = addSeparator();
    connect(this, &QMenu::aboutToShow, this, [this] { Refresh(); });
    Show(nullptr, nullptr);
}

QAction* TFitMenu::Add(QMenu& menu, const QString& text, std::function<void()> action)
{
    QAction* const added = menu.addAction(text);
    connect(added, &QAction::triggered, this, [this, action = std::move(action)] { Guard(action); });
    return added;
}

void TFitMenu::AddKinds()
{
    FColumns = addMenu(tr("&Through"));
    const auto add = [this](const QString& text, TFitKind kind) {
        Add(*this, text, [this, kind] { AddFit({kind, {}, {}, FColumn, {}, {}, {}}); });
    };
    const auto ask = [this](const QString& text, TFitKind kind) {
        Add(*this, text, [this, kind] { AskAndAdd(kind); });
    };
    add(tr("&Straight line"), fkLinear);
    ask(tr("Straight line with fixed &offset..."), fkLinear);
    ask(tr("&Polynomial..."), fkPolynomial);
    ask(tr("&Formula..."), fkFormula);
    addSeparator();
    add(tr("&Akima"), fkAkima);
    ask(tr("S&moothed..."), fkSmooth);
    ask(tr("Smoothing sp&line..."), fkSpline);
    addSeparator();
    add(tr("&Derivative"), fkDerivative);
    add(tr("&Integral"), fkIntegral);
}

void TFitMenu::AddSettings()
{
    FForFits << Add(*this, tr("&Range from markers"), [this] { SetRange({}, MarkedRange()); })
             << Add(*this, tr("&Whole range"), [this] { SetRange({}, {}); });
    QAction* const copy = Add(*this, tr("&Copy results"), [this] { CopyResults(); });
    copy->setShortcut(QKeySequence(tr("Ctrl+Shift+R")));
    FForFits << copy << Add(*this, tr("Remove a&ll fits"), [this] {
        Change([](std::vector<TFitWish>& fits) { fits.clear(); });
    });
}

void TFitMenu::Show(TDocument* document, TKxGraphMarkers* markers)
{
    FDocument = document;
    FMarkers = markers;
    setEnabled(document != nullptr);
    Refresh();
}

void TFitMenu::Refresh()
{
    const bool hasFits = FDocument && !FDocument->Options().Fit.Fits.empty();
    FillColumns();
    FillFits();
    for (QAction* action : FForFits)
        action->setEnabled(hasFits);
}

void TFitMenu::FillColumns()
{
    // One of them may be going on.
    for (QAction* action : FColumns->actions()) {
        FColumns->removeAction(action);
        action->deleteLater();
    }
    std::vector<std::string> names{""};
    if (FDocument)
        for (const std::string& name : FDocument->YNames())
            names.push_back(name);
    if (std::find(names.begin(), names.end(), FColumn) == names.end())
        FColumn.clear();
    delete std::exchange(FColumnGroup, new QActionGroup(FColumns));
    for (const std::string& name : names) {
        QAction* const action = FColumns->addAction(name.empty() ? tr("&All series") : Plain(name));
        action->setCheckable(true);
        action->setChecked(name == FColumn);
        FColumnGroup->addAction(action);
        connect(action, &QAction::triggered, this, [this, name] { FColumn = name; });
    }
    FColumns->menuAction()->setVisible(names.size() > 2);
}

void TFitMenu::FillFits()
{
    for (QMenu* menu : FFits) {
        removeAction(menu->menuAction());
        menu->deleteLater();
    }
    FFits.clear();
    if (!FDocument)
        return;
    const std::vector<TFitWish>& fits = FDocument->Options().Fit.Fits;
    for (std::size_t i = 0; i < fits.size(); ++i) {
        auto* const menu = new QMenu(TitleOf(fits[i], *FDocument->Plot().Graph->GetPrimaryXAxis()), this);
        addMenu(menu);
        FFits << menu;
        FillFit(*menu, i);
    }
}

void TFitMenu::FillFit(QMenu& menu, std::size_t number)
{
    FillResults(*menu.addMenu(tr("&Results in the graph")), number);
    Add(menu, tr("Range from &markers"), [this, number] { SetRange(number, MarkedRange()); });
    Add(menu, tr("&Whole range"), [this, number] { SetRange(number, {}); });
    Add(menu, tr("Re&move"), [this, number] {
        Change(
            [number](std::vector<TFitWish>& fits) { fits.erase(fits.begin() + static_cast<std::ptrdiff_t>(number)); });
    });
}

void TFitMenu::FillResults(QMenu& menu, std::size_t number)
{
    const TPlot& plot = FDocument->Plot();
    const auto fit = std::find_if(plot.Fits.begin(), plot.Fits.end(),
                                  [&](const TPlottedFit& plotted) { return plotted.Wish == number; });
    if (fit == plot.Fits.end())
        return;
    const TFitWish& wish = plot.Fit.Fits[number];
    for (const std::string& result : ResultsForLabels(*fit->Series)) {
        QAction* const action = menu.addAction(Plain(ReadableName(wish, result)));
        action->setCheckable(true);
        action->setChecked(std::find(wish.Results.begin(), wish.Results.end(), result) != wish.Results.end());
        connect(action, &QAction::triggered, this,
                [this, number, result](bool show) { Guard([&] { ShowResult(number, result, show); }); });
    }
}

void TFitMenu::Change(const std::function<void(std::vector<TFitWish>&)>& change)
{
    TFitOptions fits = FDocument->Options().Fit;
    change(fits.Fits);
    const TWaitCursor wait;
    FDocument->SetFits(fits);
    // The menu may be the one that was clicked.
    QTimer::singleShot(0, this, [this] { Refresh(); });
}

void TFitMenu::AddFit(const TFitWish& wish)
{
    Change([&](std::vector<TFitWish>& fits) { fits.push_back(wish); });
}

void TFitMenu::AskAndAdd(TFitKind kind)
{
    if (const auto wish = AskForFit(parentWidget(), Suggestion(kind)))
        AddFit(*wish);
}

TFitWish TFitMenu::Suggestion(TFitKind kind) const
{
    TFitWish wish{kind, {}, {}, FColumn, {}, {}, {}};
    TKxNotCalculatedSeries& series = *FDocument->Plot().Series.front();
    const double extent = series.XRange().GetStop() - series.XRange().GetStart();
    const double step = extent / std::max(series.PointsCount(), 1);
    // Waves shorter than this share of the data go.
    const double wave = extent / 10;
    if (kind == fkLinear)
        wish.Value = 0;
    else if (kind == fkPolynomial)
        wish.Value = 2;
    else if (kind == fkSmooth && extent > 0)
        wish.Value = ParseReal(FormatGeneral(extent / 50, 2));
    else if (kind == fkSpline && extent > 0)
        wish.Value = ParseReal(FormatGeneral(std::pow(2 * std::numbers::pi / wave, 4) * step, 1));
    return wish;
}

TFitRange TFitMenu::MarkedRange() const
{
    const auto start = FMarkers ? FMarkers->Abscissa(mkStart) : std::nullopt;
    const auto stop = FMarkers ? FMarkers->Abscissa(mkStop) : std::nullopt;
    if (!start || !stop || *start == *stop || !FMarkers->GetShown())
        throw EConvertError("Range from markers: show the two markers first (key m), and put them at both ends");
    return {std::min(*start, *stop), std::max(*start, *stop)};
}

void TFitMenu::SetRange(std::optional<std::size_t> number, const std::optional<TFitRange>& range)
{
    Change([&](std::vector<TFitWish>& fits) {
        for (std::size_t i = 0; i < fits.size(); ++i)
            if (!number || *number == i)
                fits[i].Range = range;
    });
}

void TFitMenu::ShowResult(std::size_t number, const std::string& result, bool show)
{
    Change([&](std::vector<TFitWish>& fits) {
        std::erase(fits.at(number).Results, result);
        if (show)
            fits[number].Results.push_back(result);
    });
}

void TFitMenu::CopyResults()
{
    QApplication::clipboard()->setText(QString::fromStdString(ResultsTable(FDocument->Plot())));
    if (OnDone)
        OnDone(tr("Copied the results"));
}

}  // namespace plotkit
