#pragma once

#include <QObject>
#include <QPointer>

class AppModel;
class Popover;
class QPushButton;

/// "Apply recommended order…" and the question it raises: one at a time, hanging from its
/// button, and closed by itself once nothing is left to mend. The strip and the sheet both ask
/// it.
class RecommendedOrderQuestion : public QObject
{
    Q_OBJECT

public:
    static const QString help;

    RecommendedOrderQuestion(AppModel &model, QPushButton &button);

    [[nodiscard]] bool asking() const { return m_asking; }
    /// Closes the question, without an answer, when the order no longer needs mending.
    void follow(bool needsFixing);

private:
    void ask();

    AppModel &m_model;
    QPushButton &m_button;
    bool m_asking = false;
    QPointer<Popover> m_question;
};
