// Hostile operator input: every string of the corpus is typed (one key or input-method commit per
// character) and pasted (clipboard and Ctrl+V) into every editable field of the entry form, in browse
// mode with the order fields opened and in new-record mode, and of the split dialog and the package
// editor; then the field is left with Tab, the record saved and read back from the database. Each case
// must either be refused with the field's own messages, leaving the database as it was, or store exactly
// what the field's rule makes of the input, with nothing else in the record changed. The package grid's
// cells (package rows 1, 50 and 100) get the same strings through the grid and its cell editor, left by
// Enter, Tab or an arrow; the editor is closed with "戻る" and the packages stored are checked too.
//   tolvinpt-hostile-input [PER_CLASS]   (offscreen; default: the whole corpus; n: n strings a class;
//   HOSTILE_SLICE=K/N: every N-th string from the K-th)
#include "campaigns/campaign_data.h"
#include "campaigns/hostile_corpus.h"
#include "campaigns/hostile_rules.h"
#include "campaigns/operator_robot.h"
#include "tests/support/fake_host.h"
#include "tests/support/operator_input.h"
#include "tests/support/temp_database.h"

#include <tolvinpt/fmInput.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTabBar>
#include <QTest>

#include <QAbstractItemView>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numeric>

using namespace tolvinpt;
using namespace tolvinpt::campaign;
using namespace Qt::StringLiterals;

namespace {

using Row = QHash<QString, QVariant>;

// Columns whose stored value is a number, whatever its text.
const QSet<QString> NumberColumns = {u"F00015"_s, u"F00032"_s, u"F00036"_s, u"Quantity"_s, u"QuantityType"_s};

enum class Window { Browse, NewRecord, Split, PackageEditor, PackageGrid };
constexpr const char* WindowNames[] = {"entry form, browse mode", "entry form, new-record mode",
                                       "split dialog", "package editor", "package editor's grid"};
constexpr int Windows = 5;

struct Tally
{
    int cases = 0, refused = 0, stored = 0, unchanged = 0, violations = 0;
};

QLineEdit* lineEdit(QWidget& window, const QString& name)
{
    if (auto* combo = window.findChild<QComboBox*>(name))
        return combo->lineEdit();
    return window.findChild<QLineEdit*>(name);
}

// The window is the active one, so that the focus moves as the operator moves it.
void activate(QWidget& window)
{
    if (window.isActiveWindow())
        return;
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        std::fprintf(stderr, "%s does not become the active window\n", qPrintable(window.windowTitle()));
}

// The platform's question before it sends input-method text to a widget.
bool takesInputMethod(QWidget* widget)
{
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(widget, &query);
    return query.value(Qt::ImEnabled).toBool();
}

// One key for each character a keyboard sends, an input-method commit for each other one when the widget
// takes an input method; into the focus widget (which moves to a cell's editor as it opens) unless `into`.
void typeKeys(const QString& text, QWidget* into = nullptr)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const QString piece = text.mid(i, pair ? 2 : 1);
        const char32_t c = pair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode();
        i += pair ? 1 : 0;
        QWidget* target = into ? into : QApplication::focusWidget();
        if (keyboardTypes(c)) {
            QTest::sendKeyEvent(QTest::Click, target, c < 0x80 ? QTest::asciiToKey(char(c)) : Qt::Key_unknown,
                                piece, Qt::NoModifier);
        } else if (takesInputMethod(target)) {
            QInputMethodEvent commit;
            commit.setCommitString(piece);
            QApplication::sendEvent(target, &commit);
        }
    }
}

// The operator's hands on `field`: all of its text selected, then `text` typed or pasted over it.
void enter(QWidget& window, const Field& field, const QString& text, bool typed)
{
    activate(window);
    QLineEdit* edit = lineEdit(window, field.name);
    edit->setFocus();
    edit->selectAll();
    if (!typed) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
        return;
    }
    typeKeys(text, edit);
}

// Tab, as the operator leaves a field; false when the field kept the focus (its value was refused).
bool leave(QWidget& window, const Field& field)
{
    QLineEdit* edit = lineEdit(window, field.name);
    QTest::keyClick(edit, Qt::Key_Tab);
    // The window's own focus: a message box may have left another window active.
    const QWidget* focus = window.focusWidget();
    return focus != edit && focus != edit->parentWidget();
}

