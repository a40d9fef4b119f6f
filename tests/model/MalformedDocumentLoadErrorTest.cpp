// A document that the store can't open reaches the window as `loadError`, the one failure field
// of reading, with the store's own sentence; the window's drawing of it belongs to the Current
// tab, which tests it there.
#include "OrvaneApp/model/AppModel.h"
#include "tests/model/ModelTestSupport.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class MalformedDocumentLoadError : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
        model->reload();
        ASSERT_EQ(model->loadError(), std::nullopt);
    }

    QString preferencesPath() const { return folder + u"/preferences.plist"_s; }

    std::unique_ptr<AppModel> model;
};

TEST_F(MalformedDocumentLoadError, DeepNestingShowsTheStoresSentence)
{
    QByteArray deep = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
                      "<key>Deep</key>";
    for (int depth = 0; depth < 300; ++depth)
        deep += "<array>";
    for (int depth = 0; depth < 300; ++depth)
        deep += "</array>";
    deep += "</dict></plist>";
    temporary.write(u"machine/preferences.plist"_s, deep);
    model->reload();
    EXPECT_EQ(model->loadError(), u"\u201c"_s + preferencesPath()
                                      + u"\u201d can\u2019t be read: it is nested more than 256 "
                                        "levels deep. The file was left as it is."_s);
}

TEST_F(MalformedDocumentLoadError, DocumentOfAHundredMegabytesShowsTheStoresSentence)
{
    QFile file(preferencesPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_TRUE(file.resize(100 * 1024 * 1024));
    file.close();
    model->reload();
    EXPECT_EQ(model->loadError(), u"\u201c"_s + preferencesPath()
                                      + u"\u201d can\u2019t be read: it is 104857600 bytes long, "
                                        "far too large for a property list. The file was left "
                                        "as it is."_s);
}

} // namespace
