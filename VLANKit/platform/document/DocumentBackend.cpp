#include "VLANKit/platform/document/DocumentBackend.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/files/AtomicFile.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentHandles.h"
#include "VLANKit/platform/document/PreferencesLock.h"

#include <QFile>
#include <QHash>
#include <QSysInfo>

#include <cstring>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// The file's property list; absent when it is missing or holds none.
std::optional<QVariant> readPropertyListFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return parsePropertyList(file);
}

} // namespace

std::shared_ptr<DocumentBackend> DocumentBackend::open(const QString &folder)
{
    return std::make_shared<DocumentBackend>(DocumentMachine::open(folder));
}

DocumentBackend::DocumentBackend(std::shared_ptr<const DocumentMachine> machine)
    : m_machine(std::move(machine))
    , m_preferences(m_machine->preferencesPath())
{
    // The machine booted before this process started, with the preferences stored then.
    if (const auto parsed = m_preferences.read().parsed)
        m_bootPreferences = parsed->root;
}

bool DocumentBackend::fail(int code, QString description)
{
    m_status = code;
    m_statusDescription = std::move(description);
    return false;
}

void DocumentBackend::succeed()
{
    m_status = kSCStatusOK;
    m_statusDescription.clear();
}

const std::shared_ptr<DocumentSession> *DocumentBackend::sessionOf(const SessionRef &session)
{
    const auto *object = session.as<DocumentSessionObject>();
    if (!object || &object->session->machine() != m_machine.get()) {
        fail(kSCStatusNoPrefsSession);
        return nullptr;
    }
    return &object->session;
}

bool DocumentBackend::indexAgreesWithDocument(const SessionRef &session)
{
    const auto *object = session.as<DocumentSessionObject>();
    return object && object->session->indexAgreesWithDocument();
}

QString DocumentBackend::machineDisplayName() const
{
    if (m_machine->description() && m_machine->description()->computerName
        && !m_machine->description()->computerName->isEmpty())
        return *m_machine->description()->computerName;
    if (const auto parsed = m_preferences.read().parsed) {
        const QVariantMap &system = parsed->root;
        const auto names = mapIn(mapIn(system, u"System"_s).value_or(QVariantMap()), u"System"_s);
        const auto name = names ? stringIn(*names, u"ComputerName"_s) : std::nullopt;
        if (name && !name->isEmpty() && *name != notReported())
            return *name;
    }
    const QString host = QSysInfo::machineHostName();
    return host.isEmpty() ? u"localhost"_s : host;
}

std::optional<QString> DocumentBackend::hardwareUUID() const
{
    return m_machine->description() ? m_machine->description()->hardwareUUID : std::nullopt;
}

SessionRef DocumentBackend::scPreferencesCreate(const QString &name)
{
    return scPreferencesCreateWithAuthorization(name, AuthorizationRef());
}

SessionRef
DocumentBackend::scPreferencesCreateWithAuthorization(const QString &,
                                                      const AuthorizationRef &authorization)
{
    bool authorized = false;
    if (authorization) {
        const auto *object = authorization.as<DocumentAuthorizationObject>();
        if (!object || object->owner != this || object->state->freed) {
            fail(kSCStatusInvalidArgument);
            return {};
        }
        authorized = object->state->granted;
    }
    const PreferencesFile::Reading reading = m_preferences.read();
    auto object = std::make_shared<DocumentSessionObject>();
    if (reading.missing) {
        // A missing file is an empty document; the system says so and opens the session.
        object->session = std::make_shared<DocumentSession>(m_machine, authorized, QVariantMap(),
                                                            FileSignature());
        fail(kSCStatusNoConfigFile);
        return SessionRef(object);
    }
    if (!reading.parsed) {
        fail(kSCStatusFailed, reading.problem);
        return {};
    }
    object->session = std::make_shared<DocumentSession>(m_machine, authorized, reading.parsed->root,
                                                        reading.parsed->signature);
    succeed();
    return SessionRef(object);
}

bool DocumentBackend::lockAndCheck(DocumentSession &session, PreferencesLock &lock)
{
    int code = 0;
    if (!lock.acquire(m_machine->lockPath(), &code))
        return fail(code);
    if (FileSignature::ofPath(m_machine->preferencesPath()) != session.signature()) {
        lock.release();
        return fail(kSCStatusStale);
    }
    return true;
}

DocumentSession *DocumentBackend::lockedForWriting(const SessionRef &session, PreferencesLock &lock,
                                                   bool refuseStale)
{
    const auto *pointer = sessionOf(session);
    if (!pointer)
        return nullptr;
    DocumentSession *held = pointer->get();
    // Only an authorized session may change the system's settings, as for any process that
    // is not root.
    if (!held->isAuthorized()) {
        fail(kSCStatusAccessError);
        return nullptr;
    }
    if (!refuseStale) {
        int code = 0;
        return lock.acquire(m_machine->lockPath(), &code) ? held : (fail(code), nullptr);
    }
    return lockAndCheck(*held, lock) ? held : nullptr;
}

bool DocumentBackend::scPreferencesCommitChanges(const SessionRef &session)
{
    PreferencesLock lock;
    DocumentSession *held = lockedForWriting(session, lock);
    if (!held)
        return false;
    if (held->hasChanges()) {
        const std::optional<QByteArray> bytes = xmlPropertyList(held->document().root());
        if (!bytes)
            return fail(kSCStatusFailed);
        // As the system does, a failure of the file system reports its errno.
        int code = 0;
        if (!writeFileAtomically(m_machine->preferencesPath(), *bytes, nullptr, &code))
            return fail(code);
        held->committed(FileSignature::ofPath(m_machine->preferencesPath()));
    }
    succeed();
    return true;
}

