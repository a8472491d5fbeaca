#include "forms/frmData/catalogue.h"

#include <array>

namespace tolvinpt::frmdata {
namespace {

using K = ControlKind;
using I = InputMode;
using namespace design;
constexpr unsigned Mark = marks::Changed;

constexpr QStringView Form = u"";
constexpr QStringView Qty = u"fraQuantity";
constexpr QStringView My = u"fraInfoMy";
constexpr QStringView Cust = u"fraInfoCust";

constexpr QStringView QuantityRange = u"入力可能範囲 ： 0.001 ～ 999999999.999";
constexpr QStringView PriceRange = u"入力可能範囲 ： 0 ～ 99999999999.99999";
constexpr QStringView CompanyCode = u"得意先統一企業ｺｰﾄﾞ";

// Labels stand left of their field, "単位" above its box; label positions are this form's own.
// The marks column is what a text change or a click marks by itself; cobMyCodes and the optQuantity
// options mark through their own click handling.
// clang-format off
constexpr ControlSpec Controls[] = {
    // name                   kind               in    caption             tooltip                            max  input        state              left  top   width height tab  marks
    // Header
    {u"txtIDData",            K::TextBox,        Form, u"",                u"",                               0,   I::Default,  Hidden,            {5760, 60, 1215, 270},   2,  0},
    {u"chkNew",               K::CheckBox,       Form, u"New",             u"",                               0,   I::Default,  Hidden,            {7140, 60, 1215, 255},   3,  0},
    {u"Label1",               K::Label,          Form, u"発注者",          u"",                               0,   I::Default,  0,                 {60, 480, 1275, 315},   0,  0},
    {u"cobCustomer",          K::DropDownList,   Form, u"",                u"得意先名称",                     0,   I::Default,  0,                 {1380, 480, 3675, 315},  5,  Mark},
    {u"txtCustomCode",        K::TextBox,        Form, u"",                CompanyCode,                       0,   I::Default,  Grey,              {5100, 480, 1515, 315},  6,  0},
    {u"Label22",              K::Label,          Form, u"受注者",          u"",                               0,   I::Default,  0,                 {60, 840, 1275, 315},   0,  0},
    {u"cobMyCodes",           K::DropDownList,   Form, u"",                u"",                               0,   I::Default,  0,                 {1380, 840, 3675, 315},  8,  0},
    {u"txtMyCode",            K::TextBox,        Form, u"",                CompanyCode,                       0,   I::Default,  Grey,              {5100, 840, 1515, 315},  9,  0},
    {u"txtMyNameFix",         K::TextBox,        Form, u"",                u"",                               0,   I::Default,  Hidden,            {6780, 840, 1455, 315},  10, 0},
    {u"lblInfo",              K::Label,          Form, u"いろいろな情報",  u"",                               0,   I::Default,  Highlight | Right, {9000, 420, 1155, 180},  0,  0},
    {u"Picture1",             K::Picture,        Form, u"",                u"",                               0,   I::Default,  Hidden,            {0, 840, 435, 495},      0,  0},
    {u"Line1",                K::Line,           Form, u"",                u"",                               0,   I::Default,  0,                 {60, 1185, 10125, 15},  0,  0},
    // Record fields, left column
    {u"Label2",               K::Label,          Form, u"注文番号",        u"",                               0,   I::Default,  0,                 {60, 1260, 1275, 315},  0,  0},
    {u"txtOrderNo",           K::TextBox,        Form, u"",                u"",                               23,  I::Off,      Locked,            {1380, 1260, 3555, 315}, 12, Mark},
    {u"cmdFind",              K::Button,         Form, u"参照",            u"",                               0,   I::Default,  Disabled,          {4980, 1260, 735, 315},  13, 0},
    {u"Label3",               K::Label,          Form, u"納品ｷｰ番号",      u"",                               0,   I::Default,  0,                 {60, 1620, 1275, 315},  0,  0},
    {u"txtPaymentKeyNo",      K::TextBox,        Form, u"",                u"",                               23,  I::Off,      Locked,            {1380, 1620, 3555, 315}, 15, Mark},
    {u"Label4",               K::Label,          Form, u"購買担当",        u"",                               0,   I::Default,  0,                 {60, 2040, 1275, 315},  0,  0},
    {u"txtTantoA",            K::TextBox,        Form, u"",                u"購買担当 (半角： 7 文字)",       7,   I::Off,      0,                 {1380, 2040, 1155, 315}, 18, Mark},
    {u"txtTantoK",            K::TextBox,        Form, u"",                u"購買担当 (漢字： 7 文字)",       7,   I::Hiragana, 0,                 {2580, 2040, 1215, 315}, 19, Mark},
    {u"Label21",              K::Label,          Form, u"検査区分",        u"",                               0,   I::Default,  Right,             {3840, 2040, 1095, 315}, 0,  0},
    {u"txtKensa",             K::TextBox,        Form, u"",                u"",                               3,   I::Disabled, 0,                 {4980, 2040, 615, 315},  21, Mark},
    {u"Label5(0)",            K::Label,          Form, u"受渡場所",        u"",                               0,   I::Default,  0,                 {60, 2460, 1275, 315},  0,  0},
    {u"txtPlaceC",            K::TextBox,        Form, u"",                u"受渡場所ｺｰﾄﾞ (半角： 8 文字)",   8,   I::Off,      0,                 {1380, 2460, 1335, 315}, 23, Mark},
    {u"txtPlaceA",            K::TextBox,        Form, u"",                u"受渡場所名 (半角： 20 文字)",    20,  I::Off,      0,                 {2760, 2460, 3135, 315}, 24, Mark},
    {u"Label5(1)",            K::Label,          Form, u"(漢字)",          u"",                               0,   I::Default,  Right,             {60, 2820, 1275, 315},  0,  0},
    {u"txtPlaceK",            K::TextBox,        Form, u"",                u"受渡場所名 (全角： 20 文字)",    20,  I::Hiragana, 0,                 {1380, 2820, 3495, 315}, 26, Mark},
    {u"Label6",               K::Label,          Form, u"発注者品名ｺｰﾄﾞ",  u"",                               0,   I::Default,  0,                 {0, 3240, 1335, 315},  0,  0},
    {u"txtHCode",             K::TextBox,        Form, u"",                u"発注者品名ｺｰﾄﾞ (半角： 25 文字)", 25,  I::Off,      0,                 {1380, 3240, 3855, 315}, 28, Mark},
    {u"Label18",              K::Label,          Form, u"受注者品名ｺｰﾄﾞ",  u"",                               0,   I::Default,  Highlight,         {0, 3600, 1335, 315},  0,  0},
    {u"txtMyHCode",           K::TextBox,        Form, u"",                u"受注者品名ｺｰﾄﾞ (半角： 25 文字)", 25,  I::Off,      0,                 {1380, 3600, 3855, 315}, 30, Mark},
    {u"Label7(0)",            K::Label,          Form, u"品名",            u"",                               0,   I::Default,  0,                 {60, 4020, 1275, 315},  0,  0},
    {u"txtHinmeiA",           K::TextBox,        Form, u"",                u"品名 (半角： 30 文字)",          30,  I::Off,      0,                 {1380, 4020, 4335, 315}, 32, Mark},
    {u"Label7(1)",            K::Label,          Form, u"(漢字)",          u"",                               0,   I::Default,  Right,             {60, 4380, 1275, 315},  0,  0},
    {u"txtHinmeiK",           K::TextBox,        Form, u"",                u"品名 (全角： 30 文字)",          30,  I::Hiragana, 0,                 {1380, 4380, 4335, 315}, 34, Mark},
    // Record fields, right column
    {u"Label8",               K::Label,          Form, u"納期",            u"",                               0,   I::Default,  0,                 {6060, 1260, 1275, 315}, 0,  0},
    {u"txtDate(0)",           K::TextBox,        Form, u"",                u"",                               8,   I::Disabled, 0,                 {7380, 1260, 1215, 315}, 36, Mark},
    {u"Label9",               K::Label,          Form, u"出荷日",          u"",                               0,   I::Default,  Highlight,         {6060, 1620, 1275, 315}, 0,  0},
    {u"txtDate(1)",           K::TextBox,        Form, u"",                u"",                               8,   I::Disabled, 0,                 {7380, 1620, 1215, 315}, 38, Mark},
    {u"Label10",              K::Label,          Form, u"納入(予定)日",    u"",                               0,   I::Default,  Highlight,         {6060, 1980, 1275, 315}, 0,  0},
    {u"txtDate(2)",           K::TextBox,        Form, u"",                u"",                               8,   I::Disabled, 0,                 {7380, 1980, 1215, 315}, 41, Mark},
    {u"Label11",              K::Label,          Form, u"注文数量",        u"",                               0,   I::Default,  0,                 {6060, 2460, 1275, 315}, 0,  0},
    {u"txtAmountOrder",       K::TextBox,        Form, u"",                QuantityRange,                     13,  I::Disabled, Right,             {7380, 2460, 1875, 315}, 43, Mark},
    {u"Label12",              K::Label,          Form, u"納入指示数量",    u"",                               0,   I::Default,  0,                 {6060, 2820, 1275, 315}, 0,  0},
    {u"txtAmountIndicate",    K::TextBox,        Form, u"",                QuantityRange,                     13,  I::Disabled, Right,             {7380, 2820, 1875, 315}, 45, Mark},
    {u"Label13",              K::Label,          Form, u"納入数量",        u"",                               0,   I::Default,  Highlight,         {6060, 3240, 1275, 315}, 0,  0},
    {u"txtAmountDelivery",    K::TextBox,        Form, u"",                QuantityRange,                     13,  I::Disabled, Right,             {7380, 3240, 1875, 315}, 47, Mark | marks::Amount},
    {u"Label19",              K::Label,          Form, u"単位",            u"",                               0,   I::Default,  0,                 {9300, 3000, 555, 240},  0,  0},
    {u"txtUnit",              K::TextBox,        Form, u"",                u"",                               3,   I::Disabled, 0,                 {9300, 3240, 555, 315},  49, Mark},
    {u"Label20",              K::Label,          Form, u"単価",            u"",                               0,   I::Default,  Highlight,         {6060, 3660, 1275, 315}, 0,  0},
    {u"txtUnitPrice",         K::TextBox,        Form, u"",                PriceRange,                        17,  I::Disabled, Right,             {7380, 3660, 1875, 315}, 51, Mark},
    {u"chkTaxType",           K::CheckBox,       Form, u"税込み",          u"",                               0,   I::Default,  0,                 {9300, 3660, 855, 315},  52, Mark},
    {u"Label23",              K::Label,          Form, u"通貨ｺｰﾄﾞ",        u"",                               0,   I::Default,  Highlight,         {6060, 4020, 1275, 300}, 0,  0},
    {u"cobCurrency",          K::EditableCombo,  Form, u"",                u"",                               0,   I::Disabled, 0,                 {7380, 4020, 855, 300},  54, Mark},
    {u"cobCurrencyName",      K::Combo,          Form, u"",                u"",                               0,   I::Default,  Grey,              {8280, 4020, 1515, 300}, 55, 0},
    {u"Label24",              K::Label,          Form, u"課税区分",        u"",                               0,   I::Default,  Highlight,         {6060, 4380, 1275, 300}, 0,  0},
    {u"cobTaxation",          K::DropDownList,   Form, u"",                u"",                               0,   I::Default,  0,                 {7380, 4380, 1635, 300}, 57, Mark},
    // Package mode
    {u"fraQuantity",          K::Frame,          Form, u"入数情報",        u"",                               0,   I::Default,  Highlight,         {6420, 4920, 3495, 1635}, 58, 0},
    {u"optQuantity(1)",       K::OptionButton,   Qty,  u"単梱包",          u"",                               0,   I::Default,  0,                 {180, 360, 915, 180},    59, 0},
    {u"optQuantity(2)",       K::OptionButton,   Qty,  u"均等割梱包",      u"",                               0,   I::Default,  0,                 {180, 780, 1275, 180},   60, 0},
    {u"txtQuantity",          K::TextBox,        Qty,  u"",                QuantityRange,                     13,  I::Disabled, Right,             {1740, 720, 1515, 315},  61, marks::Quantity},
    {u"optQuantity(3)",       K::OptionButton,   Qty,  u"個別指定",        u"",                               0,   I::Default,  0,                 {180, 1200, 1035, 180},  62, 0},
    {u"cmdQuantity",          K::Button,         Qty,  u"個別入力",        u"",                               0,   I::Default,  0,                 {1740, 1140, 1515, 315}, 63, 0},
    // Information pages: two borderless frames over the tab strip, one shown at a time
    {u"TabStrip1",            K::TabStrip,       Form, u"",                u"",                               0,   I::Default,  0,                 {120, 4800, 5955, 1875}, 64, 0},
    {u"fraInfoMy",            K::Frame,          Form, u"",                u"",                               0,   I::Default,  0,                 {180, 5220, 5835, 1395}, 65, 0},
    {u"Label16(0)",           K::Label,          My,   u"備考",            u"",                               0,   I::Default,  0,                 {60, 180, 1155, 315},    0,  0},
    {u"txtMyRemarksA",        K::TextBox,        My,   u"",                u"",                               25,  I::Off,      0,                 {1260, 180, 3255, 315},  67, Mark},
    {u"Label16(1)",           K::Label,          My,   u"(漢字)",          u"",                               0,   I::Default,  Right,             {60, 540, 1155, 315},    0,  0},
    {u"txtMyRemarksK",        K::TextBox,        My,   u"",                u"",                               25,  I::Hiragana, 0,                 {1260, 540, 4335, 315},  69, Mark},
    {u"Label17",              K::Label,          My,   u"ﾊﾞｰｺｰﾄﾞ情報",     u"",                               0,   I::Default,  0,                 {60, 960, 1155, 315},    0,  0},
    {u"txtMyBar",             K::TextBox,        My,   u"",                u"",                               23,  I::Off,      0,                 {1260, 960, 3015, 315},  71, Mark},
    {u"fraInfoCust",          K::Frame,          Form, u"",                u"",                               0,   I::Default,  0,                 {180, 5280, 5835, 1275}, 72, 0},
    {u"Label14(0)",           K::Label,          Cust, u"備考",            u"",                               0,   I::Default,  0,                 {60, 180, 1155, 315},    0,  0},
    {u"txtCustomRemarksA",    K::TextBox,        Cust, u"",                u"",                               50,  I::Off,      0,                 {1260, 180, 3255, 315},  74, Mark},
    {u"Label14(1)",           K::Label,          Cust, u"(漢字)",          u"",                               0,   I::Default,  Right,             {60, 540, 1155, 315},    0,  0},
    {u"txtCustomRemarksK",    K::TextBox,        Cust, u"",                u"",                               50,  I::Hiragana, 0,                 {1260, 540, 4335, 315},  75, Mark},
    {u"Label15",              K::Label,          Cust, u"ﾊﾞｰｺｰﾄﾞ情報",     u"",                               0,   I::Default,  0,                 {60, 960, 1155, 315},    0,  0},
    {u"txtCustomBar",         K::TextBox,        Cust, u"",                u"",                               23,  I::Off,      0,                 {1260, 960, 3015, 315},  77, Mark},
};
// clang-format on

constexpr ToolButtonSpec Toolbar1[] = {
    {u"新規作成", u"新規作成", u"New", false},
    {u"変更保存", u"変更を保存", u"Save", false},
    {u"", u"", u"", false},
    {u"戻る", u"前へ", u"Back", false},
    {u"進む", u"次へ", u"Forward", false},
    {u"", u"", u"", false},
    {RecordListKey, u"一覧 (納品ｷｰ番号) から選択", u"Find", true},
    {u"分割", u"数量分割", u"Copy", false},
    {u"詳細変更", u"詳細を変更", u"View Details", false},
};

constexpr ToolButtonSpec Toolbar2[] = {
    {u"新規保存", u"新規入力ﾃﾞｰﾀの保存", u"Save", false},
};

constexpr TabSpec InfoTabs[] = {
    {u"受注者", u"受注者用情報", My},
    {u"発注者", u"発注者用情報", Cust},
};

constexpr MenuItemSpec DataItems[] = {
    {u"mnuDataNew", u"新規作成(&N)", u""},
    {u"mnuDataSave", u"保存(&S)", u"Ctrl+S"},
    {u"mnuDataDummy1", u"-", u""},
    {u"mnuDataPrevious", u"前へ(&P)", u""},
    {u"mnuDataNext", u"次へ(&N)", u""}, // same access key as 新規作成, as designed
    {u"mnuDataDummy2", u"-", u""},
    {u"mnuDataDivide", u"分割", u""},
    {u"mnuDataDetail", u"詳細変更", u""},
    {u"mnuDataDummy3", u"-", u""},
    {u"mnuDataPrint", u"ﾊｰﾄﾞ ｺﾋﾟｰ", u""},
    {u"mnuDataDummy4", u"-", u""},
    {u"mnuExitCancel", u"変更を破棄して閉じる", u""},
    {u"mnuDataExit", u"閉じる(&X)", u""},
};

constexpr MenuItemSpec NewDataItems[] = {
    {u"mnuNewDataSave", u"保存", u"Ctrl+N"},
    {u"mnuNewDataCancel", u"破棄して戻る", u"Ctrl+E"},
};

constexpr MenuSpec Menus[] = {
    {u"mnuData", u"納品ﾃﾞｰﾀ(&D)", DataItems},
    {u"mnuNewData", u"新規作成中...", NewDataItems},
};

} // namespace

std::span<const ControlSpec> controls()
{
    return Controls;
}

std::span<const ToolButtonSpec> toolbar1()
{
    return Toolbar1;
}

std::span<const ToolButtonSpec> toolbar2()
{
    return Toolbar2;
}

std::span<const TabSpec> infoTabs()
{
    return InfoTabs;
}

std::span<const MenuSpec> menus()
{
    return Menus;
}

} // namespace tolvinpt::frmdata
