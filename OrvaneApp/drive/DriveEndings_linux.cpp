// The two endings on Linux, and all that runs after the drive has gone. Everything marked
// `Resident` sits in one section whose pages are locked in memory when the watch is armed, so
// that the waiter and the bus-error handler never need a page of the program from the drive.
// Those routines allocate nothing and take no lock; they call the C library only (through the
// global offset table, as this file is built without a procedure linkage table).
#include "OrvaneApp/drive/DriveEndings.h"
#include "OrvaneApp/drive/DriveWaiter.h"
#include "OrvaneApp/drive/LinuxVolume.h"
#include "OrvaneApp/drive/MountTableScan.h"

#include <QByteArray>
#include <QString>

#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/netlink.h>
#include <poll.h>
#include <pthread.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#define Resident __attribute__((section("orvane_drive_endings"), noinline))

extern "C" {
// The linker's bounds of the resident section.
extern const char __start_orvane_drive_endings[];
extern const char __stop_orvane_drive_endings[];
}

namespace {

/// What the waiter needs. Zero-initialised, so no page of it is ever read from the program's
/// file; the descriptors are set when the waiter is armed.
struct Watch
{
    int table;
    int uevents;
    long long mountId;
    char device[32];
    /// The disk's sysfs node, or empty where the mount has no disk.
    char diskNode[PATH_MAX];
};

Watch watch;
char buffer[mountTableChunk];
/// Read with the compiler's atomic built-ins, which never call out of the resident section.
unsigned tableReadCount;

/// How long the waiter sleeps in `poll` when nothing happens, so that a disk whose node went
/// without an event is still noticed.
constexpr int pollMilliseconds = 1000;

Resident bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

Resident bool diskNodeIsGone()
{
    if (watch.diskNode[0] == '\0')
        return false;
    return access(watch.diskNode, F_OK) != 0 && errno == ENOENT;
}

/// Takes every waiting event off the socket, and with it an overflow's error, so that the
/// next `poll` sleeps again.
Resident void drainUevents()
{
    while (recv(watch.uevents, buffer, sizeof buffer, MSG_DONTWAIT) > 0) {
    }
}

/// The waiter: wakes on a change of the mount table, a kernel device event or the timeout,
/// and ends the process once the drive is surely gone. A failed read never ends it.
Resident void *waitForThePull(void *)
{
    for (;;) {
        pollfd events[2] = {{watch.table, POLLPRI, 0}, {watch.uevents, POLLIN, 0}};
        const nfds_t count = watch.uevents >= 0 ? 2 : 1;
        if (poll(events, count, pollMilliseconds) < 0)
            continue;
        if (count == 2 && events[1].revents != 0) {
            drainUevents();
            // A socket that hangs up would wake the waiter for ever; the table still tells.
            if ((events[1].revents & (POLLHUP | POLLNVAL)) != 0)
                watch.uevents = -1;
        }
        if (diskNodeIsGone())
            _exit(0);
        if ((events[0].revents & (POLLPRI | POLLERR)) != 0
            && readMountTable(watch.table, watch.mountId, watch.device) == TableRead::lacksMount)
            _exit(0);
    }
}

Resident void endWithTen(int)
{
    _exit(10);
}

/// Keeps the pages of what runs after the pull in memory; a refusal only weakens the care.
void lockResidentPages()
{
    const auto page = std::uintptr_t(sysconf(_SC_PAGESIZE));
    const auto start = std::uintptr_t(__start_orvane_drive_endings) & ~(page - 1);
    const auto end = std::uintptr_t(__stop_orvane_drive_endings);
    (void)mlock(reinterpret_cast<const void *>(start), end - start);
    (void)mlock(&watch, sizeof watch);
    (void)mlock(buffer, sizeof buffer);
}

int openUevents()
{
    const int socket =
        ::socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_KOBJECT_UEVENT);
    if (socket < 0)
        return -1;
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = 1; // the kernel's own events
    if (bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
        close(socket);
        return -1;
    }
    return socket;
}

/// Starts the waiter with every signal blocked, so that no signal meant for the program lands
/// on it.
bool startWaiter()
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_t thread;
    const bool started = pthread_create(&thread, &attributes, waitForThePull, nullptr) == 0;
    // Named, so that a person or a test looking at the process's threads can find it.
    if (started)
        pthread_setname_np(thread, "orvane-drive");
    pthread_attr_destroy(&attributes);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

/// The mount and disk of the volume holding `path`, as the waiter needs them.
struct Target
{
    long long mountId = 0;
    QByteArray device;
    QByteArray diskNode;
};

