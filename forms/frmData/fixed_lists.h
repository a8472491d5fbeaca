#pragma once

// The currency lists of the entry form. The tax classes are the store's taxation table.

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

} // namespace tolvinpt::frmdata
