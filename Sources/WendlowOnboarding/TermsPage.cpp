#include "TermsPage.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

namespace wendlow::TermsPage {

void open(const std::optional<std::filesystem::path>& bundle) {
    const QString address = QStringLiteral(WENDLOW_TERMS_ADDRESS);
    if (!address.isEmpty())
        QDesktopServices::openUrl(QUrl(address));
    else if (bundle)
        QDesktopServices::openUrl(QUrl::fromLocalFile(
            QString::fromStdString((*bundle / "Contents/Resources/terms.html").string())));
}

} // namespace wendlow::TermsPage
