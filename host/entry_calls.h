#pragma once

#include <tolvinpt/items.h>

#include <memory>

namespace tolvinpt::host {

// The component's two entry calls as the list window makes them. Both throw tolvinpt::Error.
class EntryCalls
{
public:
    virtual ~EntryCalls() = default;
    virtual void inputData(Items& items) = 0;
    virtual void newData() = 0;
};

// The real calls: one fmInput per call, as a host of the component uses it.
std::unique_ptr<EntryCalls> componentEntryCalls();

} // namespace tolvinpt::host
