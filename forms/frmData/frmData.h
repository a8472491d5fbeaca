#pragma once

// The delivery entry form: one delivery record at a time, in browse mode (the host's record list) or
// new-record mode. Its controls are built from forms/frmData/catalogue and found by their names.

#include "forms/form_builder.h"
#include "store/delivery_reads.h"
#include "store/delivery_record.h"

#include <QDialog>

#include <optional>

namespace tolvinpt {

class CompanySettings;
struct DivideRequest;
class EntryLink;
class KeyedToolBar;
class ValidateOnLeave;
class RecordListMenu;
namespace db {
class DatabaseError;
}

class frmData final : public QDialog
{
    Q_OBJECT

public:
    // Builds the form and runs its load: own-company codes, fixed lists, order fields locked, blank
    // record, browse mode. `company` must outlive the form.
    explicit frmData(const CompanySettings& company, QWidget* parent = nullptr);
    ~frmData() override;

    // Close mode: 2 closes without asking, any other value asks first; 7 after load.
    qint32 lngResult = 0;
    // The record has changed since it was shown or saved.
    bool bChanged = false;
    // The delivery quantity was typed in since txtAmountDelivery last got the focus.
    bool bChangedAmount = false;
    // The package mode or the per-package quantities changed.
    bool bChangedQTY = false;
    // While true, code is writing a stored currency code and the currency combo does not look it up.
    bool NotSeek = false;
    // The prefix length that cobCurrency_Change keeps for its own nested change; 0 between calls.
    qint16 CurrencyPrefixLength = 0;
    // The stored row and its package rows as the display read them (the rows only where it read them);
    // a save writes only while the database still holds them.
    std::optional<DeliveryRecord> shownRecord;
    std::optional<PackageRows> shownPackages;

    // The running entry call's store, customers and record list; set by the call before the form is
    // shown. The commands that read or write records need it.
    void setEntryLink(EntryLink* link) { m_link = link; }
    EntryLink& link() const;

    // Enters new-record mode on a blank record without pending changes.
    void gNewStart();
    // Blanks the record fields; leaves the company choices, locks, colours, mode and flags alone
    // (its text changes do set the change flags, as typing would).
    void ClearEntryForm();
    // Opens (true) or locks (false) the order fields: lock, background and Tab stop.
    void SetDetailEditable(bool editable);

    // Shows Toolbar1 and mnuData (browse) or Toolbar2 and mnuNewData (new record).
    void showModeControls(bool newRecord);

    // Asked before the record on screen is left: true when it may be left (nothing pending, the
    // operator dropped the changes, or they were saved). Traps run-time errors as "stay".
    bool ConfirmLeave();
    // The checks before every save, with their messages and focus moves; true when the save may go on.
    bool CheckInput();
    // Writes the record in one transaction; true when it was saved, with the flags then cleared. Every
    // failure has been told to the operator, and the form keeps what was typed.
    bool SaveRecord();

    // Divides the record on screen in two (forms/frmData/record_split.cpp): the split dialog, then
    // SplitRecord; the record is shown again from the database whatever came of it.
    void mnuDataDivide_Click();
    // Stores the split that the dialog asked for: true when both records were stored and the new one
    // joined the record list. Every refusal and failure has been told to the operator.
    bool SplitRecord(const DivideRequest& request);

    // Commands (forms/frmData/commands.cpp); the toolbars and the menus run them.
    void mnuDataNew_Click();
    void mnuDataSave_Click();
    void mnuDataPrevious_Click();
    void mnuDataNext_Click();
    void mnuDataDetail_Click();
    void mnuExitCancel_Click();
    void mnuDataExit_Click();
    void mnuNewDataSave_Click();
    void mnuNewDataCancel_Click();
    // The order-number search of new-record mode.
    void cmdFind_Click();
    // A run-time error that a command does not trap, as the operator sees it: "description (number)".
    void reportRunTimeError(const db::DatabaseError& error) const;

    // Selects optQuantity(index) (1..3) and runs its click handling, even when it was selected already.
    void selectPackageMode(int index);
    // The selected package mode: 1, 2 or 3 (0 when none is selected).
    int packageMode() const;

    // Controls by catalogue name ("txtDate(1)"); null for an unknown name or another type.
    QWidget* control(const QString& name) const { return m_controls.value(name); }
    template <class T> T* control(const QString& name) const { return qobject_cast<T*>(control(name)); }
    KeyedToolBar* toolbar1() const { return m_toolbar1; }
    KeyedToolBar* toolbar2() const { return m_toolbar2; }
    // The drop-down of the Toolbar1 button "一覧選択".
    RecordListMenu* recordList() const { return m_recordList; }
    // Menu items and separators by name; the top-level menus by theirs (their menu action).
    QAction* menuItem(const QString& name) const { return m_menuItems.value(name); }
    // The form's validate-on-leave mechanism: field rules hang their Validate and GotFocus on it.
    ValidateOnLeave& leave() const { return *m_leave; }
    const CompanySettings& company() const { return m_company; }

    // Click handling that other commands run as procedures.
    void TabStrip1_Click();
    void cobMyCodes_Click();

    // Field handlers that other procedures run (forms/frmData/*_rules.cpp).
    // Checks and reformats the unit price for the currency shown; `cancel` refuses a price too large.
    void txtUnitPrice_Validate(bool& cancel);
    void cobCurrency_Change();
    void cobCurrency_Click();
    void cobCustomer_Click();
    void txtMyCode_Change();

signals:
    // Record movement asked for by the operator (toolbar, menu, record list); the entry procedure moves.
    void previousRecordRequested();
    void nextRecordRequested();
    void recordChosen(int position);

protected:
    // The form has no cancel button: Escape closes nothing.
    void keyPressEvent(QKeyEvent* event) override;
    // The close box and any close from outside ask first (Form_QueryUnload).
    void closeEvent(QCloseEvent* event) override;

private:
    void escapeClosesNothing(QKeyEvent* event);
    void buildChrome();
    void Form_Load();
    void fillOwnCodes();
    void fillFixedLists();
    void connectChangeFlags();
    void installFieldRules();
    void connectCommands();
    void optQuantity_Click(int index);
    void Form_QueryUnload(QCloseEvent* event);
    // Closes the form as the component's own code does: nothing is asked.
    void unload();

    const CompanySettings& m_company;
    ControlMap m_controls;
    QHash<QString, QAction*> m_menuItems;
    KeyedToolBar* m_toolbar1 = nullptr;
    KeyedToolBar* m_toolbar2 = nullptr;
    RecordListMenu* m_recordList = nullptr;
    ValidateOnLeave* m_leave = nullptr;
    EntryLink* m_link = nullptr;
    // True while txtMyCode re-selects cobMyCodes; the combo's click then changes nothing.
    bool MyCodeSyncing = false;
};

} // namespace tolvinpt
