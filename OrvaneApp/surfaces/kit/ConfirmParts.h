#pragma once

#include <QString>

class QFrame;
class QLabel;
class QPushButton;
class QWidget;

/// The pieces every confirmation is made of, so that they all read alike.
namespace ConfirmParts {

/// The question, at 13 px semibold.
[[nodiscard]] QLabel *title(const QString &text, QWidget *parent);
/// The line under it, at 11 px in the secondary colour; wraps.
[[nodiscard]] QLabel *detail(const QString &text, QWidget *parent);
/// A hairline in the separator colour.
[[nodiscard]] QFrame *divider(QWidget *parent);
/// The confirming button: prominent in the accent colour, or red when it destroys.
[[nodiscard]] QPushButton *confirmButton(const QString &label, bool destructive, QWidget *parent);
/// A plain button that never takes the default.
[[nodiscard]] QPushButton *plainButton(const QString &label, QWidget *parent);

} // namespace ConfirmParts
