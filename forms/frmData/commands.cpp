// Commands of the entry form: the menu items, the toolbar buttons that stand for them, the record list,
// leaving new-record mode and closing.
#include "forms/frmData/catalogue.h"
#include "forms/frmData/entry_link.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "platform/sql/database.h"
#include "platform/widgets/field_state.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/validate_on_leave.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QPushButton>
#include <QToolButton>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr QStringView LeaveQuestion = u"内容が変更されています\r\n\r\n変更内容を保存しますか";
constexpr QStringView LeaveTitle = u"変更保存...";

// A command: its menu item, the toolbar button that does the same (none for most), and the procedure.
// Print comes later; until then its item does nothing.
struct Command
{
    QStringView menuItem;
    QStringView toolbarKey;
    void (frmData::*run)();
};
constexpr Command Commands[] = {
    {u"mnuDataNew", u"新規作成", &frmData::mnuDataNew_Click},
    {u"mnuDataSave", u"変更保存", &frmData::mnuDataSave_Click},
    {u"mnuDataPrevious", u"戻る", &frmData::mnuDataPrevious_Click},
    {u"mnuDataNext", u"進む", &frmData::mnuDataNext_Click},
    {u"mnuDataDivide", u"分割", &frmData::mnuDataDivide_Click},
    {u"mnuDataDetail", u"詳細変更", &frmData::mnuDataDetail_Click},
    {u"mnuExitCancel", u"", &frmData::mnuExitCancel_Click},
    {u"mnuDataExit", u"", &frmData::mnuDataExit_Click},
    {u"mnuNewDataSave", u"新規保存", &frmData::mnuNewDataSave_Click},
    {u"mnuNewDataCancel", u"", &frmData::mnuNewDataCancel_Click},
};

// Opens the record list from the keyboard, as clicking the arrow of its button does.
constexpr QStringView RecordListShortcut = u"Ctrl+L";

} // namespace

EntryLink& frmData::link() const
{
    if (!m_link)
        throw std::logic_error("the entry form runs without its entry call");
    return *m_link;
}

void frmData::reportRunTimeError(const db::DatabaseError& error) const
{
    showExclamation(error.operatorText(), windowTitle());
}

void frmData::connectCommands()
{
    // From its menu item (or its own button) a command reports a run-time error to the operator, and
    // the form stays.
    const auto reporting = [this](void (frmData::*run)()) {
        return guarded([this, run] {
            try {
                (this->*run)();
            } catch (const db::DatabaseError& e) {
                reportRunTimeError(e);
            }
        });
    };
    for (const Command& command : Commands)
        connect(menuItem(command.menuItem.toString()), &QAction::triggered, this, reporting(command.run));
    connect(control<QPushButton>(u"cmdFind"_s), &QPushButton::clicked, this,
            reporting(&frmData::cmdFind_Click));
    // The toolbars run the same procedures and go on after a run-time error, saying nothing.
    for (KeyedToolBar* toolbar : {m_toolbar1, m_toolbar2}) {
        connect(toolbar, &KeyedToolBar::buttonClicked, this, guarded([this](const QString& key) {
                    for (const Command& command : Commands) {
                        if (command.toolbarKey != key)
                            continue;
                        try {
                            (this->*command.run)();
                        } catch (const db::DatabaseError&) {
                        }
                    }
                }));
    }
    connect(m_recordList, &RecordListMenu::entryChosen, this, guarded([this](int index) {
                if (ConfirmLeave())
                    emit recordChosen(index);
            }));

    auto* openList = new QAction(this);
    openList->setObjectName(u"actRecordList"_s);
    openList->setShortcut(QKeySequence(RecordListShortcut.toString(), QKeySequence::PortableText));
    addAction(openList);
    connect(openList, &QAction::triggered, this, guarded([this] {
                QToolButton* button = m_toolbar1->button(frmdata::RecordListKey.toString());
                if (m_toolbar1->isVisible() && button->isEnabled())
                    button->showMenu();
            }));
}

bool frmData::ConfirmLeave()
{
    if (!bChanged && !bChangedQTY)
        return true;
    const Message question{LeaveQuestion.toString(), LeaveTitle.toString(), QMessageBox::Question,
                           QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes};
    const auto answer = messages().show(question);
    if (answer == QMessageBox::No)
        return true;
    if (answer != QMessageBox::Yes)
        return false;
    // A value that its field refuses, or a run-time error, keeps the operator on the record.
    try {
        return m_leave->ValidateControls() && CheckInput() && SaveRecord();
    } catch (const db::DatabaseError&) {
        return false;
    }
}

void frmData::mnuDataNew_Click()
{
    if (!ConfirmLeave())
        return;
    gNewStart();
    control(u"cobCustomer"_s)->setFocus();
}

// The form stays on the record; a run-time error ends the command quietly.
void frmData::mnuDataSave_Click()
{
    if (!bChanged && !bChangedQTY)
        return;
    try {
        if (m_leave->ValidateControls() && CheckInput())
            SaveRecord();
    } catch (const db::DatabaseError&) {
    }
}

void frmData::mnuDataPrevious_Click()
{
    if (ConfirmLeave())
        emit previousRecordRequested();
}

void frmData::mnuDataNext_Click()
{
    if (ConfirmLeave())
        emit nextRecordRequested();
}

// Opens the order fields when they are locked, locks them when they are open.
void frmData::mnuDataDetail_Click()
{
    SetDetailEditable(isLocked(control(u"txtOrderNo"_s)));
}

void frmData::mnuExitCancel_Click()
{
    lngResult = 2;
    unload();
}

void frmData::mnuDataExit_Click()
{
    if (ConfirmLeave())
        unload();
}

// Unlike the change save, it neither validates the focused field first nor traps errors.
void frmData::mnuNewDataSave_Click()
{
    if (!bChanged && !bChangedQTY)
        return;
    if (CheckInput() && SaveRecord())
        mnuNewDataCancel_Click();
}

// Leaves new-record mode without asking; what was typed is dropped.
void frmData::mnuNewDataCancel_Click()
{
    control<QCheckBox>(u"chkNew"_s)->setChecked(false);
    ClearEntryForm();
    SetDetailEditable(false);
    control(u"cmdFind"_s)->setEnabled(false);
    showModeControls(false);
    bChanged = false;
    bChangedQTY = false;
    link().newRecordLeft();
}

void frmData::closeEvent(QCloseEvent* event)
{
    guardedCall([&] { Form_QueryUnload(event); });
}

// The close box and every close from outside ask, unless the form is to close without asking.
void frmData::Form_QueryUnload(QCloseEvent* event)
{
    if (lngResult != 2 && !ConfirmLeave()) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

void frmData::unload()
{
    done(QDialog::Rejected);
}

} // namespace tolvinpt
