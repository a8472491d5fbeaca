#include "component/call_state.h"

#include "forms/record_id.h"

#include <tolvinpt/error.h>

namespace tolvinpt {

Items* gItems = nullptr;
qint32 gIndex = 0;

qint32 recordIdOf(const QVariant& element)
{
    const auto id = leadingRecordId(element.toString());
    if (!id)
        throw Error(QStringLiteral("Overflow"), 6);
    return *id;
}

} // namespace tolvinpt
