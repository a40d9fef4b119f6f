#include "OrvaneApp/surfaces/MainWindow.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/ContentView.h"
#include "tests/support/StoreTestSupport.h"

#include <QAction>
#include <QMenuBar>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Window : public StoreTest
{
protected:
    void SetUp() override
    {
        openCopyOf();
        model = std::make_unique<AppModel>(*platform, defaults, false);
        window = std::make_unique<MainWindow>(
            *model, new ContentView(*model, defaults, false, ProjectPanels{}));
    }

    QAction *action(const QString &text) const
    {
        for (QAction *menu : window->menuBar()->actions()) {
            for (QAction *item : menu->menu()->actions()) {
                if (item->text() == text)
                    return item;
            }
        }
        return nullptr;
    }

    Defaults defaults = Defaults::inFile(temporary.filePath(u"defaults.plist"_s));
    std::unique_ptr<AppModel> model;
    std::unique_ptr<MainWindow> window;
};

TEST_F(Window, IsOrvaneAt1340By720AndItsFirstShowReads)
{
    EXPECT_EQ(window->windowTitle(), u"Orvane"_s);
    EXPECT_EQ(window->size(), QSize(1340, 720));
    EXPECT_TRUE(model->locations().isEmpty());
    window->show();
    EXPECT_FALSE(model->locations().isEmpty());
    EXPECT_EQ(window->minimumSize(), ContentView::minimumWindowSize(model->nameColumnWidth()));
}

TEST_F(Window, TheMenusHoldHelpAboutAndADimmedUpdateCheckButNoNew)
{
    ASSERT_TRUE(action(u"Orvane Help"_s));
    EXPECT_TRUE(action(u"Orvane Help"_s)->shortcuts().contains(QKeySequence(Qt::Key_F1)));
    ASSERT_TRUE(action(u"About Orvane"_s));
    ASSERT_TRUE(action(u"Check for Updates\u2026"_s));
    EXPECT_FALSE(action(u"Check for Updates\u2026"_s)->isEnabled());
    for (const QString &edit : {u"Undo"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Select All"_s})
        EXPECT_TRUE(action(edit)) << edit.toStdString();
    EXPECT_FALSE(action(u"New"_s));
}

TEST_F(Window, HelpAndAboutOpenOneHelpWindow)
{
    action(u"Orvane Help"_s)->trigger();
    QPointer<HelpWindow> help = window->helpWindow();
    ASSERT_TRUE(help);
    EXPECT_EQ(help->windowTitle(), u"Orvane Help"_s);
    EXPECT_EQ(help->size(), QSize(620, 620));
    EXPECT_EQ(help->minimumSize(), QSize(560, 520));
    action(u"About Orvane"_s)->trigger();
    EXPECT_EQ(window->helpWindow(), help.data());
    help->close();
}

} // namespace
