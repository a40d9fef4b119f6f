#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class HintField;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// A sheet that asks for one name: a head, a divider, a form, a divider and a line of buttons,
/// each block with a padding of 20. Return in the name field acts as the default button only
/// while the model allows the action; every way the sheet closes without acting runs `cancel`.
class NameSheet : public QDialog
{
    Q_OBJECT

public:
    static constexpr int padding = 20;

    NameSheet(int width, std::function<bool()> allowed, std::function<void()> act,
              std::function<void()> cancel, QWidget *parent);

    [[nodiscard]] QPushButton *actButton() const { return m_act; }
    [[nodiscard]] QLabel *title() const { return m_title; }

protected:
    /// The head: a title at 15 px semibold and the lines under it in the secondary colour.
    void setHead(const QString &title, const QStringList &lines);
    /// The form's column, between the two dividers.
    [[nodiscard]] QVBoxLayout *form() const { return m_form; }
    /// The line of buttons: the widgets at its left, then "Cancel" and the action.
    void setButtons(const QString &actLabel, QWidget *left = nullptr);
    /// Return in `field` acts, when the action is allowed.
    void actOnReturn(HintField *field);
    /// Enables the action button as the model allows; to be called on every change.
    void showAllowed();

private:
    void tryToAct();

    std::function<bool()> m_allowed;
    std::function<void()> m_action;
    std::function<void()> m_cancel;
    QLabel *m_title = nullptr;
    QVBoxLayout *m_head = nullptr;
    QVBoxLayout *m_form = nullptr;
    QHBoxLayout *m_buttons = nullptr;
    QPushButton *m_act = nullptr;
};

/// The small parts of the sheets' forms.
namespace SheetParts {

/// A form's label above its control, at 13 px.
[[nodiscard]] QLabel *label(const QString &text, QWidget *parent);
/// A line for an issue: the symbol "exclamationmark.circle.fill" and the words in orange. It
/// keeps the height of one line when there is no issue, so the sheet doesn't jump.
[[nodiscard]] QWidget *issueLine(QWidget *parent);
void setIssue(QWidget &line, const std::optional<QString> &issue);
/// A note in the secondary colour that wraps at `width` and keeps the height of the tallest of
/// the texts it can take.
[[nodiscard]] QLabel *steadyNote(const QStringList &texts, int width, QWidget *parent);

} // namespace SheetParts
