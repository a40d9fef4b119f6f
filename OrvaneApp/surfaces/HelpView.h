#pragma once

#include <QScrollArea>

/// The help window's content: the application's about box at its head, then its manual. It shows
/// no live state and needs no model.
class HelpView : public QScrollArea
{
    Q_OBJECT

public:
    static constexpr int leastWidth = 560;
    static constexpr int leastHeight = 520;

    explicit HelpView(QWidget *parent = nullptr);

    /// The program's version, as its build states it; "—" when it states none.
    [[nodiscard]] static QString version();
};
