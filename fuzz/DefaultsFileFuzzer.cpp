// The user-defaults file as it lies on the disk: every typed read, the plan and the marks kept
// in it, and a write over whatever it held.
#include "VLANKit/files/Defaults.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/project/AddressPlan.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = FuzzInput::scratchFolder() + QStringLiteral("/defaults.plist");
    FuzzInput::writeOrRemove(path, FuzzInput::bytes(data, size));
    Defaults defaults = Defaults::inFile(path);
    const QString key = QStringLiteral("Orvane.internetMarks.Show");
    (void)defaults.value(key);
    (void)defaults.data(key);
    (void)defaults.string(key);
    (void)defaults.stringList(key);
    (void)defaults.mapList(key);
    (void)AddressPlan::load(defaults);
    const InternetMarks marks =
        InternetMemory::marks(QStringLiteral("Show"),
                              {{QStringLiteral("S1"), 100, QStringLiteral("en5"), true}}, defaults);
    (void)InternetMemory::holds(marks, QStringLiteral("Show"), defaults);
    defaults.setString(QStringLiteral("Orvane.appearance"), QStringLiteral("dark"));
    FuzzInput::require(defaults.string(QStringLiteral("Orvane.appearance"))
                           == QStringLiteral("dark"),
                       "a write over any file holds");
    return 0;
}
