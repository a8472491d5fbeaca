#pragma once

#include <tolvinpt/host.h>

namespace tolvinpt {

// The factory registered by the host; throws tolvinpt::Error when none is.
HostObjects& hostObjects();

} // namespace tolvinpt
