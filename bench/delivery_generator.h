#pragma once

#include "store/delivery_record.h"

#include <QList>
#include <QVariant>

#include <random>

namespace tolvinpt::bench {

// Realistic delivery records: a few dozen buyers, orders with one to three deliveries, every record kind,
// yen and foreign prices, every package mode, some records in the waste box.
class DeliveryGenerator
{
public:
    explicit DeliveryGenerator(unsigned seed) : m_random(seed) {}

    // The next record (without IDData); `packages` receives the per-package quantities of a mode-3 record.
    DeliveryRecord next(QList<QVariant>& packages);

private:
    int uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    bool chance(double p) { return std::bernoulli_distribution(p)(m_random); }

    std::mt19937_64 m_random;
    int m_order = 0;
    int m_deliveriesLeft = 0;
    int m_delivery = 0;
    int m_customer = 1;
};

} // namespace tolvinpt::bench
