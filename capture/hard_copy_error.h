#pragma once

#include "platform/sql/database.h"

namespace tolvinpt::capture {

// A hard copy that failed: a run-time error like any other ("description (number)"), plus its source,
// the printer or the file that failed, which the operator sees in the message's title.
class HardCopyError final : public db::DatabaseError
{
public:
    HardCopyError(const QString& description, long number, QString source = {})
        : DatabaseError(description, number), m_source(std::move(source))
    {
    }

    const QString& source() const noexcept { return m_source; }
    // The same error, from `source` unless it names one already.
    HardCopyError from(const QString& source) const
    {
        return {description(), number(), m_source.isEmpty() ? source : m_source};
    }

private:
    QString m_source;
};

// The run-time errors of a page, numbered as the runtime numbers them.
inline HardCopyError divisionByZero()
{
    return {QStringLiteral("Division by zero"), 11};
}
// A printer (or print engine) that cannot start or end the job.
inline HardCopyError printerError()
{
    return {QStringLiteral("Printer error"), 482};
}

} // namespace tolvinpt::capture
