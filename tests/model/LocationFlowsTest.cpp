#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/platform/ForwardingBackend.h"
#include "tests/model/ModelTestSupport.h"

#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

// Another program rewrites the preferences just before each commit, which makes the commit's
// snapshot stale: everything before the commit succeeds, the commit fails.
class RewrittenBeforeCommit : public ForwardingBackend
{
public:
    RewrittenBeforeCommit(std::shared_ptr<PlatformBackend> inner, QString path)
        : ForwardingBackend(std::move(inner))
        , m_path(std::move(path))
    {}

    bool scPreferencesCommitChanges(const SessionRef &session) override
    {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QSaveFile rewritten(m_path);
        EXPECT_TRUE(rewritten.open(QIODevice::WriteOnly));
        rewritten.write(file.readAll());
        EXPECT_TRUE(rewritten.commit());
        return ForwardingBackend::scPreferencesCommitChanges(session);
    }

private:
    QString m_path;
};

class LocationFlows : public ModelTest
{
protected:
    [[nodiscard]] bool remembers(const QString &location) const
    {
        return defaults.value(InternetMemory::marksKey(location)).has_value();
    }
    // An Internet memory for a Location, as an earlier run would have left it.
    void rememberFor(const QString &location)
    {
        InternetMemory::keep(InternetMarks{}.marking({u"ABC"_s}), location, defaults);
    }
    std::unique_ptr<AppModel> modelWithAnEdit()
    {
        auto model = makeModel();
        model->reload();
        vlanRow(*model, 1012)->setName(u"1012 - Sound"_s);
        return model;
    }
};

TEST_F(LocationFlows, ChoosingTheLocationInUseAsksNothing)
{
    const auto model = makeModel();
    model->reload();
    model->askToSwitch(u"Show"_s);
    EXPECT_FALSE(model->switchingTo());
    model->askToSwitch(u"Nowhere"_s);
    EXPECT_FALSE(model->switchingTo());
    model->askToSwitch(u"Office"_s);
    EXPECT_EQ(model->switchingTo(), u"Office"_s);
}

TEST_F(LocationFlows, ANameDifferingOnlyByCaseIsRefusedOnCreateAndAllowedOnRename)
{
    const auto model = makeModel();
    model->reload();
    model->beginCreatingLocation();
    EXPECT_EQ(model->newLocationStart(), LocationStart::copy(u"Show"_s));
    model->setNewLocationName(u" show "_s);
    EXPECT_EQ(model->newLocationIssue(), u"A Location with that name already exists."_s);
    EXPECT_FALSE(model->canCreateLocation());
    model->beginRenamingLocation();
    EXPECT_EQ(model->locationNewName(), u"Show"_s);
    EXPECT_FALSE(model->canRenameLocation());
    model->setLocationNewName(u"show"_s);
    EXPECT_FALSE(model->locationRenameIssue());
    EXPECT_TRUE(model->canRenameLocation());
    model->setLocationNewName(u"OFFICE"_s);
    EXPECT_EQ(model->locationRenameIssue(), u"A Location with that name already exists."_s);
}

TEST_F(LocationFlows, CopyingWithTheTickOffLeavesTheRowsAndTheirEdits)
{
    const auto model = modelWithAnEdit();
    const AppModel::Row edited = vlanRow(*model, 1012);
    model->beginCreatingLocation();
    model->setNewLocationName(u" Tour "_s);
    EXPECT_EQ(model->newLocationSwitchNote(false),
              u"This Mac stays on Show. To work on the new Location, switch to it in the Location "
              u"menu."_s);
    model->createLocation();
    EXPECT_FALSE(model->newLocationError());
    EXPECT_FALSE(model->creatingLocation());
    EXPECT_EQ(model->result()->message,
              u"Created 'Tour' as a copy of 'Show'. Choose it in the Location menu to switch this "
              u"Mac to it."_s);
    EXPECT_TRUE(remembers(u"Tour"_s));
    EXPECT_EQ(vlanRow(*model, 1012), edited);
    clock->advance(700ms);
    EXPECT_EQ(model->selectedLocation(), u"Show"_s);
    EXPECT_EQ(vlanRow(*model, 1012)->name(), u"1012 - Sound"_s);
}

