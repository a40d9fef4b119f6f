#include "OrvaneApp/surfaces/kit/SheetHost.h"

#include <QTimer>

SheetHost::SheetHost(QWidget *window, QList<Entry> table)
    : QObject(window)
    , m_window(window)
    , m_table(std::move(table))
{}

void SheetHost::refresh()
{
    if (m_current) {
        if (m_table.at(m_currentEntry).wanted())
            return;
        // Its subject went away under it.
        QDialog *gone = m_current;
        m_current = nullptr;
        gone->close();
    }
    for (qsizetype at = 0; at < m_table.size(); ++at) {
        if (!m_table.at(at).wanted())
            continue;
        QDialog *sheet = m_table.at(at).make(m_window);
        sheet->setAttribute(Qt::WA_DeleteOnClose);
        sheet->setWindowFlag(Qt::Sheet);
        sheet->setWindowModality(Qt::WindowModal);
        m_current = sheet;
        m_currentEntry = at;
        // Once it has closed and its action has run, the next wanted sheet may show.
        connect(sheet, &QDialog::finished, this, [this, sheet] {
            if (m_current == sheet)
                m_current = nullptr;
            QTimer::singleShot(0, this, &SheetHost::refresh);
        });
        sheet->open();
        return;
    }
}
