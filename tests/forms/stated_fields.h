#pragma once

// The entry form's fields as the rules state them, written out here rather than read from the form's
// own catalogue: each field's length limit, its character class and the change flags its edits mark.

#include <QStringView>

#include <cstdlib>

namespace tolvinpt::test {

enum Width { NoWidth, Half, Full };

struct StatedField
{
    QStringView name;
    int maxLength; // characters; 0 for no limit
    Width width;
    // What a change (text) or a click (choice) marks: C bChanged, A bChangedAmount, Q bChangedQTY.
    QStringView marks;
};

// clang-format off
constexpr StatedField StatedFields[] = {
    {u"txtOrderNo", 23, Half, u"C"},             {u"txtPaymentKeyNo", 23, Half, u"C"},
    {u"txtTantoA", 7, Half, u"C"},               {u"txtTantoK", 7, Full, u"C"},
    {u"txtKensa", 3, Half, u"C"},                {u"txtPlaceC", 8, Half, u"C"},
    {u"txtPlaceA", 20, Half, u"C"},              {u"txtPlaceK", 20, Full, u"C"},
    {u"txtHCode", 25, Half, u"C"},               {u"txtMyHCode", 25, Half, u"C"},
    {u"txtHinmeiA", 30, Half, u"C"},             {u"txtHinmeiK", 30, Full, u"C"},
    {u"txtUnit", 3, Half, u"C"},                 {u"txtMyBar", 23, Half, u"C"},
    {u"txtMyRemarksA", 25, Half, u"C"},          {u"txtMyRemarksK", 25, Full, u"C"},
    {u"txtCustomBar", 23, Half, u"C"},           {u"txtCustomRemarksA", 50, Half, u"C"},
    {u"txtCustomRemarksK", 50, Full, u"C"},      {u"txtDate(0)", 8, NoWidth, u"C"},
    {u"txtDate(1)", 8, NoWidth, u"C"},           {u"txtDate(2)", 8, NoWidth, u"C"},
    {u"txtAmountOrder", 13, NoWidth, u"C"},      {u"txtAmountIndicate", 13, NoWidth, u"C"},
    {u"txtAmountDelivery", 13, NoWidth, u"CA"},  {u"txtUnitPrice", 17, NoWidth, u"C"},
    {u"txtQuantity", 13, NoWidth, u"Q"},
    // Filled by code only: they mark nothing, and the code boxes keep whatever they are given.
    {u"txtIDData", 0, NoWidth, u""},             {u"chkNew", 0, NoWidth, u""},
    {u"txtCustomCode", 0, NoWidth, u""},         {u"txtMyCode", 0, NoWidth, u""},
    {u"txtMyNameFix", 0, NoWidth, u""},          {u"cobCurrencyName", 0, NoWidth, u""},
    // Choices, after the code boxes that two of them fill.
    {u"cobCustomer", 0, NoWidth, u"C"},          {u"cobMyCodes", 0, NoWidth, u"C"},
    {u"cobCurrency", 0, NoWidth, u"C"},          {u"cobTaxation", 0, NoWidth, u"C"},
    {u"chkTaxType", 0, NoWidth, u"C"},
};
// clang-format on

inline const StatedField& statedField(QStringView name)
{
    for (const StatedField& field : StatedFields) {
        if (field.name == name)
            return field;
    }
    std::abort(); // a name missing above
}

} // namespace tolvinpt::test
