#include "widgets/KxLookField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <cmath>

#include "design/LookDate.h"
#include "design/LookTree.h"
#include "widgets/KxCaptionEditWidget.h"
#include "widgets/KxColorWidgets.h"
#include "widgets/KxNumberWidgets.h"
#include "widgets/KxPickerWidgets.h"

namespace plotkit {

namespace {

using TEdited = std::function<void(const TLookValue&, bool joins)>;

constexpr double MostReal = 1.7e308;

QString FromView(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::int64_t IntegerOf(const TLookValue& value)
{
    return std::get<std::int64_t>(std::get<TPropertyValue>(value));
}
double RealOf(const TLookValue& value)
{
    return std::get<double>(std::get<TPropertyValue>(value));
}
QString TextOf(const TLookValue& value)
{
    return QString::fromStdString(std::get<std::string>(std::get<TPropertyValue>(value)));
}

TLookValue Integer(std::int64_t value)
{
    return TPropertyValue(value);
}
TLookValue Text(const QString& text)
{
    return TPropertyValue(text.toStdString());
}

TKxLookField NewCheckBox(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* box = new QCheckBox(FromView(wish.Row.Text), parent);
    QObject::connect(box, &QCheckBox::clicked, box,
                     [edited = wish.OnEdited](bool on) { edited(TPropertyValue(on), false); });
    return {box, true,
            [box](const TLookValue& value) { box->setChecked(std::get<bool>(std::get<TPropertyValue>(value))); }};
}

void LetShrink(QComboBox& box)
{
    constexpr int letters = 12;
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setMinimumContentsLength(letters);
}

TKxLookField NewChoice(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    const TPropertyRow& property = *FindLookProperty(wish.Part, wish.Path).Row;
    for (const std::string_view text : wish.Row.Choices.empty() ? property.ValueNames : wish.Row.Choices)
        box->addItem(FromView(text));
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    QObject::connect(box, &QComboBox::activated, box,
                     [edited = wish.OnEdited](int index) { edited(Integer(index), false); });
    return {box, false, [box](const TLookValue& value) { box->setCurrentIndex(static_cast<int>(IntegerOf(value))); }};
}

/// The parts that a link can be set to, asked for each time that it is shown: they have names of their own and may go.
TKxLookField NewLink(const TKxLookFieldWish& wish, QWidget* parent)
{
    struct TCandidate
    {
        TComponent* Part;
        std::weak_ptr<const void> Alive;
    };
    auto* box = new QComboBox(parent);
    LetShrink(*box);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const auto candidates = std::make_shared<std::vector<TCandidate>>();
    QObject::connect(box, &QComboBox::activated, box, [candidates, edited = wish.OnEdited](int index) {
        const auto& chosen = (*candidates)[static_cast<std::size_t>(index)];
        if (!chosen.Part || !chosen.Alive.expired())
            edited(TLookValue(chosen.Part), false);
    });
    return {box, false,
            [box, candidates, &graph = wish.Graph, &part = wish.Part, path = wish.Path](const TLookValue& value) {
                TComponent* const standing = std::get<TComponent*>(value);
                box->clear();
                candidates->clear();
                if (!standing) {
                    box->addItem(QObject::tr("(none)"));
                    candidates->push_back({nullptr, {}});
                }
                for (TComponent* candidate : LookCandidates(graph, part, path)) {
                    box->addItem(QString::fromStdString(LookName(*candidate)));
                    candidates->push_back({candidate, candidate->Lifeline().Watch()});
                    if (candidate == standing)
                        box->setCurrentIndex(box->count() - 1);
                }
            },
            true};
}

TKxLookField NewCaption(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* edit = new TKxCaptionEditWidget(parent);
    edit->SetButtonsShown(true);
    edit->OnChanged = [edit, edited = wish.OnEdited] { edited(TPropertyValue(std::string(edit->GetCaption())), true); };
    return {
        edit, false,
        [edit](const TLookValue& value) { edit->SetCaption(std::get<std::string>(std::get<TPropertyValue>(value))); },
        true};
}

/// A text that means something only when it is complete, such as a formula.
TKxLookField NewPlainText(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    QObject::connect(edit, &QLineEdit::editingFinished, edit, [edit, edited = wish.OnEdited] {
        if (edit->isModified())
            edited(Text(edit->text()), false);
        edit->setModified(false);
    });
    return {edit, false, [edit](const TLookValue& value) { edit->setText(TextOf(value)); }, true};
}

/// Names are chosen; others may be typed, for results that come later.
TKxLookField NewResult(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    LetShrink(*box);
    const auto choose = [box, edited = wish.OnEdited] { edited(Text(box->currentText()), false); };
    QObject::connect(box, &QComboBox::activated, box, choose);
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, choose);
    return {box, false, [box, &part = wish.Part](const TLookValue& value) {
                const QSignalBlocker quiet(box);
                box->clear();
                for (const std::string& name : LookResults(part))
                    box->addItem(QString::fromStdString(name));
                box->setCurrentIndex(box->findText(TextOf(value), Qt::MatchFixedString));
                box->setEditText(TextOf(value));
            }};
}

TKxLookField NewFontName(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* box = new QFontComboBox(parent);
    LetShrink(*box);
    const auto choose = [box, edited = wish.OnEdited] {
        if (!box->currentText().trimmed().isEmpty())
            edited(Text(box->currentText().trimmed()), false);
    };
    QObject::connect(box, &QComboBox::activated, box, choose);
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, choose);
    // The font of a graph need not be installed here.
    return {box, false, [box](const TLookValue& value) {
                const QSignalBlocker quiet(box);
                box->setCurrentIndex(box->findText(TextOf(value)));
                box->setEditText(TextOf(value));
            }};
}

TKxLookField NewInteger(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* edit = new TKxSpinIntegerEditWidget(parent);
    edit->SetBounds(static_cast<int>(wish.Row.Min), static_cast<int>(wish.Row.Max));
    edit->OnChanged = [edit, edited = wish.OnEdited] { edited(Integer(edit->GetValue()), true); };
    return {edit, false, [edit](const TLookValue& value) { edit->SetValue(static_cast<int>(IntegerOf(value))); }};
}

TKxLookField NewTenths(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* edit = new TKxFloatEditWidget(parent);
    edit->SetBounds(wish.Row.Min, wish.Row.Max);
    edit->OnChanged = [edit, edited = wish.OnEdited] { edited(Integer(std::llround(edit->GetValue() * 10)), true); };
    return {edit, false,
            [edit](const TLookValue& value) { edit->SetValue(static_cast<double>(IntegerOf(value)) / 10); }};
}

TKxFloatEditWidget* NewRealEdit(const TEdited& edited, double min, double max, QWidget* parent)
{
    auto* edit = new TKxFloatEditWidget(parent);
    edit->SetBounds(min, max);
    edit->OnChanged = [edit, edited] { edited(TPropertyValue(edit->GetValue()), true); };
    return edit;
}

TKxLookField NewReal(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* edit = NewRealEdit(wish.OnEdited, wish.Row.Min, wish.Row.Max, parent);
    return {edit, false, [edit](const TLookValue& value) { edit->SetValue(RealOf(value)); }};
}

QLineEdit* NewDateEdit(const TEdited& edited, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setPlaceholderText(QObject::tr("YYYY-MM-DD HH:MM:SS"));
    edit->setToolTip(QObject::tr("A date, YYYY-MM-DD, and a time behind it, HH:MM:SS, or the first parts of these"));
    QObject::connect(edit, &QLineEdit::textEdited, edit, [edited](const QString& text) {
        if (const auto date = LookDateValue(text.toStdString()))
            edited(TPropertyValue(*date), true);
    });
    return edit;
}

/// A date where the axis shows dates, also when it begins to do so.
TKxLookField NewAxisValue(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* kinds = new QStackedWidget(parent);
    kinds->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* number = NewRealEdit(wish.OnEdited, -MostReal, MostReal, kinds);
    auto* date = NewDateEdit(wish.OnEdited, kinds);
    for (QWidget* kind : {static_cast<QWidget*>(number), static_cast<QWidget*>(date)}) {
        kind->setAccessibleName(FromView(wish.Row.Text));
        kinds->addWidget(kind);
    }
    return {kinds, false, [kinds, number, date, &part = wish.Part](const TLookValue& value) {
                const bool isDate = HasLookDates(part);
                kinds->setCurrentIndex(isDate ? 1 : 0);
                kinds->setFocusProxy(kinds->currentWidget());
                if (isDate)
                    date->setText(QString::fromStdString(LookDateText(RealOf(value))));
                else
                    number->SetValue(RealOf(value));
            }};
}

TKxLookField NewColor(const TKxLookFieldWish& wish, QWidget* parent)
{
    auto* box = new TKxColorPickComboWidget(parent);
    box->Control().SetRecent(wish.Recent);
    box->OnChanged = [box, edited = wish.OnEdited] {
        edited(Integer(static_cast<std::int64_t>(box->GetSelected())), false);
    };
    return {box, false, [box](const TLookValue& value) { box->SetSelected(static_cast<TColor>(IntegerOf(value))); }};
}

/// `set` and `get` are those of the style.
template <class TWidget, class TStyle>
TKxLookField NewPicker(TWidget* box, const TEdited& edited, void (*set)(TWidget&, TStyle), TStyle (*get)(TWidget&))
{
    box->OnChanged = [box, edited, get] { edited(Integer(get(*box)), false); };
    return {box, false, [box, set](const TLookValue& value) { set(*box, static_cast<TStyle>(IntegerOf(value))); }};
}

TKxLookField NewLineStyle(const TKxLookFieldWish& wish, QWidget* parent)
{
    using TBox = TKxLineStylesComboWidget;
    auto* box = new TBox(parent);
    box->Control().SetLineColor(clWindowText);
    return NewPicker<TBox, TPenStyle>(
        box, wish.OnEdited, [](TBox& b, TPenStyle style) { b.Control().SetPenStyle(style); },
        [](TBox& b) { return b.Control().GetPenStyle(); });
}

TKxLookField NewFillStyle(const TKxLookFieldWish& wish, QWidget* parent)
{
    using TBox = TKxBrushStylesComboWidget;
    auto* box = new TBox(parent);
    box->Control().SetShowBSClear(true);
    box->Control().SetFillColor(clWindowText);
    return NewPicker<TBox, TBrushStyle>(
        box, wish.OnEdited, [](TBox& b, TBrushStyle style) { b.Control().SetBrushStyle(style); },
        [](TBox& b) { return b.Control().GetBrushStyle(); });
}

TKxLookField NewPointSymbol(const TKxLookFieldWish& wish, QWidget* parent)
{
    using TBox = TKxPointSymbolsComboWidget;
    auto* box = new TBox(parent);
    box->Control().SetLineColor(clWindowText);
    return NewPicker<TBox, TKxPointSymbol>(
        box, wish.OnEdited, [](TBox& b, TKxPointSymbol symbol) { b.Control().SetPointSymbol(symbol); },
        [](TBox& b) { return b.Control().GetPointSymbol(); });
}

TKxLookField NewFieldByKind(const TKxLookFieldWish& wish, QWidget* parent)
{
    switch (FindLookProperty(wish.Part, wish.Path).Row->Kind) {
        case pkBoolean:
            return NewCheckBox(wish, parent);
        case pkInteger:
            return NewInteger(wish, parent);
        case pkReal:
            return NewReal(wish, parent);
        case pkEnumeration:
            return NewChoice(wish, parent);
        case pkColor:
            return NewColor(wish, parent);
        case pkReference:
            return NewLink(wish, parent);
        default:
            return NewPlainText(wish, parent);
    }
}

}  // namespace

TKxLookField NewLookField(const TKxLookFieldWish& wish, QWidget* parent)
{
    switch (wish.Row.Editor) {
        case leCaption:
            return NewCaption(wish, parent);
        case leFontName:
            return NewFontName(wish, parent);
        case leLineStyle:
            return NewLineStyle(wish, parent);
        case leFillStyle:
            return NewFillStyle(wish, parent);
        case lePointSymbol:
            return NewPointSymbol(wish, parent);
        case leAxisValue:
            return NewAxisValue(wish, parent);
        case leTenths:
            return NewTenths(wish, parent);
        case leResult:
            return NewResult(wish, parent);
        case leByKind:
            break;
    }
    return NewFieldByKind(wish, parent);
}

}  // namespace plotkit
