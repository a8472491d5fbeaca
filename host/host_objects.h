#pragma once

#include <tolvinpt/host.h>

#include <QString>

#include <memory>

namespace tolvinpt::host {

// The host objects over the host tables of the connection `connectionName`. Each Create... call reads
// the tables anew, so a component object created after a change of the master sees the change.
// Create... throws tolvinpt::Error when the tables cannot be read.
std::shared_ptr<HostObjects> makeHostObjects(const QString& connectionName);

} // namespace tolvinpt::host
