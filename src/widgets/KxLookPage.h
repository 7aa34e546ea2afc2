// The job of KxLookPage is the form on which the properties of one page of a part's look are edited.
#pragma once

#include <QScrollArea>
#include <vector>

#include "design/LookHistory.h"
#include "widgets/KxLookField.h"

class QFormLayout;

namespace plotkit {

/// Each edit is a change of the history at once. A field that is being edited is left alone until the focus leaves it;
/// then it shows what its property has become.
class TKxLookPage : public QScrollArea
{
public:
    /// The part may go before the page.
    TKxLookPage(std::shared_ptr<TLookHistory> history, TComponent& part, const TLookPage& page, TKxRecentColors& recent,
                QWidget* parent = nullptr);

    const TLookPage& Page() const { return FPage; }
    /// Shows what the properties are now, as far as they are not being edited.
    void Refresh();

    /// What an edit came to: the text of its error, empty when it was taken.
    std::function<void(const QString&)> OnEdited;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct TField
    {
        const TLookRow* Row;
        std::string Path;
        TKxLookField Field;
        QWidget* Label;
        TLookValue Shown;
    };

    bool HasPart() const { return !FAlive.expired() && FHistory->Graph(); }
    void Add(QFormLayout& rows, const TLookRow& row, TKxRecentColors& recent);
    void LineUp();
    QString WithMnemonic(const QString& text);
    bool IsStale(const TField& field) const;
    void Edit(std::size_t index, const TLookValue& value, bool joins);
    void Show(TField& field);
    void Leave(std::size_t index);

    std::shared_ptr<TLookHistory> FHistory;
    TComponent& FPart;
    std::weak_ptr<const void> FAlive;
    TLookPage FPage;
    std::vector<TField> FFields;
    QString FMnemonics;  ///< letters that are taken
    bool FEditing = false;
};

}  // namespace plotkit
