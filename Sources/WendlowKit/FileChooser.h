#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <QString>

#include <expected>
#include <functional>
#include <string>

/// The platform's own dialog for a file or folder: here the desktop portal's. UI thread.
namespace wendlow::FileChooser {

struct Question {
    QString title;
    QString folder; ///< where it begins
};
/// The path that was chosen, empty where the dialog was left; or why there is no dialog.
using Answer = std::expected<QString, std::string>;
using Choose = std::function<QCoro::Task<Answer>(Question)>;

/// Asks the portal on this bus, and waits until the person has answered.
QCoro::Task<Answer> choose(QDBusConnection bus, Question question);

} // namespace wendlow::FileChooser
