#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class ReadingShowMac : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }
};

TEST_F(ReadingShowMac, ListsEveryVLANAscendingByTag)
{
    const auto store = readStore();
    QList<qint64> tags;
    for (const VLANRecord &vlan : store->vlans())
        tags.append(vlan.tag);
    EXPECT_EQ(tags, (QList<qint64>{100, 1010, 1012, 1014, 1016, 1020, 1030, 1040, 1050, 2010, 2012,
                                   3010}));
}

} // namespace
