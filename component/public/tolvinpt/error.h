#pragma once

#include <tolvinpt/global.h>

#include <QString>

#include <stdexcept>

namespace tolvinpt {

// The one exception type that leaves InputData and NewData: a failure inside the host objects or a
// database error while an entry call runs. `number` is the engine's native error code where there is one.
class TOLVINPT_EXPORT Error : public std::runtime_error
{
public:
    Error(const QString& description, long number);

    const QString& description() const noexcept { return m_description; }
    long number() const noexcept { return m_number; }

private:
    QString m_description;
    long m_number;
};

} // namespace tolvinpt
