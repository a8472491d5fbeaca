#pragma once

// The fixed choice lists of the entry form. They are code tables of this form for now; when the store
// grows code tables of its own, these lists move there.

#include <QStringView>

#include <array>

namespace tolvinpt::frmdata {

// cobCurrency; the withdrawn European currencies stay in the list.
constexpr std::array<QStringView, 11> CurrencyCodes = {
    u"JPY", u"USD", u"GBP", u"DEM", u"FRF", u"ITL", u"XEU", u"CNY", u"HKD", u"SGD", u"KRW",
};

// cobCurrencyName: one name per code at the same index, and a last name for any code not listed.
constexpr std::array<QStringView, 12> CurrencyNames = {
    u"日本 円",      u"米 ﾄﾞﾙ",  u"英 ﾎﾟﾝﾄﾞ", u"独 ﾏﾙｸ",       u"仏 ﾌﾗﾝ",   u"伊 ﾘﾗ",
    u"欧州通貨記号", u"中国 元", u"香港 ﾄﾞﾙ", u"ｼﾝｶﾞﾎﾟｰﾙ ﾄﾞﾙ", u"韓国 ｳｫﾝ", u"その他",
};
static_assert(CurrencyNames.size() == CurrencyCodes.size() + 1);

// cobTaxation; the stored tax class is the digit before the hyphen.
constexpr std::array<QStringView, 5> TaxationClasses = {
    u"1-課税", u"2-非課税", u"3-免税", u"4-経過措置", u"9-消費税対象外",
};

} // namespace tolvinpt::frmdata
