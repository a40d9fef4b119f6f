#include "VLANKit/platform/document/VLANNameAllocator.h"

#include "VLANKit/core/TextRules.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

constexpr qint64 lastNumber = std::numeric_limits<qint32>::max();

} // namespace

VLANNameAllocator::VLANNameAllocator()
{
    m_free.emplace(0, lastNumber);
}

std::optional<qint64> VLANNameAllocator::number(const QString &name)
{
    if (!name.startsWith(u"vlan"_s))
        return std::nullopt;
    const QString digits = name.mid(4);
    if (digits.isEmpty() || (digits.size() > 1 && digits.front() == u'0'))
        return std::nullopt;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
    }
    const std::optional<qint64> value = parseInteger(digits);
    if (!value || *value > lastNumber)
        return std::nullopt;
    return value;
}

void VLANNameAllocator::use(const QString &name)
{
    const std::optional<qint64> taken = number(name);
    if (!taken)
        return;
    auto run = m_free.upper_bound(*taken);
    if (run == m_free.begin())
        return;
    --run;
    const auto [first, last] = *run;
    if (*taken > last)
        return;
    m_free.erase(run);
    if (first < *taken)
        m_free.emplace(first, *taken - 1);
    if (*taken < last)
        m_free.emplace(*taken + 1, last);
}

void VLANNameAllocator::release(const QString &name)
{
    const std::optional<qint64> given = number(name);
    if (!given)
        return;
    qint64 first = *given;
    qint64 last = *given;
    auto next = m_free.upper_bound(*given);
    if (next != m_free.begin()) {
        auto previous = std::prev(next);
        if (previous->second >= *given)
            return;
        if (previous->second + 1 == *given) {
            first = previous->first;
            m_free.erase(previous);
        }
    }
    if (next != m_free.end() && next->first == *given + 1) {
        last = next->second;
        m_free.erase(next);
    }
    m_free.emplace(first, last);
}

QString VLANNameAllocator::firstFree() const
{
    if (m_free.empty())
        return {};
    return u"vlan"_s + QString::number(m_free.begin()->first);
}

} // namespace VLANKit
