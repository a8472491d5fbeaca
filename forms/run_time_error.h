#pragma once

#include "platform/sql/database.h"

namespace tolvinpt {

// A run-time error of the form's own procedures: a value that does not convert, an item that is not
// selected. Commands trap it, or report it to the operator, exactly as they do a store error
// ("description (number)"), so it is one.
class RunTimeError final : public db::DatabaseError
{
public:
    using DatabaseError::DatabaseError;
};

// "Type mismatch": a text that does not convert to the value its column holds.
inline RunTimeError typeMismatch()
{
    return RunTimeError(QStringLiteral("Type mismatch"), 13);
}

} // namespace tolvinpt
