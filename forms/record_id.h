#pragma once

#include <QString>

#include <optional>

namespace tolvinpt {

// The record id a text begins with (a record list element such as "1234Key", the form's id text): its
// leading number rounded to a whole number, 0 without one; nullopt when that does not fit 32 bits.
std::optional<qint32> leadingRecordId(const QString& text);

} // namespace tolvinpt
