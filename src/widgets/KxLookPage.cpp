#include "widgets/KxLookPage.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

namespace plotkit {

namespace {

const char* const ButtonMnemonics = "lsarc";
constexpr int CompactLetters = 24;  ///< room for numbers, colours and the like, which then line up

/// The keys that undo and redo changes of the look, wherever the focus is.
bool IsUndoKey(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) ||
           (key.modifiers() == Qt::ControlModifier && key.key() == Qt::Key_Y);
}

QString FromView(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool HasFocusInside(const QWidget& widget)
{
    const QWidget* focused = widget.window()->focusWidget();
    return focused && (focused == &widget || widget.isAncestorOf(focused));
}

}  // namespace

TKxLookPage::TKxLookPage(std::shared_ptr<TLookHistory> history, TComponent& part, const TLookPage& page,
                         TKxRecentColors& recent, QWidget* parent)
    : QScrollArea(parent),
      FHistory(std::move(history)),
      FPart(part),
      FAlive(part.Lifeline().Watch()),
      FPage(page),
      FMnemonics(ButtonMnemonics)
{
    auto* sheet = new QWidget(this);
    auto* rows = new QFormLayout(sheet);
    rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    for (const TLookRow& row : page.Rows)
        if (HasLookRow(part, page, row))
            Add(*rows, row, recent);
    LineUp();
    setWidget(sheet);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    Refresh();
}

void TKxLookPage::Add(QFormLayout& rows, const TLookRow& row, TKxRecentColors& recent)
{
    const std::size_t index = FFields.size();
    const std::string path = FPage.PathOf(row);
    const auto edited = [this, index](const TLookValue& value, bool joins) { Edit(index, value, joins); };
    TKxLookField field = NewLookField({*FHistory->Graph(), FPart, path, row, &recent, edited}, rows.parentWidget());
    QString text = FromView(row.Text);
    if (!row.Unit.empty())
        text += " / " + FromView(row.Unit);
    field.Widget->setObjectName(QString::fromStdString(path));
    if (field.Widget->accessibleName().isEmpty())
        field.Widget->setAccessibleName(text);
    if (!field.IsWide)
        field.Widget->setSizePolicy(QSizePolicy::Maximum, field.Widget->sizePolicy().verticalPolicy());
    QLabel* label = nullptr;
    if (!field.HasOwnText) {
        label = new QLabel(WithMnemonic(text), rows.parentWidget());
        label->setBuddy(field.Widget);
    } else if (auto* box = qobject_cast<QAbstractButton*>(field.Widget)) {
        box->setText(WithMnemonic(text));
    }
    if (label)
        rows.addRow(label, field.Widget);
    else
        rows.addRow(QString(), field.Widget);
    QList<QWidget*> watched = field.Widget->findChildren<QWidget*>();
    watched << field.Widget;
    for (QWidget* widget : watched) {
        widget->setProperty("field", static_cast<int>(index));
        widget->installEventFilter(this);
    }
    FFields.push_back({&row, path, std::move(field), label, {}});
    Show(FFields.back());
}

void TKxLookPage::LineUp()
{
    int width = CompactLetters * fontMetrics().averageCharWidth();
    for (const bool isSetting : {false, true})
        for (const TField& field : FFields) {
            if (field.Field.HasOwnText || field.Field.IsWide)
                continue;
            if (isSetting)
                field.Field.Widget->setMinimumWidth(width);
            else
                width = std::max(width, field.Field.Widget->sizeHint().width());
        }
}

/// The first letter of a word if possible; nothing when all are taken.
QString TKxLookPage::WithMnemonic(const QString& text)
{
    for (const bool onlyFirst : {true, false})
        for (qsizetype i = 0; i < text.size(); ++i) {
            const bool isFirst = i == 0 || text[i - 1].isSpace();
            const QChar letter = text[i].toLower();
            if (!letter.isLetter() || (onlyFirst && !isFirst) || FMnemonics.contains(letter))
                continue;
            FMnemonics += letter;
            return QString(text).insert(i, '&');
        }
    return text;
}

void TKxLookPage::Show(TField& field)
{
    field.Shown = FindLookProperty(FPart, field.Path).Value();
    field.Field.Show(field.Shown);
}

bool TKxLookPage::IsStale(const TField& field) const
{
    const TLookProperty property = FindLookProperty(FPart, field.Path);
    // The names of parts and the kind of an axis change with other properties.
    const bool dependsOnOthers = property.Row->Kind == pkReference || field.Row->Editor == leAxisValue;
    return property.Value() != field.Shown || (dependsOnOthers && !HasFocusInside(*field.Field.Widget));
}

void TKxLookPage::Refresh()
{
    if (!HasPart())
        return;
    for (TField& field : FFields) {
        const bool isEnabled = IsLookRowEnabled(FPart, FPage, *field.Row);
        field.Field.Widget->setEnabled(isEnabled);
        if (field.Label)
            field.Label->setEnabled(isEnabled);
        if (!FEditing && IsStale(field))
            Show(field);
    }
}

void TKxLookPage::Edit(std::size_t index, const TLookValue& value, bool joins)
{
    if (FEditing || !HasPart())
        return;
    TField& field = FFields[index];
    QString problem;
    FEditing = true;
    try {
        FHistory->Change(FPart, field.Path, value, joins);
    } catch (const std::exception& error) {
        problem = QString::fromUtf8(error.what());
    }
    FEditing = false;
    if (HasPart()) {
        field.Shown = FindLookProperty(FPart, field.Path).Value();
        Refresh();
    }
    if (OnEdited)
        OnEdited(problem);
}

void TKxLookPage::Leave(std::size_t index)
{
    if (!HasPart() || HasFocusInside(*FFields[index].Field.Widget))
        return;
    FHistory->EndJoining();
    Show(FFields[index]);
}

bool TKxLookPage::eventFilter(QObject* object, QEvent* event)
{
    const std::size_t index = static_cast<std::size_t>(object->property("field").toInt());
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            if (!IsUndoKey(static_cast<const QKeyEvent&>(*event)))
                break;
            event->ignore();
            return true;
        case QEvent::Wheel:
            // Scrolling a page is not to change what the pointer comes across.
            if (HasFocusInside(*FFields[index].Field.Widget))
                break;
            event->ignore();
            return true;
        case QEvent::FocusOut:
            QTimer::singleShot(0, this, [this, index] { Leave(index); });
            break;
        default:
            break;
    }
    return QScrollArea::eventFilter(object, event);
}

}  // namespace plotkit