bool sameValue(const QString& column, const QVariant& actual, const QVariant& wanted)
{
    if (actual.isNull() || wanted.isNull())
        return actual.isNull() && wanted.isNull();
    if (NumberColumns.contains(column)) {
        bool ok1 = false, ok2 = false;
        const double a = actual.toString().toDouble(&ok1), w = wanted.toString().toDouble(&ok2);
        return ok1 && ok2 && std::abs(a - w) <= 1e-9 * std::max(1.0, std::abs(w));
    }
    return actual.toString() == wanted.toString();
}

// The package grid as its rules state it, in thousandths: a move of the active cell from an empty package
// empties the rows below it and a move downwards from it is taken back; a click below a gap lands on the
// first empty row after the packages. `changed` is any cell changed since the editor opened.
struct GridModel
{
    static constexpr int Rows = 100;
    std::array<qint64, Rows> rows{};
    int current = 0;
    bool changed = false;

    void write(int row, qint64 value)
    {
        changed = changed || rows[std::size_t(row)] != value;
        rows[std::size_t(row)] = value;
    }
    void moveTo(int row)
    {
        row = std::clamp(row, 0, Rows - 1);
        if (row != current && rows[std::size_t(current)] == 0) {
            for (int below = current; below < Rows; ++below)
                write(below, 0);
            if (row > current)
                return;
        }
        current = row;
    }
    void click(int row)
    {
        moveTo(row);
        while (row >= 1 && rows[std::size_t(row - 1)] == 0)
            --row;
        moveTo(row);
    }
    void paste(const QString& text)
    {
        const QStringList lines = pastedLines(text);
        if (current + lines.size() > Rows)
            return;
        for (qsizetype i = 0; i < lines.size(); ++i)
            write(current + int(i), packageCell(lines[i]));
    }
    qint64 total() const { return std::accumulate(rows.cbegin(), rows.cend(), qint64(0)); }
    // Three decimals; an empty package shows nothing.
    static QString shown(qint64 value)
    {
        return value == 0 ? QString() : u"%1.%2"_s.arg(value / 1000).arg(value % 1000, 3, 10, QChar(u'0'));
    }
};

// How the operator reaches and leaves each grid cell of packageGridFields(): the packages the equal split
// lays out first, the paste (Ctrl+V on the grid, or into the cell opened with F2) and the key that ends it.
struct GridCell
{
    int row;
    const char16_t* equalSplit;
    bool pasteIntoEditor;
    Qt::Key commit;
};
constexpr GridCell GridCells[] = {
    {0, u"5", false, Qt::Key_Return}, {49, u"0.1", true, Qt::Key_Tab}, {99, u"0.1", false, Qt::Key_Up}};
constexpr qint64 DeliveryThousandths = 10000;

class Campaign
{
public:
    Campaign()
    {
        host.connectionName = temp.connectionName();
        host.customers = {{.id = 1, .code = u"1234"_s, .name = u"東京電機"_s}};
        test::registerFakeHost(host);
        // Thousands of saves: durability is not what this campaign proves.
        exec(u"PRAGMA synchronous = OFF"_s, {});
        for (int n = 0; n < 2; ++n) {
            ids.append(addDeliveryRecord(temp.db(), n));
            exec(u"UPDATE T_Delivery SET F00022 = 'HINMEI', F00164 = 'REM', F00032 = 10, QuantityType = 1, "
                 u"Quantity = '10' WHERE IDData = ?"_s,
                 {ids.back()});
        }
    }

    void run(const QList<HostileString>& corpus)
    {
        m_corpus = corpus;
        robot.when(EntryFormTitle, [this](QWidget& form) {
            calibrate(form);
            for (const Field& field : entryFormFields())
                forEachCase(Window::Browse, field, [&](const Field& f, const HostileString& s, bool typed) {
                    browseCase(form, f, s, typed);
                });
            for (const Field& field : splitDialogFields())
                forEachCase(Window::Split, field, [&](const Field& f, const HostileString& s, bool typed) {
                    splitCase(form, f, s, typed);
                });
            for (const Field& field : packageEditorFields())
                forEachCase(Window::PackageEditor, field,
                            [&](const Field& f, const HostileString& s, bool typed) { packageCase(form, f, s, typed); });
            for (std::size_t cell = 0; cell < packageGridFields().size(); ++cell)
                forEachCase(Window::PackageGrid, packageGridFields()[cell],
                            [&](const Field&, const HostileString& s, bool typed) {
                                gridCase(form, cell, s, typed);
                            });
            calibrateNewRecord(form);
            for (const Field& field : entryFormFields())
                forEachCase(Window::NewRecord, field, [&](const Field& f, const HostileString& s, bool typed) {
                    newRecordCase(form, f, s, typed);
                });
            OperatorRobot::run(form, u"mnuExitCancel"_s);
        });
        try {
            fmInput input;
            Items items{ListKey(ids[0]), ListKey(ids[1])};
            input.InputData(items);
        } catch (const Error& e) {
            std::fprintf(stderr, "the entry call failed: %s (%ld)\n", qPrintable(e.description()), e.number());
            ++tallies[0].violations;
        }
    }

