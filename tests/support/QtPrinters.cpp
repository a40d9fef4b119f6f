#include "tests/support/QtPrinters.h"

#include <QDebug>

#include <ostream>

void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

void PrintTo(const QStringList &list, std::ostream *out)
{
    *out << '[';
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (i > 0)
            *out << ", ";
        PrintTo(list.at(i), out);
    }
    *out << ']';
}

void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}

void PrintTo(const QVariant &value, std::ostream *out)
{
    QString text;
    QDebug(&text) << value;
    *out << text.toStdString();
}
