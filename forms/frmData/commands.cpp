// Commands of the entry form: menu items and the toolbar buttons that stand for them.
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "platform/guarded.h"

#include <QAction>

namespace tolvinpt {
namespace {

// A toolbar button does what the menu item of the same meaning does.
struct ToolbarCommand
{
    QStringView key;
    QStringView menuItem;
};
constexpr ToolbarCommand Toolbar1Commands[] = {
    {u"新規作成", u"mnuDataNew"}, {u"変更保存", u"mnuDataSave"},   {u"戻る", u"mnuDataPrevious"},
    {u"進む", u"mnuDataNext"},    {u"分割", u"mnuDataDivide"},     {u"詳細変更", u"mnuDataDetail"},
};
constexpr ToolbarCommand Toolbar2Commands[] = {{u"新規保存", u"mnuNewDataSave"}};

void routeToolbar(KeyedToolBar* toolbar, std::span<const ToolbarCommand> commands, const frmData& form)
{
    QObject::connect(toolbar, &KeyedToolBar::buttonClicked, &form,
                     guarded([&form, commands](const QString& key) {
                         for (const auto& command : commands) {
                             if (command.key == key)
                                 form.menuItem(command.menuItem.toString())->trigger();
                         }
                     }));
}

} // namespace

void frmData::connectCommands()
{
    routeToolbar(m_toolbar1, Toolbar1Commands, *this);
    routeToolbar(m_toolbar2, Toolbar2Commands, *this);
    connect(menuItem(QStringLiteral("mnuDataPrevious")), &QAction::triggered, this,
            &frmData::previousRecordRequested);
    connect(menuItem(QStringLiteral("mnuDataNext")), &QAction::triggered, this, &frmData::nextRecordRequested);
    connect(m_recordList, &RecordListMenu::entryChosen, this, &frmData::recordChosen);
}

} // namespace tolvinpt
