#include "OrvaneApp/surfaces/ContentView.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/ImportProfileSheet.h"
#include "OrvaneApp/surfaces/LocationConfirmation.h"
#include "OrvaneApp/surfaces/LocationPopUp.h"
#include "OrvaneApp/surfaces/NewLocationSheet.h"
#include "OrvaneApp/surfaces/RenameAdapterSheet.h"
#include "OrvaneApp/surfaces/RenameLocationSheet.h"
#include "OrvaneApp/surfaces/ServiceOrderSheet.h"
#include "tests/support/StoreTestSupport.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// The window's content over a copy of the show machine, its panels replaced by the test.
class Content : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    void open()
    {
        model = std::make_unique<AppModel>(*platform, defaults, false);
        model->reload(false);
        ProjectPanels panels;
        panels.save = [this](QWidget *, const ProjectPanels::Request &request) {
            saveRequests.append(request);
            return std::optional<QString>();
        };
        panels.open = [this](QWidget *, const ProjectPanels::Request &request) {
            openRequests.append(request);
            return std::optional<QString>();
        };
        view = std::make_unique<ContentView>(*model, defaults, false, panels);
        view->resize(1340, 720);
        view->show();
    }

    template <typename Widget>
    Widget *labelled(const QString &text) const
    {
        for (Widget *widget : view->findChildren<Widget *>()) {
            if (widget->text() == text)
                return widget;
        }
        ADD_FAILURE() << "nothing reads " << text.toStdString();
        return nullptr;
    }

    Defaults defaults = Defaults::inFile(temporary.filePath(u"defaults.plist"_s));
    std::unique_ptr<AppModel> model;
    std::unique_ptr<ContentView> view;
    QList<ProjectPanels::Request> saveRequests;
    QList<ProjectPanels::Request> openRequests;
};

TEST(ContentViewSizes, TheLeastWindowFollowsTheNameColumn)
{
    EXPECT_EQ(ContentView::minimumWindowSize(100), QSize(1280, 620));
    EXPECT_EQ(ContentView::minimumWindowSize(200), QSize(1324, 620));
}

TEST(ContentViewNames, TheSavePanelProposesTheLocationOrProject)
{
    EXPECT_EQ(ContentView::proposedFileName(u"Show"_s), u"Show.json"_s);
    EXPECT_EQ(ContentView::proposedFileName(QString()), u"project.json"_s);
}

TEST(ContentViewNames, TheAddTabCountsTheRowsWaiting)
{
    EXPECT_EQ(ContentView::addTabTitle(0), u"Add VLANs"_s);
    EXPECT_EQ(ContentView::addTabTitle(3), u"Add VLANs \u00b7 3"_s);
}

TEST(ContentViewFolders, NoProjectsFolderBesideTheAppLetsThePanelChoose)
{
    TemporaryFolder folder;
    EXPECT_EQ(ContentView::projectsFolder(folder.filePath(u"orvane"_s)), std::nullopt);
    folder.write(u"Orvane Projects/show.json"_s, "{}");
    EXPECT_EQ(ContentView::projectsFolder(folder.filePath(u"orvane"_s)),
              folder.filePath(u"Orvane Projects"_s));
}

TEST_F(Content, OneLocationOnlyDisablesDeleteWithItsReason)
{
    editPreferences([](QVariantMap &root) {
        QVariantMap sets = root.value(u"Sets"_s).toMap();
        const QString current = root.value(u"CurrentSet"_s).toString().section(u'/', -1);
        for (const QString &id : sets.keys()) {
            if (id != current)
                sets.remove(id);
        }
        root.insert(u"Sets"_s, sets);
    });
    open();
    QToolButton *remove = labelled<QToolButton>(u"Delete\u2026"_s);
    ASSERT_TRUE(remove);
    EXPECT_FALSE(remove->isEnabled());
    EXPECT_EQ(remove->toolTip(), u"There is no other Location to delete. The one this Mac is "
                                 "using can't be."_s);
}

TEST_F(Content, DeleteListsTheOtherLocationsOnly)
{
    open();
    QToolButton *remove = labelled<QToolButton>(u"Delete\u2026"_s);
    ASSERT_TRUE(remove);
    QStringList names;
    for (const QAction *action : remove->menu()->actions())
        names.append(action->text());
    EXPECT_FALSE(names.contains(u"Show"_s));
    EXPECT_TRUE(names.contains(u"Office"_s));
}

