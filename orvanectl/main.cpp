#include "orvanectl/Commands.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"orvanectl"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
    return Orvanectl::run(QCoreApplication::arguments().mid(1));
}
