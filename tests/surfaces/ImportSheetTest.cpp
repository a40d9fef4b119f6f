// Opening a project on this machine: the roster, the question of a claim by this machine's
// name, the octet field and the preview, over the show machine.
#include "OrvaneApp/surfaces/ImportProfileSheet.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/SheetParts.h"
#include "VLANKit/project/ProfileIO.h"
#include "tests/model/ModelTestSupport.h"
#include "tests/support/QtPrinters.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class ImportSheet : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
        model->reload(false);
    }

    /// A project of two Manual VLANs and one on DHCP, with these claims.
    static Profile project(std::optional<QList<HostAssignment>> assignments)
    {
        Profile profile;
        profile.name = u"tour"_s;
        const auto manual = [](const QString &address) {
            IPConfig ip;
            ip.mode = IPMode::manual;
            ip.address = address;
            ip.subnetMask = u"255.255.255.0"_s;
            return ip;
        };
        profile.entries = {{1010, u"1010 - Control"_s, manual(u"192.168.10.70"_s), true},
                           {1012, u"1012 - Audio"_s, manual(u"192.168.12.70"_s), true},
                           {1020, u"1020 - Internet"_s, IPConfig::dhcp(), true}};
        profile.assignments = std::move(assignments);
        return profile;
    }

    /// Opens the project through the model, as the panel would, and the sheet on it.
    std::unique_ptr<ImportProfileSheet> open(const Profile &profile)
    {
        const QString path = temporary.filePath(u"tour.json"_s);
        ProfileIO::write(profile, path);
        model->loadProfile(path);
        if (!model->pendingImport()) {
            ADD_FAILURE() << "no sheet";
            return nullptr;
        }
        auto sheet = std::make_unique<ImportProfileSheet>(*model, *model->pendingImport());
        sheet->show();
        return sheet;
    }

    std::unique_ptr<AppModel> model;
};

TEST_F(ImportSheet, AProjectWithNoClaimsHasNoRoster)
{
    const auto sheet = open(project(std::nullopt));
    ASSERT_TRUE(sheet);
    EXPECT_FALSE(sheet->roster()->isVisibleTo(sheet.get()));
    EXPECT_FALSE(sheet->question()->isVisibleTo(sheet.get()));
}

TEST_F(ImportSheet, TheRosterListsTheClaimsAndMarksThisMac)
{
    const auto sheet =
        open(project(QList<HostAssignment>{{u"70"_s, u"Lighting Desk Mac"_s, u"0a1b2c3d4e5f"_s},
                                           {u"69"_s, model->thisMac().name, model->thisMac().id}}));
    ASSERT_TRUE(sheet);
    ASSERT_TRUE(sheet->roster()->isVisibleTo(sheet.get()));
    QStringList texts;
    for (const QLabel *label : sheet->roster()->findChildren<QLabel *>())
        texts.append(label->text());
    EXPECT_TRUE(texts.contains(u".69"_s));
    EXPECT_TRUE(texts.contains(model->thisMac().name + u" \u2014 this Mac"_s))
        << texts.join(u" | "_s).toStdString();
    EXPECT_TRUE(texts.contains(u"Lighting Desk Mac"_s));
    EXPECT_EQ(sheet->octetField()->text(), u"69"_s);
}

TEST_F(ImportSheet, AClaimByThisMachinesNameAsksAndTheAnswersFillTheField)
{
    const auto sheet = open(project(QList<HostAssignment>{{u"71"_s, model->thisMac().name}}));
    ASSERT_TRUE(sheet);
    ASSERT_TRUE(sheet->question()->isVisibleTo(sheet.get()));
    EXPECT_EQ(sheet->keepButton()->text(), u"Yes, this Mac: keep .71"_s);
    sheet->keepButton()->click();
    EXPECT_EQ(sheet->octetField()->text(), u"71"_s);
    sheet->takeButton()->click();
    EXPECT_EQ(sheet->octetField()->text(), model->pendingImport()->suggestedHost());
    EXPECT_NE(sheet->octetField()->text(), u"71"_s);
    // The field can be typed into directly as well.
    sheet->octetField()->setFocus();
    sheet->octetField()->selectAll();
    QTest::keyClicks(sheet->octetField(), u"80"_s);
    EXPECT_EQ(model->importHostOctet(), u"80"_s);
}