std::optional<Target> targetOf(const char *path)
{
    char real[PATH_MAX];
    if (realpath(path, real) == nullptr)
        return std::nullopt;
    const std::optional<LinuxVolume> volume = LinuxVolume::read(
        QString::fromLocal8Bit(real), QStringLiteral("/proc"), QStringLiteral("/sys"));
    if (!volume)
        return std::nullopt;
    return Target{volume->mount.id, volume->mount.deviceNumbers.toLatin1(),
                  volume->disk ? volume->disk->node.toLocal8Bit() : QByteArray()};
}

} // namespace

Resident MountTableScan MountTableScan::of(long long mountId, const char *device)
{
    MountTableScan scan{};
    scan.wantedId = mountId;
    scan.wantedDevice = device;
    return scan;
}

Resident bool MountTableScan::found() const
{
    return m_found;
}

Resident void MountTableScan::feed(const char *bytes, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const char c = bytes[i];
        if (c == '\n') {
            endLine();
            continue;
        }
        m_lineHasText = true;
        if (c == ' ') {
            if (m_field == 2)
                m_deviceMatches = !m_deviceDiffers && wantedDevice[m_deviceMatched] == '\0';
            ++m_field;
            continue;
        }
        if (m_field == 0) {
            // A mount ID beyond any real one stops counting rather than overflowing.
            m_idInvalid = m_idInvalid || !isDigit(c) || m_id >= 1000000000000LL;
            if (!m_idInvalid) {
                m_id = m_id * 10 + (c - '0');
                ++m_idDigits;
            }
        } else if (m_field == 2 && !m_deviceDiffers) {
            if (wantedDevice[m_deviceMatched] == c)
                ++m_deviceMatched;
            else
                m_deviceDiffers = true;
        }
    }
}

Resident void MountTableScan::finish()
{
    if (m_lineHasText)
        endLine();
}

Resident void MountTableScan::endLine()
{
    if (!m_idInvalid && m_idDigits > 0 && m_id == wantedId && m_deviceMatches)
        m_found = true;
    m_field = 0;
    m_id = 0;
    m_idDigits = 0;
    m_idInvalid = false;
    m_deviceMatched = 0;
    m_deviceDiffers = false;
    m_deviceMatches = false;
    m_lineHasText = false;
}

Resident TableRead readMountTable(int descriptor, long long mountId, const char *device)
{
    MountTableScan scan = MountTableScan::of(mountId, device);
    if (lseek(descriptor, 0, SEEK_SET) != 0)
        return TableRead::failed;
    for (;;) {
        const ssize_t got = read(descriptor, buffer, sizeof buffer);
        if (got < 0)
            return TableRead::failed;
        if (got == 0)
            break;
        scan.feed(buffer, std::size_t(got));
    }
    scan.finish();
    __atomic_fetch_add(&tableReadCount, 1U, __ATOMIC_RELAXED);
    return scan.found() ? TableRead::holdsMount : TableRead::lacksMount;
}

namespace DriveWaiter {

unsigned tableReads()
{
    return __atomic_load_n(&tableReadCount, __ATOMIC_RELAXED);
}

int arm(long long mountId, const char *device, const char *diskNode)
{
    if (std::strlen(device) >= sizeof watch.device
        || std::strlen(diskNode) >= sizeof watch.diskNode)
        return -1;
    watch.mountId = mountId;
    std::strcpy(watch.device, device);
    std::strcpy(watch.diskNode, diskNode);
    watch.table = open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC);
    if (watch.table < 0)
        return -1;
    // A table that does not hold the mount now would end the process at the first event.
    if (readMountTable(watch.table, watch.mountId, watch.device) != TableRead::holdsMount) {
        close(watch.table);
        watch.table = -1;
        return -1;
    }
    watch.uevents = openUevents();
    lockResidentPages();
    if (!startWaiter()) {
        close(watch.table);
        if (watch.uevents >= 0)
            close(watch.uevents);
        watch.table = watch.uevents = -1;
        return -1;
    }
    return 0;
}

} // namespace DriveWaiter

extern "C" {

int orvane_end_when_taken_away(const char *path)
{
    const std::optional<Target> target = targetOf(path);
    if (!target)
        return -1;
    return DriveWaiter::arm(target->mountId, target->device.constData(),
                            target->diskNode.constData());
}

void orvane_end_on_bus_error(void)
{
    struct sigaction action
    {};
    action.sa_handler = endWithTen;
    sigemptyset(&action.sa_mask);
    sigaction(SIGBUS, &action, nullptr);
}
}
