#include "OrvaneApp/surfaces/HelpView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 30;
constexpr int headSpacing = 6;
constexpr int blockSpacing = 22;
constexpr int titleSpacing = 8;
constexpr int paragraphSpacing = 6;
/// Where a paragraph's text stands from its bullet, on every line it wraps to.
constexpr int bulletIndent = 14;

QLabel *line(const QString &text, const QFont &font, bool secondary, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (secondary)
        Roles::useSecondaryText(*label);
    return label;
}

/// Text between pairs of `mark` set in `tag`; a last mark with no pair stays as it is.
QString pairUp(const QString &text, const QString &mark, const QString &tag)
{
    const QStringList pieces = text.split(mark);
    QString out = pieces.first();
    for (qsizetype at = 1; at < pieces.size(); ++at) {
        const bool opens = at % 2 == 1;
        const bool paired = !opens || at + 1 < pieces.size();
        if (!paired)
            out += mark;
        else
            out += opens ? u"<"_s + tag + u">"_s : u"</"_s + tag + u">"_s;
        out += pieces.at(at);
    }
    return out;
}

QWidget *paragraph(const QString &markup, QWidget *parent)
{
    auto *row = new QWidget(parent);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QLabel *bullet = line(u"\u2022"_s, Theme::font(12), true, row);
    bullet->setFixedWidth(bulletIndent);
    layout->addWidget(bullet, 0, Qt::AlignTop);
    auto *text = new QLabel(HelpView::richText(markup), row);
    text->setFont(Theme::font(12));
    text->setTextFormat(Qt::RichText);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(text, 1);
    return row;
}

QWidget *section(const HelpView::Section &section, QWidget *parent)
{
    auto *block = new QWidget(parent);
    auto *layout = new QVBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(paragraphSpacing);
    layout->addWidget(line(section.title, Theme::font(15, QFont::DemiBold), false, block));
    layout->addSpacing(titleSpacing - paragraphSpacing);
    for (const QString &text : section.paragraphs)
        layout->addWidget(paragraph(text, block));
    return block;
}

} // namespace

HelpView::HelpView(QWidget *parent)
    : QScrollArea(parent)
{
    setMinimumSize(leastWidth, leastHeight);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(blockSpacing);
    auto *head = new QVBoxLayout;
    head->setSpacing(headSpacing);
    head->addWidget(line(u"Orvane"_s, Theme::font(26, QFont::Bold), false, column));
    head->addWidget(line(u"Bulk VLAN management for macOS"_s, Theme::font(13), true, column));
    head->addWidget(
        line(u"Version "_s + version() + u" \u00b7 Quill Fence"_s, Theme::font(11), true, column));
    layout->addLayout(head);
    for (const Section &each : sections())
        layout->addWidget(section(each, column));
    layout->addStretch();
    setWidget(column);
}

