// The picture maker as a person runs it: the real executable over a copy of the show machine,
// with the user's configuration and data pointed at temporary folders.
#include "OrvaneApp/surfaces/HelpView.h"
#include "OrvaneApp/surfaces/ServiceOrderLayout.h"
#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/project/ProfileIO.h"
#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/support/TemporaryFolder.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ProofRun
{
    int status = -1;
    QStringList lines;
    QString err;
};

class RenderProofRun : public ::testing::Test
{
protected:
    RenderProofRun()
        : machine(temporary.copyOf(u"examples/show-mac"_s, u"mac"_s))
    {}

    ProofRun orvane(const QStringList &arguments, const QString &scale = {}) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, temporary.filePath(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, temporary.filePath(u"data"_s));
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        if (!scale.isEmpty())
            environment.insert(u"QT_SCALE_FACTOR"_s, scale);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(ORVANE_PATH), arguments + QStringList{u"--prefs"_s, machine});
        ProofRun run;
        if (!process.waitForFinished(60000)) {
            ADD_FAILURE() << "orvane did not finish";
            process.kill();
            process.waitForFinished();
            return run;
        }
        run.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        QString out = QString::fromUtf8(process.readAllStandardOutput());
        if (out.endsWith(u'\n'))
            out.chop(1);
        run.lines = out.split(u'\n');
        run.err = QString::fromUtf8(process.readAllStandardError());
        return run;
    }

    QString picture(const QString &name) const { return temporary.filePath(name); }

    TemporaryFolder temporary;
    QString machine;
};

const QString usageStart = u"usage: --render current|add|new|rename|order|reorder|import|result"_s;

TEST_F(RenderProofRun, RenderWithoutAFileGivesTheUsageAndOne)
{
    const ProofRun run = orvane({u"--render"_s, u"current"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains(usageStart)) << run.err.toStdString();
    EXPECT_EQ(run.lines, QStringList{QString()});
}

TEST_F(RenderProofRun, AnUnknownSurfaceGivesTheUsageAndOne)
{
    const ProofRun run = orvane({u"--render"_s, u"nonsense"_s, picture(u"out.png"_s)});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains(usageStart));
    EXPECT_FALSE(QFile::exists(picture(u"out.png"_s)));
}

TEST_F(RenderProofRun, TheResultSheetIsDrawnWithTheSampleLines)
{
    const QString out = picture(u"result.png"_s);
    const ProofRun run = orvane({u"--no-care"_s, u"--render"_s, u"result"_s, out});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    ASSERT_EQ(run.lines.size(), 5) << run.lines.join(u'\n').toStdString();
    EXPECT_EQ(run.lines.at(0), u"render: "_s + out);
    EXPECT_EQ(run.lines.at(1), u"render: location \u201cShow\u201d, 12 VLANs, name column 210"_s);
    EXPECT_EQ(run.lines.at(2), u"render: projects folder \u2014 none beside the app"_s);
    EXPECT_TRUE(run.lines.at(3).startsWith(u"render: ranking line \u2014 "_s));
    // The head, the four sample lines and "OK".
    EXPECT_EQ(run.lines.at(4), u"render: 6 text fields, 0 pop-ups, 0 cut short, 0 at the edge"_s);
    const QImage image(out);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.width(), 460);
}

TEST_F(RenderProofRun, AFailedResultShowsEachLineOfItsMessage)
{
    const ProofRun run =
        orvane({u"--render"_s, u"result"_s, picture(u"failed.png"_s), u"--message"_s,
                u"One.\\nTwo.\\nThree."_s, u"--failed"_s, u"--appearance"_s, u"light"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines.last(), u"render: 5 text fields, 0 pop-ups, 0 cut short, 0 at the edge"_s);
}

TEST_F(RenderProofRun, TwiceTheScaleGivesTheSameLinesAndTwiceThePixels)
{
    const ProofRun once = orvane({u"--render"_s, u"result"_s, picture(u"1.png"_s)});
    const ProofRun twice = orvane({u"--render"_s, u"result"_s, picture(u"2.png"_s)}, u"2"_s);
    ASSERT_EQ(twice.status, 0) << twice.err.toStdString();
    EXPECT_EQ(once.lines.mid(1), twice.lines.mid(1));
    EXPECT_EQ(QImage(picture(u"2.png"_s)).width(), 2 * QImage(picture(u"1.png"_s)).width());
}

TEST_F(RenderProofRun, TheHelpWindowIsDrawnAt620By900WithItsHeadAndSections)
{
    // The head's three lines; each section's title, and a bullet and a text a paragraph.
    int fields = 3;
    for (const HelpView::Section &section : HelpView::sections())
        fields += 1 + 2 * int(section.paragraphs.size());
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        const QString out = picture(u"help-"_s + appearance + u".png"_s);
        const ProofRun run = orvane({u"--render"_s, u"help"_s, out, u"--appearance"_s, appearance});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        EXPECT_EQ(run.lines.last(),
                  u"render: %1 text fields, 0 pop-ups, 0 cut short, 0 at the edge"_s.arg(fields));
        EXPECT_EQ(QImage(out).size(), QSize(620, 900));
    }
}

