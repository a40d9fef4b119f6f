// Drive care on macOS: the volume's resource values, a vnode source whose handler is `_exit`
// itself, and `_exit` itself as the handler of SIGBUS.
#include "OrvaneApp/drive/DriveCare.h"
#include "OrvaneApp/drive/DriveEndings.h"

#include <CoreFoundation/CoreFoundation.h>
#include <array>
#include <dispatch/dispatch.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace {

/// A file system path of a URL; absent when the URL has none.
std::optional<QString> pathOf(CFURLRef url)
{
    if (url == nullptr)
        return std::nullopt;
    std::array<UInt8, 4096> path{};
    if (!CFURLGetFileSystemRepresentation(url, true, path.data(), CFIndex(path.size())))
        return std::nullopt;
    return QString::fromUtf8(reinterpret_cast<const char *>(path.data()));
}

/// A boolean resource value; absent when the system did not say.
std::optional<bool> flag(CFDictionaryRef values, CFStringRef key)
{
    const void *value = CFDictionaryGetValue(values, key);
    if (value == nullptr || CFGetTypeID(value) != CFBooleanGetTypeID())
        return std::nullopt;
    return CFBooleanGetValue(static_cast<CFBooleanRef>(value)) != 0;
}

std::optional<QString> pathOfBundle(CFURLRef (*copy)(CFBundleRef))
{
    CFBundleRef bundle = CFBundleGetMainBundle();
    if (bundle == nullptr)
        return std::nullopt;
    CFURLRef url = copy(bundle);
    const std::optional<QString> path = pathOf(url);
    if (url != nullptr)
        CFRelease(url);
    return path;
}

} // namespace

namespace DriveCare {

std::optional<QString> bundleOfThisApp()
{
    return pathOfBundle(CFBundleCopyBundleURL);
}

std::optional<QString> executableOfThisApp()
{
    return pathOfBundle(CFBundleCopyExecutableURL);
}

std::optional<VolumeFacts> VolumeFacts::read(const QString &path)
{
    const QByteArray bytes = path.toUtf8();
    CFURLRef url = CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8 *>(bytes.constData()),
        CFIndex(bytes.size()), false);
    if (url == nullptr)
        return std::nullopt;
    // All six in one request, as the system caches them together.
    const void *keys[] = {kCFURLVolumeURLKey,         kCFURLVolumeIsRootFileSystemKey,
                          kCFURLVolumeIsInternalKey,  kCFURLVolumeIsRemovableKey,
                          kCFURLVolumeIsEjectableKey, kCFURLVolumeIsLocalKey};
    CFArrayRef keyList =
        CFArrayCreate(kCFAllocatorDefault, keys, CFIndex(std::size(keys)), &kCFTypeArrayCallBacks);
    CFDictionaryRef values = CFURLCopyResourcePropertiesForKeys(url, keyList, nullptr);
    CFRelease(keyList);
    CFRelease(url);
    if (values == nullptr)
        return std::nullopt;

    std::optional<VolumeFacts> facts;
    const void *volume = CFDictionaryGetValue(values, kCFURLVolumeURLKey);
    if (volume != nullptr && CFGetTypeID(volume) == CFURLGetTypeID()) {
        if (const std::optional<QString> volumePath = pathOf(static_cast<CFURLRef>(volume))) {
            facts = VolumeFacts{};
            facts->volume = *volumePath;
            facts->isRoot = flag(values, kCFURLVolumeIsRootFileSystemKey).value_or(false);
            facts->isInternal = flag(values, kCFURLVolumeIsInternalKey);
            facts->isRemovable = flag(values, kCFURLVolumeIsRemovableKey);
            facts->isEjectable = flag(values, kCFURLVolumeIsEjectableKey);
            facts->isLocal = flag(values, kCFURLVolumeIsLocalKey);
        }
    }
    CFRelease(values);
    return facts;
}

} // namespace DriveCare

extern "C" {

int orvane_end_when_taken_away(const char *path)
{
    // For events only: the descriptor holds no claim on the volume, so it never stops an eject.
    const int descriptor = open(path, O_EVTONLY);
    if (descriptor < 0)
        return -1;
    dispatch_source_t source = dispatch_source_create(
        DISPATCH_SOURCE_TYPE_VNODE, uintptr_t(descriptor), DISPATCH_VNODE_REVOKE,
        dispatch_get_global_queue(QOS_CLASS_USER_INTERACTIVE, 0));
    if (source == nullptr) {
        close(descriptor);
        return -1;
    }
    // With a null context the system calls _exit(0): no code of the program runs after the
    // revoke. Neither the descriptor nor the source is ever released.
    dispatch_set_context(source, nullptr);
    dispatch_source_set_event_handler_f(source, reinterpret_cast<dispatch_function_t>(_exit));
    dispatch_resume(source);
    return 0;
}

void orvane_end_on_bus_error(void)
{
    // The handler's argument is the signal number, SIGBUS, which is 10 on macOS.
    signal(SIGBUS, _exit);
}
}
