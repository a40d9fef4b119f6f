// The live side of the document backend: the kernel's interfaces, the dynamic store's answers
// and its events, all from the state that the last apply left.
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "VLANKit/platform/document/DocumentHandles.h"
#include "VLANKit/platform/document/DocumentWatch.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

const DocumentDynamicStoreObject *storeOf(const DynamicStoreRef &store, const void *owner)
{
    const auto *object = store.as<DocumentDynamicStoreObject>();
    return object && object->owner == owner ? object : nullptr;
}

/// Whether any of the keys or patterns speaks of keys of that domain ("Setup:", "State:").
bool asksFor(const QStringList &keys, const QStringList &patterns, const QString &domain)
{
    const auto inDomain = [&](const QString &key) { return key.startsWith(domain); };
    return std::any_of(keys.begin(), keys.end(), inDomain)
           || std::any_of(patterns.begin(), patterns.end(), inDomain);
}

} // namespace

std::uint32_t DocumentBackend::ifNameToIndex(const QString &bsdName)
{
    const KernelView::Interface *present = kernelView().interface(bsdName);
    return present ? present->index : 0;
}

DynamicStoreRef DocumentBackend::scDynamicStoreCreate(const QString &,
                                                      std::function<void()> changed)
{
    auto object = std::make_shared<DocumentDynamicStoreObject>();
    object->owner = this;
    object->watch =
        std::make_shared<DocumentWatch>(m_machine->folder(), m_machine->preferencesPath(),
                                        m_machine->statePath(), std::move(changed));
    return DynamicStoreRef(object);
}

std::optional<QVariantMap> DocumentBackend::scDynamicStoreCopyMultiple(const DynamicStoreRef &store,
                                                                       const QStringList &keys,
                                                                       const QStringList &patterns)
{
    if (!storeOf(store, this)) {
        fail(kSCStatusInvalidArgument);
        return std::nullopt;
    }
    QList<QRegularExpression> expressions;
    for (const QString &pattern : patterns) {
        QRegularExpression expression(QRegularExpression::anchoredPattern(pattern));
        if (!expression.isValid()) {
            fail(kSCStatusInvalidArgument);
            return std::nullopt;
        }
        expressions.append(expression);
    }
    const QVariantMap &published = kernelView().dynamicStore;
    QVariantMap answer;
    for (const QString &key : keys) {
        if (const auto found = published.constFind(key); found != published.constEnd())
            answer.insert(key, *found);
    }
    for (auto entry = published.constBegin(); entry != published.constEnd(); ++entry) {
        const bool matches =
            std::any_of(expressions.begin(), expressions.end(), [&](const auto &expression) {
                return expression.match(entry.key()).hasMatch();
            });
        if (matches)
            answer.insert(entry.key(), entry.value());
    }
    return answer;
}

bool DocumentBackend::scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store,
                                                        const QStringList &keys,
                                                        const QStringList &patterns)
{
    const auto *object = storeOf(store, this);
    if (!object)
        return fail(kSCStatusInvalidArgument);
    object->watch->subscribe(asksFor(keys, patterns, u"Setup:"_s),
                             asksFor(keys, patterns, u"State:"_s));
    return true;
}

bool DocumentBackend::scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store)
{
    const auto *object = storeOf(store, this);
    if (!object || !object->watch->start())
        return fail(kSCStatusFailed);
    return true;
}

} // namespace VLANKit
