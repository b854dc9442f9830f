#pragma once

#include "LocalModel.h"

#include <string>
#include <string_view>

#include <QCoroTask>

/// The local server that runs the models.
namespace wendlow::LocalModelServer {

/// Whether it answers within two seconds that the title model is installed. A server that is not
/// there, answers late or with anything else is a no. A thread with an event loop.
QCoro::Task<bool> ready(std::string endpoint = std::string(LocalModel::endpoint));

} // namespace wendlow::LocalModelServer
