#pragma once

// The fields' rules as the hostile-input campaign states them, apart from the forms' code: what the
// field holds after the operator typed or pasted a text, and what leaving it and saving must then do:
// refuse with the field's own messages, or store exactly the normalised value.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <span>

namespace tolvinpt::campaign {

enum class Rule {
    HalfWidth,       // narrowed, single-byte characters only in code page 932
    FullWidth,       // widened, double-byte characters only
    Quantity,        // leading number, 3 decimals, clamped at 999999999.999
    PackageQuantity, // leading number, 3 decimals, at most the delivery quantity
    UnitPrice,       // strict number, 3 decimals in yen, refused above 999999999.999
    Date,            // yyyymmdd or yymmdd, 1951 to 2050
    CurrencyCode,    // completed from the list, at most 3 bytes
    EqualSplit,      // strict number, at most the delivery quantity, shown "#0.000"
    SplitKey,        // a key other than the source's, half-width
    SplitQuantity,   // leading number, 3 decimals, the source keeps at least 0.001
    PackageCell,     // a package row of the grid: see packageCell()
};

// What a key does before the field sees it.
enum class Keys { Any, Number, Digit, UpperCase, UpperLetter };

struct Field
{
    QString name;   // object name of the control
    QString column; // the T_Delivery column it is stored in
    Rule rule;
    int maxLength = 0; // 0: none
    Keys keys = Keys::Any;
    bool inputMethod = true; // false: input method disabled, only the keyboard types
};

// The editable fields of the entry form, the split dialog and the package editor.
std::span<const Field> entryFormFields();
std::span<const Field> splitDialogFields();
std::span<const Field> packageEditorFields();
// The package grid's cells the campaign enters: package rows 1, 50 and 100 ("spdQuantity(ROW)").
std::span<const Field> packageGridFields();

// True when a key of the keyboard sends `c` as its text; other characters come through the input
// method.
bool keyboardTypes(char32_t c);

// The field's text after the operator selected all of `before` and typed (one key or input-method
// commit per character) or pasted `input`.
QString entered(const Field& field, const QString& before, const QString& input, bool typed);

// What leaving the field and saving the record must give.
struct Outcome
{
    bool refused = false;
    QStringList messages;            // refused: any of these, at least one; stored: exactly these
    QHash<QString, QVariant> stored; // column -> value (QString; numbers as decimal text; null: Null)
    bool databaseMayRefuse = false;  // a Like pattern that cannot compile: the database's own message
};

// The record around the field, as the campaign's records hold it.
struct Around
{
    QString sourceKey = QStringLiteral("KEY-0");
    QString deliveryQuantity = QStringLiteral("10");
    QString shipDate = QStringLiteral("20050307");
    QString deliveryDate = QStringLiteral("20050309");
    QString unitPrice = QStringLiteral("100");
    bool shipAndDueDateRequired = true;
    bool itemName = true; // the record has an item name, so the item code may be empty
};

// A package cell: the quantity, in thousandths, that a typed or pasted text gives it; 0 is an empty cell.
// The leading number to 3 decimals, half to even; nothing, zero or less empties the cell, more than
// 999,999,999.999 becomes that.
qint64 packageCell(const QString& text);
// A paste into the grid: one value a line (lines end at CR LF, LF or CR; a final line break ends nothing),
// the first tab-separated field of each.
QStringList pastedLines(const QString& text);

// `box` is the field's text before it is left (see entered()).
Outcome expectedOutcome(const Field& field, const QString& box, const Around& around);

} // namespace tolvinpt::campaign
