#include "VLANKit/files/Defaults.h"
#include "VLANKit/internet/InternetMemory.h"
#include "tests/cli/CliTestSupport.h"

#include <QFileInfo>
#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString controlID = u"E972C583-2B77-509A-8A06-AAF731E46526"_s;

class Order : public CliTest
{
protected:
    [[nodiscard]] static QStringList idsOf(const QList<ServiceRecord> &services)
    {
        QStringList ids;
        for (const ServiceRecord &service : services)
            ids.append(service.serviceID);
        return ids;
    }

    /// The ticks that a fresh look at the Location guesses: Wi-Fi and the VLAN named Internet.
    [[nodiscard]] QSet<QString> guessedTicks() const
    {
        return readStore()->defaultInternetServiceIDs();
    }
};

TEST_F(Order, ShowsTheServicesInRankWithTheGuessedTicks)
{
    const CliRun run = orvanectl({u"order"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QStringList lines = run.lines();
    EXPECT_EQ(lines.at(0), u"Service order of Location “Show”, highest first:"_s);
    EXPECT_EQ(cellsOf(lines.at(1)),
              (QStringList{u"RANK"_s, u"INTERNET"_s, u"NAME"_s, u"DEVICE"_s, u"TAG"_s, u"ON"_s}));
    EXPECT_EQ(cellsOf(lines.at(2)), (QStringList{u"1"_s, u"no"_s, u"1010 - Control (DONGLE)"_s,
                                                 u"en5"_s, u"1010"_s, u"on"_s}));
    EXPECT_EQ(cellsOf(lines.at(4)), (QStringList{u"3"_s, u"yes"_s, u"1020 - Internet (DONGLE)"_s,
                                                 u"en5"_s, u"1020"_s, u"on"_s}));
    EXPECT_EQ(cellsOf(lines.at(5)),
              (QStringList{u"4"_s, u"yes"_s, u"Wi-Fi"_s, u"en1"_s, u"—"_s, u"on"_s}));
    EXPECT_EQ(lines.last(),
              u"1 VLAN outranks the way to the internet: “1010 - Control (DONGLE)”."_s);
}

TEST_F(Order, JsonHoldsWhatTheTextShows)
{
    const QStringList lines = orvanectl({u"order"_s}).lines();
    const QJsonObject json = orvanectl({u"order"_s, u"--json"_s}).json();
    EXPECT_EQ(json.value(u"location"_s).toString(), u"Show"_s);
    EXPECT_FALSE(json.value(u"changed"_s).toBool());
    const QJsonArray services = json.value(u"services"_s).toArray();
    ASSERT_EQ(services.size(), 16);
    for (qsizetype i = 0; i < services.size(); ++i) {
        const QJsonObject service = services.at(i).toObject();
        const QJsonValue tag = service.value(u"tag"_s);
        EXPECT_EQ(cellsOf(lines.at(i + 2)),
                  (QStringList{QString::number(service.value(u"rank"_s).toInteger()),
                               service.value(u"internet"_s).toBool() ? u"yes"_s : u"no"_s,
                               service.value(u"name"_s).toString(),
                               service.value(u"device"_s).isNull()
                                   ? u"—"_s
                                   : service.value(u"device"_s).toString(),
                               tag.isNull() ? u"—"_s : QString::number(tag.toInteger()),
                               service.value(u"on"_s).toBool() ? u"on"_s : u"off"_s}));
        EXPECT_EQ(service.value(u"vlan"_s).toBool(), !tag.isNull());
    }
    const QJsonArray outranking = json.value(u"outranking"_s).toArray();
    ASSERT_EQ(outranking.size(), 1);
    EXPECT_EQ(outranking.at(0).toObject().value(u"serviceID"_s).toString(), controlID);
    EXPECT_EQ(outranking.at(0).toObject().value(u"tag"_s).toInteger(), 1010);
}

TEST_F(Order, ReadsTheTicksTheWindowRemembers)
{
    Defaults defaults = Defaults::inFile(defaultsPath());
    const InternetMarks guessed =
        InternetMemory::marks(u"Show"_s, readStore()->internetCandidates(), defaults);
    InternetMemory::keep(guessed.marking(guessed.internetServiceIDs() + QSet{controlID}), u"Show"_s,
                         defaults);
    const QByteArray remembered = bytesOf(defaultsPath());

    const QJsonObject json = orvanectl({u"order"_s, u"--json"_s}).json();
    const QJsonObject control = json.value(u"services"_s).toArray().at(0).toObject();
    EXPECT_EQ(control.value(u"serviceID"_s).toString(), controlID);
    EXPECT_TRUE(control.value(u"internet"_s).toBool());
    EXPECT_TRUE(json.value(u"outranking"_s).toArray().isEmpty());
    EXPECT_EQ(orvanectl({u"order"_s}).lines().last(),
              u"No VLAN outranks the way to the internet."_s);
    // orvanectl reads the ticks and never changes them.
    EXPECT_EQ(bytesOf(defaultsPath()), remembered);
}

TEST_F(Order, FixPutsTheWaysToTheInternetFirstInOneTransaction)
{
    const QList<ServiceRecord> recommended = readStore()->recommendedOrder(guessedTicks());
    const CliRun run = orvanectl({u"order"_s, u"--fix"_s, u"--yes"_s, u"--json"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.json().value(u"changed"_s).toBool());
    EXPECT_TRUE(run.json().value(u"outranking"_s).toArray().isEmpty());

    const auto store = std::make_unique<VLANStore>(another());
    EXPECT_EQ(idsOf(store->services()), idsOf(recommended));
    EXPECT_TRUE(store->vlansOutrankingInternet(guessedTicks()).isEmpty());
    QStringList reported;
    for (const QJsonValue &service : run.json().value(u"services"_s).toArray())
        reported.append(service.toObject().value(u"serviceID"_s).toString());
    EXPECT_EQ(reported, idsOf(recommended));
    // Nothing of the window's memory is written.
    EXPECT_FALSE(QFileInfo::exists(defaultsPath()));
}

TEST_F(Order, FixWithNothingToDoWritesNothing)
{
    ASSERT_EQ(orvanectl({u"order"_s, u"--fix"_s, u"--yes"_s}).status, 0);
    const auto before = machineFiles();
    const CliRun run = orvanectl({u"order"_s, u"--fix"_s});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().last(), u"Nothing to do: the order is already the recommended one."_s);
    EXPECT_TRUE(run.err.isEmpty());
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Order, FixAskedAndRefusedWritesNothing)
{
    const auto before = machineFiles();
    const CliRun run = orvanectl({u"order"_s, u"--fix"_s}, "n\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.startsWith(u"Put the services in the recommended order? "_s));
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Order, FixWithTheRightDeniedWritesNothing)
{
    answerAdministrator(u"answer = \"deny\""_s);
    const auto before = machineFiles();
    const CliRun run = orvanectl({u"order"_s, u"--fix"_s, u"--yes"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.lastErrorLine(),
              u"Authorization was denied or cancelled — no changes were made."_s);
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Order, OfAnotherLocation)
{
    const CliRun run = orvanectl({u"order"_s, u"--location"_s, u"Office"_s, u"--json"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.json().value(u"location"_s).toString(), u"Office"_s);
    EXPECT_EQ(run.json().value(u"services"_s).toArray().size(), 2);
}

} // namespace
