#pragma once

#include <QDialog>
#include <QPointer>

#include <functional>

class QPushButton;

/// A small window that hangs from the control that raised it, as the platform's popovers do:
/// placed under its anchor (above it when there is no room below, kept on the screen), closed by
/// Escape or a click away, which run the caller's cancel. Confirming closes it first and then
/// runs the caller's confirm, so a failure can never leave it open under the result.
class Popover : public QDialog
{
    Q_OBJECT

public:
    Popover(QWidget *anchor, std::function<void()> confirm, std::function<void()> cancel);

    /// Places the popover at its anchor and shows it.
    void present();
    /// The default button: Return presses it. Every other button of the popover takes no
    /// default of its own.
    void setConfirmButton(QPushButton *button);
    /// Closes without running either action: its subject changed under it.
    void dismissQuietly();

    /// Where the popover stands for an anchor's rectangle (global) on a screen's area.
    [[nodiscard]] static QPoint placement(const QRect &anchor, const QSize &size,
                                          const QRect &screen);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void confirmed();

    QPointer<QWidget> m_anchor;
    std::function<void()> m_confirm;
    std::function<void()> m_cancel;
    bool m_quiet = false;
};