bool DocumentBackend::scPreferencesApplyChanges(const SessionRef &session)
{
    PreferencesLock lock;
    DocumentSession *held = lockedForWriting(session, lock, false);
    if (!held)
        return false;
    // The running system follows the stored file, not what a session holds uncommitted. As the
    // system's own apply, it follows the file as it is now: another program may have committed
    // since this session did, and its document holds this session's changes, since its commit
    // was not refused as stale.
    QVariantMap stored = held->base();
    if (FileSignature::ofPath(m_machine->preferencesPath()) != held->signature()) {
        const PreferencesFile::Reading reading = m_preferences.read();
        if (!reading.parsed && !reading.missing)
            return fail(kSCStatusFailed, reading.problem);
        stored = reading.parsed ? reading.parsed->root : QVariantMap();
    }
    KernelView view = KernelView::applying(stored, m_machine);
    const std::optional<QByteArray> bytes = xmlPropertyList(view.toPropertyList());
    QString words;
    if (!bytes || !writeFileAtomically(m_machine->statePath(), *bytes, &words))
        return fail(kSCStatusFailed, words);
    m_appliedView = std::move(view);
    m_appliedSignature = FileSignature::ofPath(m_machine->statePath());
    succeed();
    return true;
}

int DocumentBackend::scError()
{
    return m_status;
}

QString DocumentBackend::scErrorString(int code)
{
    static const QHash<int, QString> words{
        {kSCStatusOK, u"Success!"_s},
        {kSCStatusFailed, u"Failed!"_s},
        {kSCStatusInvalidArgument, u"Invalid argument"_s},
        {kSCStatusAccessError, u"Permission denied"_s},
        {kSCStatusNoKey, u"No such key"_s},
        {kSCStatusKeyExists, u"Key already defined"_s},
        {kSCStatusLocked, u"Lock already held"_s},
        {kSCStatusNeedLock, u"Lock required for this operation"_s},
        {2001, u"Configuration daemon session not active"_s},
        {2002, u"Configuration daemon not (no longer) available"_s},
        {2003, u"Notifier is currently active"_s},
        {kSCStatusNoPrefsSession, u"Preference session not active"_s},
        {kSCStatusPrefsBusy, u"Preferences update currently in progress"_s},
        {kSCStatusNoConfigFile, u"Configuration file not found"_s},
        {kSCStatusNoLink, u"No such link"_s},
        {kSCStatusStale, u"Write attempted on stale version of object"_s},
        {kSCStatusMaxLink, u"Maximum link count exceeded"_s},
        {4001, u"Network reachability cannot be determined"_s},
        {5001, u"Network service for connection not available"_s},
        {5002, u"Network connection information not available at this time"_s}};
    if (const auto found = words.constFind(code); found != words.constEnd())
        return *found;
    // Codes of the POSIX range are the system's errno values, told in its own words.
    if (code > 0 && code < 1000)
        return QString::fromLocal8Bit(std::strerror(code));
    return u"Unknown error: %1"_s.arg(code);
}

PlatformError DocumentBackend::scCopyLastError()
{
    return {m_status,
            m_statusDescription.isEmpty() ? scErrorString(m_status) : m_statusDescription};
}

AuthorizationCreated DocumentBackend::authorizationCreate()
{
    if (m_machine->answer() == MachineDescription::Answer::noHandle)
        return {errAuthorizationSuccess, {}};
    auto object = std::make_shared<DocumentAuthorizationObject>();
    object->owner = this;
    object->state = std::make_shared<DocumentAuthorizationObject::State>();
    ++m_openAuthorizations;
    return {errAuthorizationSuccess, AuthorizationRef(object)};
}

std::int32_t DocumentBackend::authorizationCopyRights(const AuthorizationRef &authorization,
                                                      const QString &, std::uint32_t)
{
    const auto *object = authorization.as<DocumentAuthorizationObject>();
    if (!object || object->owner != this || object->state->freed)
        return errAuthorizationInvalidRef;
    switch (m_machine->answer()) {
    case MachineDescription::Answer::deny:
        return errAuthorizationDenied;
    case MachineDescription::Answer::cancel:
        return errAuthorizationCanceled;
    case MachineDescription::Answer::fail:
        return m_machine->failingStatus();
    case MachineDescription::Answer::allow:
    case MachineDescription::Answer::noHandle:
        break;
    }
    object->state->granted = true;
    return errAuthorizationSuccess;
}

std::int32_t DocumentBackend::authorizationFree(const AuthorizationRef &authorization)
{
    const auto *object = authorization.as<DocumentAuthorizationObject>();
    if (!object || object->owner != this || object->state->freed)
        return errAuthorizationInvalidRef;
    object->state->freed = true;
    --m_openAuthorizations;
    return errAuthorizationSuccess;
}

const KernelView &DocumentBackend::kernelView()
{
    const FileSignature applied = FileSignature::ofPath(m_machine->statePath());
    if (!applied.isMissing()) {
        if (m_appliedView && applied == m_appliedSignature)
            return *m_appliedView;
        const std::optional<QVariant> stored = readPropertyListFile(m_machine->statePath());
        if (auto view = stored ? KernelView::fromPropertyList(*stored) : std::nullopt) {
            m_appliedView = std::move(view);
            m_appliedSignature = applied;
            return *m_appliedView;
        }
    }
    // No state file: what the machine holds after booting with its stored preferences.
    if (!m_bootView)
        m_bootView = KernelView::applying(m_bootPreferences, m_machine);
    return *m_bootView;
}

} // namespace VLANKit
