// Toolbars by key and position, the record list drop-down, and the menus.
#include "form_fixture.h"
#include "qt_print.h"

#include "forms/frmData/catalogue.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

class ToolbarMenuTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        load();
    }
};

} // namespace

TEST_F(ToolbarMenuTest, Toolbar1ButtonsByPositionAndKey)
{
    KeyedToolBar* bar = form->toolbar1();
    EXPECT_EQ(bar->objectName(), u"Toolbar1"_s);
    const QStringList keys = {u"新規作成"_s, u"変更保存"_s, {},           u"戻る"_s, u"進む"_s, {},
                              u"一覧選択"_s, u"分割"_s,     u"詳細変更"_s};
    ASSERT_EQ(bar->count(), keys.size());
    for (int position = 1; position <= bar->count(); ++position) {
        const QString key = keys[position - 1];
        SCOPED_TRACE(position);
        EXPECT_EQ(bar->keyAt(position), key);
        QToolButton* button = bar->buttonAt(position);
        if (key.isEmpty()) {
            EXPECT_EQ(button, nullptr);
            continue;
        }
        ASSERT_TRUE(button);
        EXPECT_EQ(button->objectName(), key);
        EXPECT_EQ(bar->button(key), button);
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
        EXPECT_FALSE(button->icon().isNull());
        EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    }
    EXPECT_EQ(bar->button(u"分割"_s)->toolTip(), u"数量分割"_s);
    EXPECT_EQ(bar->button(u"一覧選択"_s)->toolTip(), u"一覧 (納品ｷｰ番号) から選択"_s);
    EXPECT_EQ(bar->buttonAt(0), nullptr);
    EXPECT_EQ(bar->buttonAt(10), nullptr);
}

TEST_F(ToolbarMenuTest, ButtonStatesByPosition)
{
    KeyedToolBar* bar = form->toolbar1();
    EXPECT_FALSE(bar->isButtonEnabled(4)) << "戻る is disabled at load";
    for (int position : {1, 8, 9}) {
        bar->setButtonEnabled(position, false);
        EXPECT_FALSE(bar->buttonAt(position)->isEnabled());
        bar->setButtonEnabled(position, true);
        EXPECT_TRUE(bar->isButtonEnabled(position));
    }
    bar->setButtonEnabled(3, false); // a separator: nothing to do
    EXPECT_FALSE(bar->isButtonEnabled(3));

    QSignalSpy clicked(bar, &KeyedToolBar::buttonClicked);
    QTest::mouseClick(bar->button(u"進む"_s), Qt::LeftButton);
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked[0][0].toString(), u"進む"_s);
}

TEST_F(ToolbarMenuTest, Toolbar2HasTheNewSaveButtonAndIsHiddenAtLoad)
{
    KeyedToolBar* bar = form->toolbar2();
    EXPECT_EQ(bar->objectName(), u"Toolbar2"_s);
    ASSERT_EQ(bar->count(), 1);
    EXPECT_EQ(bar->keyAt(1), u"新規保存"_s);
    EXPECT_EQ(bar->buttonAt(1)->toolTip(), u"新規入力ﾃﾞｰﾀの保存"_s);
    EXPECT_TRUE(bar->isHidden());
}

