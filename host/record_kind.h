#pragma once

#include <QStringList>
#include <QVariant>

namespace tolvinpt::host {

// Caption of a record's kind, from T_Delivery.F00002 and, for order information, F00030.
// Codes compare as exact text; any other code, empty text or Null is hand input.
QString kindCaption(const QVariant& kindCode, const QVariant& subState);

// Every caption, in the order of the kind table (hand input last).
QStringList kindCaptions();

} // namespace tolvinpt::host
