#include "OrvaneApp/surfaces/LocationPopUp.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class PopUp : public ::testing::Test
{
protected:
    PopUp()
        : popUp([this](const QString &name) { chosen.append(name); }, [this] { ++newLocations; })
    {
        popUp.update(locations, u"Show"_s);
    }

    QStringList items() const
    {
        QStringList texts;
        for (int index = 0; index < popUp.count(); ++index)
            texts.append(popUp.itemText(index));
        return texts;
    }

    const QList<LocationRecord> locations{{u"Office"_s, u"A"_s, false, 2, 0},
                                          {u"Show"_s, u"B"_s, true, 16, 11},
                                          {u"Rehearsal"_s, u"C"_s, false, 7, 4}};
    QStringList chosen;
    int newLocations = 0;
    LocationPopUp popUp;
};

TEST_F(PopUp, ListsTheLocationsInOrderThenTheFootEntry)
{
    EXPECT_EQ(items(), (QStringList{u"Office"_s, u"Show \u00b7 active"_s, u"Rehearsal"_s, QString(),
                                    u"New Location\u2026"_s}));
    EXPECT_EQ(popUp.currentText(), u"Show \u00b7 active"_s);
}

TEST_F(PopUp, TheActiveEntryIsGreen)
{
    EXPECT_TRUE(popUp.itemData(1, Qt::ForegroundRole).isValid());
    EXPECT_FALSE(popUp.itemData(0, Qt::ForegroundRole).isValid());
    EXPECT_NE(popUp.palette().color(QPalette::ButtonText), QPalette().color(QPalette::ButtonText));
}

TEST_F(PopUp, ChoosingAnotherAsksAndKeepsShowingTheActiveOne)
{
    popUp.setCurrentIndex(2);
    Q_EMIT popUp.activated(2);
    EXPECT_EQ(chosen, QStringList{u"Rehearsal"_s});
    EXPECT_EQ(popUp.currentIndex(), 1);
}

TEST_F(PopUp, ChoosingTheActiveOneDoesNothing)
{
    Q_EMIT popUp.activated(1);
    EXPECT_TRUE(chosen.isEmpty());
    EXPECT_EQ(newLocations, 0);
}

TEST_F(PopUp, ChoosingNewLocationShowsTheActiveOneAgainAndAsksForANewOne)
{
    popUp.setCurrentIndex(4);
    Q_EMIT popUp.activated(4);
    EXPECT_EQ(newLocations, 1);
    EXPECT_TRUE(chosen.isEmpty());
    EXPECT_EQ(popUp.currentText(), u"Show \u00b7 active"_s);
}

TEST_F(PopUp, ANameThatIsNoEntrySelectsNothing)
{
    popUp.update(locations, u"Gone"_s);
    EXPECT_EQ(popUp.currentIndex(), -1);
}

TEST_F(PopUp, TheSameEntriesAreNotRebuilt)
{
    QSignalSpy removed(popUp.model(), &QAbstractItemModel::rowsRemoved);
    popUp.update(locations, u"Office"_s);
    EXPECT_EQ(removed.count(), 0);
    EXPECT_EQ(popUp.currentText(), u"Office"_s);
    QList<LocationRecord> renamed = locations;
    renamed[0].name = u"Front Office"_s;
    popUp.update(renamed, u"Show"_s);
    EXPECT_GT(removed.count(), 0);
    EXPECT_EQ(popUp.itemText(0), u"Front Office"_s);
}

} // namespace
