#pragma once

#include "VLANKit/files/FileSignature.h"
#include "VLANKit/platform/document/DocumentMachine.h"
#include "VLANKit/platform/document/InterfaceFacts.h"
#include "VLANKit/platform/document/PreferencesDocument.h"
#include "VLANKit/platform/document/SessionIndex.h"

#include <QHash>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace VLANKit {

/// One preferences session of the document backend: a private snapshot of preferences.plist,
/// the changes staged in it, and the signature of the file as it was read or last committed.
/// Nobody else sees the staged document before a commit.
class DocumentSession
{
public:
    DocumentSession(std::shared_ptr<const DocumentMachine> machine, bool authorized,
                    QVariantMap root, FileSignature signature);

    [[nodiscard]] const DocumentMachine &machine() const { return *m_machine; }
    /// Whether commits and applies of this session may change the system's settings.
    [[nodiscard]] bool isAuthorized() const { return m_authorized; }

    [[nodiscard]] const PreferencesDocument &document() const { return m_staged; }
    /// The document for a change; the session counts as changed from then on.
    [[nodiscard]] PreferencesDocument &edit();
    /// The index of the staged document, made on first use.
    [[nodiscard]] SessionIndex &index();

    /// The document as the file held it when read or last committed.
    [[nodiscard]] const QVariantMap &base() const { return m_base; }
    [[nodiscard]] const FileSignature &signature() const { return m_signature; }
    [[nodiscard]] bool hasChanges() const { return m_changed; }
    /// The staged document is now the file's, with this signature.
    void committed(const FileSignature &signature);

    /// Interface settings that a new service brings along, written by the first set that adds
    /// it, as the system holds its creation templates in memory.
    void keepTemplate(const QString &serviceID, const QString &entity, const QVariantMap &settings);
    [[nodiscard]] std::optional<std::pair<QString, QVariantMap>>
    takeTemplate(const QString &serviceID);

    /// The facts of the interfaces of services and of VLANs, as worked out from the staged
    /// document: they depend on nothing else, so they are kept until its next change.
    struct FactsMemo
    {
        QHash<QString, std::optional<InterfaceFacts>> services;
        QHash<QString, InterfaceFacts> vlans;
    };
    [[nodiscard]] FactsMemo &factsMemo() const { return m_facts; }

    /// For tests: whether the index kept up to date equals one built from the document now.
    [[nodiscard]] bool indexAgreesWithDocument();

private:
    std::shared_ptr<const DocumentMachine> m_machine;
    bool m_authorized = false;
    PreferencesDocument m_staged;
    QVariantMap m_base;
    FileSignature m_signature;
    bool m_changed = false;
    std::optional<SessionIndex> m_index;
    QHash<QString, std::pair<QString, QVariantMap>> m_templates;
    mutable FactsMemo m_facts;
};

} // namespace VLANKit
