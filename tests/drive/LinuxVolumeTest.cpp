#include "OrvaneApp/drive/LinuxVolume.h"

#include "tests/drive/FixtureMachine.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;
using DriveCare::VolumeFacts;

namespace DriveCare {

void PrintTo(const VolumeFacts &facts, std::ostream *out)
{
    const auto state = [](std::optional<bool> fact) { return fact ? (*fact ? "yes" : "no") : "-"; };
    *out << qPrintable(facts.volume) << " root " << (facts.isRoot ? "yes" : "no") << " internal "
         << state(facts.isInternal) << " removable " << state(facts.isRemovable) << " ejectable "
         << state(facts.isEjectable) << " local " << state(facts.isLocal);
}

} // namespace DriveCare

namespace {

const QString usbPort = u"pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/host6/target6:0:0/6:0:0:0"_s;
const QString sataPort = u"pci0000:00/0000:00:17.0/ata1/host0/target0:0:0/0:0:0:0"_s;
const QString nvmePort = u"pci0000:00/0000:00:1d.0/0000:3d:00.0/nvme/nvme0"_s;

VolumeFacts facts(const QString &volume, bool isRoot, std::optional<bool> isInternal,
                  std::optional<bool> isRemovable, std::optional<bool> isEjectable,
                  std::optional<bool> isLocal)
{
    return {volume, isRoot, isInternal, isRemovable, isEjectable, isLocal};
}

/// A machine booted from a SATA disk, with the mounts every test shares.
class LinuxVolumeOnAMachine : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const QString sda = machine.addDisk(sataPort + u"/block/sda"_s, u"8:0"_s, 0);
        machine.addPartition(sda, u"sda2"_s, u"8:2"_s);
        machine.mount(u"22 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw"_s);
        machine.mount(u"23 22 0:21 / /proc rw shared:12 - proc proc rw"_s);
        machine.mount(u"24 22 0:22 / /sys rw shared:7 - sysfs sysfs rw"_s);
    }

    /// A USB stick or disk at sdb, its first partition mounted at `point`.
    void plugUsb(int removable, const QString &point, const QString &type = u"vfat"_s)
    {
        const QString sdb = machine.addDisk(usbPort + u"/block/sdb"_s, u"8:16"_s, removable);
        machine.addPartition(sdb, u"sdb1"_s, u"8:17"_s);
        machine.mount(u"40 22 8:17 / "_s + point + u" rw,nosuid shared:50 - "_s + type
                      + u" /dev/sdb1 rw"_s);
    }

    FixtureMachine machine;
};

} // namespace

TEST_F(LinuxVolumeOnAMachine, TheRootFileSystemStays)
{
    const std::optional<LinuxVolume> volume = machine.read(u"/usr/bin/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/"_s, true, true, false, false, true));
    EXPECT_FALSE(volume->facts.canBeTakenAway());
    EXPECT_TRUE(volume->disk->node.endsWith(u"/block/sda"_s));
}

