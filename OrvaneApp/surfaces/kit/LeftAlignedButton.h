#pragma once

#include <QPushButton>

/// A push button whose title starts at its left, as a wide button reads in a row of fields.
class LeftAlignedButton : public QPushButton
{
    Q_OBJECT

public:
    static constexpr int padding = 10;

    explicit LeftAlignedButton(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
