#pragma once

#include <span>

namespace tolvinpt::host::demo {

// The pieces that the demo delivery records are made of. Half-width texts (the A fields) are in
// half-width katakana, their full-width twins (the K fields) in kanji and full-width kana.

struct Item
{
    const char16_t* buyerCode;    // F00024
    const char16_t* supplierCode; // F00023
    const char16_t* nameA;        // F00022
    const char16_t* nameK;        // F00262
    const char16_t* unit;         // F00012
    int yenPriceMilli;            // unit price in yen, in thousandths
};

struct Place
{
    const char16_t* code;  // F00028
    const char16_t* nameA; // F00160
    const char16_t* nameK; // F00274
};

// A pair of a half-width text and its full-width counterpart (purchasing person, remarks).
struct TextPair
{
    const char16_t* a;
    const char16_t* k;
};

std::span<const Item> items();
std::span<const Place> places();
std::span<const TextPair> purchasers();
std::span<const TextPair> buyerRemarks();
std::span<const TextPair> supplierRemarks();

} // namespace tolvinpt::host::demo
