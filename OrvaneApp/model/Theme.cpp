#include "OrvaneApp/model/Theme.h"

#include <QFontDatabase>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

std::optional<QString> Theme::chooseFace(const QStringList &installedFamilies)
{
    for (const QString &name : {u"IBM Plex Sans"_s, u"IBMPlexSans"_s}) {
        if (installedFamilies.contains(name))
            return name;
    }
    return std::nullopt;
}

const std::optional<QString> &Theme::faceName()
{
    static const std::optional<QString> face = chooseFace(QFontDatabase::families());
    return face;
}

QFont Theme::font(int pixelSize, QFont::Weight weight)
{
    QFont font = faceName() ? QFont(*faceName()) : QGuiApplication::font();
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}
