#include "tests/model/ModelTestSupport.h"

#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/VLANStore.h"

using namespace VLANKit;

std::unique_ptr<AppModel> ModelTest::makeModel(bool isPicture)
{
    auto model = std::make_unique<AppModel>(*platform, defaults, isPicture, clock);
    model->openStore = [this, open = model->openStore] {
        ++reads;
        return open();
    };
    return model;
}

std::unique_ptr<AppModel> ModelTest::makeCountedModel()
{
    counter = std::make_shared<CountingBackend>(platform->sharedBackend());
    auto model = std::make_unique<AppModel>(Platform(counter), defaults, false, clock);
    model->openStore = [this, open = model->openStore] {
        ++reads;
        return open();
    };
    return model;
}

QList<AppModel::DraftRow>
ModelTest::draftsOf(const QList<std::pair<QString, QString>> &tagsAndNames)
{
    QList<AppModel::DraftRow> drafts;
    for (const auto &[tag, name] : tagsAndNames)
        drafts.append(std::make_shared<Draft>(tag, name));
    return drafts;
}

AppModel::Row ModelTest::vlanRow(const AppModel &model, qint64 tag)
{
    for (const AppModel::Row &row : model.rows()) {
        if (row->source().isVLAN() && row->source().tag == tag)
            return row;
    }
    ADD_FAILURE() << "no row of VLAN " << tag;
    return std::make_shared<ServiceEdit>(RowSource{});
}

AppModel::Row ModelTest::adapterRow(const AppModel &model, const QString &name)
{
    for (const AppModel::Row &row : model.rows()) {
        if (!row->source().isVLAN() && row->source().name == name)
            return row;
    }
    ADD_FAILURE() << "no adapter row " << name.toStdString();
    return std::make_shared<ServiceEdit>(RowSource{});
}

void ModelTest::changeElsewhere(const std::function<void(VLANStore &)> &change)
{
    const Platform elsewhere = another();
    NetworkAuthorization authorization(elsewhere);
    authorization.acquire();
    VLANStore store(elsewhere, authorization);
    change(store);
    store.commit();
}

void ModelTest::removeAllVLANs()
{
    changeElsewhere([](VLANStore &store) {
        for (const VLANRecord &vlan : store.vlans())
            store.removeVLAN(vlan.tag, vlan.bsdName);
    });
}
