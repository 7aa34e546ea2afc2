// The job of MessageBar is to say in the window what went wrong, without a box that asks to be closed first.
#pragma once

#include <QFrame>
#include <string>

class QPlainTextEdit;

namespace plotkit {

/// Hidden while there is nothing to say. The texts can be selected and copied; a text that is there already is not
/// added again.
class TMessageBar : public QFrame
{
public:
    explicit TMessageBar(QWidget* parent = nullptr);

    void Add(const std::string& text);
    void Clear();

private:
    QPlainTextEdit* FTexts;
};

}  // namespace plotkit
