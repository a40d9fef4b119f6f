#include "tests/surfaces/CurrentTestSupport.h"

#include "OrvaneApp/surfaces/kit/Popover.h"
#include "OrvaneApp/surfaces/kit/RowList.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

void CurrentTest::TearDown()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *popover = qobject_cast<Popover *>(window))
            popover->dismissQuietly();
    }
    view.reset();
    model.reset();
}

void CurrentTest::openTab(QSize size)
{
    model = makeModel();
    model->reload(false);
    view = std::make_unique<CurrentView>(*model);
    view->resize(size);
    view->show();
}

ServiceRowView *CurrentTest::viewOf(const AppModel::Row &row)
{
    RowList *list = view->rowList();
    list->scrollToItem(list->indexOfRow(row->source().id));
    return view->rowView(row->source().id);
}

ServiceRowView *CurrentTest::vlanView(qint64 tag)
{
    return viewOf(vlanRow(*model, tag));
}

ServiceRowView *CurrentTest::adapterView(const QString &name)
{
    return viewOf(adapterRow(*model, name));
}

QPushButton *CurrentTest::button(const QWidget &parent, const QString &text)
{
    for (QPushButton *each : parent.findChildren<QPushButton *>()) {
        if (each->text() == text)
            return each;
    }
    ADD_FAILURE() << "no button reads " << text.toStdString();
    return nullptr;
}

QString CurrentTest::popoverTitle()
{
    const Popover *popover = shownPopover();
    if (!popover)
        return {};
    // The title is the first label, at the top.
    const QList<QLabel *> labels = popover->findChildren<QLabel *>();
    return labels.isEmpty() ? QString() : labels.first()->text();
}

void CurrentTest::settle()
{
    clock->advance(1s);
}

void CurrentTest::editMachine(const std::function<void(QString &)> &edit)
{
    QFile file(folder + u"/machine.toml"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(file.readAll());
    file.close();
    edit(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text.toUtf8());
    file.close();
    // The description is read when the platform is made.
    platform = VLANKit::Platform::overFolder(folder);
}

void CurrentTest::unplug(const QString &bsdName)
{
    editMachine([&bsdName](QString &text) {
        const QRegularExpression table(u"\\[\\[interface\\]\\]\\s*\\nbsd-name = \""_s + bsdName
                                       + u"\"[\\s\\S]*?(?=\\n\\[|\\n# |$)"_s);
        ASSERT_TRUE(table.match(text).hasMatch()) << bsdName.toStdString();
        text.remove(table);
    });
}
