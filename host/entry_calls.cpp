#include "host/entry_calls.h"

#include <tolvinpt/fmInput.h>

namespace tolvinpt::host {
namespace {

class ComponentEntryCalls final : public EntryCalls
{
public:
    void inputData(Items& items) override
    {
        fmInput input;
        input.InputData(items);
    }
    void newData() override
    {
        // The result carries no meaning: it is false whether or not a record was saved.
        fmInput input;
        input.NewData();
    }
};

} // namespace

std::unique_ptr<EntryCalls> componentEntryCalls()
{
    return std::make_unique<ComponentEntryCalls>();
}

} // namespace tolvinpt::host