TEST_F(Content, NoVLANsDisablesSaveProjectButNotOpenProject)
{
    open();
    EXPECT_TRUE(labelled<QPushButton>(u"Save Project\u2026"_s)->isEnabled());
    editPreferences([](QVariantMap &root) { root.remove(u"VirtualNetworkInterfaces"_s); });
    model->reload(true);
    EXPECT_FALSE(labelled<QPushButton>(u"Save Project\u2026"_s)->isEnabled());
    model->setTab(AppTab::add);
    EXPECT_TRUE(labelled<QPushButton>(u"Open Project\u2026"_s)->isEnabled());
}

TEST_F(Content, SaveProposesTheLocationsNameAndTheButtonsWords)
{
    open();
    QTest::mouseClick(labelled<QPushButton>(u"Save Project\u2026"_s), Qt::LeftButton);
    ASSERT_EQ(saveRequests.size(), 1);
    EXPECT_EQ(saveRequests.first().fileName, u"Show.json"_s);
    EXPECT_EQ(saveRequests.first().acceptLabel, u"Save Project"_s);
    EXPECT_TRUE(saveRequests.first().folder.isEmpty());
}

TEST_F(Content, ChoosingTheActiveLocationDoesNothing)
{
    open();
    auto *popUp = view->findChild<LocationPopUp *>();
    ASSERT_TRUE(popUp);
    const int active = popUp->currentIndex();
    Q_EMIT popUp->activated(active);
    EXPECT_EQ(model->switchingTo(), std::nullopt);
    EXPECT_EQ(view->findChild<LocationConfirmation *>(), nullptr);
}

TEST_F(Content, ChoosingNewLocationOpensItsSheetAndShowsTheActiveOneAgain)
{
    open();
    auto *popUp = view->findChild<LocationPopUp *>();
    const QString before = popUp->currentText();
    const int foot = popUp->count() - 1;
    popUp->setCurrentIndex(foot);
    Q_EMIT popUp->activated(foot);
    EXPECT_TRUE(model->creatingLocation());
    EXPECT_EQ(popUp->currentText(), before);
}

TEST_F(Content, ChoosingAnotherLocationAsksAndEscapeDropsTheQuestion)
{
    open();
    auto *popUp = view->findChild<LocationPopUp *>();
    const int office = popUp->findText(u"Office"_s);
    ASSERT_GE(office, 0);
    Q_EMIT popUp->activated(office);
    EXPECT_EQ(model->switchingTo(), u"Office"_s);
    auto *question = view->findChild<LocationConfirmation *>();
    ASSERT_TRUE(question);
    QTest::keyClick(question, Qt::Key_Escape);
    EXPECT_EQ(model->switchingTo(), std::nullopt);
}

} // namespace

namespace {

/// The sheet of this type on show over the window, if any.
template <typename Sheet>
Sheet *shownSheet()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *sheet = qobject_cast<Sheet *>(window); sheet && sheet->isVisible())
            return sheet;
    }
    return nullptr;
}

TEST_F(Content, EachFlagOfTheModelRaisesItsSheetAndClosingItClearsTheFlag)
{
    open();
    model->beginCreatingLocation();
    ASSERT_TRUE(shownSheet<NewLocationSheet>());
    shownSheet<NewLocationSheet>()->reject();
    EXPECT_FALSE(model->creatingLocation());

    model->beginRenamingLocation();
    ASSERT_TRUE(shownSheet<RenameLocationSheet>());
    shownSheet<RenameLocationSheet>()->reject();
    EXPECT_FALSE(model->renamingLocation());

    model->setRenamingAdapter(u"en5"_s);
    ASSERT_TRUE(shownSheet<RenameAdapterSheet>());
    shownSheet<RenameAdapterSheet>()->reject();
    EXPECT_FALSE(model->renamingAdapter());

    model->setShowingServiceOrder(true);
    ASSERT_TRUE(shownSheet<ServiceOrderSheet>());
    shownSheet<ServiceOrderSheet>()->reject();
    EXPECT_FALSE(model->showingServiceOrder());

    VLANKit::Profile profile;
    profile.name = u"tour"_s;
    model->setPendingImport(profile);
    ASSERT_TRUE(shownSheet<ImportProfileSheet>());
    shownSheet<ImportProfileSheet>()->reject();
    EXPECT_FALSE(model->pendingImport());
}

} // namespace
