#include "host/demo_catalogue.h"

namespace tolvinpt::host::demo {
namespace {

const Item kItems[] = {
    {u"B-1023-0045", u"TK-HB0830", u"ﾛｯｶｸﾎﾞﾙﾄ M8X30", u"六角ボルト　Ｍ８×３０", u"PCS", 12500},
    {u"B-1023-0112", u"TK-HN1000", u"ﾛｯｶｸﾅｯﾄ M10", u"六角ナット　Ｍ１０", u"PCS", 6800},
    {u"B-2040-0007", u"TK-SW0600", u"ﾋﾗｻﾞｶﾞﾈ 6MM", u"平座金　６ｍｍ", u"PCS", 1200},
    {u"B-3301-1200", u"TK-BR6204", u"ﾎﾞｰﾙﾍﾞｱﾘﾝｸﾞ 6204ZZ", u"玉軸受　６２０４ＺＺ", u"PCS", 385000},
    {u"B-4410-0021", u"TK-SP0520", u"ｱｯｼｭｸｺｲﾙﾊﾞﾈ 5X20", u"圧縮コイルばね　５×２０", u"PCS", 24750},
    {u"B-5120-0300", u"TK-PL3000", u"ｱﾙﾐﾌﾟﾚｰﾄ A5052 3T", u"アルミ板　Ａ５０５２　３ｔ", u"EA", 2480000},
    {u"B-6001-0010", u"TK-RS0010", u"ｴﾎﾟｷｼｼﾞｭｼ ｼｭｻﾞｲ", u"エポキシ樹脂　主剤", u"KG", 1650500},
    {u"B-6001-0011", u"TK-RS0011", u"ｴﾎﾟｷｼｼﾞｭｼ ｺｳｶｻﾞｲ", u"エポキシ樹脂　硬化剤", u"KG", 1820000},
    {u"B-7105-0044", u"TK-HS1200", u"ﾀｲﾈﾂﾎｰｽ 12MM", u"耐熱ホース　１２ｍｍ", u"M", 310400},
    {u"B-8200-0500", u"TK-GK0500", u"ｺﾞﾑﾊﾟｯｷﾝ 50A", u"ゴムパッキン　５０Ａ", u"PCS", 88000},
    {u"B-9010-0150", u"TK-CB0150", u"ﾀﾞﾝﾎﾞｰﾙﾊﾞｺ 150ｻｲｽﾞ", u"段ボール箱　１５０サイズ", u"PCS", 145000},
    {u"B-2255-0890", u"TK-SF2020", u"ｼｬﾌﾄ S45C D20X200", u"シャフト　Ｓ４５Ｃ　φ２０×２００", u"PCS",
     1540000},
    {u"B-3390-0015", u"TK-KB0015", u"ｹｰﾌﾞﾙﾀｲ 150MM", u"ケーブルタイ　１５０ｍｍ", u"PCS", 3300},
};

const Place kPlaces[] = {
    {u"0010", u"ﾎﾝｼｬｺｳｼﾞｮｳ", u"本社工場"},     {u"0020", u"ｷｭｳｼｭｳｺｳｼﾞｮｳ", u"九州工場"},
    {u"1001", u"ﾌﾞﾂﾘｭｳｾﾝﾀｰ", u"物流センター"}, {u"2050", u"ﾀﾞｲ2ｿｳｺ", u"第２倉庫"},
    {u"3300", u"ｱﾂｷﾞｼﾞｷﾞｮｳｼｮ", u"厚木事業所"}, {u"A-12", u"ｳｹｲﾚｹﾝｻﾊﾞ", u"受入検査場"},
};

const TextPair kPurchasers[] = {
    {u"ﾀﾅｶ", u"田中"},   {u"ｽｽﾞｷ", u"鈴木"}, {u"ｻﾄｳ", u"佐藤"},  {u"ﾀｶﾊｼ", u"高橋"},
    {u"ﾜﾀﾅﾍﾞ", u"渡辺"}, {u"ｲﾄｳ", u"伊藤"},  {u"ﾔﾏﾓﾄ", u"山本"}, {u"ｺﾊﾞﾔｼ", u"小林"},
};

const TextPair kBuyerRemarks[] = {
    {u"", u""},
    {u"ｷｭｳﾋﾝ", u"急品"},
    {u"ﾌﾞﾝﾉｳｶ", u"分納可"},
    {u"ｹﾝｻｼｮｳﾒｲｼｮ ﾄﾞｳｺﾝ", u"検査証明書同梱"},
    {u"ｺﾞｾﾞﾝﾁｭｳ ﾁｬｸ", u"午前中着"},
    {u"ﾆﾌﾀﾞｼﾞ ﾋﾝﾒｲｷﾆｭｳ", u"荷札に品名記入"},
};

const TextPair kSupplierRemarks[] = {
    {u"", u""},
    {u"ｻﾞｲｺｱﾘ", u"在庫有"},
    {u"ﾉｳｷｶｲﾄｳｽﾞﾐ", u"納期回答済"},
    {u"ﾆｼﾞｶｺｳﾁｭｳ", u"二次加工中"},
};

} // namespace

std::span<const Item> items()
{
    return kItems;
}
std::span<const Place> places()
{
    return kPlaces;
}
std::span<const TextPair> purchasers()
{
    return kPurchasers;
}
std::span<const TextPair> buyerRemarks()
{
    return kBuyerRemarks;
}
std::span<const TextPair> supplierRemarks()
{
    return kSupplierRemarks;
}

} // namespace tolvinpt::host::demo
