#pragma once

// The split dialog: the delivery key number of the new record and the quantity that moves to it, checked
// against the record being split. It stores nothing; the entry form's split reads what it collected.
//
//     if (const auto request = askDivide(&form, {indicate, keyNo, delivery}))
//         SplitRecord(request->oldKey, request->oldQuantity, request->newKey, request->newQuantity);

#include "forms/form_builder.h"
#include "platform/values/currency.h"

#include <QDialog>

#include <optional>

namespace tolvinpt {

class ValidateOnLeave;

// The record being split, as the entry form shows it.
struct DivideSource
{
    QString instructionQuantity; // txtAmountIndicate, shown for reference
    QString keyNo;               // txtPaymentKeyNo, also proposed as the new key
    QString deliveryQuantity;    // txtAmountDelivery
};

// What a confirmed dialog hands to the split.
struct DivideRequest
{
    QString oldKey;       // the record's delivery key number as shown
    Currency oldQuantity; // its delivery quantity before the split
    QString newKey;       // the new record's delivery key number: differs from oldKey, half-width
    Currency newQuantity; // moved to the new record: above 0, at most 999,999,999.999, leaving 0.001
};

class frmDivide final : public QDialog
{
    Q_OBJECT

public:
    // Builds the dialog and runs its load: both key numbers empty, both quantities "0".
    explicit frmDivide(QWidget* parent = nullptr);
    ~frmDivide() override;

    // Fills the fields from the record being split.
    void fill(const DivideSource& source);

    // 0 until a button ends the dialog, 1 after "OK", 2 after "ｷｬﾝｾﾙ" (also Escape and the close box).
    int Result = 0;
    // The fields read for the split; meaningful once Result is 1.
    DivideRequest request() const;

    // "OK" (0) checks the new key number, then the quantity, and ends the dialog only when both pass;
    // "ｷｬﾝｾﾙ" (1) ends it without a check.
    void cmdAny_Click(int index);
    // Escape and the close box are "ｷｬﾝｾﾙ".
    void reject() override;

    // Controls by name: txtDelivery, txtPayment(0), txtPayment(1), txtAmount(0), txtAmount(1), cmdAny(0),
    // cmdAny(1).
    QWidget* control(const QString& name) const { return m_controls.value(name); }
    template <class T> T* control(const QString& name) const { return qobject_cast<T*>(control(name)); }

private:
    void installFieldRules();
    void Form_Load();
    void txtPayment_Validate(int index, bool& cancel);
    void txtAmount_Validate(int index, bool& cancel);

    ControlMap m_controls;
    ValidateOnLeave* m_leave = nullptr;
};

// Loads the split dialog owned by `owner`, fills it from `source` and shows it modally. What the split
// needs when the operator confirmed with "OK"; nothing when the dialog was cancelled.
std::optional<DivideRequest> askDivide(QWidget* owner, const DivideSource& source);

} // namespace tolvinpt
