#include "VLANKit/platform/document/DocumentSession.h"

namespace VLANKit {

DocumentSession::DocumentSession(std::shared_ptr<const DocumentMachine> machine, bool authorized,
                                 QVariantMap root, FileSignature signature)
    : m_machine(std::move(machine))
    , m_authorized(authorized)
    , m_staged(root)
    , m_base(std::move(root))
    , m_signature(signature)
{}

PreferencesDocument &DocumentSession::edit()
{
    m_changed = true;
    // Every caller changes the document at once: what was worked out from it is out of date.
    if (!m_facts.services.isEmpty() || !m_facts.vlans.isEmpty())
        m_facts = FactsMemo();
    return m_staged;
}

SessionIndex &DocumentSession::index()
{
    if (!m_index)
        m_index = SessionIndex::build(m_staged);
    return *m_index;
}

void DocumentSession::committed(const FileSignature &signature)
{
    m_base = m_staged.root();
    m_signature = signature;
    m_changed = false;
}

void DocumentSession::keepTemplate(const QString &serviceID, const QString &entity,
                                   const QVariantMap &settings)
{
    m_templates.insert(serviceID, {entity, settings});
}

std::optional<std::pair<QString, QVariantMap>>
DocumentSession::takeTemplate(const QString &serviceID)
{
    const auto found = m_templates.find(serviceID);
    if (found == m_templates.end())
        return std::nullopt;
    auto kept = *found;
    m_templates.erase(found);
    return kept;
}

bool DocumentSession::indexAgreesWithDocument()
{
    return index() == SessionIndex::build(m_staged);
}

} // namespace VLANKit