    Tally tallies[Windows];
    int notEditable = 0;

private:
    template <class Case> void forEachCase(Window window, const Field& field, Case act)
    {
        for (const HostileString& string : m_corpus)
            for (const bool typed : {true, false}) {
                m_window = window;
                m_string = &string;
                m_typed = typed;
                m_field = &field;
                act(field, string, typed);
            }
    }

    // Saves both records once through the form, so that every column holds what the form writes.
    void calibrate(QWidget& form)
    {
        for (int n = 0; n < 2; ++n) {
            OperatorRobot::type(form, u"txtMyRemarksA"_s, u"REMX"_s);
            OperatorRobot::run(form, u"mnuDataSave"_s);
            OperatorRobot::type(form, u"txtMyRemarksA"_s, u"REM"_s);
            OperatorRobot::run(form, u"mnuDataSave"_s);
            pristine[n] = readRow(ids[n]);
            OperatorRobot::run(form, n == 0 ? u"mnuDataNext"_s : u"mnuDataPrevious"_s);
        }
        robot.takeMessages();
        m_current = 0;
    }

    void calibrateNewRecord(QWidget& form)
    {
        OperatorRobot::run(form, u"mnuDataNew"_s);
        typeNewRecord(form);
        OperatorRobot::run(form, u"mnuNewDataSave"_s);
        const QList<qint64> added = addedIds();
        if (added.size() == 1)
            newRecord = readRow(added[0]);
        else
            std::fprintf(stderr, "the new record of the campaign was not stored: %s\n",
                         qPrintable(robot.takeMessages().join(u" / ")));
        robot.takeMessages();
        restore();
    }

