#pragma once

#include "OrvaneApp/model/AppModel.h"
#include "tests/model/ManualClock.h"
#include "tests/support/CountingBackend.h"
#include "tests/support/StoreTestSupport.h"

#include <functional>
#include <memory>

/// A model over a temporary copy of the example show machine, with its own user defaults, a
/// clock moved by hand, and every store it opens counted.
class ModelTest : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    /// A model over the copy; `reads` counts the stores it opens from here on.
    [[nodiscard]] std::unique_ptr<AppModel> makeModel(bool isPicture = false);

    /// A model whose platform counts every call at the seam, in `counter`.
    [[nodiscard]] std::unique_ptr<AppModel> makeCountedModel();
    /// Drafts with these tags and names, in order.
    [[nodiscard]] static QList<AppModel::DraftRow>
    draftsOf(const QList<std::pair<QString, QString>> &tagsAndNames);

    /// The row of the VLAN with this tag, which must exist.
    [[nodiscard]] static AppModel::Row vlanRow(const AppModel &model, qint64 tag);
    /// The adapter row of the service with this name, which must exist.
    [[nodiscard]] static AppModel::Row adapterRow(const AppModel &model, const QString &name);
    /// Makes a change through a second platform and commits it, as another program would.
    void changeElsewhere(const std::function<void(VLANKit::VLANStore &)> &change);
    /// Deletes every VLAN of the machine, elsewhere.
    void removeAllVLANs();

    std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
    VLANKit::Defaults defaults =
        VLANKit::Defaults::inFile(temporary.filePath(QStringLiteral("defaults.plist")));
    int reads = 0;
    std::shared_ptr<VLANKit::CountingBackend> counter;
};