TEST_F(LocationFlows, AdaptersOnlyWithTheSwitchForgetsTheMemoryAndTheEdits)
{
    rememberFor(u"Tour"_s);
    const auto model = modelWithAnEdit();
    model->beginCreatingLocation();
    model->setNewLocationName(u"Tour"_s);
    model->setNewLocationStart(LocationStart::adaptersOnly());
    model->setSwitchToNewLocation(true);
    EXPECT_EQ(model->newLocationSwitchNote(true),
              u"This Mac switches to it as soon as it is made. The edits to 1 row here that "
              u"haven't been saved will be lost."_s);
    model->createLocation();
    EXPECT_EQ(model->result()->message,
              u"Created 'Tour' with a service for each attached adapter. This Mac is now using "
              u"it."_s);
    EXPECT_FALSE(remembers(u"Tour"_s));
    EXPECT_TRUE(model->dirtyRows().isEmpty());
    clock->advance(700ms);
    EXPECT_EQ(model->selectedLocation(), u"Tour"_s);
}

TEST_F(LocationFlows, CopyingWithTheSwitchCarriesTheMemory)
{
    const auto model = makeModel();
    model->reload();
    ASSERT_TRUE(remembers(u"Show"_s));
    model->beginCreatingLocation();
    model->setNewLocationName(u"Tour"_s);
    model->setSwitchToNewLocation(true);
    EXPECT_EQ(model->newLocationSwitchNote(true),
              u"This Mac switches to it as soon as it is made."_s);
    model->createLocation();
    EXPECT_TRUE(remembers(u"Tour"_s));
    clock->advance(700ms);
    EXPECT_EQ(model->selectedLocation(), u"Tour"_s);
    EXPECT_FALSE(model->internetServiceIDs().isEmpty());
}

TEST_F(LocationFlows, AFailedCreateCommitKeepsTheMemoryItWrote)
{
    auto backend = std::make_shared<RewrittenBeforeCommit>(platform->sharedBackend(),
                                                           folder + u"/preferences.plist"_s);
    const auto model = std::make_unique<AppModel>(Platform(backend), defaults, false, clock);
    model->reload();
    model->beginCreatingLocation();
    model->setNewLocationName(u"Tour"_s);
    const QByteArray before = preferencesBytes();
    model->createLocation();
    ASSERT_TRUE(model->newLocationError());
    EXPECT_FALSE(model->newLocationError()->isEmpty()) << model->newLocationError()->toStdString();
    EXPECT_TRUE(model->creatingLocation());
    EXPECT_EQ(model->newLocationName(), u"Tour"_s);
    EXPECT_TRUE(remembers(u"Tour"_s)) << model->newLocationError()->toStdString();
    EXPECT_EQ(preferencesBytes(), before);
    model->setNewLocationName(u"Tour 2"_s);
    EXPECT_FALSE(model->newLocationError());
}

TEST_F(LocationFlows, AFailedSwitchKeepsTheEdits)
{
    answerAdministrator(u"answer = \"deny\""_s);
    const auto model = modelWithAnEdit();
    model->askToSwitch(u"Office"_s);
    EXPECT_EQ(model->switchDetail(),
              u"Every adapter and VLAN takes the settings it has in that Location, straight "
              u"away. The edits to 1 row here that haven't been saved will be lost."_s);
    model->confirmSwitch();
    EXPECT_FALSE(model->switchingTo());
    EXPECT_FALSE(model->result()->succeeded);
    EXPECT_EQ(model->result()->message,
              u"Authorization was denied or cancelled — no changes were made."_s);
    EXPECT_EQ(vlanRow(*model, 1012)->name(), u"1012 - Sound"_s);
}