    // Typed and left with Tab, field after field, as the operator enters a new record.
    static void typeNewRecord(QWidget& form)
    {
        const std::pair<const char16_t*, const char16_t*> values[] = {
            {u"txtOrderNo", u"NEW-ORD"},       {u"txtPaymentKeyNo", u"NEW-KEY"}, {u"txtHCode", u"HC-1"},
            {u"txtAmountOrder", u"10"},        {u"txtAmountDelivery", u"10"},    {u"txtDate(0)", u"20050301"},
            {u"txtDate(1)", u"20050307"},      {u"txtUnitPrice", u"100"}};
        activate(form);
        for (const auto& [field, value] : values) {
            OperatorRobot::type(form, QString::fromUtf16(field), QString::fromUtf16(value));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
    }

    // Opens what the field needs: the order fields, the information page it is on, the equal split.
    bool prepare(QWidget& form, const Field& field)
    {
        QLineEdit* edit = lineEdit(form, field.name);
        if (edit->isReadOnly())
            OperatorRobot::run(form, u"mnuDataDetail"_s);
        if (field.name == u"txtQuantity")
            OperatorRobot::press(form, u"optQuantity(2)"_s);
        if (!edit->isVisible()) {
            auto* tabs = form.findChild<QTabBar*>(u"TabStrip1"_s);
            tabs->setCurrentIndex(1 - tabs->currentIndex());
        }
        if (edit->isReadOnly() || !edit->isEnabled() || !edit->isVisible()) {
            ++notEditable;
            return false;
        }
        return true;
    }

    Around aroundRecord(int n) const
    {
        Around around;
        around.sourceKey = pristine[n].value(u"F00159"_s).toString();
        return around;
    }

    void browseCase(QWidget& form, const Field& field, const HostileString& string, bool typed)
    {
        if (!prepare(form, field))
            return;
        const QString before = lineEdit(form, field.name)->text();
        robot.takeMessages();
        enter(form, field, string.text, typed);
        if (!checkEntry(form, field, before, string.text, typed))
            return leaveRecord(form);
        const Outcome expected = expectedOutcome(field, lineEdit(form, field.name)->text(), aroundRecord(m_current));
        if (leave(form, field))
            OperatorRobot::run(form, u"mnuDataSave"_s);
        judge(expected, robot.takeMessages(), {{ids[m_current], pristine[m_current]}}, {});
        leaveRecord(form);
    }

    void newRecordCase(QWidget& form, const Field& field, const HostileString& string, bool typed)
    {
        OperatorRobot::run(form, u"mnuDataNew"_s);
        typeNewRecord(form);
        if (!prepare(form, field))
            return restore();
        const QString before = lineEdit(form, field.name)->text();
        robot.takeMessages();
        enter(form, field, string.text, typed);
        if (checkEntry(form, field, before, string.text, typed)) {
            Around around;
            around.deliveryDate.clear();
            around.itemName = false;
            const Outcome expected = expectedOutcome(field, lineEdit(form, field.name)->text(), around);
            if (leave(form, field))
                OperatorRobot::run(form, u"mnuNewDataSave"_s);
            judge(expected, robot.takeMessages(), {}, newRecord);
        }
        // Still in new-record mode after a refusal: drop what was typed.
        if (form.findChild<QAbstractButton*>(u"chkNew"_s)->isChecked())
            OperatorRobot::run(form, u"mnuNewDataCancel"_s);
        restore();
    }

    void splitCase(QWidget& form, const Field& field, const HostileString& string, bool typed)
    {
        bool entryAsModelled = true;
        Outcome expected;
        QStringList shown;
        robot.when(SplitDialogTitle, [&](QWidget& dialog) {
            const bool keyCase = field.rule == Rule::SplitKey;
            const Field other = splitDialogFields()[keyCase ? 1 : 0];
            enter(dialog, other, keyCase ? u"1"_s : u"SPLIT"_s, true);
            const QString before = lineEdit(dialog, field.name)->text();
            robot.takeMessages();
            enter(dialog, field, string.text, typed);
            entryAsModelled = checkEntry(dialog, field, before, string.text, typed);
            expected = expectedOutcome(field, lineEdit(dialog, field.name)->text(), aroundRecord(m_current));
            if (keyCase)
                expected.stored.insert(u"F00036"_s, u"1"_s);
            else
                expected.stored.insert(u"F00159"_s, u"SPLIT"_s);
            if (entryAsModelled) {
                leave(dialog, field);
                OperatorRobot::press(dialog, u"cmdAny(0)"_s);
                shown = robot.takeMessages();
            }
            if (dialog.isVisible())
                OperatorRobot::press(dialog, u"cmdAny(1)"_s);
        });
        robot.takeMessages();
        OperatorRobot::run(form, u"mnuDataDivide"_s);
        if (entryAsModelled) {
            // The source keeps the rest; the new record is the source with its own key and quantity.
            const double moved = expected.stored.value(u"F00036"_s).toString().toDouble();
            Outcome sourceOutcome = expected;
            sourceOutcome.stored = {{u"F00036"_s, QString::number(10.0 - moved, 'f', 4)}};
            judgeSplit(expected, sourceOutcome, shown + robot.takeMessages());
        }
        leaveRecord(form);
    }

    void packageCase(QWidget& form, const Field& field, const HostileString& string, bool typed)
    {
        bool entryAsModelled = true, refused = false;
        Outcome expected;
        robot.when(PackageEditorTitle, [&](QWidget& dialog) {
            const QString before = lineEdit(dialog, field.name)->text();
            robot.takeMessages();
            enter(dialog, field, string.text, typed);
            entryAsModelled = checkEntry(dialog, field, before, string.text, typed);
            expected = expectedOutcome(field, lineEdit(dialog, field.name)->text(), aroundRecord(m_current));
            refused = entryAsModelled && !leave(dialog, field);
            OperatorRobot::press(dialog, u"戻る"_s);
        });
        OperatorRobot::press(form, u"optQuantity(3)"_s);
        robot.takeMessages();
        OperatorRobot::press(form, u"cmdQuantity"_s);
        if (entryAsModelled) {
            // A refused value is not saved: the operator was told.
            if (!refused)
                OperatorRobot::run(form, u"mnuDataSave"_s);
            judge(expected, robot.takeMessages(), {{ids[m_current], pristine[m_current]}}, {});
            const int packages = scalar(u"SELECT COUNT(*) FROM T_DeliveryQTY WHERE IDData = ? AND Sequence = 1 "
                                        u"AND CAST(Quantity AS REAL) = 10"_s,
                                        ids[m_current]);
            const int all = scalar(u"SELECT COUNT(*) FROM T_DeliveryQTY"_s, {});
            if (!expected.refused && (packages != 1 || all != 1))
                violation(u"the package rows are not the one package of 10"_s);
        }
        leaveRecord(form);
    }

    // A package cell of the grid: the packages laid out by an equal split, the cell clicked, the string
    // typed or pasted and the cell left; then the operator makes the total meet the delivery quantity in
    // the first empty row when it falls short, and closes with "戻る", Yes (No after the mismatch).
    void gridCase(QWidget& form, std::size_t index, const HostileString& string, bool typed)
    {
        const GridCell& cell = GridCells[index];
        const Field& field = packageGridFields()[index];
        GridModel model;
        model.write(0, DeliveryThousandths); // the individual option: one package of the delivery quantity
        model.changed = false;
        QStringList shown;
        bool accepted = false, asModelled = false;
        robot.when(PackageEditorTitle, [&](QWidget& dialog) {
            activate(dialog);
            layOut(dialog, model, cell);
            auto* grid = dialog.findChild<QAbstractItemView*>(u"spdQuantity"_s);
            clickCell(grid, model, cell.row);
            asModelled = enterCell(grid, field, cell, model, string.text, typed) && sameGrid(grid, model);
            if (asModelled)
                balance(grid, model);
            robot.takeMessages();
            OperatorRobot::press(dialog, u"戻る"_s);
            accepted = !dialog.isVisible();
            shown = robot.takeMessages();
            if (dialog.isVisible()) {
                robot.answerWith(QMessageBox::No);
                OperatorRobot::press(dialog, u"戻る"_s);
                robot.answerWith(QMessageBox::NoButton);
                shown += robot.takeMessages();
            }
        });
        OperatorRobot::press(form, u"optQuantity(3)"_s);
        robot.takeMessages();
        OperatorRobot::press(form, u"cmdQuantity"_s);
        if (!asModelled)
            return leaveRecord(form);
        const bool meets = model.total() == DeliveryThousandths;
        Outcome expected;
        expected.refused = !meets;
        const QString question = u"変更内容を保存しますか"_s,
                      mismatch = u"入数の合計が納入数量と一致しません"_s;
        if (model.changed)
            expected.messages << question;
        if (!meets)
            expected.messages << mismatch;
        else
            expected.stored = {{u"QuantityType"_s, u"3"_s},
                               {u"Quantity"_s, QString::fromUtf16(cell.equalSplit)}};
        if (accepted != meets)
            violation(accepted ? u"the editor accepted a total other than the delivery quantity"_s
                               : u"the editor refused packages that add up to the delivery quantity"_s);
        if (accepted)
            OperatorRobot::run(form, u"mnuDataSave"_s);
        judge(expected, shown + robot.takeMessages(), {{ids[m_current], pristine[m_current]}}, {});
        checkPackages(meets ? model.rows : GridModel{}.rows);
        leaveRecord(form);
    }

    // Equal split by `cell.equalSplit`, typed into txtEquality and run by Enter.
    void layOut(QWidget& dialog, GridModel& model, const GridCell& cell)
    {
        OperatorRobot::type(dialog, u"txtEquality"_s, QString::fromUtf16(cell.equalSplit));
        QTest::keyClick(lineEdit(dialog, u"txtEquality"_s), Qt::Key_Return);
        const qint64 each = QString::fromUtf16(cell.equalSplit).toDouble() * 1000 + 0.5;
        int row = 0;
        for (; row < DeliveryThousandths / each; ++row)
            model.write(row, each);
        for (; row < GridModel::Rows && model.rows[std::size_t(row)] != 0; ++row)
            model.write(row, 0);
        model.current = 0;
    }

    static void clickCell(QAbstractItemView* grid, GridModel& model, int row)
    {
        const QModelIndex index = grid->model()->index(row, 0);
        grid->scrollTo(index);
        test::clickThrough(grid->viewport(), grid->visualRect(index).center());
        model.click(row);
    }

    // The string into the active cell, then the cell's commit key; false when the cell's editor did not
    // hold what the rules give.
    bool enterCell(QAbstractItemView* grid, const Field& field, const GridCell& cell, GridModel& model,
                   const QString& text, bool typed)
    {
        const QString before = GridModel::shown(model.rows[std::size_t(model.current)]);
        QString box;
        bool editing = false;
        if (typed) {
            typeKeys(text);
            box = entered(field, before, text, true);
            editing = !entered(field, QString(), text, true).isEmpty();
        } else {
            QGuiApplication::clipboard()->setText(text);
            if (cell.pasteIntoEditor)
                QTest::keyClick(grid, Qt::Key_F2);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
            editing = cell.pasteIntoEditor && !text.contains(u'\n');
            box = text; // the clipboard replaces the selected text of the opened cell
            if (!editing)
                model.paste(text);
        }
        auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        const bool inCell = editor && editor->parentWidget() == grid->viewport();
        if (inCell != editing || (editing && editor->text() != box)) {
            violation(u"the cell %1, the entry rules give %2"_s.arg(
                inCell ? u"holds "_s + visible(editor->text()) : u"is not being edited"_s,
                editing ? visible(box) : u"no edit"_s));
            return false;
        }
        QTest::keyClick(QApplication::focusWidget(), cell.commit);
        if (editing)
            model.write(model.current, packageCell(box));
        if (cell.commit != Qt::Key_Tab)
            model.moveTo(model.current + (cell.commit == Qt::Key_Up ? -1 : 1));
        return true;
    }

    // The grid's rows and active row against the model.
    bool sameGrid(QAbstractItemView* grid, const GridModel& model)
    {
        for (int row = 0; row < GridModel::Rows; ++row) {
            const QString cell = grid->model()->index(row, 0).data().toString();
            if (cell != GridModel::shown(model.rows[std::size_t(row)])) {
                violation(u"package row %1 shows %2, the rules give %3"_s.arg(row + 1).arg(
                    visible(cell), visible(GridModel::shown(model.rows[std::size_t(row)]))));
                return false;
            }
        }
        if (grid->currentIndex().row() != model.current) {
            violation(u"the active row is %1, the rules give %2"_s.arg(grid->currentIndex().row() + 1)
                          .arg(model.current + 1));
            return false;
        }
        return true;
    }

    // What the total lacks, typed into the first empty row, when there is one.
    static void balance(QAbstractItemView* grid, GridModel& model)
    {
        const auto empty = std::find(model.rows.cbegin(), model.rows.cend(), 0);
        if (model.total() >= DeliveryThousandths || empty == model.rows.cend())
            return;
        clickCell(grid, model, int(empty - model.rows.cbegin()));
        const qint64 lacking = DeliveryThousandths - model.total();
        if (lacking <= 0 || model.rows[std::size_t(model.current)] != 0)
            return;
        test::typeText(GridModel::shown(lacking));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        model.write(model.current, lacking);
        model.moveTo(model.current + 1);
    }

    // The package rows in the database: those of `rows` (in thousandths, the empty ones left out), in
    // order from Sequence 1, for the current record only.
    void checkPackages(const std::array<qint64, GridModel::Rows>& rows)
    {
        QStringList expected, actual;
        for (const qint64 value : rows)
            if (value != 0)
                expected << u"%1:%2:%3"_s.arg(ids[m_current]).arg(expected.size() + 1).arg(value);
        QSqlQuery query(temp.connection());
        query.exec(u"SELECT IDData, Sequence, Quantity FROM T_DeliveryQTY ORDER BY IDData, Sequence"_s);
        while (query.next())
            actual << u"%1:%2:%3"_s.arg(query.value(0).toLongLong())
                          .arg(query.value(1).toInt())
                          .arg(std::llround(query.value(2).toString().toDouble() * 1000));
        if (actual != expected)
            violation(u"packages stored [%1], expected [%2]"_s.arg(visible(actual.join(u' '), 200),
                                                                   visible(expected.join(u' '), 200)));
    }

    // The field's text after the entry against what the toolkit and the key rules make of the input.
    bool checkEntry(QWidget& window, const Field& field, const QString& before, const QString& input, bool typed)
    {
        const QString box = lineEdit(window, field.name)->text();
        const QString modelled = entered(field, before, input, typed);
        if (box == modelled)
            return true;
        violation(u"the field holds %1, the entry rules give %2"_s.arg(visible(box), visible(modelled)));
        return false;
    }

    // Compares the messages and the database with the outcome: `records` are the records that must be
    // either as they were or as the outcome says; a non-empty `added` is the reference of a new record.
    void judge(const Outcome& expected, const QStringList& shown, const QList<std::pair<qint64, Row>>& records,
               const Row& added)
    {
        Tally& tally = tallies[int(m_window)];
        ++tally.cases;
        const QList<qint64> newIds = addedIds();
        QStringList problems;
        const bool stored = !added.isEmpty() ? newIds.size() == 1 : anyDifference(records);
        if (expected.refused || (expected.databaseMayRefuse && !shown.isEmpty() && !stored)) {
            problems << messageProblems(expected, shown, true);
            for (const auto& [id, row] : records)
                problems << rowDifferences(readRow(id), row, {});
            if (!newIds.isEmpty())
                problems << u"a record was added"_s;
            ++tally.refused;
        } else {
            problems << messageProblems(expected, shown, false);
            for (const auto& [id, row] : records)
                problems << rowDifferences(readRow(id), row, expected.stored);
            if (!added.isEmpty()) {
                if (newIds.size() != 1)
                    problems << u"%1 records added"_s.arg(newIds.size());
                else
                    problems << rowDifferences(readRow(newIds[0]), added, expected.stored);
            }
            ++(stored || !added.isEmpty() ? tally.stored : tally.unchanged);
        }
        problems.removeAll(QString());
        if (!problems.isEmpty())
            violation(problems.join(u"; "_s));
    }

    void judgeSplit(const Outcome& expected, const Outcome& source, const QStringList& shown)
    {
        Tally& tally = tallies[int(m_window)];
        ++tally.cases;
        const QList<qint64> newIds = addedIds();
        QStringList problems;
        if (expected.refused || (expected.databaseMayRefuse && newIds.isEmpty())) {
            problems << messageProblems(expected, shown, true);
            problems << rowDifferences(readRow(ids[m_current]), pristine[m_current], {});
            if (!newIds.isEmpty())
                problems << u"a record was added"_s;
            ++tally.refused;
        } else {
            problems << messageProblems(expected, shown, false);
            problems << rowDifferences(readRow(ids[m_current]), pristine[m_current], source.stored);
            if (newIds.size() != 1)
                problems << u"%1 records added"_s.arg(newIds.size());
            else
                problems << rowDifferences(readRow(newIds[0]), pristine[m_current], expected.stored);
            ++tally.stored;
        }
        problems.removeAll(QString());
        if (!problems.isEmpty())
            violation(problems.join(u"; "_s));
    }

    // Refused: at least one message, each one of the field's own. Stored: exactly the expected ones.
    static QString messageProblems(const Outcome& expected, const QStringList& shown, bool refused)
    {
        if (refused && shown.isEmpty())
            return u"refused without a message"_s;
        if (refused) {
            for (const QString& message : shown)
                if (!expected.messages.contains(message) && !expected.databaseMayRefuse)
                    return u"message %1"_s.arg(visible(message, 200));
            return {};
        }
        if (QSet<QString>(shown.cbegin(), shown.cend()) ==
            QSet<QString>(expected.messages.cbegin(), expected.messages.cend()))
            return {};
        return u"messages [%1], expected [%2]"_s.arg(visible(shown.join(u" / "), 200),
                                                     visible(expected.messages.join(u" / "), 200));
    }

    bool anyDifference(const QList<std::pair<qint64, Row>>& records)
    {
        for (const auto& [id, row] : records)
            if (!rowDifferences(readRow(id), row, {}).isEmpty())
                return true;
        return false;
    }

    static QString rowDifferences(const Row& actual, const Row& reference, const QHash<QString, QVariant>& expected)
    {
        QStringList differences;
        for (auto it = actual.cbegin(); it != actual.cend(); ++it) {
            if (it.key() == u"IDData")
                continue;
            const QVariant wanted = expected.contains(it.key()) ? expected.value(it.key()) : reference.value(it.key());
            if (!sameValue(it.key(), it.value(), wanted))
                differences << u"%1 is %2, expected %3"_s.arg(it.key(), visible(it.value().toString()),
                                                              visible(wanted.toString()));
        }
        return differences.join(u", "_s);
    }

    void violation(const QString& what)
    {
        ++tallies[int(m_window)].violations;
        if (++m_reported <= m_reportLimit)
            std::fprintf(stderr, "%s, %s, %s, %s %s: %s\n", WindowNames[int(m_window)], qPrintable(m_field->name),
                         qPrintable(m_string->kind), m_typed ? "typed" : "pasted", qPrintable(visible(m_string->text)),
                         qPrintable(what));
    }

    // Back to the other record, the one just left as it was stored before the case.
    void leaveRecord(QWidget& form)
    {
        robot.answerWith(QMessageBox::No);
        OperatorRobot::run(form, m_current == 0 ? u"mnuDataNext"_s : u"mnuDataPrevious"_s);
        robot.answerWith(QMessageBox::NoButton);
        robot.takeMessages();
        restore();
        m_current = 1 - m_current;
    }

    // Both records as calibrated, no other record, no packages.
    void restore()
    {
        exec(u"DELETE FROM T_Delivery WHERE IDData NOT IN (?, ?)"_s, {ids[0], ids[1]});
        exec(u"DELETE FROM T_DeliveryQTY"_s, {});
        for (int n = 0; n < 2; ++n) {
            if (pristine[n].isEmpty())
                continue;
            QStringList assignments;
            QVariantList values;
            for (auto it = pristine[n].cbegin(); it != pristine[n].cend(); ++it) {
                if (it.key() == u"IDData")
                    continue;
                assignments << it.key() + u" = ?"_s;
                values << it.value();
            }
            values << ids[n];
            exec(u"UPDATE T_Delivery SET "_s + assignments.join(u", "_s) + u" WHERE IDData = ?"_s, values);
        }
    }

    QList<qint64> addedIds()
    {
        QList<qint64> added;
        QSqlQuery query(temp.connection());
        query.prepare(u"SELECT IDData FROM T_Delivery WHERE IDData NOT IN (?, ?)"_s);
        query.addBindValue(ids[0]);
        query.addBindValue(ids[1]);
        query.exec();
        while (query.next())
            added.append(query.value(0).toLongLong());
        return added;
    }

    Row readRow(qint64 id)
    {
        QSqlQuery query(temp.connection());
        query.prepare(u"SELECT * FROM T_Delivery WHERE IDData = ?"_s);
        query.addBindValue(id);
        Row row;
        if (query.exec() && query.next())
            for (int c = 0; c < query.record().count(); ++c)
                row.insert(query.record().fieldName(c), query.value(c));
        return row;
    }

    int scalar(const QString& sql, const QVariant& value)
    {
        QSqlQuery query(temp.connection());
        query.prepare(sql);
        if (value.isValid())
            query.addBindValue(value);
        return query.exec() && query.next() ? query.value(0).toInt() : -1;
    }

    void exec(const QString& sql, const QVariantList& values)
    {
        QSqlQuery query(temp.connection());
        query.prepare(sql);
        for (const QVariant& value : values)
            query.addBindValue(value);
        if (!query.exec())
            std::fprintf(stderr, "campaign statement failed: %s\n", qPrintable(sql));
    }

    test::TempDatabase temp;
    test::FakeHostData host;
    OperatorRobot robot;
    QList<qint64> ids;
    Row pristine[2];
    Row newRecord;
    int m_current = 0;
    int m_reported = 0;
    int m_reportLimit = qEnvironmentVariableIntValue("HOSTILE_REPORT_LIMIT") > 0 ? qEnvironmentVariableIntValue("HOSTILE_REPORT_LIMIT") : 60;
    QList<HostileString> m_corpus;
    Window m_window = Window::Browse;
    const HostileString* m_string = nullptr;
    const Field* m_field = nullptr;
    bool m_typed = false;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int perClass = argc > 1 ? std::atoi(argv[1]) : 0;
    QList<HostileString> corpus = hostileCorpus(perClass);
    // HOSTILE_SLICE=K/N keeps every N-th string from the K-th (from 0): the corpus over N processes.
    const QStringList slice = qEnvironmentVariable("HOSTILE_SLICE").split(u'/');
    if (const int parts = slice.value(1).toInt(); parts > 1) {
        QList<HostileString> kept;
        for (qsizetype i = slice[0].toInt(); i < corpus.size(); i += parts)
            kept << corpus[i];
        corpus = kept;
    }
    Campaign campaign;
    campaign.run(corpus);
    const std::size_t fields[] = {entryFormFields().size(), entryFormFields().size(),
                                  splitDialogFields().size(), packageEditorFields().size(),
                                  packageGridFields().size()};
    int violations = 0;
    std::printf("%lld hostile strings, typed and pasted\n", qlonglong(corpus.size()));
    for (int w = 0; w < Windows; ++w) {
        const Tally& t = campaign.tallies[w];
        std::printf("%-28s %2zu fields x %lld strings x 2 = %5d cases: %5d refused with the field's message, "
                    "%5d stored as the rule says, %4d left the record as it was, %d violations\n",
                    WindowNames[w], fields[w], qlonglong(corpus.size()), t.cases, t.refused, t.stored, t.unchanged,
                    t.violations);
        violations += t.violations;
    }
    if (campaign.notEditable > 0)
        std::printf("%d cases skipped: the field could not be opened for editing\n", campaign.notEditable);
    return violations == 0 ? 0 : 1;
}
