// The job of KxFormAccess is to let assistive programs walk through the controls of a form.
#pragma once

#include <vector>

#include "widgets/KxFormView.h"
#include "widgets/KxListAccess.h"

namespace plotkit {

class TFormAccess : public TControlAccess
{
public:
    explicit TFormAccess(TKxFormView& view);
    ~TFormAccess() override;

    int childCount() const override { return static_cast<int>(FView.Parts().size()); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    TKxFormView& View() const { return FView; }

private:
    TKxFormView& FView;
    mutable std::vector<QAccessible::Id> FParts;  ///< 0: not made yet
};

}  // namespace plotkit
