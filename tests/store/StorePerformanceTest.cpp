#include "VLANKit/files/Defaults.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/CountingBackend.h"
#include "tests/support/RefreshReads.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

// The work that crosses the seam per VLAN must not grow with the number of VLANs: a reader that
// looked a service up per VLAN, or an operation that rebuilt a table per creation, would make
// the work per VLAN at 2,048 several times that at 256.
class StorePerformance : public StoreTest
{
protected:
    // Verifying recomputes every kept table at each use, which is the cost measured here.
    StorePerformance() { VLANStore::setVerifyingTables(false); }

    struct Counted
    {
        std::shared_ptr<CountingBackend> counter;
        Platform platform;
    };
    Counted counted() const
    {
        auto counter = std::make_shared<CountingBackend>(platform->sharedBackend());
        return {counter, Platform(counter)};
    }

    // Work per VLAN of one reading cycle over a machine of `count` VLANs.
    double readingWorkPerVLAN(int count)
    {
        openSynthetic(count);
        const Counted seam = counted();
        const VLANStore store(seam.platform);
        seam.counter->reset();
        EXPECT_EQ(store.vlans().size(), count);
        EXPECT_EQ(store.services().size(), count + 1);
        EXPECT_EQ(store.serviceIndex().size(), count + 1);
        return double(seam.counter->work()) / count;
    }

    // Work per VLAN of all the reads of one refresh of the window.
    double refreshWorkPerVLAN(int count)
    {
        openSynthetic(count);
        const Counted seam = counted();
        const Defaults defaults = Defaults::inFile(temporary.filePath(u"defaults.plist"_s));
        VLANStore store(seam.platform);
        seam.counter->reset();
        readAsARefreshDoes(store, u"Show"_s, defaults);
        return double(seam.counter->work()) / count;
    }

    // Work per VLAN of deleting every VLAN of the machine in one transaction.
    double removalWorkPerVLAN(int count)
    {
        openSynthetic(count);
        const Counted seam = counted();
        QList<qint64> tags;
        for (int tag = 1; tag <= count; ++tag)
            tags.append(tag);
        const Plan plan = VLANStore(seam.platform).planDelete(tags, std::nullopt);
        NetworkAuthorization authorization(seam.platform);
        authorization.acquire();
        VLANStore store(seam.platform, authorization);
        seam.counter->reset();
        store.execute(plan);
        EXPECT_TRUE(VLANStore(seam.platform).vlans().isEmpty());
        return double(seam.counter->work()) / count;
    }

    // Work per creation of `count` VLANs staged in one session.
    double creationWorkPerVLAN(int count)
    {
        openSynthetic(0);
        const Counted seam = counted();
        NetworkAuthorization authorization(seam.platform);
        authorization.acquire();
        VLANStore store(seam.platform, authorization);
        seam.counter->reset();
        for (int tag = 1; tag <= count; ++tag) {
            const IPConfig ip{IPMode::manual,
                              u"10.0.%1.5"_s.arg(tag % 250),
                              u"255.255.255.0"_s,
                              std::nullopt,
                              {}};
            (void)store.createVLAN(tag, u"Net %1"_s.arg(tag), u"en5"_s, ip, true);
        }
        return double(seam.counter->work()) / count;
    }
};

TEST_F(StorePerformance, ReadingWorkPerVLANDoesNotGrow)
{
    const double small = readingWorkPerVLAN(256);
    const double large = readingWorkPerVLAN(2048);
    std::cout << "reading work per VLAN: " << small << " at 256, " << large << " at 2048\n";
    EXPECT_LT(large, small * 1.1);
}

TEST_F(StorePerformance, RefreshWorkPerVLANDoesNotGrow)
{
    const double small = refreshWorkPerVLAN(256);
    const double large = refreshWorkPerVLAN(2048);
    std::cout << "refresh work per VLAN: " << small << " at 256, " << large << " at 2048\n";
    EXPECT_LT(large, small * 1.1);
}

TEST_F(StorePerformance, RemovalWorkPerVLANDoesNotGrow)
{
    const double small = removalWorkPerVLAN(256);
    const double large = removalWorkPerVLAN(2048);
    std::cout << "removal work per VLAN: " << small << " at 256, " << large << " at 2048\n";
    EXPECT_LT(large, small * 1.1);
}

TEST_F(StorePerformance, CreationWorkPerVLANDoesNotGrow)
{
    const double small = creationWorkPerVLAN(256);
    const double large = creationWorkPerVLAN(2048);
    std::cout << "creation work per VLAN: " << small << " at 256, " << large << " at 2048\n";
    EXPECT_LT(large, small * 1.1);
}

} // namespace
