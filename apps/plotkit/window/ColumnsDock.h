// The job of ColumnsDock is to let the user choose in the window which columns are plotted.
#pragma once

#include <QDockWidget>
#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QListWidget;

namespace plotkit {

class TColumnsDock : public QDockWidget
{
public:
    explicit TColumnsDock(QWidget* parent = nullptr);

    /// `x` and `ys` are the numbers, from 0, of the columns now plotted; -1 for an X of row numbers or several columns.
    void Show(const std::vector<std::string>& columns, int x, const std::vector<int>& ys);
    void Clear() { Show({}, -1, {}); }

    /// The user chose other columns; never called by `Show`, and not while no ordinate is chosen.
    std::function<void(int x, const std::vector<int>& ys)> OnChosen;

private:
    void Choose();

    QComboBox* FX;
    QListWidget* FYs;
};

}  // namespace plotkit
