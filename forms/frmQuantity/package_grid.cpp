#include "forms/frmQuantity/package_grid.h"

#include "forms/frmQuantity/package_model.h"
#include "forms/input_mode.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/messages.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr int LastPackageRow = PackageModel::SumRow - 1;

// Number keys only and no input method, as every number field; right-aligned; Enter and Tab end the edit
// the way the grid wants it.
class PackageDelegate final : public QStyledItemDelegate
{
public:
    explicit PackageDelegate(PackageGrid* grid) : QStyledItemDelegate(grid), m_grid(grid) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        guardedCall([editor] {
            if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
                edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
                setKeyPress(edit, numberKey);
                applyInputMode(edit, InputMode::Disabled);
            }
        });
        return editor;
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        return guardedCall([&] { return filter(object, event); }, false);
    }

private:
    bool filter(QObject* object, QEvent* event)
    {
        auto* editor = qobject_cast<QWidget*>(object);
        if (!editor || event->type() != QEvent::KeyPress)
            return QStyledItemDelegate::eventFilter(object, event);
        auto* key = static_cast<QKeyEvent*>(event);
        using After = PackageGrid::AfterEdit;
        if (key->matches(QKeySequence::Paste) && QApplication::clipboard()->text().contains(u'\n')) {
            m_grid->pasteFromEditor(editor);
            return true;
        }
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            m_grid->finishEdit(editor, key->modifiers() & Qt::ShiftModifier ? After::Up : After::Down);
            return true;
        case Qt::Key_Tab:
            m_grid->finishEdit(editor, After::LeaveForward);
            return true;
        case Qt::Key_Backtab:
            m_grid->finishEdit(editor, After::LeaveBackward);
            return true;
        default:
            return QStyledItemDelegate::eventFilter(object, event);
        }
    }

    PackageGrid* m_grid;
};

// The lines of a copied spreadsheet column: the first field of each, without the final line break.
QStringList pastedValues(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    QStringList values = text.split(u'\n');
    for (QString& value : values)
        value = value.section(u'\t', 0, 0);
    return values;
}

} // namespace

PackageGrid::PackageGrid(PackageModel* model, QWidget* parent) : QTableView(parent), m_model(model)
{
    setModel(model);
    setItemDelegate(new PackageDelegate(this));
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectItems);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    // Input-method text would open a cell as a key does: the number cells take keys only.
    applyInputMode(this, InputMode::Disabled);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setSectionsClickable(false);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    setCurrentIndex(model->index(0, 0));
}

int PackageGrid::currentRow() const
{
    return currentIndex().isValid() ? currentIndex().row() : 0;
}

void PackageGrid::goToRow(int row)
{
    setCurrentIndex(m_model->index(std::clamp(row, 0, LastPackageRow), 0));
}

void PackageGrid::paste(const QString& text)
{
    const QStringList values = pastedValues(text);
    const int first = currentRow();
    if (first + values.size() > PackageModel::SumRow) {
        messages().beep();
        return;
    }
    for (qsizetype i = 0; i < values.size(); ++i)
        m_model->setText(first + int(i), values[i]);
}

void PackageGrid::finishEdit(QWidget* editor, AfterEdit after)
{
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    move(after);
}

void PackageGrid::pasteFromEditor(QWidget* editor)
{
    closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
    paste(QApplication::clipboard()->text());
}

void PackageGrid::move(AfterEdit after)
{
    switch (after) {
    case AfterEdit::Down:
        goToRow(currentRow() + 1);
        break;
    case AfterEdit::Up:
        goToRow(currentRow() - 1);
        break;
    case AfterEdit::LeaveForward:
    case AfterEdit::LeaveBackward:
        focusNextPrevChild(after == AfterEdit::LeaveForward);
        break;
    }
}

void PackageGrid::keyPressEvent(QKeyEvent* event)
{
    if (!guardedCall([&] { return keyPress(event); }, true))
        QTableView::keyPressEvent(event);
}

bool PackageGrid::keyPress(QKeyEvent* event)
{
    if (state() == EditingState)
        return false;
    if (event->matches(QKeySequence::Paste)) {
        paste(QApplication::clipboard()->text());
        return true;
    }
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(m_model->text(currentRow()));
        return true;
    }
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier)
            return false;
        move(modifiers == Qt::ShiftModifier ? AfterEdit::Up : AfterEdit::Down);
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        m_model->setValue(currentRow(), Currency());
        return true;
    default:
        break;
    }
    // A key that could never be part of a number does not open the cell.
    const QString typed = event->text();
    if (typed.size() == 1 && !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
        typed[0].unicode() >= 0x20 && numberKey(typed[0].unicode()) == 0) {
        messages().beep();
        return true;
    }
    return false;
}

void PackageGrid::mousePressEvent(QMouseEvent* event)
{
    m_pressHandled = guardedCall([&] { return mousePress(event); }, true);
    if (!m_pressHandled)
        QTableView::mousePressEvent(event);
}

bool PackageGrid::mousePress(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid())
        return false;
    if (index.row() != PackageModel::SumRow)
        clickRow(index.row());
    return true;
}

void PackageGrid::mouseMoveEvent(QMouseEvent* event)
{
    // No selecting by dragging: the active cell moves only by the rules.
    guardedCall([&] {
        if (!m_pressHandled)
            QTableView::mouseMoveEvent(event);
    });
}

void PackageGrid::mouseReleaseEvent(QMouseEvent* event)
{
    guardedCall([&] {
        if (!std::exchange(m_pressHandled, false))
            QTableView::mouseReleaseEvent(event);
    });
}

void PackageGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    guardedCall([&] {
        if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
            edit(currentIndex());
    });
}

QModelIndex PackageGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    return guardedCall(
        [&] {
            const QModelIndex next = QTableView::moveCursor(action, modifiers);
            return next.row() == PackageModel::SumRow ? m_model->index(LastPackageRow, 0) : next;
        },
        currentIndex());
}

void PackageGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // The base class stores a cell being edited first, so the rule sees what the operator typed.
    QTableView::currentChanged(current, previous);
    guardedCall([&] {
        if (previous.isValid() && current.isValid() && previous.row() != current.row() && !m_leaving)
            leaveCell(previous.row(), current.row());
    });
}

void PackageGrid::leaveCell(int row, int newRow)
{
    if (row > LastPackageRow || !m_model->value(row).isZero())
        return;
    for (int below = row; below <= LastPackageRow; ++below)
        m_model->setValue(below, Currency());
    if (newRow > row) {
        const QScopedValueRollback guard(m_leaving, true);
        goToRow(row);
    }
}

void PackageGrid::clickRow(int row)
{
    goToRow(row);
    // A click below a gap lands on the first empty row after the last package.
    int target = row;
    while (target >= 1 && m_model->value(target - 1) <= Currency())
        --target;
    goToRow(target);
}

} // namespace tolvinpt