TEST_F(RenderProofRun, TheServiceOrderSheetIsDrawnAtItsMeasuredWidth)
{
    const ServiceOrderLayout layout = ServiceOrderLayout::measuring(
        VLANKit::VLANStore(VLANKit::Platform::overFolder(machine)).services());
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        const QString out = picture(u"order-"_s + appearance + u".png"_s);
        const ProofRun run =
            orvane({u"--render"_s, u"order"_s, out, u"--appearance"_s, appearance});
        ASSERT_EQ(run.status, 0) << run.lines.join(u'\n').toStdString();
        EXPECT_TRUE(run.lines.last().endsWith(u" 0 pop-ups, 0 cut short, 0 at the edge"_s))
            << run.lines.join(u'\n').toStdString();
        EXPECT_EQ(QImage(out).width(), layout.sheetWidth());
    }
}

TEST_F(RenderProofRun, TheRecommendedOrderIsDrawnAsItsQuestion)
{
    const QString out = picture(u"reorder.png"_s);
    const ProofRun run = orvane({u"--render"_s, u"reorder"_s, out});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    // The show machine ranks a closed VLAN above its way to the internet.
    EXPECT_TRUE(run.lines.at(3).endsWith(u" [Apply recommended order\u2026 offered]"_s));
    EXPECT_GE(QImage(out).width(), 420);
}

TEST_F(RenderProofRun, AnOutputInAMissingFolderFails)
{
    const QString out = picture(u"missing/out.png"_s);
    const ProofRun run = orvane({u"--render"_s, u"result"_s, out});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.lines, QStringList{u"render: could not write "_s + out});
}

TEST_F(RenderProofRun, AnUnreadableConfigurationFails)
{
    QFile file(machine + u"/preferences.plist"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("<plist><dict>");
    file.close();
    const ProofRun run = orvane({u"--render"_s, u"result"_s, picture(u"out.png"_s)});
    EXPECT_EQ(run.status, 1);
    ASSERT_EQ(run.lines.size(), 1);
    EXPECT_TRUE(
        run.lines.first().startsWith(u"render: could not read the configuration \u2014 "_s));
}

// "--no-care" stands anywhere, and "--render" wins over "--drive-proof".
TEST_F(RenderProofRun, TheCurrentTabIsDrawnWithTheBarAndNothingAtTheEdge)
{
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        const QString out = picture(u"current-"_s + appearance + u".png"_s);
        const ProofRun run = orvane({u"--no-care"_s, u"--render"_s, u"current"_s, out,
                                     u"--appearance"_s, appearance, u"--drive-proof"_s});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        EXPECT_TRUE(run.lines.last().endsWith(u"0 cut short, 0 at the edge"_s))
            << run.lines.last().toStdString();
        EXPECT_EQ(QImage(out).size(), QSize(1340, 760));
    }
}