TEST_F(ToolbarMenuTest, RecordListKeepsInsertionOrderAndReportsOneBasedIndices)
{
    QToolButton* button = form->toolbar1()->button(u"一覧選択"_s);
    RecordListMenu* list = form->recordList();
    EXPECT_EQ(button->menu(), list);
    EXPECT_EQ(button->popupMode(), QToolButton::MenuButtonPopup);

    EXPECT_TRUE(list->addEntry(u"30Key"_s, u"K-030"_s));
    EXPECT_TRUE(list->addEntry(u"10Key"_s, u"K-010"_s));
    EXPECT_TRUE(list->addEntry(u"20Key"_s, u"A&B"_s));
    EXPECT_FALSE(list->addEntry(u"10key"_s, u"again"_s)) << "keys are unique regardless of case";
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->keyAt(1), u"30Key"_s);
    EXPECT_EQ(list->keyAt(2), u"10Key"_s);
    EXPECT_EQ(list->textAt(3), u"A&B"_s);
    EXPECT_EQ(list->actions().at(2)->text(), u"A&&B"_s) << "an ampersand is shown, not an access key";
    EXPECT_EQ(list->indexOfKey(u"20KEY"_s), 3);
    EXPECT_EQ(list->indexOfKey(u"99Key"_s), 0);
    EXPECT_EQ(list->keyAt(4), QString());

    EXPECT_TRUE(list->setEntryText(u"10Key"_s, u"K-011"_s));
    EXPECT_EQ(list->textAt(2), u"K-011"_s);
    EXPECT_FALSE(list->setEntryText(u"99Key"_s, u"x"_s));

    QSignalSpy chosen(list, &RecordListMenu::entryChosen);
    list->actions().at(1)->trigger();
    list->actions().at(2)->trigger();
    ASSERT_EQ(chosen.size(), 2);
    EXPECT_EQ(chosen[0][0].toInt(), 2);
    EXPECT_EQ(chosen[1][0].toInt(), 3);
}

TEST_F(ToolbarMenuTest, MenusHoldTheirItemsInOrderWithNamedSeparators)
{
    for (const auto& spec : frmdata::menus()) {
        const QString name = spec.name.toString();
        auto* menu = form->findChild<QMenu*>(name);
        ASSERT_TRUE(menu) << name.toStdString();
        EXPECT_EQ(menu->title(), spec.caption.toString());
        EXPECT_EQ(form->menuItem(name), menu->menuAction());
        const auto actions = menu->actions();
        ASSERT_EQ(actions.size(), qsizetype(spec.items.size()));
        for (std::size_t i = 0; i < spec.items.size(); ++i) {
            const auto& item = spec.items[i];
            QAction* action = actions.at(qsizetype(i));
            SCOPED_TRACE(item.name.toString().toStdString());
            EXPECT_EQ(action->objectName(), item.name.toString());
            EXPECT_EQ(form->menuItem(item.name.toString()), action);
            EXPECT_EQ(action->isSeparator(), item.caption == u"-");
            if (!action->isSeparator()) {
                EXPECT_EQ(action->text(), item.caption.toString());
            }
        }
    }
    // The designed captions and shortcuts, stated once more where they matter to the operator.
    EXPECT_EQ(form->menuItem(u"mnuData"_s)->text(), u"納品ﾃﾞｰﾀ(&D)"_s);
    EXPECT_EQ(form->menuItem(u"mnuNewData"_s)->text(), u"新規作成中..."_s);
    EXPECT_EQ(form->menuItem(u"mnuDataSave"_s)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_S));
    EXPECT_EQ(form->menuItem(u"mnuNewDataSave"_s)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_N));
    EXPECT_EQ(form->menuItem(u"mnuNewDataCancel"_s)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_TRUE(form->menuItem(u"mnuDataNew"_s)->shortcut().isEmpty());
    EXPECT_EQ(form->menuItem(u"mnuDataNext"_s)->text(), u"次へ(&N)"_s);
    EXPECT_TRUE(form->menuItem(u"mnuDataDummy3"_s)->isSeparator());
}

TEST_F(ToolbarMenuTest, ShortcutsOfTheHiddenModeMenuDoNothing)
{
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    QSignalSpy save(form->menuItem(u"mnuDataSave"_s), &QAction::triggered);
    QSignalSpy newSave(form->menuItem(u"mnuNewDataSave"_s), &QAction::triggered);

    QTest::keyClick(form.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(newSave.size(), 0) << "browse mode";
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(save.size(), 1);

    form->gNewStart();
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(save.size(), 1) << "new-record mode";
    QTest::keyClick(form.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(newSave.size(), 1);
}
