// The three sheets that ask for a name: a new Location, a Location's new name, and an adapter's
// name of its own, over the show machine.
#include "OrvaneApp/surfaces/NewLocationSheet.h"
#include "OrvaneApp/surfaces/RenameAdapterSheet.h"
#include "OrvaneApp/surfaces/RenameLocationSheet.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "VLANKit/values/LocationRecord.h"
#include "tests/model/ModelTestSupport.h"
#include "tests/support/QtPrinters.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class LocationSheets : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
        model->reload(false);
    }

    /// Types into a field as a person would, and presses Return.
    static void typeAndReturn(HintField *field, const QString &text)
    {
        field->setFocus();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }

    [[nodiscard]] QStringList locationNames() const
    {
        QStringList names;
        for (const LocationRecord &location : readStore()->locations())
            names.append(location.name);
        return names;
    }

    std::unique_ptr<AppModel> model;
};

QStringList entries(const QComboBox &box)
{
    QStringList texts;
    for (int index = 0; index < box.count(); ++index)
        texts.append(box.itemText(index));
    return texts;
}

QString issueText(const QWidget &line)
{
    const auto *words = line.findChild<QLabel *>(u"issueWords"_s);
    return words && words->isVisibleTo(&line) ? words->text() : QString();
}

TEST_F(LocationSheets, TheStartsAreACopyOfEachLocationADividerAndAdaptersOnly)
{
    model->beginCreatingLocation();
    NewLocationSheet sheet(*model);
    EXPECT_EQ(entries(*sheet.startChoice()),
              (QStringList{u"A copy of Office"_s, u"A copy of Rehearsal"_s, u"A copy of Show"_s,
                           QString(), u"Adapters only"_s}));
    EXPECT_EQ(sheet.startChoice()->currentText(), u"A copy of Show"_s);
}

TEST_F(LocationSheets, OnlyOneLocationGivesOneCopyEntry)
{
    model->deleteLocation(u"Rehearsal"_s);
    model->deleteLocation(u"Office"_s);
    model->reload(false);
    model->beginCreatingLocation();
    NewLocationSheet sheet(*model);
    EXPECT_EQ(entries(*sheet.startChoice()),
              (QStringList{u"A copy of Show"_s, QString(), u"Adapters only"_s}));
}

TEST_F(LocationSheets, ALocationWithOneVLANServiceIsToldInTheSingular)
{
    const QList<LocationRecord> locations{{u"Small"_s, u"S"_s, false, 3, 1},
                                          {u"Empty"_s, u"E"_s, false, 2, 0}};
    EXPECT_TRUE(NewLocationSheet::detail(LocationStart::copy(u"Small"_s), locations)
                    .contains(u" It has 1 VLAN. A VPN"_s));
    EXPECT_TRUE(NewLocationSheet::detail(LocationStart::copy(u"Empty"_s), locations)
                    .contains(u" It has no VLANs in it yet. "_s));
    EXPECT_TRUE(NewLocationSheet::detail(LocationStart::copy(u"Gone"_s), locations)
                    .contains(u" It has no VLANs in it yet. "_s));
    EXPECT_EQ(NewLocationSheet::detail(LocationStart::adaptersOnly(), locations),
              u"A service for each attached adapter, on DHCP, and no VLANs. The VLANs on this "
              "Mac can be added to it afterwards, and new ones built into it."_s);
}

TEST_F(LocationSheets, TheNotesKeepTheirHeightAsTheChoiceChanges)
{
    model->beginCreatingLocation();
    NewLocationSheet sheet(*model);
    sheet.show();
    const int start = sheet.startNote()->height();
    const int switching = sheet.switchNote()->height();
    model->setNewLocationStart(LocationStart::adaptersOnly());
    model->setSwitchToNewLocation(true);
    sheet.adjustSize();
    EXPECT_EQ(sheet.startNote()->height(), start);
    EXPECT_EQ(sheet.switchNote()->height(), switching);
}

