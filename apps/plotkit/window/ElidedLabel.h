// The job of ElidedLabel is a line of text that shows dots where there is no room for its end.
#pragma once

#include <QLabel>

namespace plotkit {

class TElidedLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace plotkit
