#include "OrvaneApp/surfaces/kit/ConfirmParts.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace ConfirmParts {

QLabel *title(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(13, QFont::DemiBold));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel *detail(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(11));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    Roles::useSecondaryText(*label);
    // An empty detail takes no height.
    label->setVisible(!text.isEmpty());
    return label;
}

QFrame *divider(QWidget *parent)
{
    auto *line = new QFrame(parent);
    line->setFixedHeight(1);
    line->setAutoFillBackground(true);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Window, Roles::color(Roles::Role::separator, line->palette()));
    line->setPalette(palette);
    return line;
}

QPushButton *confirmButton(const QString &label, bool destructive, QWidget *parent)
{
    auto *button = new QPushButton(label, parent);
    // Fusion pales a palette's button colour into a gradient: a prominent button is filled
    // flat instead. One button a confirmation, so a style sheet costs nothing here.
    const QColor fill = destructive ? Roles::color(Roles::Role::red, button->palette())
                                    : Roles::color(Roles::Role::accent, button->palette());
    button->setStyleSheet(QStringLiteral("QPushButton { background: %1; color: white; border: none;"
                                         " border-radius: 5px; padding: 4px 14px; }"
                                         " QPushButton:pressed { background: %2; }"
                                         " QPushButton:disabled { background: %3; }")
                              .arg(fill.name(), fill.darker(120).name(),
                                   Roles::color(Roles::Role::grey, button->palette()).name()));
    return button;
}

QPushButton *plainButton(const QString &label, QWidget *parent)
{
    auto *button = new QPushButton(label, parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace ConfirmParts