TEST_F(RenderProofRun, TheWindowIsNeverDrawnBelowItsLeastSize)
{
    const QString out = picture(u"small.png"_s);
    const ProofRun run =
        orvane({u"--render"_s, u"add"_s, out, u"--width"_s, u"900"_s, u"--height"_s, u"300"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(QImage(out).size(), QSize(1334, 620));
}

TEST_F(RenderProofRun, AnUnknownPinnedLocationShowsTheOneInUse)
{
    const ProofRun run = orvane(
        {u"--render"_s, u"current"_s, picture(u"pinned.png"_s), u"--location"_s, u"Nowhere"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.lines.at(1).startsWith(u"render: location \u201cShow\u201d"_s));
}

TEST_F(RenderProofRun, AnEditOfNoRowFails)
{
    const ProofRun run =
        orvane({u"--render"_s, u"current"_s, picture(u"edit.png"_s), u"--edit"_s, u"vlan99"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.lines, QStringList{u"render: no row for vlan99"_s});
}

} // namespace

namespace {

/// The Location of the show machine renamed to a long name, by hand.
void renameTheShow(const QString &machine, const QString &name)
{
    QFile file(machine + u"/preferences.plist"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray text = file.readAll();
    file.close();
    ASSERT_EQ(text.count("<string>Show</string>"), 1);
    text.replace("<string>Show</string>", "<string>" + name.toUtf8() + "</string>");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

} // namespace

TEST_F(RenderProofRun, TheCurrentTabWithAnEditedRowIsDrawnWithNothingCutShort)
{
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        const QString out = picture(u"current-edit-"_s + appearance + u".png"_s);
        const ProofRun run = orvane({u"--render"_s, u"current"_s, out, u"--edit"_s, u"vlan4"_s,
                                     u"--appearance"_s, appearance});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        EXPECT_TRUE(run.lines.last().endsWith(u"0 cut short, 0 at the edge"_s))
            << run.lines.join(u'\n').toStdString();
    }
}

TEST_F(RenderProofRun, TheCurrentTabAtItsLeastWidthHoldsALongLocationName)
{
    const QString name = u"Main Stage Front of House 2026"_s;
    ASSERT_EQ(name.size(), 30);
    renameTheShow(machine, name);
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        const QString out = picture(u"least-"_s + appearance + u".png"_s);
        const ProofRun run = orvane({u"--render"_s, u"current"_s, out, u"--width"_s, u"1"_s,
                                     u"--height"_s, u"1"_s, u"--appearance"_s, appearance});
        ASSERT_EQ(run.status, 0) << run.lines.join(u'\n').toStdString();
        EXPECT_TRUE(run.lines.at(1).startsWith(u"render: location \u201c"_s + name));
        EXPECT_TRUE(run.lines.last().endsWith(u"0 at the edge"_s));
        EXPECT_EQ(QImage(out).size(), QSize(1334, 620));
    }
}

TEST_F(RenderProofRun, MoreIsDrawnForAVLANAnAdapterAndSampleHardware)
{
    const QList<QStringList> asks{
        {}, {u"--edit"_s, u"en0"_s}, {u"--edit"_s, u"en1"_s}, {u"--sample-hardware"_s}};
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        for (const QStringList &ask : asks) {
            const QString out = picture(u"more-"_s + appearance + u".png"_s);
            const ProofRun run = orvane(
                QStringList{u"--render"_s, u"more"_s, out, u"--appearance"_s, appearance} + ask);
            ASSERT_EQ(run.status, 0) << run.lines.join(u'\n').toStdString();
            EXPECT_TRUE(run.lines.last().endsWith(u"0 cut short, 0 at the edge"_s))
                << ask.join(u' ').toStdString() << ": " << run.lines.join(u'\n').toStdString();
            EXPECT_GE(QImage(out).width(), 300);
        }
    }
}

TEST_F(RenderProofRun, SampleHardwareShowsTheSpeedAndDuplexChoices)
{
    const QString plain = picture(u"plain.png"_s);
    const QString sample = picture(u"sample.png"_s);
    const ProofRun without = orvane({u"--render"_s, u"more"_s, plain});
    const ProofRun with = orvane({u"--render"_s, u"more"_s, sample, u"--sample-hardware"_s});
    ASSERT_EQ(with.status, 0);
    // Two more pop-ups: the speed and the duplex.
    const auto popups = [](const ProofRun &run) {
        const QString line = run.lines.last();
        const QString count = line.section(u", "_s, 1, 1).section(u' ', 0, 0);
        return VLANKit::parseInteger(count).value_or(-1);
    };
    EXPECT_EQ(popups(with), popups(without) + 2);
}

TEST_F(RenderProofRun, MoreWithNoRowSaysSo)
{
    {
        const VLANKit::Platform platform = VLANKit::Platform::overFolder(machine);
        VLANKit::NetworkAuthorization authorization(platform);
        authorization.acquire();
        VLANKit::VLANStore store(platform, authorization);
        for (const VLANKit::VLANRecord &vlan : store.vlans())
            store.removeVLAN(vlan.tag, vlan.bsdName);
        store.commit();
    }
    const ProofRun run = orvane({u"--render"_s, u"more"_s, picture(u"out.png"_s)});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.lines.last(), u"render: no row to show More\u2026 for"_s);
}

TEST_F(RenderProofRun, TheLocationSheetsAreDrawnWithNothingCutShort)
{
    const QList<QStringList> asks{
        {u"new"_s},
        {u"new"_s, u"--name"_s, u"Office"_s, u"--adapters-only"_s, u"--switch-now"_s},
        {u"rename"_s, u"--name"_s, u"Main Stage"_s}};
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        for (const QStringList &ask : asks) {
            const QString out = picture(ask.first() + u"-"_s + appearance + u".png"_s);
            const ProofRun run =
                orvane(QStringList{u"--render"_s, ask.first(), out, u"--appearance"_s, appearance}
                       + ask.mid(1));
            ASSERT_EQ(run.status, 0) << run.lines.join(u'\n').toStdString();
            EXPECT_TRUE(run.lines.last().endsWith(u"0 cut short, 0 at the edge"_s))
                << run.lines.join(u'\n').toStdString();
        }
    }
    // "New Location" is as wide as its form and its padding.
    EXPECT_EQ(QImage(picture(u"new-light.png"_s)).width(), 480);
}

