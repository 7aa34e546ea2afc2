#include "plotkit/window/ColumnsDock.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace plotkit {

TColumnsDock::TColumnsDock(QWidget* parent)
    : QDockWidget(tr("Columns"), parent), FX(new QComboBox(this)), FYs(new QListWidget(this))
{
    setObjectName("columns");
    auto* sheet = new QWidget(this);
    auto* rows = new QVBoxLayout(sheet);
    rows->setContentsMargins(6, 6, 6, 6);
    auto* xCaption = new QLabel(tr("&X"), sheet);
    xCaption->setBuddy(FX);
    auto* yCaption = new QLabel(tr("&Y"), sheet);
    yCaption->setBuddy(FYs);
    FX->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (QWidget* widget : {static_cast<QWidget*>(xCaption), static_cast<QWidget*>(FX), static_cast<QWidget*>(yCaption),
                            static_cast<QWidget*>(FYs)})
        rows->addWidget(widget);
    setWidget(sheet);
    connect(FX, &QComboBox::activated, this, [this] { Choose(); });
    connect(FYs, &QListWidget::itemChanged, this, [this] { Choose(); });
}

void TColumnsDock::Show(const std::vector<std::string>& columns, int x, const std::vector<int>& ys)
{
    const QSignalBlocker quietX(FX), quietYs(FYs);
    FX->clear();
    FYs->clear();
    FX->addItem(tr("(chosen by the program)"));
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const QString name = QString::fromStdString(columns[static_cast<std::size_t>(i)]);
        FX->addItem(name);
        auto* item = new QListWidgetItem(name, FYs);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(std::find(ys.begin(), ys.end(), i) != ys.end() ? Qt::Checked : Qt::Unchecked);
    }
    FX->setCurrentIndex(x + 1);
    setEnabled(!columns.empty());
}

void TColumnsDock::Choose()
{
    std::vector<int> ys;
    for (int i = 0; i < FYs->count(); ++i)
        if (FYs->item(i)->checkState() == Qt::Checked)
            ys.push_back(i);
    if (!ys.empty() && OnChosen)
        OnChosen(FX->currentIndex() - 1, ys);
}

}  // namespace plotkit
