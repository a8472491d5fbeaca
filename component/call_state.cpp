#include "component/call_state.h"

#include "platform/number_text.h"

#include <tolvinpt/error.h>

#include <limits>

namespace tolvinpt {

Items* gItems = nullptr;
qint32 gIndex = 0;

qint32 recordIdOf(const QVariant& element)
{
    const auto id = leadingNumber(element.toString()).roundHalfEven(0).toScaledInteger(0);
    if (!id || *id < std::numeric_limits<qint32>::min() || *id > std::numeric_limits<qint32>::max())
        throw Error(QStringLiteral("Overflow"), 6);
    return static_cast<qint32>(*id);
}

} // namespace tolvinpt
