#pragma once

#include <QDialog>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

/// Shows the window's sheets one at a time, as the platform does: the first in the table whose
/// flag holds is opened window-modal over the window; a later flag waits until it has gone. A
/// sheet whose flag stops holding is closed. Every way a sheet closes runs its own cancel or
/// dismiss, which clears its flag in the model; `refresh` then shows the next.
class SheetHost : public QObject
{
    Q_OBJECT

public:
    struct Entry
    {
        /// Whether the model wants this sheet now.
        std::function<bool()> wanted;
        /// Makes the sheet, parented by the window.
        std::function<QDialog *(QWidget *window)> make;
    };

    SheetHost(QWidget *window, QList<Entry> table);

    /// Looks at the flags again: to be called whenever the model changes.
    void refresh();
    /// The sheet on show, if any.
    [[nodiscard]] QDialog *current() const { return m_current; }

private:
    QWidget *m_window;
    QList<Entry> m_table;
    QPointer<QDialog> m_current;
    qsizetype m_currentEntry = -1;
};