const QList<HelpView::Section> &HelpView::sections()
{
    static const QList<Section> manual{
        {u"Two tabs"_s,
         {
             u"**Current** is what the Location in use holds now: its adapters, its VLANs, and the order they rank in. Every change there is to something that already exists."_s,
             u"**Add VLANs** is VLANs to build into that Location. Nothing on it exists until **Build VLANs\u2026** is confirmed. The window then goes to Current, where the new VLANs are. Under the rows it lists the VLANs this Mac already has, to read; they are changed on Current."_s,
             u"The Location in the bar is the one this Mac is using, and the one both tabs are about. Choosing another in the menu switches the Mac to it, after asking."_s,
         }},
        {u"Setting up several machines"_s,
         {
             u"Build the VLANs once, then **Save Project\u2026** on Current \u2014 to a thumb drive alongside the app, if you're walking between machines."_s,
             u"On each machine, **Open Project\u2026** on Add VLANs, and it asks which host octet this Mac takes. It lists the octets already assigned, suggests the next free one, and refuses one another Mac has claimed."_s,
             u"Your claim is written back into the project file, so the fifth machine knows what the first four were given."_s,
         }},
        {u"Adapters and VLANs"_s,
         {
             u"An adapter is a row like a VLAN: its name, IPv4, IPv6 and whether it is on. Its DNS servers and search domains are under **More\u2026**."_s,
             u"**Add adapter\u2026** above the adapters gives the Location a service for an attached adapter it doesn't have yet. **More\u2026** on an adapter takes it out again; the adapter itself stays on the Mac."_s,
             u"MTU, speed and duplex are under **More\u2026** too, beside what the link is running at now. They are set while the adapter is attached, from what its driver offers. A VLAN takes an MTU; Wi-Fi's are left to macOS."_s,
             u"A row on DHCP shows, in grey, the address it holds right now."_s,
             u"The mark beside a name is the row's state, in the words and colours System Settings uses: green for **Connected**, yellow for **Self-assigned IP**, red for **Not connected**, grey for **Inactive**. It follows the network as cables go in and out. A row that is off is dimmed, so the ones that are on stand out."_s,
             u"IPv6 is Automatic, Link-local only or Off. New VLANs are built Automatic, as macOS does."_s,
             u"An edited row shows **Save**; **Save all\u2026** applies every edited row together. Either lists what will change before anything is written, and so do **Turn on\u2026** and **Turn off\u2026** for the ticked rows."_s,
         }},
        {u"The address plan"_s,
         {
             u"A VLAN's tag carries its subnet: **1010 \u2192 192.168.10.N**, 1012 \u2192 192.168.12.N."_s,
             u"Leave the third octet empty to derive it from the tag. Type a number there to pin the subnet instead, and the tag stops contributing."_s,
             u"The last octet is this machine, and it's the only thing that differs between machines on the same project."_s,
             u"Switching a row to Manual fills the address in from the plan. Type over it and the row stops tracking the plan; clear the field and it starts again."_s,
         }},
        {u"Adapter names"_s,
         {
             u"A VLAN is named for the adapter it sits on \u2014 **1010 - Control (DONGLE)**. That suffix is part of the real name, so it shows in System Settings too, and it's rewritten whenever the VLAN moves."_s,
             u"The label is the first word of the adapter's name. Two identical USB adapters report the same hardware name, so naming them is the only way to tell the dock from the dongle \u2014 Orvane will flag one that's unnamed or too long and rename it for you."_s,
             u"Renaming applies in every Location, and brings every VLAN on that adapter into line at the same time."_s,
         }},
        {u"Service order"_s,
         {
             u"**Service order\u2026** at the foot of Current opens the order. The line beside it says whether any VLAN is ranked above your internet connection as things stand."_s,
             u"Order decides which service carries the default route, so a VLAN ranked too high takes the internet down."_s,
             u"The recommended order puts anything ticked as **Internet** on top, then physical adapters, then closed VLANs. With Wi-Fi switched off at a venue, the internet VLAN takes over as the next one down."_s,
             u"Wi-Fi starts out ticked, and so does a VLAN whose name says Internet. A tick you set or clear is kept on this Mac, also when the VLAN is deleted and built again."_s,
             u"A new service \u2014 a VLAN, or an adapter added to the Location \u2014 is placed at the bottom, so a fresh one can never outrank your internet path."_s,
             u"A VPN is not counted as an adapter: it has no device of its own for a VLAN to take the internet from."_s,
             u"Drag a row to override anything the policy gets wrong. The new order is written straight away."_s,
         }},
        {u"Locations"_s,
         {
             u"VLAN interfaces are global to the Mac, but the network services holding their IP addresses belong to one Location."_s,
             u"Keeping a show's VLANs in their own Location leaves your everyday setup untouched. **New\u2026** beside the Location menu makes one, as a copy of a Location you have or with the attached adapters only. **New Location\u2026** at the foot of the menu asks the same."_s,
             u"A VLAN with no service in the Location has no settings there to show. In their place its row says **Add to KVRT Shows 2 to enter its settings\u2026**, which gives it a service there, on DHCP, at the bottom of the order."_s,
             u"The Location menu switches the Mac to the Location you choose. **Rename\u2026** renames the one in use. **Delete\u2026** lists the others: the one in use can't be deleted."_s,
         }},
        {u"What it needs"_s,
         {
             u"You must be an **administrator** \u2014 writing network configuration needs the `system.preferences.network` right. macOS asks once per login, sometimes not at all."_s,
             u"macOS 14 or later. The app is a universal binary, so it runs on Apple Silicon and Intel."_s,
             u"Carrying it on a drive: any format a Mac reads will do \u2014 APFS, Mac OS Extended, exFAT or FAT32. Keep your projects in a folder called **Orvane Projects** beside the app, which is where **Open Project\u2026** and **Save Project\u2026** start."_s,
             u"Orvane closes when its drive is pulled, and anything typed and not saved goes with it. To eject the drive, quit Orvane first: macOS will not eject a drive an app is running from."_s,
         }},
        {u"Before anything is written"_s,
         {
             u"Every change is previewed first. Building shows the full list; editing a row confirms in that row; deleting confirms and names what goes."_s,
             u"Changes land as a single transaction \u2014 all of them, or none."_s,
         }},
    };
    return manual;
}

QString HelpView::richText(const QString &markup)
{
    return pairUp(pairUp(markup.toHtmlEscaped(), u"**"_s, u"b"_s), u"`"_s, u"code"_s);
}

QString HelpView::version()
{
    const QString stated = QCoreApplication::applicationVersion();
    return stated.isEmpty() ? u"\u2014"_s : stated;
}
