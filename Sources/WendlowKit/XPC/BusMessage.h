#pragma once

#include <QDBusMessage>
#include <QString>

#include "XPC/XPCObject.h"

/// Messages of the service as D-Bus carries them: one argument, a dictionary from strings to
/// variants. Data is `ay`, a number `t`, a truth value `b`. Pure.
namespace wendlow::BusMessage {

/// The call that carries a message to the owner of a name. It starts no service.
QDBusMessage call(const QString& name, const xpc_object_t& message);

/// What a reply or a signal carries. An error, whoever sent it, is an error; what is no dictionary
/// is of another type.
xpc_object_t read(const QDBusMessage& message);

/// "/works/fenmoor/wendlow/gateway" for "works.fenmoor.wendlow.gateway". A service of another name,
/// as tests have, is reached at the same object and the same interface.
extern const QString path;
extern const QString interface;
extern const QString eventMember;

} // namespace wendlow::BusMessage
