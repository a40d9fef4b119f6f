#pragma once

#include <QLineEdit>

/// A text field whose hint shows only while it is enabled and has no focus: the hint goes the
/// moment the user enters the field, and a disabled field shows none (Qt shows a placeholder in
/// both cases). It can draw an outline that says a problem is about it.
class HintField : public QLineEdit
{
    Q_OBJECT

public:
    explicit HintField(const QString &hint = {}, QWidget *parent = nullptr);

    [[nodiscard]] const QString &hint() const { return m_hint; }
    void setHint(const QString &hint);
    /// An orange outline around the field while `on`.
    void setProblemOutline(bool on);
    [[nodiscard]] bool hasProblemOutline() const { return m_problem; }
    /// Sets the text only when it differs, so that the cursor and a selection survive a reload.
    void setTextIfDifferent(const QString &text);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showHintIfDue();

    QString m_hint;
    bool m_problem = false;
};
