#pragma once

// The records the campaigns work on: complete, so that every save's checks pass.

#include "store/delivery_record.h"
#include "store/delivery_writes.h"

namespace tolvinpt::campaign {

// A record of buyer 1 ("1234") with order "ORD-n", delivery key "KEY-n" and a delivery quantity of 10.
inline qint64 addDeliveryRecord(db::Database& database, int n)
{
    using C = DeliveryColumn;
    DeliveryRecord record;
    const std::pair<C, QVariant> values[] = {{C::IDCustomer, qint64(1)},
                                             {C::F00004, QStringLiteral("1234")},
                                             {C::F00007, QStringLiteral("ORD-%1").arg(n)},
                                             {C::F00159, QStringLiteral("KEY-%1").arg(n)},
                                             {C::F00024, QStringLiteral("HC-1")},
                                             {C::F00031, QStringLiteral("2005-03-01")},
                                             {C::F00039, QStringLiteral("2005-03-07")},
                                             {C::F00040, QStringLiteral("2005-03-09")},
                                             {C::F00015, 10.0},
                                             {C::F00036, 10.0},
                                             {C::F00059, QStringLiteral("1")},
                                             {C::F00013, QStringLiteral("100")}};
    for (const auto& [column, value] : values)
        record.set(column, value);
    return insertDeliveryRecord(database, record);
}

} // namespace tolvinpt::campaign
