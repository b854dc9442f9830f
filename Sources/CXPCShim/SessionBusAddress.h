#pragma once

#include <QString>

namespace wendlow {

/// Where the person's session bus listens, read from the environment at each call; empty where
/// there is none. The bus's own library would remember the first address for the whole process, and
/// start a bus where it finds none.
QString sessionBusAddress();

/// A name for a connection that no other of this process has.
QString uniqueConnectionName();

} // namespace wendlow
