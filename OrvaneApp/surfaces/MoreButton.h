#pragma once

#include <QPushButton>

/// "More…" at the end of a row: a small accent dot at its top right while the service has DNS
/// or hardware settings of its own, and the problem outline while a problem is about a field
/// behind it.
class MoreButton : public QPushButton
{
    Q_OBJECT

public:
    static constexpr int dotDiameter = 6;

    explicit MoreButton(QWidget *parent = nullptr);

    void setShowsDot(bool shows);
    [[nodiscard]] bool showsDot() const { return m_dot; }
    void setProblemOutline(bool on);
    [[nodiscard]] bool hasProblemOutline() const { return m_problem; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_dot = false;
    bool m_problem = false;
};
