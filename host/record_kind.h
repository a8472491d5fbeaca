#pragma once

#include <QStringList>

namespace tolvinpt::host {

// The kinds as the list shows and filters them: an order awaiting its delivery instruction, the kinds of
// the component's kind table in its order, hand input. Their captions, in that order.
QStringList kindCaptions();

// A SQL condition on T_Delivery that holds exactly for the records of kind `kind` (an index into
// kindCaptions()): codes compare as exact text; any other code, empty text or Null is hand input.
QString kindCondition(int kind);

// A SQL expression on T_Delivery giving the index into kindCaptions() of a record's kind.
QString kindExpression();

} // namespace tolvinpt::host
