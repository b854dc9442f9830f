#include "ConnectedAppsPictures.h"

#include "ConnectedAppsModel.h"

namespace wendlow::ConnectedAppsPictures {

void take(ConnectedAppsModel& model, const PanePictures::Save& save) {
    const std::vector<ConnectedAppRow> rows = model.apps();
    for (const ConnectedAppRow& row : rows) {
        const QString id = QString::fromStdString(row.app.id);
        model.setOpen(id, true);
        save(id);
        if (InventoryList& projects = *row.inventory->projects();
            !projects.toggleWords().isEmpty()) {
            projects.toggle();
            save(id + QStringLiteral("-all"));
        }
        model.setOpen(id, row.open);
    }
}

} // namespace wendlow::ConnectedAppsPictures
