#pragma once

// The entry form's controls, toolbars, tabs and menus as data.

#include "forms/control_row.h"

#include <span>

namespace tolvinpt::frmdata {

constexpr QStringView Caption = u"納品ﾃﾞｰﾀの入力";
// Client area, in twips.
constexpr int ClientWidth = 10245;
constexpr int ClientHeight = 6735;

// Every control of the form; containers come before their contents.
std::span<const ControlSpec> controls();

// Toolbar1 (browse mode) and Toolbar2 (new-record mode), buttons in position order.
std::span<const ToolButtonSpec> toolbar1();
std::span<const ToolButtonSpec> toolbar2();
constexpr QStringView RecordListKey = u"一覧選択";

// The information pages: the tabs of TabStrip1 in order, each with the frame that shows its page.
struct TabSpec
{
    QStringView key; // also the caption
    QStringView tooltip;
    QStringView page;
};
std::span<const TabSpec> infoTabs();

// Top-level menus in order: mnuData (browse mode), mnuNewData (new-record mode).
std::span<const MenuSpec> menus();

} // namespace tolvinpt::frmdata
