#include "VLANKit/project/AddressPlan.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/files/Defaults.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

const QString storedKey = u"Orvane.addressPlan"_s;

// One field read as an octet: blanks trimmed, then the strict integer parse within 0...255.
std::optional<int> octet(const QString &field)
{
    const QString text = trimSpacesAndTabs(field);
    if (text.isEmpty())
        return std::nullopt;
    return parseOctet(text);
}

// Keeps only number characters (any script's), and of those the first three.
QString sanitised(const QString &field)
{
    QString kept;
    int count = 0;
    for (const QString &character : characters(field)) {
        if (count == 3)
            break;
        if (isUnicodeNumber(character)) {
            kept += character;
            ++count;
        }
    }
    return kept;
}

// A key that is present must hold a string; absent and null read as absent.
bool readString(const QJsonObject &object, const QString &key, std::optional<QString> &out)
{
    const QJsonValue value = object.value(key);
    if (value.isUndefined() || value.isNull())
        return true;
    if (!value.isString())
        return false;
    out = value.toString();
    return true;
}

} // namespace

AddressPlan AddressPlan::fromPrefix(const QString &prefix, const QString &host)
{
    const QStringList pieces = splitDroppingEmpty(prefix, u'.');
    AddressPlan plan;
    plan.octet1 = pieces.value(0);
    plan.octet2 = pieces.value(1);
    plan.octet3 = pieces.value(2);
    plan.host = host;
    plan.subnetMask = u"255.255.255.0"_s;
    return plan;
}

QString AddressPlan::prefix() const
{
    if (!octet3.isEmpty())
        return octet1 + u'.' + octet2 + u'.' + octet3;
    return octet1 + u'.' + octet2;
}

std::optional<qint64> AddressPlan::thirdOctetForTag(qint64 tag)
{
    if (tag < 1)
        return std::nullopt;
    const qint64 r = tag % 1000;
    if (r < 256)
        return r;
    return tag % 100;
}

bool AddressPlan::usesFallbackForTag(qint64 tag)
{
    return tag >= 1 && tag % 1000 > 255;
}

bool AddressPlan::isUsable() const
{
    return octet(octet1) && octet(octet2) && octet(host) && (!pinsSubnet() || octet(octet3));
}

bool AddressPlan::pinsSubnet() const
{
    return !isBlank(octet3);
}

std::optional<QString> AddressPlan::addressForTag(std::optional<qint64> tag) const
{
    const auto first = octet(octet1);
    const auto second = octet(octet2);
    const auto last = octet(host);
    if (!first || !second || !last)
        return std::nullopt;
    qint64 third = 0;
    if (pinsSubnet()) {
        const auto pinned = octet(octet3);
        if (!pinned)
            return std::nullopt;
        third = *pinned;
    } else {
        const auto fromTag = tag ? thirdOctetForTag(*tag) : std::nullopt;
        if (!fromTag)
            return std::nullopt;
        third = *fromTag;
    }
    return u"%1.%2.%3.%4"_s.arg(*first).arg(*second).arg(third).arg(*last);
}

QString AddressPlan::exampleForTag(qint64 tag) const
{
    if (const auto address = addressForTag(tag))
        return *address;
    QString text = prefix() + u'.';
    if (!pinsSubnet())
        text += u"\u2014."_s;
    text += host.isEmpty() ? u"N"_s : host;
    return text;
}

QByteArray AddressPlan::encoded() const
{
    const QJsonObject object{{u"octet1"_s, octet1},
                             {u"octet2"_s, octet2},
                             {u"octet3"_s, octet3},
                             {u"host"_s, host},
                             {u"subnetMask"_s, subnetMask}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<AddressPlan> AddressPlan::decoded(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject object = document.object();
    std::optional<QString> first, second, third, hostText, mask, legacyPrefix;
    if (!readString(object, u"octet1"_s, first) || !readString(object, u"octet2"_s, second)
        || !readString(object, u"octet3"_s, third) || !readString(object, u"host"_s, hostText)
        || !readString(object, u"subnetMask"_s, mask)
        || !readString(object, u"prefix"_s, legacyPrefix))
        return std::nullopt;

    AddressPlan plan;
    plan.subnetMask = mask.value_or(u"255.255.255.0"_s);
    plan.host = sanitised(hostText.value_or(QString()));
    if (first) {
        plan.octet1 = sanitised(*first);
        plan.octet2 = sanitised(second.value_or(QString()));
        plan.octet3 = sanitised(third.value_or(QString()));
    } else {
        // The older form stored one dotted prefix.
        const QStringList pieces = splitDroppingEmpty(legacyPrefix.value_or(QString()), u'.');
        plan.octet1 = sanitised(pieces.value(0, u"192"_s));
        plan.octet2 = sanitised(pieces.value(1, u"168"_s));
        plan.octet3 = sanitised(pieces.value(2));
    }
    return plan;
}

AddressPlan AddressPlan::load(Defaults &defaults)
{
    const auto stored = defaults.data(storedKey);
    if (!stored)
        return starting();
    const auto plan = decoded(*stored);
    if (!plan)
        return starting();
    const QJsonDocument document = QJsonDocument::fromJson(*stored);
    if (document.isObject() && !document.object().contains(u"octet1"_s))
        plan->save(defaults);
    return *plan;
}

void AddressPlan::save(Defaults &defaults) const
{
    defaults.setData(storedKey, encoded());
}

} // namespace VLANKit
