#pragma once

#include <QList>
#include <QScrollArea>
#include <QStringList>

/// The help window's content: the application's about box at its head, then its manual. It shows
/// no live state and needs no model.
class HelpView : public QScrollArea
{
    Q_OBJECT

public:
    static constexpr int leastWidth = 560;
    static constexpr int leastHeight = 520;

    /// A section of the manual: its title, and its paragraphs in light markup.
    struct Section
    {
        QString title;
        QStringList paragraphs;
    };

    explicit HelpView(QWidget *parent = nullptr);

    /// The manual, section by section, in the order it is read.
    [[nodiscard]] static const QList<Section> &sections();
    /// A paragraph's light markup as rich text: its own characters escaped, text between `**`
    /// pairs bold and text between back-ticks in code style. A mark without its pair stays.
    [[nodiscard]] static QString richText(const QString &markup);

    /// The program's version, as its build states it; "—" when it states none.
    [[nodiscard]] static QString version();
};