TEST_F(RenderProofRun, TheAddTabIsDrawnWithItsRowsAtFullAndLeastWidth)
{
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        for (const QString &width : {u"1340"_s, u"1"_s}) {
            const QString out = picture(u"add-"_s + width + appearance + u".png"_s);
            const ProofRun run =
                orvane({u"--render"_s, u"add"_s, out, u"--appearance"_s, appearance, u"--width"_s,
                        width, u"--host"_s, u"69"_s, u"--draft"_s, u"1060,Comms,manual"_s,
                        u"--draft"_s, u"1062,Video,dhcp"_s, u"--draft"_s, u"5000,Bad,manual"_s});
            ASSERT_EQ(run.status, 0) << run.lines.join(u'\n').toStdString();
            EXPECT_TRUE(run.lines.last().endsWith(u"0 cut short, 0 at the edge"_s))
                << run.lines.join(u'\n').toStdString();
        }
    }
}

TEST_F(RenderProofRun, TheImportSheetIsDrawnForAProjectWithAClaim)
{
    VLANKit::Profile profile;
    profile.name = u"tour"_s;
    VLANKit::IPConfig ip;
    ip.mode = VLANKit::IPMode::manual;
    ip.address = u"192.168.10.69"_s;
    ip.subnetMask = u"255.255.255.0"_s;
    profile.entries = {{1010, u"1010 - Control"_s, ip, true},
                       {1020, u"1020 - Internet"_s, VLANKit::IPConfig::dhcp(), true}};
    profile.assignments =
        QList<VLANKit::HostAssignment>{{u"69"_s, u"FOH Show Mac"_s, u"8f8c4a904d79"_s}};
    const QString project = picture(u"tour.json"_s);
    VLANKit::ProfileIO::write(profile, project);
    for (const QString &appearance : {u"dark"_s, u"light"_s}) {
        const QString out = picture(u"import-"_s + appearance + u".png"_s);
        const ProofRun run = orvane({u"--render"_s, u"import"_s, out, u"--project"_s, project,
                                     u"--appearance"_s, appearance});
        ASSERT_EQ(run.status, 0) << run.lines.join(u'\n').toStdString();
        EXPECT_TRUE(run.lines.last().endsWith(u"0 cut short, 0 at the edge"_s))
            << run.lines.join(u'\n').toStdString();
        EXPECT_EQ(QImage(out).width(), 620);
    }
}

TEST_F(RenderProofRun, ImportWithoutAProjectSaysWhatItNeeds)
{
    const ProofRun run = orvane({u"--render"_s, u"import"_s, picture(u"out.png"_s)});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.lines.last(), u"render: import needs --project FILE"_s);
}
