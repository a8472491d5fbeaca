#include <tolvinpt/error.h>
#include <tolvinpt/host.h>
#include <tolvinpt/items.h>

#include "component/host_registry.h"

// Out-of-line destructors anchor each interface's type information in the library.
namespace tolvinpt {

OwnCodeList::~OwnCodeList() = default;
CompanySettings::~CompanySettings() = default;
CustomerEntryOptions::~CustomerEntryOptions() = default;
CustomerDisplayOptions::~CustomerDisplayOptions() = default;
CustomerSettings::~CustomerSettings() = default;
Customer::~Customer() = default;
CustomerList::~CustomerList() = default;
HostObjects::~HostObjects() = default;

namespace {
std::shared_ptr<HostObjects> registered;
}

void RegisterHostObjects(std::shared_ptr<HostObjects> factory)
{
    registered = std::move(factory);
}

HostObjects& hostObjects()
{
    if (!registered)
        throw Error(QStringLiteral("No host objects are registered: call RegisterHostObjects first"), 429);
    return *registered;
}

Error::Error(const QString& description, long number)
    : std::runtime_error(description.toStdString()), m_description(description), m_number(number)
{
}

QVariant Items::Item(int position) const
{
    if (position < 1 || position > Count())
        throw Error(QStringLiteral("Index out of range"), 9);
    return m_elements.at(position - 1);
}

} // namespace tolvinpt
