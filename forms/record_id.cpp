#include "forms/record_id.h"

#include "platform/values/number_text.h"

#include <limits>

namespace tolvinpt {

std::optional<qint32> leadingRecordId(const QString& text)
{
    const auto id = leadingNumber(text).roundHalfEven(0).toScaledInteger(0);
    if (!id || *id < std::numeric_limits<qint32>::min() || *id > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return static_cast<qint32>(*id);
}

} // namespace tolvinpt