TEST(LinuxVolume, AnOverlayRootIsTheRootAndSaysNothingOfADisk)
{
    FixtureMachine machine;
    machine.mount(u"600 550 0:52 / / rw,relatime - overlay overlay rw,lowerdir=/l,upperdir=/u"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/app/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/"_s, true, {}, {}, {}, true));
    EXPECT_FALSE(volume->disk);
    EXPECT_FALSE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AUsbStickCanGo)
{
    plugUsb(1, u"/media/show/STICK"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/show/STICK/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/media/show/STICK"_s, false, false, true, true, true));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
    EXPECT_EQ(volume->mount.id, 40);
    EXPECT_EQ(volume->mount.deviceNumbers, u"8:17"_s);
    EXPECT_TRUE(volume->disk->node.endsWith(u"/block/sdb"_s)) << qPrintable(volume->disk->node);
}

TEST_F(LinuxVolumeOnAMachine, AUsbDiskReportingRemovableZeroStillCanGo)
{
    plugUsb(0, u"/media/show/DISK"_s, u"ext4"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/show/DISK/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/media/show/DISK"_s, false, false, false, true, true));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AnSdCardCanGo)
{
    const QString card = machine.addDisk(
        u"pci0000:00/0000:00:1e.6/mmc_host/mmc0/mmc0:aaaa/block/mmcblk0"_s, u"179:0"_s, 0);
    machine.setCardType(card, u"SD"_s);
    machine.addPartition(card, u"mmcblk0p1"_s, u"179:1"_s);
    machine.mount(u"41 22 179:1 / /media/card rw - exfat /dev/mmcblk0p1 rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/card/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/media/card"_s, false, false, false, true, true));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AnEmmcStays)
{
    const QString emmc = machine.addDisk(
        u"platform/fe330000.mmc/mmc_host/mmc1/mmc1:0001/block/mmcblk1"_s, u"179:32"_s, 0);
    machine.setCardType(emmc, u"MMC"_s);
    machine.addPartition(emmc, u"mmcblk1p2"_s, u"179:34"_s);
    machine.mount(u"42 22 179:34 / /opt rw - ext4 /dev/mmcblk1p2 rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/opt/orvane/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/opt"_s, false, true, false, false, true));
    EXPECT_FALSE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AnNvmeDiskStays)
{
    const QString nvme = machine.addDisk(nvmePort + u"/nvme0n1"_s, u"259:0"_s, 0);
    machine.addPartition(nvme, u"nvme0n1p3"_s, u"259:3"_s);
    machine.mount(u"43 22 259:3 / /data rw - xfs /dev/nvme0n1p3 rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/data/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/data"_s, false, true, false, false, true));
    EXPECT_FALSE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AnNfsShareCanGo)
{
    machine.mount(u"44 22 0:60 / /mnt/show rw - nfs4 fileserver:/exports/show rw,vers=4.2"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/mnt/show/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/mnt/show"_s, false, {}, {}, {}, false));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AnSshfsMountCanGo)
{
    machine.mount(u"45 22 0:61 / /home/crew/remote rw - fuse.sshfs crew@venue:/srv rw,user_id=0"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/home/crew/remote/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/home/crew/remote"_s, false, {}, {}, {}, false));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AnotherFuseTypeWithoutADiskSaysNothingOfBeingLocal)
{
    machine.mount(u"46 22 0:62 / /mnt/vault rw - fuse.gocryptfs /home/crew/.vault rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/mnt/vault/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/mnt/vault"_s, false, {}, {}, {}, {}));
    EXPECT_FALSE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, AFuseblkExfatOnUsbCanGo)
{
    const QString sdc = machine.addDisk(usbPort + u"/block/sdc"_s, u"8:32"_s, 1);
    machine.addPartition(sdc, u"sdc1"_s, u"8:33"_s);
    machine.mount(u"47 22 8:33 / /media/EXFAT rw - fuseblk /dev/sdc1 rw,user_id=0"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/EXFAT/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/media/EXFAT"_s, false, false, true, true, true));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, ATmpfsStays)
{
    machine.mount(u"48 22 0:30 / /run/user/1000 rw - tmpfs tmpfs rw,size=800m"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/run/user/1000/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/run/user/1000"_s, false, {}, {}, {}, true));
    EXPECT_FALSE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, ALoopDeviceCanGo)
{
    machine.addDisk(u"virtual/block/loop0"_s, u"7:0"_s, 0);
    machine.mount(u"49 22 7:0 / /mnt/image rw - ext2 /dev/loop0 rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/mnt/image/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/mnt/image"_s, false, false, false, true, true));
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, LuksOnUsbIsFollowedDownToTheStick)
{
    const QString sdd = machine.addDisk(usbPort + u"/block/sdd"_s, u"8:48"_s, 1);
    const QString sdd1 = machine.addPartition(sdd, u"sdd1"_s, u"8:49"_s);
    machine.addMapper(u"dm-0"_s, u"254:0"_s, u"luks-show"_s, sdd1);
    machine.mount(u"50 22 254:0 / /media/secret rw - ext4 /dev/mapper/luks-show rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/secret/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/media/secret"_s, false, false, true, true, true));
    EXPECT_TRUE(volume->disk->node.endsWith(u"/block/sdd"_s)) << qPrintable(volume->disk->node);
}

TEST_F(LinuxVolumeOnAMachine, BtrfsWithAnonymousNumbersIsFoundByItsSource)
{
    const QString nvme = machine.addDisk(nvmePort + u"/nvme0n1"_s, u"259:0"_s, 0);
    machine.addPartition(nvme, u"nvme0n1p4"_s, u"259:4"_s);
    machine.mount(u"51 22 0:33 /@home /home rw - btrfs /dev/nvme0n1p4 rw,subvol=/@home"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/home/crew/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/home"_s, false, true, false, false, true));
    EXPECT_TRUE(volume->disk->node.endsWith(u"/nvme0n1"_s)) << qPrintable(volume->disk->node);
}

TEST_F(LinuxVolumeOnAMachine, BtrfsOnAMapperIsFoundByItsName)
{
    const QString sdb = machine.addDisk(usbPort + u"/block/sdb"_s, u"8:16"_s, 1);
    const QString sdb1 = machine.addPartition(sdb, u"sdb1"_s, u"8:17"_s);
    machine.addMapper(u"dm-3"_s, u"254:3"_s, u"stick-crypt"_s, sdb1);
    machine.mount(u"52 22 0:34 / /media/crypt rw - btrfs /dev/mapper/stick-crypt rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/crypt/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/media/crypt"_s, false, false, true, true, true));
}

TEST_F(LinuxVolumeOnAMachine, AMountPointWithASpaceIsDecoded)
{
    plugUsb(1, u"/media/show/My\\040Stick"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/media/show/My Stick/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts.volume, u"/media/show/My Stick"_s);
    EXPECT_TRUE(volume->facts.canBeTakenAway());
}

TEST_F(LinuxVolumeOnAMachine, ABindMountOfTheStickIsJudgedByTheStick)
{
    plugUsb(1, u"/media/show/STICK"_s);
    machine.mount(u"60 22 8:17 /apps /srv/orvane rw shared:50 - vfat /dev/sdb1 rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/srv/orvane/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/srv/orvane"_s, false, false, true, true, true));
    EXPECT_EQ(volume->mount.id, 60);
}

TEST_F(LinuxVolumeOnAMachine, ABindMountOfTheRootDiskStays)
{
    machine.mount(u"61 22 8:2 /opt/orvane /srv/app rw shared:1 - ext4 /dev/sda2 rw"_s);
    const std::optional<LinuxVolume> volume = machine.read(u"/srv/app/orvane"_s);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->facts, facts(u"/srv/app"_s, false, true, false, false, true));
    EXPECT_FALSE(volume->facts.canBeTakenAway());
}

TEST(LinuxVolume, AnUnreadableTableGivesNoFacts)
{
    EXPECT_FALSE(LinuxVolume::read(u"/usr/bin/orvane"_s, u"/nonexistent-proc"_s, u"/sys"_s));
}

TEST(LinuxVolume, NetworkTypesAreNotLocalAndFuseWithoutADiskIsNotSaid)
{
    EXPECT_EQ(LinuxVolume::isLocalType(u"cifs"_s, false), false);
    EXPECT_EQ(LinuxVolume::isLocalType(u"smb3"_s, false), false);
    EXPECT_EQ(LinuxVolume::isLocalType(u"ceph"_s, false), false);
    EXPECT_EQ(LinuxVolume::isLocalType(u"9p"_s, false), false);
    EXPECT_EQ(LinuxVolume::isLocalType(u"fuse"_s, false), std::nullopt);
    EXPECT_EQ(LinuxVolume::isLocalType(u"fuse.sshfs"_s, true), false);
    EXPECT_EQ(LinuxVolume::isLocalType(u"fuseblk"_s, true), true);
    EXPECT_EQ(LinuxVolume::isLocalType(u"ext4"_s, true), true);
}
