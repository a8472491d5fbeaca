// Reading stored values back, whatever type and content the engine hands over: nothing throws, and what
// reads as a decimal or a currency is what the text said.
// Input: the first byte chooses the stored type, the rest is its content.
#include "fuzz/fuzz_input.h"
#include "fuzz/require.h"
#include "platform/sql/sql_values.h"
#include "platform/values/decimal.h"

#include <cstring>

namespace {

template <typename T> T bytesAs(const std::uint8_t* data, std::size_t size)
{
    T value{};
    std::memcpy(&value, data, std::min(size, sizeof value));
    return value;
}

QVariant storedValue(const std::uint8_t* data, std::size_t size)
{
    const std::uint8_t* rest = data + 1;
    const std::size_t restSize = size - 1;
    switch (data[0] % 6) {
    case 0:
        return tolvinpt::fuzz::latin1Text(rest, restSize);
    case 1:
        return tolvinpt::fuzz::utf16Text(rest, restSize);
    case 2:
        return QVariant::fromValue(bytesAs<qint64>(rest, restSize));
    case 3:
        return QVariant::fromValue(bytesAs<double>(rest, restSize));
    case 4:
        return QByteArray(reinterpret_cast<const char*>(rest), qsizetype(restSize));
    default:
        return QVariant(QMetaType::fromType<QString>()); // a Null text
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tolvinpt;
    using namespace tolvinpt::db;
    if (size == 0)
        return 0;
    const QVariant value = storedValue(data, size);
    const bool null = isNull(value);
    FUZZ_REQUIRE(!null || (!readText(value) && !readDecimal(value) && !readCurrency(value)));
    readInteger(value);
    readDouble(value);
    readBoolean(value);
    if (const auto date = readDate(value))
        FUZZ_REQUIRE(date->isValid());
    if (const auto dateTime = readDateTime(value))
        FUZZ_REQUIRE(dateTime->isValid());
    if (const auto decimal = readDecimal(value))
        FUZZ_REQUIRE(isDecimalText(*decimal));
    if (const auto currency = readCurrency(value); currency && value.typeId() == QMetaType::QString) {
        const auto exact = Decimal::fromString(value.toString());
        if (exact && exact->decimals() <= Currency::Decimals)
            FUZZ_REQUIRE(currency->toDecimal() == *exact);
    }
    return 0;
}
