// Files a person or a crash left in a state the backend must survive: texts holding a NUL
// character, and temporary files of a commit that was killed before its rename.
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class BadInput : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }

    /// The file with its first text (a <string> element) holding a NUL character.
    QByteArray withNulInFirstString(const QString &fileName) const
    {
        QByteArray bytes = bytesOf(fileName);
        const qsizetype at = bytes.indexOf("<string>");
        EXPECT_GE(at, 0);
        bytes.insert(at + 9, '\0');
        return bytes;
    }

    QStringList folderEntries() const
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(BadInput, NulInPreferencesIsRefusedWithASentenceAndLeftAsItIs)
{
    const QByteArray damaged = withNulInFirstString(u"preferences.plist"_s);
    write(u"preferences.plist"_s, damaged);
    EXPECT_FALSE(readSession());
    const PlatformError error = backend->scCopyLastError();
    EXPECT_EQ(error.code, kSCStatusFailed);
    EXPECT_EQ(error.description, u"\u201c"_s + path(u"preferences.plist"_s)
                                     + u"\u201d can\u2019t be read: it holds a NUL character "
                                       "inside a text. The file was left as it is."_s);
    EXPECT_FALSE(writeSession());
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), damaged);
}

TEST_F(BadInput, NulInTheInterfaceListIsRefusedWithASentence)
{
    write(u"NetworkInterfaces.plist"_s, withNulInFirstString(u"NetworkInterfaces.plist"_s));
    try {
        (void)another();
        ADD_FAILURE() << "the backend opened";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorDescription(),
                  u"\u201c"_s + path(u"NetworkInterfaces.plist"_s)
                      + u"\u201d can\u2019t be read: it holds a NUL character inside a text."_s);
    }
}

TEST_F(BadInput, TheNextCommitRemovesTemporariesOfAKilledOne)
{
    write(u"preferences.plist.new-Ab3xZ9"_s, "half a document");
    write(u"kernel-state.plist.new-Qw8rT2"_s, "half a state");
    // Not a temporary of ours: other names, and one whose random part is not six long.
    write(u"preferences.plist.new-short"_s, "kept");
    write(u"notes.txt.new-Ab3xZ9"_s, "kept");
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scNetworkSetSetName(backend->scNetworkSetCopyCurrent(session), u"Now"_s));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_FALSE(folderEntries().contains(u"preferences.plist.new-Ab3xZ9"_s));
    EXPECT_TRUE(folderEntries().contains(u"kernel-state.plist.new-Qw8rT2"_s));
    ASSERT_TRUE(backend->scPreferencesApplyChanges(session));
    EXPECT_FALSE(folderEntries().contains(u"kernel-state.plist.new-Qw8rT2"_s));
    EXPECT_TRUE(folderEntries().contains(u"preferences.plist.new-short"_s));
    EXPECT_TRUE(folderEntries().contains(u"notes.txt.new-Ab3xZ9"_s));
}

} // namespace