TEST_F(LocationSheets, ReturnWithAnInvalidNameDoesNothing)
{
    model->beginCreatingLocation();
    NewLocationSheet sheet(*model);
    sheet.show();
    typeAndReturn(sheet.nameField(), u"rehearsal"_s);
    EXPECT_EQ(issueText(*sheet.issue()), *model->newLocationIssue());
    EXPECT_FALSE(sheet.actButton()->isEnabled());
    EXPECT_TRUE(model->creatingLocation());
    EXPECT_EQ(locationNames().size(), 3);
    sheet.nameField()->clear();
    Q_EMIT sheet.nameField()->textEdited(QString());
    QTest::keyClick(sheet.nameField(), Qt::Key_Return);
    EXPECT_TRUE(model->creatingLocation());
}

TEST_F(LocationSheets, ReturnWithAGoodNameCreatesTheLocation)
{
    model->beginCreatingLocation();
    NewLocationSheet sheet(*model);
    sheet.show();
    typeAndReturn(sheet.nameField(), u"Main Stage"_s);
    EXPECT_FALSE(model->creatingLocation());
    EXPECT_TRUE(locationNames().contains(u"Main Stage"_s));
}

TEST_F(LocationSheets, EscapeCancelsTheNewLocation)
{
    model->beginCreatingLocation();
    NewLocationSheet sheet(*model);
    sheet.show();
    QTest::keyClick(&sheet, Qt::Key_Escape);
    EXPECT_FALSE(model->creatingLocation());
}

TEST_F(LocationSheets, RenameShowsTheOldNameAndRenames)
{
    model->beginRenamingLocation();
    RenameLocationSheet sheet(*model);
    sheet.show();
    EXPECT_EQ(sheet.title()->text(), u"Rename \u201cShow\u201d"_s);
    EXPECT_FALSE(sheet.actButton()->isEnabled());
    sheet.nameField()->selectAll();
    typeAndReturn(sheet.nameField(), u"Tour"_s);
    EXPECT_FALSE(model->renamingLocation());
    EXPECT_TRUE(locationNames().contains(u"Tour"_s));
}

TEST_F(LocationSheets, ATwoWordAdapterNamePreviewsItsFirstWord)
{
    model->setRenamingAdapter(u"en6"_s);
    RenameAdapterSheet sheet(*model, u"en6"_s);
    sheet.show();
    EXPECT_EQ(sheet.title()->text(), u"Name this adapter"_s);
    sheet.nameField()->setFocus();
    QTest::keyClicks(sheet.nameField(), u"  Stage Dock "_s);
    EXPECT_EQ(sheet.preview()->text(), u"1010 - Control (Stage)"_s);
    EXPECT_EQ(RenameAdapterSheet::previewLabel(u"\n Stage Dock"_s), u"Stage"_s);
    EXPECT_TRUE(sheet.actButton()->isEnabled());
}

TEST_F(LocationSheets, AnEmptyAdapterNamePreviewsEmptyBracketsAndCannotBeSaved)
{
    model->setRenamingAdapter(u"en6"_s);
    model->setAdapterNewName(QString());
    RenameAdapterSheet sheet(*model, u"en6"_s);
    EXPECT_EQ(sheet.preview()->text(), u"1010 - Control ()"_s);
    EXPECT_FALSE(sheet.actButton()->isEnabled());
    QTest::keyClick(sheet.nameField(), Qt::Key_Return);
    EXPECT_TRUE(model->renamingAdapter().has_value());
}

TEST_F(LocationSheets, ANamedAdapterIsRenamedAndABracketIsAnIssue)
{
    model->setRenamingAdapter(u"en5"_s);
    RenameAdapterSheet sheet(*model, u"en5"_s);
    EXPECT_EQ(sheet.title()->text(), u"Rename this adapter"_s);
    model->setAdapterNewName(u"DONGLE (2)"_s);
    EXPECT_EQ(issueText(*sheet.issue()), *model->adapterNameIssue());
    EXPECT_FALSE(sheet.actButton()->isEnabled());
}

} // namespace
