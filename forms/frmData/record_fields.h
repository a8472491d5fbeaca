#pragma once

// The fields of the entry form that show a stored column as it is and are saved back to it, and the
// filling of a field from a record, shared by the record display and the order search.

#include "store/delivery_columns.h"

#include <QStringView>

#include <functional>
#include <optional>
#include <span>

namespace tolvinpt {

class DeliveryRecord;
class frmData;

struct FieldColumn
{
    QStringView field;
    DeliveryColumn column;
};

namespace fields {
// Text fields in the order the display fills them; txtIDData first, which the save never writes.
std::span<const FieldColumn> orderTexts();
// Dates shown as "yyyymmdd" and saved as dates.
std::span<const FieldColumn> dates();
// Quantities shown as plain numbers and saved as the text's leading number.
std::span<const FieldColumn> quantities();
// The unit and the inspection class.
std::span<const FieldColumn> unitAndInspection();
// Remarks and bar codes.
std::span<const FieldColumn> remarks();
} // namespace fields

// One statement of a fill: a value that is missing or unreadable, or a database error, skips it and the
// fill goes on. A failure of the host's objects is no statement's own: it ends the fill.
void step(const std::function<void()>& statement);

// Fills `field` with `text` whole (even past the field's limit); nullopt leaves it as it is.
void fill(const frmData& form, QStringView field, const std::optional<QString>& text);
// Each field with its column as stored, one statement each.
void fillTexts(const frmData& form, const DeliveryRecord& record, std::span<const FieldColumn> fields);
// A number as plain text: 1500 shows "1500", 2.5 shows "2.5".
std::optional<QString> plainNumber(const DeliveryRecord& record, DeliveryColumn column);
void fillNumbers(const frmData& form, const DeliveryRecord& record, std::span<const FieldColumn> fields);
// chkTaxType ticked exactly when F00057 is 1.
void fillTaxIncluded(const frmData& form, const DeliveryRecord& record);

} // namespace tolvinpt