TEST_F(LocationFlows, ASwitchThatWorksRevertsEveryTouchedRow)
{
    const auto model = modelWithAnEdit();
    model->askToSwitch(u"Office"_s);
    model->confirmSwitch();
    EXPECT_EQ(model->result()->message, u"This Mac is now using 'Office'."_s);
    EXPECT_TRUE(model->dirtyRows().isEmpty());
    EXPECT_EQ(model->selectedLocation(), u"Show"_s);
    clock->advance(700ms);
    EXPECT_EQ(model->selectedLocation(), u"Office"_s);
}

TEST_F(LocationFlows, ASwitchActionStandsInForMakingActive)
{
    const auto model = modelWithAnEdit();
    QStringList asked;
    model->switchAction = [&](const QString &name) {
        asked.append(name);
        return false;
    };
    model->askToSwitch(u"Office"_s);
    model->confirmSwitch();
    EXPECT_EQ(asked, QStringList{u"Office"_s});
    EXPECT_FALSE(model->result());
    EXPECT_FALSE(model->dirtyRows().isEmpty());
}

TEST_F(LocationFlows, RenamingMovesTheMemoryAndACaseChangeIsAllowed)
{
    const auto model = makeModel();
    model->reload();
    ASSERT_TRUE(remembers(u"Show"_s));
    model->beginRenamingLocation();
    model->setLocationNewName(u"show "_s);
    model->commitLocationRename();
    EXPECT_FALSE(model->locationRenameError());
    EXPECT_FALSE(model->renamingLocation());
    EXPECT_EQ(model->result()->message, u"Renamed 'Show' to 'show'."_s);
    EXPECT_TRUE(remembers(u"show"_s));
    EXPECT_FALSE(remembers(u"Show"_s));
    clock->advance(700ms);
    EXPECT_EQ(model->selectedLocation(), u"show"_s);
}

TEST_F(LocationFlows, AFailedRenameStaysInTheSheet)
{
    answerAdministrator(u"answer = \"cancel\""_s);
    const auto model = makeModel();
    model->reload();
    model->beginRenamingLocation();
    model->setLocationNewName(u"Tour"_s);
    model->commitLocationRename();
    EXPECT_EQ(model->locationRenameError(),
              u"Authorization was denied or cancelled — no changes were made."_s);
    EXPECT_TRUE(model->renamingLocation());
    EXPECT_FALSE(model->result());
    EXPECT_TRUE(remembers(u"Show"_s));
}

TEST_F(LocationFlows, DeletingForgetsTheMemory)
{
    rememberFor(u"Office"_s);
    const auto model = makeModel();
    model->reload();
    QStringList deletable;
    for (const LocationRecord &location : model->deletableLocations())
        deletable.append(location.name);
    EXPECT_EQ(deletable, (QStringList{u"Office"_s, u"Rehearsal"_s}));
    model->deleteLocation(u"Office"_s);
    EXPECT_EQ(model->result()->message, u"Deleted the Location 'Office'."_s);
    EXPECT_FALSE(remembers(u"Office"_s));
    clock->advance(700ms);
    EXPECT_EQ(model->locations().size(), 2);
}

TEST_F(LocationFlows, AFailedDeleteKeepsEverything)
{
    rememberFor(u"Office"_s);
    answerAdministrator(u"answer = \"deny\""_s);
    const auto model = makeModel();
    model->reload();
    model->deleteLocation(u"Office"_s);
    EXPECT_FALSE(model->result()->succeeded);
    EXPECT_TRUE(remembers(u"Office"_s));
}

TEST_F(LocationFlows, DeleteDetailKeepsTheVerbForOneService)
{
    const auto model = makeModel();
    LocationRecord small;
    small.name = u"Small"_s;
    small.serviceCount = 1;
    model->setLocations({small});
    EXPECT_EQ(model->deleteDetail(u"Small"_s),
              u"Its 1 service go with it. The VLANs themselves stay on the Mac. This can't be "
              u"undone."_s);
    EXPECT_EQ(model->deleteDetail(u"Nowhere"_s),
              u"Its 0 services go with it. The VLANs themselves stay on the Mac. This can't be "
              u"undone."_s);
}

} // namespace