TEST_F(ImportSheet, LettersVanishAndAFourthDigitIsDropped)
{
    EXPECT_EQ(ImportProfileSheet::cleanOctet(u"a7b"_s), u"7"_s);
    EXPECT_EQ(ImportProfileSheet::cleanOctet(u"1234"_s), u"123"_s);
    const auto sheet = open(project(std::nullopt));
    ASSERT_TRUE(sheet);
    sheet->octetField()->setFocus();
    sheet->octetField()->clear();
    QTest::keyClicks(sheet->octetField(), u"x8y90"_s);
    EXPECT_EQ(sheet->octetField()->text(), u"890"_s);
    EXPECT_EQ(model->importHostOctet(), u"890"_s);
}

TEST_F(ImportSheet, AnEmptyOctetLeavesTheAddressesAsTheyAreAndTheButtonDisabled)
{
    const auto sheet = open(project(std::nullopt));
    ASSERT_TRUE(sheet);
    model->setImportHostOctet(QString());
    EXPECT_FALSE(sheet->previewList()->hostChosen());
    EXPECT_FALSE(sheet->setUpButton()->isEnabled());
    model->setImportHostOctet(u"72"_s);
    EXPECT_TRUE(sheet->previewList()->hostChosen());
    ASSERT_EQ(sheet->previewList()->lines().size(), 2);
    EXPECT_EQ(sheet->previewList()->lines().first(),
              (ImportPreview::Line{u"1010 - Control"_s, u"192.168.10.70"_s, u"192.168.10.72"_s}));
    EXPECT_TRUE(sheet->setUpButton()->isEnabled());
}

TEST_F(ImportSheet, AnOctetOutOfRangeStandsAsTheIssue)
{
    const auto sheet = open(project(std::nullopt));
    ASSERT_TRUE(sheet);
    model->setImportHostOctet(u"300"_s);
    const auto *words = sheet->issue()->findChild<QLabel *>(u"issueWords"_s);
    ASSERT_TRUE(words);
    EXPECT_EQ(words->text(), *model->importHostIssue());
    EXPECT_FALSE(sheet->setUpButton()->isEnabled());
}

TEST_F(ImportSheet, OnlyDHCPEntriesGiveAnEmptyPreview)
{
    Profile profile;
    profile.entries = {{1020, u"1020 - Internet"_s, IPConfig::dhcp(), true}};
    EXPECT_TRUE(ImportProfileSheet::preview(profile, u"70"_s).isEmpty());
}

TEST_F(ImportSheet, SetUpFillsTheBuildRowsAndCancelLoadsNothing)
{
    auto sheet = open(project(std::nullopt));
    ASSERT_TRUE(sheet);
    model->setImportHostOctet(u"72"_s);
    sheet->setUpButton()->click();
    EXPECT_FALSE(model->pendingImport());
    ASSERT_EQ(model->drafts().size(), 3);
    EXPECT_EQ(model->drafts().first()->address(), u"192.168.10.72"_s);

    sheet = open(project(std::nullopt));
    ASSERT_TRUE(sheet);
    QTest::keyClick(sheet.get(), Qt::Key_Escape);
    EXPECT_FALSE(model->pendingImport());
    EXPECT_FALSE(model->pendingImportURL());
}

} // namespace

namespace {

TEST_F(ImportSheet, AProjectSavedOnTheShowMacRaisesTheSheetOnTheLightingMacWithItsClaim)
{
    const QString path = temporary.filePath(u"show.json"_s);
    model->saveProfile(path);
    Profile saved = ProfileIO::read(path);
    const MachineIdentity showMac = model->thisMac();
    saved.assignments = QList<HostAssignment>{{u"69"_s, showMac.name, showMac.id}};
    ProfileIO::write(saved, path);

    // The second machine, in a folder of its own.
    platform = Platform::overFolder(temporary.copyOf(u"examples/lighting-mac"_s, u"lighting"_s));
    auto lighting = makeModel();
    lighting->reload(false);
    ASSERT_NE(lighting->thisMac().name, showMac.name);
    lighting->loadProfile(path);
    ASSERT_TRUE(lighting->pendingImport());
    ImportProfileSheet sheet(*lighting, *lighting->pendingImport());
    ASSERT_TRUE(sheet.roster()->isVisibleTo(&sheet));
    QStringList texts;
    for (const QLabel *label : sheet.roster()->findChildren<QLabel *>())
        texts.append(label->text());
    EXPECT_TRUE(texts.contains(u".69"_s));
    EXPECT_TRUE(texts.contains(showMac.name)) << texts.join(u" | "_s).toStdString();
    EXPECT_NE(lighting->importHostOctet(), u"69"_s);
}

} // namespace
