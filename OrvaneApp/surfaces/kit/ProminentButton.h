#pragma once

#include <QPushButton>

/// A push button drawn as the platform draws its prominent action: filled with the accent
/// colour, in white, while it is enabled and `prominent`; a plain bordered button otherwise.
/// Painted by hand, not by a style sheet, because rows repeat it.
class ProminentButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ProminentButton(const QString &text, QWidget *parent = nullptr);

    void setProminent(bool prominent);
    [[nodiscard]] bool isProminent() const { return m_prominent; }
    /// Whether it is drawn filled now.
    [[nodiscard]] bool looksProminent() const { return m_prominent && isEnabled(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_prominent = true;
};
