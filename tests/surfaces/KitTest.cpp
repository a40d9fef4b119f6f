#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Pulse.h"
#include "OrvaneApp/surfaces/kit/SheetHost.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(HintField, TheHintShowsOnlyWhileEnabledAndUnfocused)
{
    QWidget window;
    auto *field = new HintField(u"Required"_s, &window);
    auto *other = new QPushButton(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    other->setFocus();
    EXPECT_EQ(field->placeholderText(), u"Required"_s);
    field->setFocus();
    EXPECT_TRUE(field->placeholderText().isEmpty());
    other->setFocus();
    EXPECT_EQ(field->placeholderText(), u"Required"_s);
    field->setEnabled(false);
    EXPECT_TRUE(field->placeholderText().isEmpty());
    field->setEnabled(true);
    EXPECT_EQ(field->placeholderText(), u"Required"_s);
}

TEST(HintField, ASameTextKeepsTheCursor)
{
    HintField field;
    field.setText(u"192.168.10.69"_s);
    field.setCursorPosition(4);
    field.setTextIfDifferent(u"192.168.10.69"_s);
    EXPECT_EQ(field.cursorPosition(), 4);
    field.setTextIfDifferent(u"10.0.0.1"_s);
    EXPECT_EQ(field.text(), u"10.0.0.1"_s);
}

TEST(Pulse, MovesWhileActiveAndStandsStillWhenFrozen)
{
    QWidget target;
    Pulse pulse(&target);
    pulse.setActive(true);
    EXPECT_TRUE(pulse.isRunning());
    pulse.setActive(false);
    EXPECT_FALSE(pulse.isRunning());
    EXPECT_EQ(pulse.opacity(), 1.0);
    Pulse::freezeAll(true);
    pulse.setActive(true);
    EXPECT_FALSE(pulse.isRunning());
    EXPECT_EQ(pulse.opacity(), 1.0);
    Pulse::freezeAll(false);
}

TEST(StatusDot, EachLivenessHasItsColour)
{
    EXPECT_EQ(StatusDot::roleOf(ServiceEdit::Liveness::connected), Roles::Role::green);
    EXPECT_EQ(StatusDot::roleOf(ServiceEdit::Liveness::selfAssigned), Roles::Role::yellow);
    EXPECT_EQ(StatusDot::roleOf(ServiceEdit::Liveness::notConnected), Roles::Role::red);
    EXPECT_EQ(StatusDot::roleOf(ServiceEdit::Liveness::inactive), Roles::Role::grey);
    EXPECT_EQ(StatusDot::roleOf(ServiceEdit::Liveness::notInLocation), Roles::Role::grey);
}

/// Two flags of a model, and the sheets the host made for them.
class Sheets : public ::testing::Test
{
protected:
    Sheets()
        : host(&window, {{[this] { return first; },
                          [this](QWidget *parent) { return make(parent, u"first"_s, first); }},
                         {[this] { return second; },
                          [this](QWidget *parent) { return make(parent, u"second"_s, second); }}})
    {
        window.show();
    }

    QDialog *make(QWidget *parent, const QString &name, bool &flag)
    {
        auto *sheet = new QDialog(parent);
        sheet->setObjectName(name);
        // Every way it closes clears its flag, as the model's cancel does.
        QObject::connect(sheet, &QDialog::finished, sheet, [&flag](int) { flag = false; });
        return sheet;
    }

    QWidget window;
    bool first = false;
    bool second = false;
    SheetHost host;
};

TEST_F(Sheets, EscapeClosesTheSheetAndClearsItsFlag)
{
    first = true;
    host.refresh();
    ASSERT_TRUE(host.current());
    EXPECT_EQ(host.current()->windowModality(), Qt::WindowModal);
    QTest::keyClick(host.current(), Qt::Key_Escape);
    EXPECT_FALSE(first);
    EXPECT_EQ(host.current(), nullptr);
}

TEST_F(Sheets, TwoFlagsShowOneSheetThenTheOther)
{
    first = true;
    second = true;
    host.refresh();
    ASSERT_TRUE(host.current());
    EXPECT_EQ(host.current()->objectName(), u"first"_s);
    host.current()->reject();
    // The next sheet opens once the closed one's action has run, on the next turn of the loop.
    QCoreApplication::processEvents();
    ASSERT_TRUE(host.current());
    EXPECT_EQ(host.current()->objectName(), u"second"_s);
}

TEST_F(Sheets, ASheetWhoseFlagGoesIsClosed)
{
    second = true;
    host.refresh();
    QPointer<QDialog> shown = host.current();
    ASSERT_TRUE(shown);
    second = false;
    host.refresh();
    EXPECT_EQ(host.current(), nullptr);
    EXPECT_TRUE(!shown || !shown->isVisible());
}

} // namespace
